#include "batch/run_steps.h"

#include <algorithm>
#include <chrono>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "unit/faulty_files.h"
#include "unit/temp_folder.h"

namespace orvik::batch {
namespace {

class RunStepsTest : public testing::Test {
 protected:
    RunStepsTest() { test::WriteFile(Book(), "\"Al\" <a@example.org>\r\n"); }

    [[nodiscard]] std::string Book() const { return folder.Name("book.txt"); }
    // Runs steps on files whose call with this number fails; what was told is in told.
    Status Run(std::vector<Step> steps, std::size_t call, std::errc error) {
        files.fault = {};
        files.fault.Call = call;
        files.fault.Error = std::make_error_code(error);
        Arguments arguments;
        arguments.Steps = std::move(steps);
        std::ostringstream stream;
        cli::Messenger messenger("orvik-batch", stream, false, std::chrono::hours(1));
        const Status status = RunSteps(arguments, messenger, files, folder.Name("none.conf"));
        told = stream.str();
        return status;
    }
    // Each call of a step that reads the book fails once, and that is all that is told.
    void ExpectOneTruth(Command what, std::errc error, Status status, const std::string& truth) {
        for (std::size_t call = 1;; ++call) {
            const Status found = Run({{what, Book(), {}}}, call, error);
            if (files.fault.Failed.empty()) {
                EXPECT_EQ(found, Status::Done);
                EXPECT_EQ(told, "");
                EXPECT_GT(call, 2);
                return;
            }
            if (files.fault.Failed == "List") {
                // A book is opened also where nobody can look for the copies of interrupted
                // savings.
                EXPECT_EQ(found, Status::Done);
                continue;
            }
            EXPECT_EQ(found, status) << files.fault.Failed;
            EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
            EXPECT_TRUE(told.ends_with(truth + "\n")) << told;
        }
    }

    test::TempFolder folder;
    test::FaultyFiles files;
    std::string told;
};

TEST_F(RunStepsTest, AFailureToReadIsToldOnce) {
    for (const Command what : {Command::Open, Command::Extract, Command::Merge}) {
        ExpectOneTruth(what, std::errc::io_error, Status::InputOutput, "Device I/O error");
        ExpectOneTruth(what, std::errc::permission_denied, Status::NoInput, "Permission denied");
        ExpectOneTruth(what, std::errc::not_enough_memory, Status::OutOfMemory, "Out of memory");
    }
}

TEST_F(RunStepsTest, AFailureToSaveIsToldOnce) {
    const std::vector<Step> steps = {{Command::Open, Book(), {}},
                                     {Command::Save, folder.Name("saved.ldif"), {}}};
    ASSERT_EQ(Run({steps.front()}, 0, std::errc::io_error), Status::Done);
    const std::size_t read = files.fault.Calls;
    for (std::size_t call = read + 1;; ++call) {
        const Status status = Run(steps, call, std::errc::io_error);
        if (files.fault.Failed.empty()) {
            break;
        }
        if (status != Status::Done) {
            EXPECT_EQ(status, Status::InputOutput) << files.fault.Failed;
            EXPECT_EQ(told, "orvik-batch: " + folder.Name("saved.ldif") + ": Device I/O error\n");
        }
    }
}

TEST_F(RunStepsTest, AQuestionBehindAFailureIsNotAsked) {
    const Step gone{Command::Open, folder.Name("gone.ldif"), {}};
    EXPECT_EQ(Run({gone, {Command::Save, folder.Name("never.txt"), {}}}, 0, {}), Status::NoInput);
    EXPECT_EQ(told, "orvik-batch: " + gone.File + ": Error: File not found\n");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"book.txt"});
}

}  // namespace
}  // namespace orvik::batch

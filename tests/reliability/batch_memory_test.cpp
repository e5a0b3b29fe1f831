// The command line without memory: reading the arguments, and running the steps.

#include <array>
#include <filesystem>
#include <ostream>
#include <streambuf>
#include <variant>

#include <gtest/gtest.h>

#include "batch/arguments.h"
#include "batch/run_steps.h"
#include "cli/messenger.h"
#include "platform/system_files.h"
#include "reliability/allocations.h"
#include "unit/temp_folder.h"
#include "unit/written_books.h"

namespace orvik::test {
namespace {

using batch::Arguments;
using batch::Command;
using batch::Status;

// Takes all and keeps nothing, so that it needs no memory of its own.
class Nowhere : public std::streambuf {
 protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char* /*bytes*/, std::streamsize count) override { return count; }
};

// Runs an act with the n-th allocation failing, for n from 1 until none fails. check is told
// whether the lack of memory came out of it. Returns the number of runs in which one failed.
template <class ActOnce, class Check>
std::size_t FailEach(const ActOnce& act, const Check& check) {
    std::size_t runs = 0;
    for (const Shortage shortage : {Shortage::Once, Shortage::FromThereOn}) {
        bool failed = true;
        for (std::size_t n = 1; failed; ++n) {
            bool thrown = false;
            {
                const Allocations failing(n, shortage);
                try {
                    act();
                } catch (const std::bad_alloc&) {
                    thrown = true;
                }
                failed = Allocations::Count() >= n;
            }
            runs += failed ? 1 : 0;
            check(failed, thrown);
        }
    }
    return runs;
}

TEST(ArgumentsWithoutMemory, AnAllocationFails_ArgumentsOrNothingElseIsThrown) {
    constexpr std::array kArguments = {
        "orvik-batch", "--open", "a.ldif", "--sort", "address", "--save", "b.nv"};
    Nowhere nowhere;
    std::ostream out(&nowhere);
    std::optional<std::variant<Arguments, Status>> parsed;
    const std::size_t runs = FailEach(
        [&] {
            parsed.reset();
            parsed = batch::ParseArguments(
                static_cast<int>(kArguments.size()), kArguments.data(), out, out);
        },
        [&](bool /*failed*/, bool thrown) {
            if (thrown || std::holds_alternative<Status>(*parsed)) {
                EXPECT_TRUE(thrown || std::get<Status>(*parsed) != Status::Done);
                return;
            }
            const auto& arguments = std::get<Arguments>(*parsed);
            ASSERT_EQ(arguments.Steps.size(), 3U);
            EXPECT_EQ(arguments.Steps[2].File, "b.nv");
        });
    EXPECT_GE(runs, 200U);
}

TEST(StepsWithoutMemory, AnAllocationFails_NewBookIsWholeOrNotThere) {
    const TempFolder folder;
    const std::string book = folder.Name("book.ldif");
    const std::string saved = folder.Name("saved.nv");
    WriteFile(book,
              LdifRecord("bo@books.example", "Bo") + "\r\n" + LdifRecord("al@books.example", "Al"));
    Arguments arguments;
    arguments.Steps = {
        {Command::Open, book, {}}, {Command::SortByAddress, {}, {}}, {Command::Save, saved, {}}};
    Nowhere nowhere;
    std::ostream out(&nowhere);
    SystemFiles files(false);
    const std::string settings = folder.Name("none.conf");
    Status status = Status::Done;
    const auto run = [&] {
        cli::Messenger messenger("orvik-batch", out, false, std::chrono::milliseconds(500));
        status = batch::RunSteps(arguments, messenger, files, settings);
    };
    run();
    ASSERT_EQ(status, Status::Done);
    const std::string whole = ReadFile(saved);
    std::filesystem::remove(saved);
    const std::size_t runs = FailEach(run, [&](bool /*failed*/, bool thrown) {
        if (std::filesystem::exists(saved)) {
            EXPECT_EQ(ReadFile(saved), whole);
        } else {
            EXPECT_TRUE(thrown || status != Status::Done);
        }
        std::filesystem::remove(saved);
        EXPECT_EQ(folder.Files().size(), 1U);
    });
    EXPECT_GE(runs, 300U);
}

}  // namespace
}  // namespace orvik::test

#include "platform/system_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>
#include <system_error>

namespace orvik {
namespace {

// A file takes the place of a standard stream as long as this lives.
class InPlaceOf {
 public:
    InPlaceOf(int stream, int file) : stream_(stream), kept_(dup(stream)) { dup2(file, stream); }
    InPlaceOf(const InPlaceOf&) = delete;
    InPlaceOf& operator=(const InPlaceOf&) = delete;
    ~InPlaceOf() {
        dup2(kept_, stream_);
        close(kept_);
    }

 private:
    int stream_;
    int kept_;
};

// What was written into a pipe whose other end is closed.
int PipeWith(const std::string& text) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    EXPECT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(ends[1]);
    return ends[0];
}

TEST(ReadStandardInput, Pipe_IsAppendedToItsEnd) {
    const int end = PipeWith("dn: cn=Ada Abbott\n");
    const InPlaceOf stdin_now(STDIN_FILENO, end);
    std::string bytes = "before ";
    EXPECT_FALSE(ReadStandardInput(1000, bytes));
    EXPECT_EQ(bytes, "before dn: cn=Ada Abbott\n");
    close(end);
}

TEST(ReadStandardInput, MoreThanTheMost_IsNotReadToItsEnd) {
    const int zeros = open("/dev/zero", O_RDONLY);
    const InPlaceOf stdin_now(STDIN_FILENO, zeros);
    std::string bytes;
    EXPECT_FALSE(ReadStandardInput(100'000, bytes));
    EXPECT_GT(bytes.size(), 100'000U);
    EXPECT_LT(bytes.size(), 300'000U);
    close(zeros);
}

TEST(ReadStandardInput, Folder_Fails) {
    const int folder = open("/", O_RDONLY | O_DIRECTORY);
    const InPlaceOf stdin_now(STDIN_FILENO, folder);
    std::string bytes;
    EXPECT_EQ(ReadStandardInput(10, bytes), std::errc::is_a_directory);
    close(folder);
}

TEST(StandardStreams, FilesThatTakeTheirPlace_AreNoTerminals) {
    const int null = open("/dev/null", O_RDWR);
    const InPlaceOf stdin_now(STDIN_FILENO, null);
    const InPlaceOf stdout_now(STDOUT_FILENO, null);
    const InPlaceOf stderr_now(STDERR_FILENO, null);
    EXPECT_FALSE(InputComesFromTerminal());
    EXPECT_FALSE(OutputGoesToTerminal());
    EXPECT_FALSE(ErrorsGoToTerminal());
    close(null);
}

TEST(StandardStreams, Terminal_IsOneForEachStream) {
    const int control = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(control, 0);
    ASSERT_EQ(grantpt(control), 0);
    ASSERT_EQ(unlockpt(control), 0);
    const int terminal = open(ptsname(control), O_RDWR | O_NOCTTY);
    {
        const InPlaceOf stdin_now(STDIN_FILENO, terminal);
        const InPlaceOf stdout_now(STDOUT_FILENO, terminal);
        const InPlaceOf stderr_now(STDERR_FILENO, terminal);
        EXPECT_TRUE(InputComesFromTerminal());
        EXPECT_TRUE(OutputGoesToTerminal());
        EXPECT_TRUE(ErrorsGoToTerminal());
    }
    close(terminal);
    close(control);
}

TEST(StandardStreams, OpenOnes_StayAsTheyAreWhenReserved) {
    const int before = open("/dev/null", O_RDONLY);
    close(before);
    ReserveStandardStreams();
    const int after = open("/dev/null", O_RDONLY);
    close(after);
    EXPECT_EQ(after, before);
}

TEST(StandardStreams, ClosedInput_GivesItsNumberToNoFileAndIsNotRead) {
    EXPECT_EXIT(
        {
            close(STDIN_FILENO);
            ReserveStandardStreams();
            std::string bytes;
            const bool is_closed = ReadStandardInput(10, bytes) == std::errc::bad_file_descriptor;
            _exit(is_closed && open("/dev/null", O_RDONLY) > STDERR_FILENO ? 7 : 8);
        },
        testing::ExitedWithCode(7),
        "");
}

TEST(ProgramFolder, IsTheFolderOfThisTest) {
    EXPECT_TRUE(std::filesystem::exists(ProgramFolder() + "/orvik-engine-tests"));
}

TEST(EndOutOfMemory, NamesTheProgram) {
    EXPECT_EXIT(EndOutOfMemory("orvik-test"),
                testing::ExitedWithCode(kOutOfMemoryStatus),
                "orvik-test: Out of memory");
}

}  // namespace
}  // namespace orvik

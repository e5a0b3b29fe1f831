#include "platform/system_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

using test::ReadFile;
using test::WriteFile;

using Files = std::vector<std::string>;

class SystemFilesTest : public testing::Test {
 protected:
    [[nodiscard]] std::string Resolved(const std::string& name) {
        return files_.ResolveLinks(name).string();
    }

    test::TempFolder folder_;
    SystemFiles files_{false};
};

TEST_F(SystemFilesTest, ResolveLinks_FollowsThemToTheEnd) {
    const std::string real = fs::canonical(folder_.Path()).string();
    fs::create_directory(folder_.Name("sub"));
    WriteFile(folder_.Name("sub/book"), "1");
    fs::create_directory_symlink("sub", folder_.Name("folder"));
    fs::create_symlink("folder/book", folder_.Name("one"));
    fs::create_symlink(folder_.Name("one"), folder_.Name("two"));
    EXPECT_EQ(Resolved(folder_.Name("two")), real + "/sub/book");
    EXPECT_EQ(Resolved(folder_.Name("sub/book")), real + "/sub/book");
}

TEST_F(SystemFilesTest, ResolveLinks_KnowsTheNameOfAFileThatIsNotThereYet) {
    fs::create_directory(folder_.Name("sub"));
    fs::create_symlink("sub/new", folder_.Name("one"));
    fs::create_symlink("one", folder_.Name("two"));
    EXPECT_EQ(fs::path(Resolved(folder_.Name("two"))).lexically_normal(),
              fs::path(folder_.Name("sub/new")));
    EXPECT_EQ(Resolved(folder_.Name("new")), folder_.Name("new"));
}

TEST_F(SystemFilesTest, ResolveLinks_LeavesARing) {
    fs::create_symlink("two", folder_.Name("one"));
    fs::create_symlink("one", folder_.Name("two"));
    EXPECT_EQ(Resolved(folder_.Name("one")), folder_.Name("one"));
}

// What such a link says is no name of a file, and only the system can follow it.
TEST_F(SystemFilesTest, ResolveLinks_FollowsLinksToOpenFiles) {
    WriteFile(folder_.Name("book"), "1");
    const int file = open(folder_.Name("book").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(file, 0);
    fs::create_symlink("/proc/self/fd/" + std::to_string(file), folder_.Name("link"));
    EXPECT_EQ(Resolved(folder_.Name("link")), fs::canonical(folder_.Name("book")).string());
    fs::remove(folder_.Name("book"));
    EXPECT_EQ(Resolved(folder_.Name("link")), folder_.Name("link")) << "the file has no name now";
    // Neither has one whose old name looks like it.
    WriteFile(folder_.Name("book (deleted)"), "2");
    EXPECT_EQ(Resolved(folder_.Name("link")), folder_.Name("link"));
    close(file);
}

TEST_F(SystemFilesTest, Read_GivesTheNextBytesAndNoMore) {
    WriteFile(folder_.Name("book"), std::string(20, 'a') + std::string(50, 'b'));
    std::unique_ptr<InputFile> file;
    ASSERT_FALSE(files_.OpenToRead(folder_.Name("book"), file));
    std::string bytes = "old";
    EXPECT_FALSE(file->Read(17, bytes));
    EXPECT_EQ(bytes, std::string(17, 'a'));
    EXPECT_FALSE(file->Read(4, bytes));
    EXPECT_EQ(bytes, "aaab");
    EXPECT_FALSE(file->Read(100, bytes));
    EXPECT_EQ(bytes, std::string(49, 'b'));
    EXPECT_FALSE(file->Read(100, bytes));
    EXPECT_EQ(bytes, "");
    EXPECT_FALSE(file->Rewind());
    EXPECT_FALSE(file->Read(17, bytes));
    EXPECT_EQ(bytes, std::string(17, 'a'));
}

TEST_F(SystemFilesTest, List_TellsWhatEachNameIsItself) {
    WriteFile(folder_.Name("a-file"), "123");
    WriteFile(folder_.Name("b-file"), "");
    fs::create_directory(folder_.Name("a-folder"));
    fs::create_symlink("a-file", folder_.Name("a-link"));
    std::vector<FolderEntry> entries;
    ASSERT_FALSE(files_.List(folder_.Path(), "a-", entries));
    std::sort(entries.begin(), entries.end(), [](const auto& one, const auto& other) {
        return one.Name < other.Name;
    });
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].Name, "a-file");
    EXPECT_EQ(entries[0].Status.Kind, FileKind::Regular);
    EXPECT_EQ(entries[0].Status.Length(), 3U);
    EXPECT_TRUE(entries[0].Mine);
    EXPECT_EQ(entries[1].Status.Kind, FileKind::Folder);
    EXPECT_EQ(entries[2].Status.Kind, FileKind::Other);
    EXPECT_EQ(files_.List(folder_.Name("none"), "", entries), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(entries.empty());
}

TEST_F(SystemFilesTest, LockKeeper_IsTheProgramThatHasTheLock) {
    const int held = open(folder_.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    const std::string keeper = files_.LockKeeper(folder_.Path());
    // Inside some containers the system tells nothing.
    const std::string process = " (process " + std::to_string(getpid()) + ")";
    EXPECT_TRUE(keeper.ends_with(process) || keeper == "another program") << keeper;
    close(held);
    EXPECT_EQ(files_.LockKeeper(folder_.Path()), "another program");
}

TEST_F(SystemFilesTest, StateFolder_IsThatOfTheUser) {
    {
        const test::Environment state("XDG_STATE_HOME", "/state");
        EXPECT_EQ(files_.StateFolder(), "/state");
    }
    const test::Environment home("HOME", "/home/al");
    const test::Environment relative("XDG_STATE_HOME", "state");
    EXPECT_EQ(files_.StateFolder(), "/home/al/.local/state");
    const test::Environment nobody("HOME", "");
    EXPECT_EQ(files_.StateFolder(), "");
}

TEST_F(SystemFilesTest, CreateFolders_MakesThoseThatAreMissing) {
    EXPECT_FALSE(files_.CreateFolders(folder_.Name("a/b/c")));
    EXPECT_FALSE(files_.CreateFolders(folder_.Name("a/b/c")));
    EXPECT_EQ(fs::status(folder_.Name("a/b")).permissions(), fs::perms(0700));
    EXPECT_TRUE(fs::is_directory(folder_.Name("a/b/c")));
    WriteFile(folder_.Name("file"), "");
    EXPECT_EQ(files_.CreateFolders(folder_.Name("file/a")), std::errc::not_a_directory);
}

// Where the file system knows no files without names, and no links.
TEST_F(SystemFilesTest, CreateUnseenWithAName_LooksTheSameInTheEnd) {
    SystemFiles named(false, false);
    std::size_t written = 0;
    {
        std::unique_ptr<OutputFile> file;
        ASSERT_FALSE(named.CreateUnseen(folder_.Path(), true, file));
        EXPECT_EQ(folder_.Files().size(), 1U);
        ASSERT_FALSE(file->Write("new", written));
        WriteFile(folder_.Name("old"), "old");
        EXPECT_EQ(file->TakeName(folder_.Name("old")), std::errc::file_exists);
        EXPECT_EQ(ReadFile(folder_.Name("old")), "old");
        EXPECT_FALSE(file->TakeName(folder_.Name("new")));
        EXPECT_EQ(folder_.Files(), (Files{"new", "old"}));
    }
    EXPECT_EQ(ReadFile(folder_.Name("new")), "new");
    {
        std::unique_ptr<OutputFile> file;
        ASSERT_FALSE(named.CreateUnseen(folder_.Path(), true, file));
    }
    EXPECT_EQ(folder_.Files(), (Files{"new", "old"}));
}

class HoldEndTest : public testing::TestWithParam<int> {
 protected:
    // Runs a child that handles signals; returns how it ended.
    template <class Act>
    static int StatusOfChild(const Act& act) {
        const pid_t child = fork();
        if (child == 0) {
            for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
                static_cast<void>(std::signal(number, SIG_DFL));
            }
            act();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    }
};

INSTANTIATE_TEST_SUITE_P(, HoldEndTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_P(HoldEndTest, ASignalWithoutAHold_EndsTheProgram) {
    const int status = StatusOfChild([] {
        HandleSignals();
        SystemFiles().HoldEnd();
        static_cast<void>(std::raise(GetParam()));
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam()) << status;
}

TEST_P(HoldEndTest, ASignalUnderAHold_EndsTheProgramBehindTheLastOne) {
    const test::TempFolder folder;
    const int status = StatusOfChild([&] {
        HandleSignals();
        auto first = SystemFiles().HoldEnd();
        auto second = SystemFiles().HoldEnd();
        static_cast<void>(std::raise(GetParam()));
        static_cast<void>(std::raise(SIGTERM));
        fs::create_directory(folder.Name("1"));
        first.reset();
        fs::create_directory(folder.Name("2"));
        second.reset();
        fs::create_directory(folder.Name("3"));
    });
    EXPECT_TRUE(WIFSIGNALED(status)) << status;
    EXPECT_EQ(folder.Files(), (Files{"1", "2"}));
}

TEST_P(HoldEndTest, ASignalThatIsToldOf_EndsTheProgramWhenItIsAskedTo) {
    const test::TempFolder folder;
    const int status = StatusOfChild([&] {
        HandleSignals();
        const int told = TellOfSignals();
        static_cast<void>(std::raise(GetParam()));
        char byte = 0;
        if (read(told, &byte, 1) == 1) {
            fs::create_directory(folder.Name("told"));
        }
        auto hold = SystemFiles().HoldEnd();
        EndBySignal();
        fs::create_directory(folder.Name("under a hold"));
        hold.reset();
        fs::create_directory(folder.Name("too late"));
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam()) << status;
    EXPECT_EQ(folder.Files(), (Files{"told", "under a hold"}));
}

TEST_P(HoldEndTest, TheSecondSignal_LetsWhatTheFirstOneBeganEnd) {
    const test::TempFolder folder;
    const int status = StatusOfChild([&] {
        HandleSignals();
        static_cast<void>(TellOfSignals());
        static_cast<void>(std::raise(SIGTERM));
        static_cast<void>(std::raise(GetParam()));
        static_cast<void>(std::raise(SIGHUP));
        fs::create_directory(folder.Name("1"));
        EndBySignal();
        fs::create_directory(folder.Name("2"));
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
    EXPECT_EQ(folder.Files(), (Files{"1"}));
}

TEST_P(HoldEndTest, TheSecondSignal_EndsAProgramThatHangs) {
    const int status = StatusOfChild([] {
        sigset_t alarms{};
        sigemptyset(&alarms);
        sigaddset(&alarms, SIGALRM);
        sigprocmask(SIG_BLOCK, &alarms, nullptr);
        HandleSignals();
        static_cast<void>(TellOfSignals());
        static_cast<void>(std::raise(SIGTERM));
        static_cast<void>(std::raise(GetParam()));
        for (;;) {
            pause();
        }
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam()) << status;
}

TEST_P(HoldEndTest, WithoutASignal_NothingEnds) {
    EXPECT_EQ(StatusOfChild([] {
                  HandleSignals();
                  static_cast<void>(TellOfSignals());
                  EndBySignal();
              }),
              0);
}

// As nohup does.
TEST_P(HoldEndTest, ASignalThatWasIgnored_StaysSo) {
    const int status = StatusOfChild([] {
        static_cast<void>(std::signal(GetParam(), SIG_IGN));
        HandleSignals();
        static_cast<void>(std::raise(GetParam()));
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace orvik

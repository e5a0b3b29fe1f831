#include "store/recovery_store.h"

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "unit/process_limits.h"
#include "unit/store/recovery_store_fixture.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

using test::RecoveryStoreTest;

TEST_F(RecoveryStoreTest, ACopy_IsOfferedWhenItsProgramHasEnded) {
    {
        RecoveryStore store(files);
        store.Keep(CopyOf("old"));
        store.Keep(CopyOf("new"));
        EXPECT_THAT(Offered(), IsEmpty());
        EXPECT_THAT(Texts(store.LeftBooks()), IsEmpty());
    }
    EXPECT_THAT(Offered(), ElementsAre("new"));
}

TEST_F(RecoveryStoreTest, TheNewestComesFirst) {
    Leave("middle", 20);
    Leave("old", 10);
    Leave("new", 30);
    EXPECT_THAT(Offered(), ElementsAre("new", "middle", "old"));
}

TEST_F(RecoveryStoreTest, ForNobodyButTheUser) {
    const mode_t before = umask(0);
    Leave("text");
    umask(before);
    for (const fs::path& file : Files()) {
        EXPECT_EQ(ModeOf(file), fs::is_directory(file) ? 0700U : 0600U) << file;
    }
    EXPECT_EQ(ModeOf(root), 0700U);
}

TEST_F(RecoveryStoreTest, WhatWasForgotten_LeavesNothing) {
    {
        RecoveryStore store(files);
        store.Keep(CopyOf("text"));
        store.Forget();
        EXPECT_THAT(Files(), testing::SizeIs(2));
        store.Forget();
    }
    EXPECT_FALSE(fs::exists(root));
    EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(RecoveryStoreTest, TwoPrograms_TakeNoneOfEachOthers) {
    Leave("left");
    RecoveryStore one(files);
    one.Keep(CopyOf("one"));
    RecoveryStore other(files);
    other.Keep(CopyOf("other"));
    const std::vector<RecoveryStore::Left> taken = one.LeftBooks();
    EXPECT_THAT(Texts(taken), ElementsAre("left"));
    // While one program asks about it another does not.
    EXPECT_THAT(Texts(other.LeftBooks()), IsEmpty());
    one.Remove(taken.front());
    EXPECT_THAT(Texts(other.LeftBooks()), IsEmpty());
    EXPECT_THAT(Files(), testing::SizeIs(6));
}

TEST_F(RecoveryStoreTest, Removing_TakesThatCopyAlone) {
    Leave("one", 2);
    Leave("other", 1);
    {
        const RecoveryStore store(files);
        const std::vector<RecoveryStore::Left> left = store.LeftBooks();
        store.Remove(left.front());
    }
    EXPECT_THAT(Offered(), ElementsAre("other"));
}

TEST_F(RecoveryStoreTest, WhatIsNotUnderstood_StaysAndIsNotOffered) {
    for (const char* const bytes : {"", "garbage", "orvik-recovery 2\nend 0\n\n"}) {
        Leave("text");
        const fs::path book = OnlyFolder() / "book";
        test::WriteFile(book, bytes);
        EXPECT_THAT(Offered(), IsEmpty());
        EXPECT_EQ(test::ReadFile(book), bytes);
        fs::remove_all(root);
    }
}

TEST_F(RecoveryStoreTest, ABookThatIsNoFile_Stays) {
    Leave("text");
    const fs::path book = OnlyFolder() / "book";
    fs::remove(book);
    ASSERT_EQ(mkfifo(book.c_str(), 0600), 0);
    EXPECT_THAT(Offered(), IsEmpty());
    EXPECT_TRUE(fs::exists(book));
}

// A hole in a damaged disk can be as long as it likes.
TEST_F(RecoveryStoreTest, WhatIsNoCopy_IsNotReadAsAWhole) {
    class Counting : public InputFile {
     public:
        Counting(std::unique_ptr<InputFile> file, std::size_t& read)
            : file_(std::move(file)), read_(read) {}
        std::error_code Status(FileStatus& status) override { return file_->Status(status); }
        std::error_code Read(std::size_t count, std::string& bytes) override {
            const std::error_code error = file_->Read(count, bytes);
            read_ += bytes.size();
            return error;
        }
        std::error_code Rewind() override { return file_->Rewind(); }

     private:
        std::unique_ptr<InputFile> file_;
        std::size_t& read_;
    };
    class CountingFiles : public test::FaultyFiles {
     public:
        std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override {
            const std::error_code error = test::FaultyFiles::OpenToRead(path, file);
            file = std::make_unique<Counting>(std::move(file), read);
            return error;
        }
        std::size_t read = 0;
    };
    Leave("text");
    const fs::path book = OnlyFolder() / "book";
    test::WriteFile(book, "");
    fs::resize_file(book, 1'000'000);
    CountingFiles counting;
    counting.state_folder = folder.Path();
    EXPECT_THAT(Texts(RecoveryStore(counting).LeftBooks()), IsEmpty());
    EXPECT_GT(counting.read, 0U);
    EXPECT_LT(counting.read, 100U);
}

TEST_F(RecoveryStoreTest, AFolderWithoutABook_Goes) {
    Leave("text");
    fs::remove(OnlyFolder() / "book");
    test::WriteFile(OnlyFolder() / ".orvik-0123456789abcdef.tmp", "half");
    EXPECT_THAT(Offered(), IsEmpty());
    EXPECT_THAT(Files(), IsEmpty());
}

// What killed programs left must not take all files that may be open.
TEST_F(RecoveryStoreTest, ABookAmongManyFolders_IsOffered) {
    Leave("text");
    for (int i = 0; i < 200; ++i) {
        const fs::path name = root / std::to_string(i);
        fs::create_directories(name);
        test::WriteFile(name / "running", "");
        test::WriteFile(name / "book", "damaged");
    }
    const test::OpenFilesLimit limit(64);
    EXPECT_THAT(Offered(), ElementsAre("text"));
}

TEST_F(RecoveryStoreTest, NoMoreThanAHundredAreOffered) {
    for (int i = 0; i < 103; ++i) {
        Leave("text");
    }
    EXPECT_THAT(Offered(), testing::SizeIs(100));
}

TEST_F(RecoveryStoreTest, ALinkInTheCopysPlace_LeadsNowhere) {
    const fs::path other = folder.Name("other");
    for (const bool symbolic : {true, false}) {
        RecoveryStore store(files);
        store.Keep(CopyOf("old"));
        test::WriteFile(other, "mine");
        const fs::path book = OnlyFolder() / "book";
        fs::remove(book);
        symbolic ? fs::create_symlink(other, book) : fs::create_hard_link(other, book);
        store.Keep(CopyOf("new"));
        EXPECT_EQ(test::ReadFile(other), "mine");
        EXPECT_EQ(ModeOf(book), 0600U);
        store.Forget();
    }
}

TEST_F(RecoveryStoreTest, ALinkAsACopy_IsNotFollowed) {
    Leave("text");
    const fs::path book = OnlyFolder() / "book";
    fs::rename(book, folder.Name("other"));
    fs::create_symlink(folder.Name("other"), book);
    EXPECT_THAT(Offered(), IsEmpty());
    EXPECT_TRUE(fs::is_symlink(book));
}

TEST_F(RecoveryStoreTest, ACopyWithoutATime_IsOfItsFilesTime) {
    Leave("text", 0);
    const std::vector<RecoveryStore::Left> left = RecoveryStore(files).LeftBooks();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_GT(left.front().Copy.Seconds, 1'700'000'000);
}

TEST_F(RecoveryStoreTest, ACopyThatIsLeft_IsOfferedAndTheNextOneIsAnother) {
    RecoveryStore store(files);
    store.LeaveCopy();
    store.Keep(CopyOf("left"));
    store.LeaveCopy();
    store.Keep(CopyOf("kept"));
    EXPECT_THAT(Offered(), ElementsAre("left"));
    store.Forget();
    EXPECT_THAT(Offered(), ElementsAre("left"));
}

// It may be of a program that is about to lock it.
TEST_F(RecoveryStoreTest, AFolderWithoutALock_GoesWhenItIsOld) {
    fs::create_directories(root / "0123456789abcdef");
    EXPECT_THAT(Offered(), IsEmpty());
    EXPECT_THAT(Files(), testing::SizeIs(1));
    MakeOld(root / "0123456789abcdef");
    EXPECT_THAT(Offered(), IsEmpty());
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(RecoveryStoreTest, WhatIsNoFolderOfOurs_Stays) {
    fs::create_directories(root / ".hidden");
    test::WriteFile(root / "note", "mine");
    fs::create_directory_symlink(folder.Path(), root / "link");
    EXPECT_THAT(Offered(), IsEmpty());
    RecoveryStore(files).RemoveLeft();
    EXPECT_THAT(Files(), testing::SizeIs(3));
}

TEST_F(RecoveryStoreTest, WithoutLocks_OnlyWhatIsOldIsOffered) {
    class NoLocks : public test::FaultyFiles {
        std::error_code Lock(const Path& /*path*/,
                             std::chrono::milliseconds /*longest*/,
                             std::unique_ptr<FolderLock>& /*lock*/) override {
            return std::make_error_code(std::errc::not_supported);
        }
    };
    NoLocks no_locks;
    no_locks.state_folder = folder.Path();
    {
        RecoveryStore store(no_locks);
        store.Keep(CopyOf("text"));
    }
    EXPECT_THAT(Texts(RecoveryStore(no_locks).LeftBooks()), IsEmpty());
    MakeOld(OnlyFolder() / "book");
    EXPECT_THAT(Texts(RecoveryStore(no_locks).LeftBooks()), ElementsAre("text"));
}

TEST_F(RecoveryStoreTest, Uninstalling_RemovesWhatEndedProgramsLeft) {
    Leave("left");
    Leave("damaged");
    test::WriteFile(OnlyFolder() / "book", "damaged");
    {
        RecoveryStore living(files);
        living.Keep(CopyOf("living"));
        RecoveryStore(files).RemoveLeft();
        EXPECT_THAT(Files(), testing::SizeIs(3));
        living.Forget();
        EXPECT_THAT(Files(), testing::SizeIs(2));
    }
    EXPECT_FALSE(fs::exists(root));
}

TEST_F(RecoveryStoreTest, AFolderThatSomebodyRemoved_IsMadeAgain) {
    RecoveryStore store(files);
    store.Keep(CopyOf("old"));
    fs::remove_all(root);
    store.Forget();
    store.Keep(CopyOf("new"));
    EXPECT_THAT(Files(), testing::SizeIs(3));
    EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(RecoveryStoreTest, WithoutAFolderForStates_NothingIsKept) {
    files.state_folder.clear();
    RecoveryStore store(files);
    EXPECT_THROW(store.Keep(CopyOf("text")), RunTimeError);
    store.Forget();
    store.RemoveLeft();
    EXPECT_THAT(Texts(store.LeftBooks()), IsEmpty());
}

// Whatever call fails, the last copy that was kept is offered, or the new one.
TEST_F(RecoveryStoreTest, AnErrorOfAnyCall_LeavesAWholeCopy) {
    for (const std::errc error :
         {std::errc::no_space_on_device, std::errc::io_error, std::errc::permission_denied}) {
        std::size_t call = 0;
        for (bool hit = true; hit;) {
            ++call;
            fs::remove_all(root);
            bool failed = false;
            {
                RecoveryStore store(files);
                store.Keep(CopyOf("old"));
                files.fault = {};
                files.fault.Call = call;
                files.fault.Error = std::make_error_code(error);
                TrapFailure([&] { store.Keep(CopyOf("new")); },
                            [&](const RunTimeError&) { failed = true; });
                hit = !files.fault.Failed.empty();
                files.fault = {};
            }
            const std::vector<std::string> offered = Offered();
            ASSERT_EQ(offered.size(), 1U) << call;
            EXPECT_TRUE(offered.front() == "new" || failed) << call;
        }
        EXPECT_GT(call, 10U);
    }
}

TEST_F(RecoveryStoreTest, AnErrorOfAnyCallOfTheFirst_IsToldAndTheNextOneIsKept) {
    std::size_t call = 0;
    for (bool hit = true; hit;) {
        ++call;
        fs::remove_all(root);
        {
            RecoveryStore store(files);
            files.fault = {};
            files.fault.Call = call;
            files.fault.Error = std::make_error_code(std::errc::no_space_on_device);
            TrapFailure([&] { store.Keep(CopyOf("old")); }, [](const RunTimeError&) {});
            hit = !files.fault.Failed.empty();
            files.fault = {};
            store.Keep(CopyOf("new"));
        }
        EXPECT_THAT(Offered(), ElementsAre("new")) << call;
    }
    EXPECT_GT(call, 15U);
}

}  // namespace
}  // namespace orvik

// What interrupted savings leave, and what becomes of it.

#include "app/book_copies.h"

#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "app/book_file.h"
#include "unit/failure.h"
#include "unit/faulty_files.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

using test::FailureOf;
using test::ReadFile;
using test::WriteFile;

using Files = std::vector<std::string>;

// A disk that knows no locks if told so, or fills up while a book is written in place.
class OddFiles : public SystemFiles {
 public:
    explicit OddFiles(bool unnamed = true) : SystemFiles(false, unnamed) {}

    Path state_folder;
    bool has_locks = true;
    int fails_to_write = 0;

    Path StateFolder() override { return state_folder; }
    std::error_code Lock(const Path& folder,
                         std::chrono::milliseconds longest,
                         std::unique_ptr<FolderLock>& lock) override {
        return has_locks ? SystemFiles::Lock(folder, longest, lock)
                         : std::make_error_code(std::errc::not_supported);
    }
    std::error_code OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) override {
        const std::error_code error = SystemFiles::OpenToWrite(path, file);
        if (!error && --fails_to_write >= 0) {
            file = std::make_unique<Full>(std::move(file));
        }
        return error;
    }

 private:
    class Full : public OutputFile {
     public:
        explicit Full(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
        std::error_code Write(std::string_view /*bytes*/, std::size_t& written) override {
            static_cast<void>(file_->Write("garbage", written));
            return std::make_error_code(std::errc::io_error);
        }
        std::error_code SetLength(std::uint64_t /*length*/) override { return {}; }
        std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override {
            return file_->TakeAttributesOf(other, all_kept);
        }
        std::error_code Sync() override { return {}; }
        std::error_code TakeName(const fs::path& name) override { return file_->TakeName(name); }
        std::error_code Close() override { return file_->Close(); }

     private:
        std::unique_ptr<OutputFile> file_;
    };
};

class BookCopiesTest : public testing::Test {
 protected:
    // A file that a saving has left so many hours ago.
    void Leave(const std::string& name, int hours = 0) const {
        WriteFile(folder_.Name(name), "left");
        const std::time_t then = std::time(nullptr) - static_cast<std::time_t>(hours) * 3600;
        const utimbuf times = {then, then};
        EXPECT_EQ(utime(folder_.Name(name).c_str(), &times), 0);
    }
    // A book with two names, which is written in place.
    void MakeLinkedBook() const {
        WriteFile(folder_.Name("book"), "old");
        fs::create_hard_link(folder_.Name("book"), folder_.Name("other"));
    }
    [[nodiscard]] std::vector<fs::path> Left() { return LeftCopies(files_, folder_.Name("book")); }

    test::TempFolder folder_;
    test::TempFolder state_;
    OddFiles files_;
    FileTalk talk_;
};

TEST_F(BookCopiesTest, ASaving_RemovesWhatAKillHasLeft) {
    Leave(".orvik-0123456789abcdef.tmp");
    Leave(".orvik-0123456789abcdee.new");
    ReplaceFile(files_, folder_.Name("book"), "new");
    EXPECT_EQ(folder_.Files(), Files{"book"});
}

TEST_F(BookCopiesTest, ASaving_TouchesNothingElse) {
    const Files others = {".orvik-0123456789abcdef", ".orvik-1.tmp", ".orvik-x.tmp", "a.tmp"};
    for (const std::string& name : others) {
        Leave(name, 1000);
    }
    WriteFile(folder_.Name("target"), "1");
    fs::create_symlink("target", folder_.Name(".orvik-0123456789abcdea.tmp"));
    fs::create_directory(folder_.Name(".orvik-0123456789abcdeb.tmp"));
    Files expected = folder_.Files();
    expected.emplace_back("book");
    std::sort(expected.begin(), expected.end());
    ReplaceFile(files_, folder_.Name("book"), "new");
    EXPECT_EQ(folder_.Files(), expected);
}

TEST_F(BookCopiesTest, ASaving_LeavesWhatBelongsToOthers) {
    const std::string name = ".orvik-0123456789abcdef.tmp";
    Leave(name, 1000);
    if (chown(folder_.Name(name).c_str(), 65534, 65534) != 0) {
        GTEST_SKIP() << "only the superuser gives files away";
    }
    ReplaceFile(files_, folder_.Name("book"), "new");
    EXPECT_EQ(folder_.Files(), (Files{name, "book"}));
}

TEST_F(BookCopiesTest, WithoutLocks_OnlyOldOnesGo) {
    files_.has_locks = false;
    Leave(".orvik-0123456789abcdea.tmp", 0);
    Leave(".orvik-0123456789abcdeb.tmp", 2);
    ReplaceFile(files_, folder_.Name("book"), "new");
    EXPECT_EQ(folder_.Files(), (Files{".orvik-0123456789abcdea.tmp", "book"}));
}

TEST_F(BookCopiesTest, FilesWithoutUnnamedOnes_AreSavedTheSame) {
    OddFiles named(false);
    ReplaceFile(named, folder_.Name("book"), "1");
    AppendToFile(named, folder_.Name("book"), "2");
    KeepCopy(named, folder_.Name("book"), "3");
    EXPECT_EQ(ReadFile(folder_.Name("book")), "12");
    EXPECT_EQ(folder_.Files(), (Files{"book", "book.bak"}));
}

TEST_F(BookCopiesTest, ABookThatIsWhole_HasNoCopy) {
    MakeLinkedBook();
    ReplaceFile(files_, folder_.Name("book"), "new");
    EXPECT_EQ(folder_.Files(), (Files{"book", "other"}));
    EXPECT_TRUE(Left().empty());
}

TEST_F(BookCopiesTest, ASavingThatFails_RestoresTheBook) {
    MakeLinkedBook();
    files_.fails_to_write = 1;
    EXPECT_EQ(FailureOf([&] { ReplaceFile(files_, folder_.Name("book"), "new"); }), 57);
    EXPECT_EQ(ReadFile(folder_.Name("book")), "old");
    EXPECT_EQ(folder_.Files(), (Files{"book", "other"}));
}

TEST_F(BookCopiesTest, WhatCannotBeRestored_StaysInTheCopyAndIsOffered) {
    MakeLinkedBook();
    files_.fails_to_write = 2;
    try {
        ReplaceFile(files_, folder_.Name("book"), "new");
        ADD_FAILURE() << "saved";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.Number(), 57);
        EXPECT_EQ(failure.Detail(),
                  "The old contents stand in " +
                      fs::canonical(folder_.Name("book.orvik-copy")).string() + ".");
    }
    EXPECT_EQ(ReadFile(folder_.Name("book.orvik-copy")), "old");
    EXPECT_EQ(fs::status(folder_.Name("book.orvik-copy")).permissions(), fs::perms(0600));
    ASSERT_EQ(Left().size(), 1U);
    RestoreCopy(files_, talk_, folder_.Name("book"), Left().front());
    EXPECT_EQ(ReadFile(folder_.Name("other")), "old");
    EXPECT_EQ(folder_.Files(), (Files{"book", "other"}));
}

// Nobody locks the folder of the copies, so that a new one may be another program's.
TEST_F(BookCopiesTest, ACopyElsewhere_LeavesWhatIsYoungThere) {
    files_.state_folder = state_.Path();
    const fs::path copies = fs::path(state_.Path()) / "orvik/copies";
    fs::create_directories(copies);
    WriteFile(copies / ".orvik-0123456789abcdea.tmp", "left");
    fs::path copy;
    EXPECT_FALSE(WriteCopyElsewhere(files_, folder_.Name("book"), "old", copy));
    EXPECT_TRUE(fs::exists(copies / ".orvik-0123456789abcdea.tmp"));
    EXPECT_EQ(ReadFile(copy.string()), "old");
}

TEST_F(BookCopiesTest, AFullDisk_KeepsTheCopyElsewhere) {
    MakeLinkedBook();
    files_.state_folder = state_.Path();
    files_.fails_to_write = 2;
    const fs::path copies = fs::path(state_.Path()) / "orvik/copies";
    {
        // A name too long to get the ending of a copy stands for a folder that takes no new file.
        const std::string name(250, 'b');
        WriteFile(folder_.Name(name), "old");
        fs::create_hard_link(folder_.Name(name), folder_.Name("long"));
        EXPECT_EQ(FailureOf([&] { ReplaceFile(files_, folder_.Name(name), "new"); }), 57);
        ASSERT_EQ(LeftCopies(files_, folder_.Name(name)).size(), 1U);
        const fs::path copy = LeftCopies(files_, folder_.Name(name)).front();
        EXPECT_EQ(copy.parent_path(), copies);
        EXPECT_EQ(ReadFile(copy.string()), "old");
        EXPECT_EQ(fs::status(copy).permissions(), fs::perms(0600));
        EXPECT_EQ(fs::status(copies).permissions(), fs::perms(0700));
        RestoreCopy(files_, talk_, folder_.Name(name), copy);
        EXPECT_EQ(ReadFile(folder_.Name("long")), "old");
    }
    EXPECT_TRUE(fs::is_empty(copies));
    // It is no other book's.
    EXPECT_TRUE(Left().empty());
}

TEST_F(BookCopiesTest, WithoutAPlaceForACopy_NothingIsWritten) {
    const std::string name(250, 'b');
    WriteFile(folder_.Name(name), "old");
    fs::create_hard_link(folder_.Name(name), folder_.Name("long"));
    EXPECT_NE(FailureOf([&] { ReplaceFile(files_, folder_.Name(name), "new"); }), 0);
    EXPECT_EQ(ReadFile(folder_.Name("long")), "old");
}

TEST_F(BookCopiesTest, ACopyThatIsNeeded_IsNotOffered) {
    WriteFile(folder_.Name("book"), "new");
    Leave("book.orvik-copy");
    std::unique_ptr<FolderLock> saving;
    ASSERT_FALSE(files_.Lock(folder_.Path(), {}, saving));
    EXPECT_TRUE(Left().empty());
    saving.reset();
    EXPECT_EQ(Left().size(), 1U);
    files_.has_locks = false;
    EXPECT_TRUE(Left().empty());
    Leave("book.orvik-copy", 2);
    EXPECT_EQ(Left().size(), 1U);
}

TEST_F(BookCopiesTest, ACopyOfWhatTheBookHolds_Goes) {
    WriteFile(folder_.Name("book"), "left");
    Leave("book.orvik-copy");
    EXPECT_TRUE(Left().empty());
    EXPECT_EQ(folder_.Files(), Files{"book"});
}

TEST_F(BookCopiesTest, OtherFiles_AreNoCopies) {
    WriteFile(folder_.Name("book"), "new");
    for (const char* const name :
         {"book.orvik-copy2", "book.orvik-copyx", "book.orvik-copy.txt", "books.orvik-copy"}) {
        Leave(name);
    }
    fs::create_symlink("books.orvik-copy", folder_.Name("book.orvik-copy"));
    ASSERT_EQ(Left().size(), 1U);
    EXPECT_EQ(Left().front().filename(), "book.orvik-copy2");
}

}  // namespace
}  // namespace orvik

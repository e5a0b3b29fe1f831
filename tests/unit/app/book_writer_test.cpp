// What a saving tells the user, and what it does with links and devices.

#include "app/book_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/book_file.h"
#include "app/file_slot.h"
#include "unit/failure.h"
#include "unit/faulty_files.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

using test::FailureOf;
using test::ReadFile;
using test::WriteFile;

using Texts = std::vector<std::string>;

// Keeps what it is told.
class Listener : public FileTalk {
 public:
    void Note(std::string_view text) override { notes.emplace_back(text); }
    void Waits(std::string_view text) override { waits.emplace_back(text); }
    CopyAnswer OfferCopy(const std::string& /*book*/, const std::string& copy) override {
        offered.push_back(fs::path(copy).filename());
        return answer;
    }

    Texts notes;
    Texts waits;
    Texts offered;
    CopyAnswer answer = CopyAnswer::NotNow;
};

// A folder whose lock another program keeps for so many tries, on a disk that keeps no attributes.
class OddFiles : public SystemFiles {
 public:
    OddFiles() : SystemFiles(false) {}

    int busy = 0;
    bool has_locks = true;
    bool loses_attributes = false;

    std::error_code Lock(const Path& folder,
                         std::chrono::milliseconds longest,
                         std::unique_ptr<FolderLock>& lock) override {
        if (!has_locks) {
            return std::make_error_code(std::errc::not_supported);
        }
        waited += longest;
        return --busy >= 0 ? std::make_error_code(std::errc::device_or_resource_busy)
                           : SystemFiles::Lock(folder, longest, lock);
    }
    std::string LockKeeper(const Path& /*folder*/) override { return "orvik (process 12)"; }
    std::error_code CreateUnseen(const Path& folder,
                                 bool only_mine,
                                 std::unique_ptr<OutputFile>& file) override {
        const std::error_code error = SystemFiles::CreateUnseen(folder, only_mine, file);
        if (!error && loses_attributes) {
            file = std::make_unique<Losing>(std::move(file));
        }
        return error;
    }

    std::chrono::milliseconds waited{0};

 private:
    class Losing : public OutputFile {
     public:
        explicit Losing(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
        std::error_code Write(std::string_view bytes, std::size_t& written) override {
            return file_->Write(bytes, written);
        }
        std::error_code SetLength(std::uint64_t length) override {
            return file_->SetLength(length);
        }
        std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override {
            const std::error_code error = file_->TakeAttributesOf(other, all_kept);
            all_kept = false;
            return error;
        }
        std::error_code Sync() override { return file_->Sync(); }
        std::error_code TakeName(const fs::path& name) override { return file_->TakeName(name); }
        std::error_code Close() override { return file_->Close(); }

     private:
        std::unique_ptr<OutputFile> file_;
    };
};

class BookWriterTest : public testing::Test {
 protected:
    [[nodiscard]] std::string Book() const { return folder_.Name("book"); }
    void Save() {
        SaveFile(files_, talk_, Book(), false, [](const auto& /*old*/) { return "new"; });
    }

    test::TempFolder folder_;
    OddFiles files_;
    Listener talk_;
    FileSlot slot_{files_, talk_};
};

TEST_F(BookWriterTest, ASavingThatNobodyHinders_SaysNothing) {
    WriteFile(Book(), "old");
    Save();
    EXPECT_TRUE(talk_.notes.empty());
    EXPECT_TRUE(talk_.waits.empty());
}

TEST_F(BookWriterTest, ASavingThatWaits_SaysForWhom) {
    files_.busy = 1;
    Save();
    EXPECT_EQ(talk_.waits,
              Texts{"Waiting for orvik (process 12), which is saving into this folder"});
    EXPECT_EQ(ReadFile(Book()), "new");
}

TEST_F(BookWriterTest, ASavingThatWaitedInVain_SaysForWhom) {
    files_.busy = 2;
    try {
        Save();
        ADD_FAILURE() << "saved";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.Number(), 70);
        EXPECT_EQ(failure.Detail(), "orvik (process 12) was still saving into this folder.");
    }
    EXPECT_EQ(files_.waited, std::chrono::seconds(10));
    EXPECT_TRUE(folder_.Files().empty());
}

// As the program that is waited for does when it saves into the same book.
TEST_F(BookWriterTest, AFileThatChangesDuringTheWait_IsNoted) {
    class Neighbour : public Listener {
     public:
        explicit Neighbour(std::string book) : book_(std::move(book)) {}
        void Waits(std::string_view /*text*/) override { WriteFile(book_, "saved meanwhile"); }

     private:
        std::string book_;
    };
    Neighbour neighbour(Book());
    FileSlot slot(files_, neighbour);
    WriteFile(Book(), "old");
    slot.OpenForInput(Book());
    files_.busy = 1;
    slot.Replace(Book(), "new");
    EXPECT_EQ(neighbour.notes,
              Texts{"Another program changed the file since it was opened or saved"});
    EXPECT_EQ(ReadFile(Book()), "new");
}

// Whoever saves through a name in another folder keeps the lock of that folder.
TEST_F(BookWriterTest, ABookWithNamesInTwoFolders_IsLockedItself) {
    const test::TempFolder other;
    WriteFile(Book(), "old");
    fs::create_hard_link(Book(), other.Name("link"));
    SystemFiles neighbour(false);
    const SaveManner hasty{std::chrono::milliseconds(1)};
    int failure = 0;
    SaveFile(files_, talk_, Book(), true, [&](const auto& /*old*/) {
        failure = FailureOf(
            [&] { RewriteFile(neighbour, other.Name("link"), Replacing("other"), hasty); });
        return "new";
    });
    EXPECT_EQ(failure, 70);
    EXPECT_EQ(ReadFile(Book()), "new");
    RewriteFile(neighbour, other.Name("link"), Replacing("other"), hasty);
    EXPECT_EQ(ReadFile(Book()), "other");
}

// Another program that saves between the reading and the renaming is not undone.
TEST_F(BookWriterTest, WithoutLocks_AFileThatAnotherProgramSavedMeanwhileStays) {
    files_.has_locks = false;
    for (const bool in_place : {false, true}) {
        WriteFile(Book(), "old");
        if (in_place) {
            fs::create_hard_link(Book(), folder_.Name("link"));
        }
        try {
            SaveFile(files_, talk_, Book(), true, [&](const auto& /*old*/) {
                WriteFile(Book(), "other");
                return "new";
            });
            ADD_FAILURE() << "saved";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.Number(), 70);
            EXPECT_EQ(failure.Detail(), "Another program saved into the file at the same time.");
        }
        EXPECT_EQ(ReadFile(Book()), "other");
        EXPECT_EQ(folder_.Files(), in_place ? (Texts{"book", "link"}) : Texts{"book"});
    }
}

TEST_F(BookWriterTest, WithoutLocks_AFileThatAnotherProgramCreatedMeanwhileStays) {
    files_.has_locks = false;
    const int failure = FailureOf([&] {
        SaveFile(files_, talk_, Book(), true, [&](const auto& /*old*/) {
            WriteFile(Book(), "other");
            return "new";
        });
    });
    EXPECT_EQ(failure, 70);
    EXPECT_EQ(ReadFile(Book()), "other");
}

TEST_F(BookWriterTest, AttributesThatCannotBeKept_AreNoted) {
    WriteFile(Book(), "old");
    files_.loses_attributes = true;
    Save();
    EXPECT_EQ(ReadFile(Book()), "new");
    EXPECT_EQ(talk_.notes, Texts{"Not all extended attributes of the file could be kept"});
}

TEST_F(BookWriterTest, AnOpenFileThatWasRemoved_IsWrittenInPlace) {
    WriteFile(Book(), "a longer old text");
    const int file = open(Book().c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(file, 0);
    fs::remove(Book());
    fs::create_symlink("/proc/self/fd/" + std::to_string(file), folder_.Name("link.txt"));
    EXPECT_EQ(FailureOf([&] { ReplaceFile(files_, folder_.Name("link.txt"), "new"); }), 0);
    EXPECT_EQ(ReadFile(folder_.Name("link.txt")), "new");
    EXPECT_EQ(folder_.Files(), Texts{"link.txt"});
    EXPECT_TRUE(fs::is_symlink(folder_.Name("link.txt")));
    close(file);
}

TEST_F(BookWriterTest, ALinkToAMissingFile_CreatesThat) {
    fs::create_directory(folder_.Name("sub"));
    fs::create_symlink("sub/new", folder_.Name("link"));
    EXPECT_EQ(FailureOf([&] { ReplaceFile(files_, folder_.Name("link"), "new"); }), 0);
    EXPECT_EQ(ReadFile(folder_.Name("sub/new")), "new");
    EXPECT_TRUE(fs::is_symlink(folder_.Name("link")));
    fs::create_symlink("none/new", folder_.Name("lost"));
    EXPECT_EQ(FailureOf([&] { ReplaceFile(files_, folder_.Name("lost"), "new"); }), 76);
}

TEST_F(BookWriterTest, ALinkToAFullDevice_FailsWith61HoweverItIsWritten) {
    const std::string link = folder_.Name("book.nv");
    fs::create_symlink("/dev/full", link);
    EXPECT_EQ(FailureOf([&] { slot_.TryWriting(link); }), 0);
    EXPECT_EQ(FailureOf([&] { slot_.Append(link, "new"); }), 61);
    EXPECT_EQ(FailureOf([&] { slot_.Replace(link, "new"); }), 61);
    EXPECT_FALSE(slot_.HasChanged(link));
}

TEST_F(BookWriterTest, ACopyThatCannotBeKept_IsNamedByTheFailure) {
    try {
        KeepCopy(files_, folder_.Name("none/book.htm"), "old");
        ADD_FAILURE() << "kept";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.Detail(), folder_.Name("none/book.htm.bak") + " could not be written.");
    }
}

TEST_F(BookWriterTest, ABookThatAnotherProgramChanged_IsKnown) {
    const std::string change = "Another program changed the file since it was opened or saved";
    EXPECT_FALSE(slot_.HasChanged(Book()));
    slot_.Replace(Book(), "1");
    EXPECT_FALSE(slot_.HasChanged(Book()));
    slot_.Append(Book(), "2");
    EXPECT_FALSE(slot_.HasChanged(Book()));
    EXPECT_TRUE(talk_.notes.empty());

    WriteFile(Book(), "other");
    fs::create_symlink("book", folder_.Name("link"));
    EXPECT_TRUE(slot_.HasChanged(Book()));
    EXPECT_TRUE(slot_.HasChanged(folder_.Name("link")));
    slot_.OpenForInput(Book());
    EXPECT_FALSE(slot_.HasChanged(Book()));

    fs::rename(Book(), folder_.Name("moved"));
    EXPECT_FALSE(slot_.HasChanged(Book())) << "nothing is lost";
    WriteFile(Book(), "other");
    EXPECT_TRUE(slot_.HasChanged(Book())) << "another file with the same contents";
    slot_.Replace(Book(), "3");
    EXPECT_EQ(talk_.notes, Texts{change});
    EXPECT_FALSE(slot_.HasChanged(Book()));
}

TEST_F(BookWriterTest, ACopy_IsOfferedOnceBeforeTheBookIsOpenedOrSaved) {
    WriteFile(Book(), "half");
    WriteFile(folder_.Name("book.orvik-copy"), "old");
    slot_.OpenForInput(Book());
    slot_.Append(Book(), "+new");
    EXPECT_EQ(talk_.offered, Texts{"book.orvik-copy"});
    EXPECT_EQ(ReadFile(Book()), "half+new");
    EXPECT_EQ(ReadFile(folder_.Name("book.orvik-copy")), "old");
}

TEST_F(BookWriterTest, ACopyThatIsRestored_IsWhatIsOpenedOrSaved) {
    talk_.answer = CopyAnswer::Restore;
    for (const bool opens : {true, false}) {
        WriteFile(Book(), "half");
        WriteFile(folder_.Name("book.orvik-copy"), "old");
        if (opens) {
            slot_.OpenForInput(Book());
            EXPECT_EQ(slot_.Read(slot_.Length()), "old");
        } else {
            slot_.Append(Book(), "+new");
            EXPECT_EQ(ReadFile(Book()), "old+new");
        }
        EXPECT_EQ(folder_.Files(), Texts{"book"});
    }
}

TEST_F(BookWriterTest, ACopyThatIsNotWanted_Goes) {
    talk_.answer = CopyAnswer::Keep;
    WriteFile(Book(), "half");
    WriteFile(folder_.Name("book.orvik-copy"), "old");
    slot_.OpenForInput(Book());
    EXPECT_EQ(slot_.Read(slot_.Length()), "half");
    EXPECT_EQ(folder_.Files(), Texts{"book"});
}

}  // namespace
}  // namespace orvik

// What Move does when something is in its way: a Cancel, a full disk, a folder that takes no file.

#include <QAbstractButton>
#include <QCheckBox>
#include <QPushButton>
#include <QSpinBox>
#include <QThread>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "desktop/book_move_dialog_fixture.h"
#include "unit/faulty_files.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// Real files that stop in the middle of being written until they may go on.
class GatedFiles : public SystemFiles {
 public:
    GatedFiles() : SystemFiles(false) {}

    std::error_code CreateUnseen(const Path& folder,
                                 bool only_mine,
                                 std::unique_ptr<OutputFile>& file) override {
        const std::error_code error = SystemFiles::CreateUnseen(folder, only_mine, file);
        file = error ? nullptr : std::make_unique<Gate>(std::move(file), *this);
        return error;
    }
    std::error_code OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) override {
        const std::error_code error = SystemFiles::OpenToWrite(path, file);
        file = error ? nullptr : std::make_unique<Gate>(std::move(file), *this);
        return error;
    }

    // Which of the files that are written stops in the middle, counted from 0.
    int stops_in = 0;
    std::atomic<bool> is_waiting = false;
    std::atomic<bool> may_go_on = false;

 private:
    class Gate : public OutputFile {
     public:
        Gate(std::unique_ptr<OutputFile> file, GatedFiles& files)
            : file_(std::move(file)), files_(files) {}
        std::error_code Write(std::string_view bytes, std::size_t& written) override {
            number_ = writes_ == 0 ? files_.written_++ : number_;
            if (++writes_ == 2 && number_ == files_.stops_in) {
                files_.is_waiting = true;
                while (!files_.may_go_on) {
                    QThread::msleep(1);
                }
            }
            return file_->Write(bytes.substr(0, (bytes.size() + 1) / 2), written);
        }
        std::error_code SetLength(std::uint64_t length) override {
            return file_->SetLength(length);
        }
        std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override {
            return file_->TakeAttributesOf(other, all_kept);
        }
        std::error_code Sync() override { return file_->Sync(); }
        std::error_code TakeName(const std::filesystem::path& name) override {
            return file_->TakeName(name);
        }
        std::error_code Close() override { return file_->Close(); }

     private:
        std::unique_ptr<OutputFile> file_;
        GatedFiles& files_;
        int writes_ = 0;
        int number_ = 0;
    };

    int written_ = 0;
};

// A folder that takes no file.
class ClosedFiles : public SystemFiles {
 public:
    ClosedFiles() : SystemFiles(false) {}
    std::error_code CreateUnseen(const Path& /*folder*/,
                                 bool /*only_mine*/,
                                 std::unique_ptr<OutputFile>& /*file*/) override {
        return std::make_error_code(std::errc::permission_denied);
    }
};

class BookMoveSaveTest : public test::MoveDialogFixture {
 protected:
    // Presses Save, names the file, and says yes to everything.
    void BeginToSave(const std::string& file) {
        user = std::make_unique<test::BoxUser>(
            std::vector<std::function<void()>>{[this, file] { test::ModalUser::type(Path(file)); },
                                               [] { test::ModalUser::answer(QMessageBox::Yes); }});
        Find<QPushButton>("moveSave").click();
    }
    // Cancels a save in the middle of this one of the files that it writes.
    void CancelIn(int number, const std::string& file) {
        gated.stops_in = number;
        BeginToSave(file);
        ASSERT_TRUE(Eventually([&] { return gated.is_waiting.load(); }));
        ASSERT_TRUE(Eventually([&] { return Find<QPushButton>("moveCancel").isVisible(); }));
        EXPECT_FALSE(Find<QPushButton>("moveSave").isEnabled());
        EXPECT_FALSE(Find<QWidget>("moveTarget").isEnabled());
        Find<QPushButton>("moveCancel").click();
        gated.may_go_on = true;
        ASSERT_TRUE(Eventually([&] { return !Text("moveLineText").empty(); }));
        user.reset();
    }

    GatedFiles gated;
    std::unique_ptr<test::BoxUser> user;
};

TEST_F(BookMoveSaveTest, ACancelLeavesNoNewFile) {
    Read("plain.ldif", test::kPlainBook);
    Open(document.records(), gated);
    CancelIn(0, "new.vcf");
    EXPECT_EQ(Text("moveLineText"), "Cancelled; nothing was written");
    EXPECT_THAT(folder.Files(), ElementsAre("plain.ldif"));
    EXPECT_FALSE(Find<QWidget>("moveProgress").isVisible());
    EXPECT_FALSE(Find<QWidget>("moveSummary").isVisible());
    // The next one is not.
    Save("new.vcf");
    EXPECT_THAT(test::ReadFile(folder.Name("new.vcf")), HasSubstr("al@example.org"));
}

TEST_F(BookMoveSaveTest, ACancelLeavesTheOldFile) {
    Read("plain.ldif", test::kPlainBook);
    test::WriteFile(folder.Name("old.vcf"), "old");
    Open(document.records(), gated);
    CancelIn(0, "old.vcf");
    EXPECT_EQ(test::ReadFile(folder.Name("old.vcf")), "old");
    EXPECT_THAT(folder.Files(), ElementsAre("old.vcf", "plain.ldif"));
}

TEST_F(BookMoveSaveTest, ACancelPutsBackWhatIsOverwritten) {
    Read("plain.ldif", test::kPlainBook);
    test::WriteFile(folder.Name("old.vcf"), "old contents");
    std::filesystem::create_hard_link(folder.Name("old.vcf"), folder.Name("twin.vcf"));
    Open(document.records(), gated);
    // Of the old contents a copy is kept first.
    CancelIn(1, "old.vcf");
    EXPECT_EQ(test::ReadFile(folder.Name("twin.vcf")), "old contents");
    EXPECT_THAT(folder.Files(), ElementsAre("old.vcf", "plain.ldif", "twin.vcf"));
}

TEST_F(BookMoveSaveTest, ACancelBetweenFilesNamesThoseThatAreWritten) {
    Read("plain.ldif", test::kPlainBook);
    Open(document.records(), gated);
    Choose("Google Contacts");
    Find<QSpinBox>("moveMost").setValue(1);
    Find<QCheckBox>("moveSplits").setChecked(true);
    AwaitPreview();
    CancelIn(1, "g.csv");
    EXPECT_EQ(Text("moveLineText"), "Cancelled. Written are only " + folder.Name("g-1.csv"));
    EXPECT_THAT(folder.Files(), ElementsAre("g-1.csv", "plain.ldif"));
}

TEST_F(BookMoveSaveTest, EscCancelsASaveAndThenClosesTheDialog) {
    Read("plain.ldif", test::kPlainBook);
    Open(document.records(), gated);
    BeginToSave("new.vcf");
    ASSERT_TRUE(Eventually([&] { return gated.is_waiting.load(); }));
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    gated.may_go_on = true;
    ASSERT_TRUE(Eventually([&] { return !Text("moveLineText").empty(); }));
    EXPECT_THAT(folder.Files(), ElementsAre("plain.ldif"));
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(BookMoveSaveTest, ADialogThatGoesInTheMiddleCancels) {
    Read("plain.ldif", test::kPlainBook);
    Open(document.records(), gated);
    BeginToSave("new.vcf");
    ASSERT_TRUE(Eventually([&] { return gated.is_waiting.load(); }));
    dialog.reset();
    gated.may_go_on = true;
    ASSERT_TRUE(Eventually([&] { return !worker.isBusy(); }));
    EXPECT_THAT(folder.Files(), ElementsAre("plain.ldif"));
}

TEST_F(BookMoveSaveTest, WhomTheSaveWaitsForIsSaid) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    std::unique_ptr<FolderLock> other;
    ASSERT_FALSE(system.Lock(folder.Path(), std::chrono::seconds(1), other));
    BeginToSave("new.vcf");
    ASSERT_TRUE(Eventually([&] {
        return Text("moveDoing").find("Waiting for ") != std::string::npos &&
               Find<QWidget>("moveProgress").isVisible();
    }));
    EXPECT_THAT(Text("moveDoing"), HasSubstr("which is saving into this folder"));
    other.reset();
    ASSERT_TRUE(Eventually([&] { return Find<QWidget>("moveSummary").isVisible(); }));
    EXPECT_THAT(test::ReadFile(folder.Name("new.vcf")), StartsWith("BEGIN:VCARD"));
}

TEST_F(BookMoveSaveTest, ACancelledPreviewCanBeHadAgain) {
    std::string cards;
    constexpr int kMany = 10000;
    for (int i = 0; i < kMany; ++i) {
        cards += "BEGIN:VCARD\nVERSION:3.0\nFN:P" + std::to_string(i) +
                 "\nEMAIL:p@example.org\nTEL:5\nNOTE:n\nEND:VCARD\n";
    }
    Read("many.vcf", cards);
    dialog = std::make_unique<MoveDialog>(document, worker, system, document.records(), nullptr);
    dialog->show();
    EXPECT_TRUE(worker.isBusy());
    Find<QPushButton>("moveCancel").click();
    ASSERT_TRUE(Eventually([&] { return !worker.isBusy(); }));
    EXPECT_EQ(Text("moveLineText"), "Cancelled; what the file will hold is not known");
    EXPECT_FALSE(Find<QPushButton>("moveSave").isEnabled());
    Find<QAbstractButton>("moveLineLink").click();
    AwaitPreview();
    EXPECT_THAT(Text("moveCounts"), StartsWith("read 10000   written 10000   "));
    EXPECT_EQ(Text("moveLineText"), "");
}

TEST_F(BookMoveSaveTest, AFullDiskLeavesTheOldFileAndAllowsAnotherTry) {
    Read("plain.ldif", test::kPlainBook);
    test::FaultyFiles full;
    Open(document.records(), full);
    // Each call of a save fails once; the save goes on where nothing depends on it.
    std::size_t failures = 0;
    for (std::size_t call = 1; call == 1 || !full.fault.Failed.empty(); ++call) {
        ASSERT_LT(call, 200U);
        test::WriteFile(folder.Name("old.vcf"), "old");
        full.fault = {call, 0, std::make_error_code(std::errc::no_space_on_device), 0, {}};
        BeginToSave("old.vcf");
        auto& summary = Find<QWidget>("moveSummary");
        ASSERT_TRUE(Eventually([&] {
            return !worker.isBusy() && (!Text("moveLineText").empty() || summary.isVisible());
        }));
        SCOPED_TRACE(full.fault.Failed);
        EXPECT_THAT(folder.Files(), ElementsAre("old.vcf", "plain.ldif"));
        if (summary.isVisible()) {
            EXPECT_THAT(test::ReadFile(folder.Name("old.vcf")), StartsWith("BEGIN:VCARD"));
            Find<QPushButton>("moveBack").click();
        } else {
            ++failures;
            EXPECT_THAT(Text("moveLineText"), StartsWith("Not saved: "));
            EXPECT_THAT(Text("moveLineText"), HasSubstr("Disk full"));
        }
        if (full.fault.Failed == "new Write") {
            EXPECT_EQ(test::ReadFile(folder.Name("old.vcf")), "old");
        }
        user.reset();
    }
    EXPECT_GT(failures, 5U);
    EXPECT_THAT(test::ReadFile(folder.Name("old.vcf")), StartsWith("BEGIN:VCARD"));
}

TEST_F(BookMoveSaveTest, AFolderThatTakesNoFileIsTold) {
    Read("plain.ldif", test::kPlainBook);
    ClosedFiles closed;
    Open(document.records(), closed);
    BeginToSave("new.vcf");
    ASSERT_TRUE(Eventually([&] { return !Text("moveLineText").empty(); }));
    EXPECT_EQ(Text("moveLineText"), "Not saved: " + folder.Name("new.vcf") + ": Permission denied");
    EXPECT_THAT(folder.Files(), ElementsAre("plain.ldif"));
}

}  // namespace
}  // namespace orvik

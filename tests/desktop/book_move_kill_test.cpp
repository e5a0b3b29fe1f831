// What a kill at each call of a save leaves: the old file or the new one, and nothing beside it.

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "desktop/book_move_dialog_fixture.h"
#include "platform/passing_name.h"
#include "unit/faulty_files.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

// The number of the call that kills the program that the test starts.
constexpr const char* kNumber = "ORVIK_KILLED_AT";
constexpr const char* kOld = "old contents";
constexpr int kLongest = 60000;

class BookMoveKillTest : public test::MoveDialogFixture {
 protected:
    // A program whose user saves over a file, and that is killed at this call.
    struct Killed {
        explicit Killed(int number) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QString::fromLatin1(kNumber), QString::number(number));
            // What it makes goes with this.
            environment.insert(QStringLiteral("TMPDIR"), room.path());
            environment.insert(QStringLiteral("TEST_TMPDIR"), room.path() + u'/');
            process.setProcessEnvironment(environment);
            process.setProcessChannelMode(QProcess::MergedChannels);
            process.start(QCoreApplication::applicationFilePath(),
                          {QStringLiteral("--gtest_filter=BookMoveKillTest.DISABLED_Saves"),
                           QStringLiteral("--gtest_also_run_disabled_tests")});
        }
        // The folder of the file.
        [[nodiscard]] std::string Folder() const {
            const QStringList found =
                QDir(room.path()).entryList({QStringLiteral("orvik-unit-*")}, QDir::Dirs);
            return found.size() == 1 ? room.filePath(found.front()).toStdString() : std::string();
        }
        QTemporaryDir room;
        QProcess process;
    };

    // Presses Save, and says yes.
    void SaveOver(const std::string& file) {
        const test::BoxUser user({[&] { test::ModalUser::type(QString::fromStdString(file)); },
                                  [] { test::ModalUser::answer(QMessageBox::Yes); }});
        Find<QPushButton>("moveSave").click();
        ASSERT_TRUE(Eventually([&] { return Find<QWidget>("moveSummary").isVisible(); }));
    }
    // Whether something is beside the file; then it is what the next save takes away.
    bool CheckBeside(const std::string& left) {
        const bool is_beside = FilesOf(left).size() > 2;
        for (const std::string& one : FilesOf(left)) {
            EXPECT_TRUE(one == "old.vcf" || one == "plain.ldif" || IsPassingName(one)) << one;
        }
        SaveOver(left + "/old.vcf");
        Find<QPushButton>("moveBack").click();
        AwaitPreview();
        EXPECT_THAT(FilesOf(left), ElementsAre("old.vcf", "plain.ldif"));
        return is_beside;
    }
    static std::vector<std::string> FilesOf(const std::string& left) {
        std::vector<std::string> names;
        for (const auto& one : std::filesystem::directory_iterator(left)) {
            names.push_back(one.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

// Run by the next test alone.
TEST_F(BookMoveKillTest, DISABLED_Saves) {
    Read("plain.ldif", test::kPlainBook);
    test::WriteFile(folder.Name("old.vcf"), kOld);
    test::FaultyFiles files;
    Open(document.records(), files);
    files.fault = {};
    files.fault.Call = qEnvironmentVariableIntValue(kNumber);
    files.fault.Kills = true;
    SaveOver(folder.Name("old.vcf"));
}

TEST_F(BookMoveKillTest, LeavesTheOldFileOrTheNewOne) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    // As many run at a time, and so many calls a save has at most.
    constexpr int kAtOnce = 4;
    constexpr int kMost = 100;
    int killed = 0;
    int old = 0;
    int beside = 0;
    bool is_saved = false;
    for (int first = 1; !is_saved && first < kMost; first += kAtOnce) {
        std::vector<std::unique_ptr<Killed>> some;
        for (int i = 0; i < kAtOnce; ++i) {
            some.push_back(std::make_unique<Killed>(first + i));
        }
        for (const auto& one : some) {
            ASSERT_TRUE(one->process.state() == QProcess::NotRunning ||
                        one->process.waitForFinished(kLongest));
            SCOPED_TRACE(one->process.readAll().toStdString());
            const bool was_killed = one->process.exitStatus() == QProcess::CrashExit;
            killed += was_killed ? 1 : 0;
            if (!was_killed) {
                // Its folder went with it.
                EXPECT_EQ(one->process.exitCode(), 0);
                is_saved = true;
                continue;
            }
            EXPECT_FALSE(is_saved);
            const std::string left = one->Folder();
            ASSERT_NE(left, "");
            const std::string contents = test::ReadFile(left + "/old.vcf");
            old += contents == kOld ? 1 : 0;
            if (contents != kOld) {
                EXPECT_THAT(contents, StartsWith("BEGIN:VCARD"));
                EXPECT_TRUE(contents.ends_with("END:VCARD\r\n")) << contents;
            }
            beside += CheckBeside(left) ? 1 : 0;
        }
    }
    EXPECT_TRUE(is_saved);
    EXPECT_GT(old, 5);
    EXPECT_GT(killed, old);
    // Between the moment in which it has a name and the one in which it has the file's.
    EXPECT_LE(beside, 2);
}

}  // namespace
}  // namespace orvik

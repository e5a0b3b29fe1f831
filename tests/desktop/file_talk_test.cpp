// What the window says and asks of files besides failures.

#include <QAction>
#include <QLabel>
#include <QTemporaryDir>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/module1.h"
#include "app/run_time_error.h"
#include "desktop/modal_user.h"
#include "desktop/session/qt_platform.h"
#include "desktop/windows/form1_window.h"
#include "platform/system_files.h"
#include "program/program.h"

namespace orvik {
namespace {

using test::ModalUser;
using testing::EndsWith;
using testing::StartsWith;

class FileTalkTest : public testing::Test {
 protected:
    FileTalkTest() {
        module.textSep = "\r";
        module.OpenMode = 1;
    }

    [[nodiscard]] std::string Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name)).toStdString();
    }
    void Write(const char* name, const char* contents) const {
        std::ofstream(Path(name), std::ios::binary) << contents;
    }
    [[nodiscard]] std::string Read(const char* name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Open(const char* name) { window.openBooks({QString::fromStdString(Path(name))}); }
    // What the question says before a save to a file that is there; it is answered with Yes.
    std::string QuestionOfSaving(const char* name) {
        std::string said;
        const ModalUser user({[&] { ModalUser::type(QString::fromStdString(Path(name))); },
                              [&] {
                                  said = ModalUser::box().text().toStdString();
                                  ModalUser::answer(QMessageBox::Yes);
                              }});
        window.findChild<QAction*>(QStringLiteral("mnuSave"))->trigger();
        return said;
    }
    [[nodiscard]] QLabel& Panel(int number) const {
        return *window.findChild<QLabel*>(QStringLiteral("Panel%1").arg(number));
    }
    // Opens a half-written book that has a copy, and presses this button of the question, or
    // Escape.
    std::string OpenHalfBook(const char* button) {
        Write("book.txt", "A1\r\nA");
        Write("book.txt.orvik-copy", "A1\r\nA2\r\n");
        std::string said;
        const ModalUser user({[&] {
            QMessageBox& box = ModalUser::box();
            said = box.text().toStdString();
            for (QAbstractButton* const shown : box.buttons()) {
                if (shown->text() == QLatin1String(button)) {
                    shown->click();
                    return;
                }
            }
            box.close();
        }});
        Open("book.txt");
        return said;
    }

    QTemporaryDir folder;
    const bool own_settings = qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    const bool own_state = qputenv("XDG_STATE_HOME", folder.path().toLocal8Bit());
    Desktop desktop;
    SystemFiles files;
    RecentBooks books;
    QtPlatform platform{desktop, files, books};
    Program program{platform, files};
    Module1& module = program.module;
    Form1Window window{module, desktop, books};
};

TEST_F(FileTalkTest, AFileThatAnotherProgramChanged_IsToldOfInTheQuestion) {
    Write("book.txt", "A1\r\nA2\r\n");
    Open("book.txt");
    EXPECT_THAT(QuestionOfSaving("book.txt"), StartsWith("book.txt already exists."));
    // What this program saved is no change.
    EXPECT_THAT(QuestionOfSaving("book.txt"), StartsWith("book.txt already exists."));
    Write("book.txt", "A1\r\nA2\r\nA3\r\n");
    EXPECT_EQ(QuestionOfSaving("book.txt"),
              "Another program changed this file since it was opened or saved here.\n"
              "book.txt already exists.\nIf you replace it, what is in it now is lost.");
    EXPECT_THAT(QuestionOfSaving("book.txt"), StartsWith("book.txt already exists."));
}

TEST_F(FileTalkTest, AnInterruptedBook_IsRestored) {
    EXPECT_EQ(OpenHalfBook("&Restore"),
              "A saving of " + Path("book.txt") + " was interrupted. Its old contents stand in " +
                  Path("book.txt.orvik-copy") +
                  ".\nDo you want to restore them, or to keep the file as it is and remove the "
                  "copy?");
    EXPECT_EQ(Read("book.txt"), "A1\r\nA2\r\n");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(Path("book.txt.orvik-copy"))));
    EXPECT_EQ(Panel(2).text(), QStringLiteral("2 items"));
}

TEST_F(FileTalkTest, AnInterruptedBook_IsKept) {
    OpenHalfBook("&Keep as it is");
    EXPECT_EQ(Read("book.txt"), "A1\r\nA");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(Path("book.txt.orvik-copy"))));
}

TEST_F(FileTalkTest, AnInterruptedBook_StaysWithItsCopyForNow) {
    EXPECT_NE(OpenHalfBook("&Not now"), "");
    EXPECT_EQ(Read("book.txt"), "A1\r\nA");
    EXPECT_EQ(Read("book.txt.orvik-copy"), "A1\r\nA2\r\n");
}

TEST_F(FileTalkTest, AQuestionThatIsClosed_LeavesBookAndCopy) {
    EXPECT_NE(OpenHalfBook("no button"), "");
    EXPECT_EQ(Read("book.txt"), "A1\r\nA");
    EXPECT_EQ(Read("book.txt.orvik-copy"), "A1\r\nA2\r\n");
}

TEST_F(FileTalkTest, AWait_IsShownAsLongAsTheCommandRuns) {
    const QString before = Panel(1).text();
    desktop.run([&] {
        platform.Waits("Waiting for orvik (process 12)");
        EXPECT_EQ(Panel(1).text(), QStringLiteral("Waiting for orvik (process 12)"));
    });
    EXPECT_EQ(Panel(1).text(), before);
}

TEST_F(FileTalkTest, ANote_StandsInTheToolTipUntilTheNextFile) {
    module.Note = {{3, 2}, {}};
    desktop.run([&] { platform.Note("Something is lost"); });
    EXPECT_THAT(Panel(2).toolTip().toStdString(),
                EndsWith("\n3 attributes of 2 entries were not read\nSomething is lost"));
    desktop.run([&] { desktop.fileChosen("other"); });
    EXPECT_THAT(Panel(2).toolTip().toStdString(), EndsWith("entries were not read"));
    module.Note = {};
    desktop.run([&] { platform.Note("Something is lost"); });
    EXPECT_THAT(Panel(2).toolTip().toStdString(), EndsWith("displayed\nSomething is lost"));
}

TEST_F(FileTalkTest, AFailure_SaysWhatIsSpecialAboutIt) {
    std::string said;
    const ModalUser user({[&] {
        said = ModalUser::box().text().toStdString();
        ModalUser::box().close();
    }});
    platform.ReportFailure(RunTimeError(Failure::PermissionDenied, "orvik was still saving."));
    EXPECT_EQ(said, "Run-time error '70':\n\nPermission denied\n\norvik was still saving.");
}

}  // namespace
}  // namespace orvik

// What the window shows when a book could not be saved.

#include <QAction>
#include <QTemporaryDir>
#include <fstream>

#include <gtest/gtest.h>

#include "app/module1.h"
#include "desktop/modal_user.h"
#include "desktop/session/qt_platform.h"
#include "desktop/text/system_clipboard.h"
#include "desktop/windows/form1_window.h"
#include "platform/system_files.h"
#include "program/program.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

using test::ModalUser;

class FailedSaveTest : public testing::Test {
 protected:
    FailedSaveTest() {
        module.textSep = "\r";
        module.OpenMode = 1;
        Open("old.txt");
    }

    [[nodiscard]] QString Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name));
    }
    // Less the place of the mark.
    [[nodiscard]] QString ShownTitle() const {
        return window.windowTitle().remove(QStringLiteral("[*]"));
    }
    [[nodiscard]] QString TitleOf(const char* name) const {
        return QStringLiteral("Orvik - ") + Path(name);
    }
    void Make(const char* name) const { std::ofstream(Path(name).toStdString()) << "A1\r\nA2\r\n"; }
    // Opens a book, which takes the place of the one that is open.
    void Open(const char* name) {
        Make(name);
        const ModalUser user({[] { ModalUser::answer(QMessageBox::No); }});
        window.openBooks({Path(name)});
    }
    void Choose(const char* command) {
        window.findChild<QAction*>(QString::fromLatin1(command))->trigger();
    }
    void Save(const char* name) {
        const ModalUser user({[&] { ModalUser::type(Path(name)); }});
        Choose("mnuSave");
    }
    // What the box says when the disk is full.
    QString SaveInVain(const char* name) {
        QString said;
        const ModalUser user({[&] { ModalUser::type(Path(name)); },
                              [&] {
                                  said = ModalUser::box().text();
                                  title_in_box = ShownTitle();
                                  ModalUser::box().close();
                              }});
        const test::FileSizeLimit full(0);
        Choose("mnuSave");
        return said;
    }

    QTemporaryDir folder;
    const bool own_settings = qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    Desktop desktop;
    SystemFiles files{false};
    RecentBooks books;
    QtPlatform platform{desktop, files, books};
    Program program{platform, files};
    Module1& module = program.module;
    Form1Window window{module, desktop, books};
    QString title_in_box;
};

TEST_F(FailedSaveTest, TheBoxNamesTheFile) {
    EXPECT_EQ(SaveInVain("new.txt").toStdString(),
              "Run-time error '61':\n\nDisk full\n\n" + Path("new.txt").toStdString() +
                  " was not saved.");
}

TEST_F(FailedSaveTest, TheBookKeepsItsTitle) {
    SaveInVain("new.txt");
    EXPECT_EQ(title_in_box, TitleOf("old.txt"));
    EXPECT_EQ(ShownTitle(), TitleOf("old.txt"));
    EXPECT_EQ(module.form1.Caption, TitleOf("new.txt").toStdString());
    // Also when it fails once more, and when the caption comes back from another one.
    SaveInVain("new.txt");
    Choose("undo");
    Choose("redo");
    EXPECT_EQ(module.form1.Caption, TitleOf("new.txt").toStdString());
    EXPECT_EQ(ShownTitle(), TitleOf("old.txt"));
}

TEST_F(FailedSaveTest, ASecondTryThatSucceedsGivesTheNewTitle) {
    SaveInVain("new.txt");
    Save("new.txt");
    EXPECT_EQ(ShownTitle(), TitleOf("new.txt"));
}

TEST_F(FailedSaveTest, AnotherBookHasItsOwnTitle) {
    SaveInVain("new.txt");
    Open("other.txt");
    EXPECT_EQ(ShownTitle(), TitleOf("other.txt"));
    Open("new.txt");
    EXPECT_EQ(ShownTitle(), TitleOf("new.txt"));
}

// The question whether to save comes first; what fails behind it is no failure of the save.
TEST_F(FailedSaveTest, AFailureBehindASaveIsNone) {
    QString said;
    SetClipboardBytes("", Encoding::Utf8);
    const ModalUser user({[] { ModalUser::answer(QMessageBox::Yes); },
                          [&] { ModalUser::type(Path("new.txt")); },
                          [&] {
                              said = ModalUser::box().text();
                              ModalUser::box().close();
                          }});
    Choose("mnuClearPasteNet4");
    EXPECT_TRUE(QFile::exists(Path("new.txt")));
    EXPECT_TRUE(said.startsWith(QStringLiteral("Run-time error"))) << said.toStdString();
    EXPECT_FALSE(said.contains(u"not saved")) << said.toStdString();
}

// The failure is told by the command that saves first, and the command goes on.
TEST_F(FailedSaveTest, ASaveBeforeOpeningIsOneToo) {
    QString said;
    const ModalUser user({[] { ModalUser::answer(QMessageBox::Yes); },
                          [&] { ModalUser::type(Path("new.txt")); },
                          [&] {
                              said = ModalUser::box().text();
                              ModalUser::box().close();
                          }});
    {
        const test::FileSizeLimit full(0);
        Choose("mnuOpen");
    }
    EXPECT_EQ(said.toStdString(),
              "Error: Disk full\n\n" + Path("new.txt").toStdString() + " was not saved.");
    EXPECT_EQ(ShownTitle(), TitleOf("old.txt"));
}

}  // namespace
}  // namespace orvik

#include "desktop/session/qt_platform.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "desktop/session/autostart.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/small_windows.h"
#include "platform/system_files.h"
#include "program/program.h"

namespace orvik {
namespace {

class QtPlatformTest : public testing::Test {
 protected:
    // Shows a box while the user acts on it.
    Answer Show(const MessageBox& box, const std::function<void(QMessageBox&)>& act) {
        QTimer::singleShot(
            0, [&] { act(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
        return platform.ShowBox(box);
    }
    static void Press(QMessageBox& box, QMessageBox::StandardButton button) {
        box.button(button)->click();
    }
    // Closes the next box and keeps what it said.
    void CloseNextBox() {
        QTimer::singleShot(0, [this] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            said = box->text();
            title = box->windowTitle();
            sign = box->icon();
            buttons = box->standardButtons();
            box->close();
        });
    }

    QTemporaryDir folder;
    // Before the platform looks for the settings.
    const bool own_settings = qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    Desktop desktop;
    SystemFiles files{false};
    RecentBooks books;
    QtPlatform platform{desktop, files, books};
    QString said;
    QString title;
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon sign = QMessageBox::NoIcon;
};

TEST_F(QtPlatformTest, TheLastBooksGoWithTheSettings) {
    books.Add("/b/book.ldif");
    platform.SaveSetting("Settings", "Open", "1");
    platform.DeleteSettings();
    EXPECT_EQ(platform.GetSetting("Settings", "Open"), std::nullopt);
    EXPECT_TRUE(books.Books().empty());
}

TEST_F(QtPlatformTest, ABoxShowsItsTextAsItIs) {
    const MessageBox box{"a <b>\r\n\xFC", "Save?", Buttons::YesNoCancel, Icon::Question};
    Show(box, [](QMessageBox& shown) {
        EXPECT_EQ(shown.text(), QStringLiteral("a <b>\n\u00FC"));
        EXPECT_EQ(shown.textFormat(), Qt::PlainText);
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("Save?"));
        EXPECT_EQ(shown.icon(), QMessageBox::Question);
        EXPECT_EQ(shown.windowModality(), Qt::WindowModal);
        for (const QAbstractButton* const button : shown.buttons()) {
            EXPECT_TRUE(button->icon().isNull());
        }
        EXPECT_EQ(shown.standardButtons(),
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        shown.close();
    });
}

TEST_F(QtPlatformTest, ABoxGivesItsAnswer) {
    const auto press = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { Press(box, button); };
    };
    const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    const struct {
        Buttons Choice;
        std::function<void(QMessageBox&)> Act;
        Answer Expected;
    } rows[] = {
        {Buttons::OK, press(QMessageBox::Ok), Answer::OK},
        {Buttons::OK, escape, Answer::OK},
        {Buttons::YesNo, press(QMessageBox::Yes), Answer::Yes},
        {Buttons::YesNo, press(QMessageBox::No), Answer::No},
        {Buttons::YesNo, escape, Answer::No},
        {Buttons::YesNoCancel, press(QMessageBox::Yes), Answer::Yes},
        {Buttons::YesNoCancel, press(QMessageBox::No), Answer::No},
        {Buttons::YesNoCancel, press(QMessageBox::Cancel), Answer::Cancel},
        {Buttons::YesNoCancel, escape, Answer::Cancel},
        {Buttons::YesNoCancel, [](QMessageBox& box) { box.close(); }, Answer::Cancel},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Show({"text", "title", row.Choice, Icon::None}, row.Act), row.Expected);
    }
}

TEST_F(QtPlatformTest, AProgramThatEndedInABoxDoesNotGoOn) {
    bool went_on = false;
    desktop.run([&] {
        Show({"text", "title", Buttons::OK, Icon::None}, [&](QMessageBox& box) {
            desktop.run([&] { platform.End(); });
            box.close();
        });
        went_on = true;
    });
    EXPECT_FALSE(went_on);
    EXPECT_THROW(desktop.rethrowEnd(), ProgramEnded);
}

TEST_F(QtPlatformTest, AnExportReplacesNoFileUnasked) {
    const std::string book = folder.filePath(QStringLiteral("book.ldif")).toStdString();
    const std::string out = folder.filePath(QStringLiteral("out.csv")).toStdString();
    std::ofstream(book) << "book";
    EXPECT_TRUE(platform.MayExport(book, out));
    std::ofstream(out) << "older";
    CloseNextBox();
    EXPECT_FALSE(platform.MayExport(book, out));
    EXPECT_EQ(
        said,
        QStringLiteral("out.csv already exists.\nIf you replace it, what is in it now is lost."));
    EXPECT_EQ(buttons, QMessageBox::Yes | QMessageBox::No);
    const std::string odd = folder.path().toStdString() + "/<b>\n\xE2\x80\xAE.csv";
    std::ofstream(odd) << "older";
    CloseNextBox();
    EXPECT_FALSE(platform.MayExport(book, odd));
    // Qt would not find it.
    std::filesystem::remove(odd);
    EXPECT_EQ(
        said,
        QStringLiteral(
            "<b>\\x0A\\u202E.csv already exists.\nIf you replace it, what is in it now is lost."));
}

TEST_F(QtPlatformTest, ABookIsNotExportedOverItself) {
    const std::string book = folder.filePath(QStringLiteral("book.ldif")).toStdString();
    const std::string same = folder.filePath(QStringLiteral("same.ldif")).toStdString();
    std::ofstream(book) << "book";
    std::filesystem::create_hard_link(book, same);
    CloseNextBox();
    EXPECT_FALSE(platform.MayExport(book, same));
    EXPECT_TRUE(said.contains(u"cannot be exported over itself"));
}

TEST_F(QtPlatformTest, AFailureIsToldWithItsNumber) {
    CloseNextBox();
    platform.ReportFailure(RunTimeError(Failure::InvalidProcedureCall));
    EXPECT_EQ(said, QStringLiteral("Run-time error '5':\n\nInvalid procedure call or argument"));
    EXPECT_EQ(title, QStringLiteral("Orvik"));
    EXPECT_EQ(buttons, QMessageBox::Ok);
}

TEST_F(QtPlatformTest, BoxesOfFailuresCarryAWarning) {
    const struct {
        MessageBox Box;
        QMessageBox::Icon Expected;
    } rows[] = {
        {{.Text = "done", .Title = "Orvik"}, QMessageBox::NoIcon},
        {{.Text = "really?",
          .Title = "Orvik",
          .Choice = Buttons::YesNo,
          .Sign = Icon::Question,
          .About = Matter::Failed},
         QMessageBox::Question},
        {{.Text = "gone", .Title = "53", .Cause = Failure::FileNotFound}, QMessageBox::Warning},
        {{.Text = "not done", .Title = "Orvik", .About = Matter::Failed}, QMessageBox::Warning},
        {{.Text = "too long", .Title = "Error", .About = Matter::TextTooLong},
         QMessageBox::Warning},
        {{.Text = "what is it?",
          .Title = "Error",
          .Choice = Buttons::YesNo,
          .About = Matter::UnknownFormat},
         QMessageBox::Warning},
    };
    for (const auto& row : rows) {
        CloseNextBox();
        platform.ShowBox(row.Box);
        EXPECT_EQ(sign, row.Expected) << row.Box.Text;
    }
    CloseNextBox();
    platform.ReportFailure(RunTimeError(Failure::DiskFull));
    EXPECT_EQ(sign, QMessageBox::Warning);
}

// The help's window says so; the program has no box for it.
TEST_F(QtPlatformTest, AMissingHelpFileBringsNoBox) {
    platform.ShowHelp(HelpCommand::Topic, "/opt/orvik\\help.chm>secWin", "screenshot.html");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QtPlatformTest, TheClipboardHasTheWorkingTextsLineEnds) {
    QGuiApplication::clipboard()->setText(QStringLiteral("a\nb"));
    EXPECT_EQ(platform.ClipboardText(), "a\r\nb");
    platform.SetClipboardText("\xFC");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("\u00FC"));
}

TEST_F(QtPlatformTest, SettingsAreTheUsers) {
    EXPECT_EQ(platform.GetSetting("Settings", "Open"), std::nullopt);
    platform.SaveSetting("Settings", "Open", "2");
    EXPECT_EQ(platform.GetSetting("Settings", "open"), "2");
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("orvik/orvik.conf"))));
}

TEST_F(QtPlatformTest, DeletedSettingsAreGone) {
    platform.SaveSetting("Settings", "Open", "2");
    platform.DeleteSettings();
    EXPECT_EQ(platform.GetSetting("Settings", "Open"), std::nullopt);
}

TEST_F(QtPlatformTest, AStartUpLinkStartsThisProgram) {
    const QString file = folder.filePath(QStringLiteral("autostart/Orvik Auto.desktop"));
    const ShellLink link{"StartUp", "Orvik Auto", "/p\\orvik.exe", "", true, "$(Programs)"};
    EXPECT_TRUE(platform.CreateShellLink(link));
    QFile entry(file);
    ASSERT_TRUE(entry.open(QFile::ReadOnly));
    EXPECT_TRUE(entry.readAll().contains(
        ("\nExec=" + ExecLine({QCoreApplication::applicationFilePath()}) + "\n").toUtf8()));
    platform.RemoveShellLink("StartUp", "Orvik Auto");
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(QtPlatformTest, ThereAreNoLinksInOtherFolders) {
    EXPECT_FALSE(platform.CreateShellLink({"Desktop", "Orvik", "", "", true, ""}));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("autostart"))));
}

TEST_F(QtPlatformTest, TheProgramIsNamedAfterItsFile) {
    EXPECT_EQ(platform.ProgramName(), "orvik-desktop-tests");
    EXPECT_FALSE(platform.ProgramFolder().ends_with('/'));
}

TEST_F(QtPlatformTest, TheExportOpensWhereTheMainWindowWas) {
    Program program(platform, files);
    Form1Window main(program.module, desktop, books);
    Form4& form = program.module.form4;
    const auto other = MakeWindow(program.module, form, desktop, &main);
    main.move(130, 70);
    platform.ShowForm(program.form1, Showing::Modeless);
    platform.ShowForm(form, Showing::Modeless);
    platform.HideForm(program.form1);
    EXPECT_EQ(other->pos(), QPoint(130, 70));
    // Each comes back where it was.
    other->move(20, 30);
    for (int turn = 0; turn < 2; ++turn) {
        platform.ShowForm(program.form1, Showing::Modeless);
        platform.HideForm(form);
        EXPECT_EQ(main.pos(), QPoint(130, 70));
        platform.ShowForm(form, Showing::Modeless);
        platform.HideForm(program.form1);
        EXPECT_EQ(other->pos(), QPoint(20, 30));
    }
}

// The automation tells of itself before there is a main window.
TEST_F(QtPlatformTest, AWindowThatAnotherBelongsToIsPlacedWhenItIsShownFirst) {
    Program program(platform, files);
    Form1Window main(program.module, desktop, books);
    const auto told = MakeWindow(program.module, program.module.form6, desktop, &main);
    told->move(130, 70);
    platform.ShowForm(program.module.form6, Showing::Modeless);
    ASSERT_NE(main.windowHandle(), nullptr);
    platform.ShowForm(program.form1, Showing::Modeless);
    EXPECT_EQ(main.pos(), QPoint(130, 70));
}

}  // namespace
}  // namespace orvik

// What Move offers when the book is saved, and how it is met without a mouse or with a screen
// reader.

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <set>
#include <string>

#include <gmock/gmock.h>

#include "desktop/book_move_dialog_fixture.h"
#include "desktop/folder_opener.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class BookMoveSummaryTest : public test::MoveDialogFixture {
 protected:
    void SaveRich(const std::string& file) {
        Read("rich.vcf", test::kRichBook);
        Open();
        Choose("Google Contacts");
        Find<QAbstractButton>("moveLeaveOut").setChecked(true);
        summary = Save(file);
    }
    std::string summary;
};

TEST_F(BookMoveSummaryTest, IsWhatTheToolPrints) {
    SaveRich("g.csv");
    const std::string name = folder.Name("g.csv");
    std::filesystem::remove(name);
    const std::string printed = Convert({"--to", "google", "--allow-loss", "-o", name});
    EXPECT_EQ(summary, "from " + folder.Name("rich.vcf") + "\n" + printed);
    EXPECT_THAT(printed, HasSubstr("Import in Google Contacts: "));
    Find<QAbstractButton>("moveCopy").click();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), summary);
}

TEST_F(BookMoveSummaryTest, IsKeptWithTheReport) {
    SaveRich("g.csv");
    std::string offered;
    test::BoxUser user({[&] {
        offered = test::ModalUser::dialog().selectedFiles().value(0).toStdString();
        test::ModalUser::type(Path("kept"));
    }});
    Find<QAbstractButton>("moveKeep").click();
    ASSERT_TRUE(Eventually([&] { return !Text("moveLineText").empty(); }));
    EXPECT_EQ(offered, folder.Name("g-summary.txt"));
    EXPECT_EQ(Text("moveLineText"), "The summary is in " + folder.Name("kept.txt"));
    Convert({"--to",
             "google",
             "--allow-loss",
             "-o",
             folder.Name("tool.csv"),
             "--report",
             folder.Name("report")});
    EXPECT_EQ(test::ReadFile(folder.Name("kept.txt")),
              summary + "\n" + test::ReadFile(folder.Name("report")));
}

TEST_F(BookMoveSummaryTest, IsNotWrittenOverABook) {
    SaveRich("g.csv");
    const std::string book = test::ReadFile(folder.Name("g.csv"));
    for (const char* const name : {"g.csv", "rich.vcf"}) {
        const test::BoxUser user({[&] { test::ModalUser::type(Path(name)); }});
        Find<QAbstractButton>("moveKeep").click();
        ASSERT_TRUE(Eventually([&] { return user.done() == 1 && !worker.isBusy(); }));
        ASSERT_TRUE(Eventually([&] { return !Text("moveLineText").empty(); }));
        EXPECT_THAT(Text("moveLineText"), StartsWith("Not saved: "));
    }
    EXPECT_EQ(test::ReadFile(folder.Name("g.csv")), book);
    EXPECT_EQ(test::ReadFile(folder.Name("rich.vcf")), test::kRichBook);
}

TEST_F(BookMoveSummaryTest, AnotherProgramCanGetTheBookToo) {
    SaveRich("g.csv");
    Find<QAbstractButton>("moveBack").click();
    EXPECT_TRUE(Find<QWidget>("moveTarget").isVisible());
    EXPECT_TRUE(Find<QWidget>("moveSave").isVisible());
    Choose("mutt");
    Find<QAbstractButton>("moveLeaveOut").setChecked(true);
    EXPECT_THAT(Save("aliases"), HasSubstr("Use it in mutt: "));
    EXPECT_THAT(folder.Files(), ElementsAre("aliases", "g.csv", "rich.vcf"));
}

TEST_F(BookMoveSummaryTest, TheFolderIsShown) {
    const test::FolderOpener opener;
    SaveRich("g.csv");
    Find<QAbstractButton>("moveFolder").click();
    ASSERT_TRUE(Eventually([&] { return !opener.opened().isEmpty(); }));
    EXPECT_EQ(opener.opened().front().toLocalFile().toStdString(), folder.Path() + "/");
}

// What is read of a dialog, but for what only holds other things.
void CollectNameless(QAccessibleInterface& item, std::vector<std::string>& nameless) {
    static const std::set<QAccessible::Role> frames = {QAccessible::Client,
                                                       QAccessible::ScrollBar,
                                                       QAccessible::LayeredPane,
                                                       QAccessible::Whitespace,
                                                       QAccessible::Grip};
    if (!frames.contains(item.role()) && item.text(QAccessible::Name).isEmpty()) {
        const QString object = item.object() == nullptr ? QString() : item.object()->objectName();
        nameless.push_back(object.toStdString() + " " + std::to_string(item.role()));
    }
    for (int i = 0; i < item.childCount(); ++i) {
        if (QAccessibleInterface* const child = item.child(i)) {
            CollectNameless(*child, nameless);
        }
    }
}

TEST_F(BookMoveSummaryTest, EverythingHasAName) {
    Read("rich.vcf", test::kRichBook);
    Open();
    Choose("Google Contacts");
    Find<QAbstractButton>("moveMore").click();
    const auto check = [&] {
        QAccessibleInterface* const top = QAccessible::queryAccessibleInterface(dialog.get());
        EXPECT_EQ(top->role(), QAccessible::Dialog);
        std::vector<std::string> nameless;
        CollectNameless(*top, nameless);
        EXPECT_THAT(nameless, IsEmpty());
    };
    check();
    Find<QAbstractButton>("moveLeaveOut").setChecked(true);
    Save("g.csv");
    check();
}

// The controls that Tab reaches, from the one that has the focus on.
std::vector<std::string> Tabbed() {
    std::vector<std::string> names;
    QWidget* const first = QApplication::focusWidget();
    QWidget* at = first;
    do {
        names.push_back(at->objectName().toStdString());
        QTest::keyClick(at, Qt::Key_Tab);
        at = QApplication::focusWidget();
    } while (at != nullptr && at != first && names.size() < 50);
    return names;
}

TEST_F(BookMoveSummaryTest, TheKeyboardIsEnough) {
    Read("rich.vcf", test::kRichBook);
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    auto& programs = Find<QListWidget>("movePrograms");
    programs.setFocus();
    QTest::keyClick(&programs, Qt::Key_Down);
    AwaitPreview();
    EXPECT_EQ(Text("moveTitle"), "Google Contacts");
    EXPECT_THAT(
        Tabbed(),
        ElementsAre(
            "movePrograms", "moveHelp", "moveMore", "moveLosses", "moveLeaveOut", "moveClose"));
    // More is opened by its key; Enter on a loss does not save.
    QTest::keyClick(dialog.get(), Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(Eventually([&] { return Find<QComboBox>("moveForm").isVisible(); }));
    auto& losses = Find<QTreeView>("moveLosses");
    losses.setFocus();
    const auto rows = LossRows().size();
    QTest::keyClick(&losses, Qt::Key_Return);
    EXPECT_LT(LossRows().size(), rows);
    QTest::keyClick(&losses, Qt::Key_Return);
    EXPECT_EQ(LossRows().size(), rows);
    QTest::keyClick(dialog.get(), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(Eventually([&] { return Find<QPushButton>("moveSave").isEnabled(); }));
    EXPECT_TRUE(Find<QAbstractButton>("moveLeaveOut").isChecked());
    const test::BoxUser user({[&] { test::ModalUser::type(Path("g.csv")); }});
    QTest::keyClick(dialog.get(), Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(Eventually([&] { return Find<QWidget>("moveSummary").isVisible(); }));
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    ASSERT_EQ(QApplication::focusWidget(), &Find<QWidget>("moveSummaryText"));
    EXPECT_THAT(
        Tabbed(),
        ElementsAre(
            "moveSummaryText", "moveKeep", "moveCopy", "moveFolder", "moveBack", "moveClose"));
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
}

}  // namespace
}  // namespace orvik

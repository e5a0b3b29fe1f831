#include "desktop/book/duplicates_page.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QUndoStack>

#include "desktop/book/duplicates_model.h"
#include "desktop/book/side_model.h"
#include "desktop/duplicates_fixture.h"
#include "desktop/modal_user.h"
#include "desktop/views/quiet_line.h"

namespace orvik {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class BookDuplicatesPage : public test::DuplicatesTest {
 protected:
    void Show() {
        page.resize(600, 800);
        page.show();
        QApplication::setActiveWindow(&page);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    }

    void ShowLooked(const std::string& cards) {
        Open(Write("a.vcf", cards));
        Show();
        Button("Look").click();
        Wait();
    }

    template <class Widget>
    Widget& Find(const char* name) {
        return *page.findChild<Widget*>(QStringLiteral("duplicates") + QLatin1String(name));
    }
    QPushButton& Button(const char* name) { return Find<QPushButton>(name); }
    QTableView& Rows() { return Find<QTableView>("Groups"); }
    QTableView& Beside() { return Find<QTableView>("Beside"); }

    // The rows of a table as they are read, "a|b", for a line each.
    static std::string TextOf(const QTableView& table) {
        std::string text;
        const QAbstractItemModel& model = *table.model();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                text += column == 0 ? "" : "|";
                text += model.index(row, column).data().toString().toStdString();
            }
            text += "\n";
        }
        return text;
    }

    std::string Told() { return Find<QuietLine>("Notice").text().toStdString(); }

    // By keys alone: Tab until that has the focus.
    void TabTo(const char* name) {
        const QString wanted = QStringLiteral("duplicates") + QLatin1String(name);
        for (int i = 0; i < 30; ++i) {
            if (QApplication::focusWidget() != nullptr &&
                QApplication::focusWidget()->objectName() == wanted) {
                return;
            }
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        FAIL() << "Tab does not lead to " << name;
    }
    static void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    DuplicatesPage page{document, worker, files, nullptr};
};

TEST_F(BookDuplicatesPage, SaysWhatItIsForBeforeTheFirstLook) {
    Show();
    EXPECT_THAT(Find<QLabel>("Status").text().toStdString(), HasSubstr("after a look"));
    EXPECT_FALSE(Button("Look").isEnabled());
    EXPECT_FALSE(Button("Load").isEnabled());
    Open(Write("a.vcf", People()));
    EXPECT_TRUE(Button("Look").isEnabled());
    EXPECT_TRUE(Button("Load").isEnabled());
    EXPECT_FALSE(Button("Save").isEnabled());
    EXPECT_FALSE(Button("Merge").isEnabled());
}

TEST_F(BookDuplicatesPage, ListsGroupsByTierWithReasons) {
    ShowLooked(People());
    EXPECT_EQ(TextOf(Rows()),
              "undecided|same|2|Ada Abbott <ada@a.example>\n"
              "undecided|contained|2|Ben Berg <ben@b.example>\n"
              "undecided|agree|2|share cy@c.example, names \"C. Clark\" / \"Cy Clark\"\n"
              "undecided|share an address|2|share cy@c.example: \"C. Clark\" / \"Dora\"\n"
              "undecided|share a name|2|\"Ada Abbott\"\n");
    auto& tiers = Find<QComboBox>("Tiers");
    EXPECT_EQ(tiers.itemText(0), QStringLiteral("All groups (5)"));
    EXPECT_EQ(tiers.itemText(1), QStringLiteral("Same (1)"));
    EXPECT_EQ(tiers.itemText(6), QStringLiteral("Only in the plan (0)"));
    tiers.setCurrentIndex(3);
    EXPECT_THAT(TextOf(Rows()), testing::StartsWith("undecided|agree|2|"));
    EXPECT_EQ(Rows().model()->rowCount(), 1);
    EXPECT_THAT(TextOf(Beside()), HasSubstr("Cy Clark (wins)"));
    tiers.setCurrentIndex(6);
    EXPECT_EQ(Rows().model()->rowCount(), 0);
    EXPECT_FALSE(Button("Merge").isEnabled());
}

TEST_F(BookDuplicatesPage, ShowsRecordsBesideEachOther) {
    ShowLooked(People());
    Rows().selectRow(2);
    EXPECT_EQ(TextOf(Beside()),
              "\u2260 Name|C. Clark (carried along)|Cy Clark (wins)|Cy Clark; carried along: C. "
              "Clark\n"
              "= E-mail|cy@c.example|cy@c.example|cy@c.example\n"
              "+ Phone|3||3\n+ Phone||4|4\n");
    EXPECT_EQ(Find<QLabel>("Heading").text(), QStringLiteral("2 records of C. Clark:"));
    const QAbstractItemModel& model = *Beside().model();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("line 41 (stays)"));
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("line 51"));
    EXPECT_THAT(model.headerData(2, Qt::Horizontal, Qt::ToolTipRole).toString().toStdString(),
                testing::EndsWith("a.vcf, line 51"));
    // Not by colour alone.
    EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Name, different"));
    EXPECT_TRUE(model.index(0, 1).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(model.index(1, 1).data(Qt::FontRole).isValid());
    EXPECT_TRUE(model.index(1, 1).data(Qt::ForegroundRole).isValid());
    Rows().selectAll();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(Find<QLabel>("Heading").text(), QStringLiteral("5 groups are selected."));
}

TEST_F(BookDuplicatesPage, NamesTheFilesOfRecordsAndWhoCameFromNone) {
    Open(Write("a.vcf", People()));
    Open(Write("b.vcf", book::test::CardOf("FN:Ada Abbott|EMAIL:ada@a.example|TEL:1")));
    book::Contact added = document.at(0);
    added.From = {};
    document.add(QStringLiteral("Add"), {added});
    Show();
    Button("Look").click();
    Wait();
    const QAbstractItemModel& model = *Beside().model();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(),
              QStringLiteral("a.vcf, line 1 (stays)"));
    EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString(), QStringLiteral("b.vcf, line 1"));
    EXPECT_EQ(model.headerData(4, Qt::Horizontal).toString(), QStringLiteral("added here"));
}

TEST_F(BookDuplicatesPage, VeryLongRecordsAreNotShownButMerged) {
    std::string card = "BEGIN:VCARD\nVERSION:3.0\nFN:Al\nEMAIL:a@b.example\n";
    for (std::size_t i = 0; i < SideModel::kMostFields / 2; ++i) {
        card += "NOTE:" + std::to_string(i) + "\n";
    }
    card += "END:VCARD\n";
    ShowLooked(card + card);
    EXPECT_THAT(Find<QLabel>("Heading").text().toStdString(), HasSubstr("too many fields"));
    Button("MergeSure").click();
    Wait();
    EXPECT_EQ(document.thereCount(), 1U);
}

TEST_F(BookDuplicatesPage, ManyRecordsOfAGroupAreShownInPart) {
    std::string cards;
    for (int i = 0; i < 100; ++i) {
        cards += book::test::CardOf("FN:Al|EMAIL:a@b.example");
    }
    ShowLooked(cards);
    EXPECT_EQ(Beside().model()->columnCount(), 66);
    EXPECT_EQ(Find<QLabel>("Heading").text(), QStringLiteral("The first 64 of 100 records of Al:"));
}

TEST_F(BookDuplicatesPage, OneCommandMergesAllThatAreSure) {
    ShowLooked(People());
    EXPECT_EQ(Button("MergeSure").text(), QStringLiteral("Merge &all 2 same and contained"));
    Button("MergeSure").click();
    EXPECT_TRUE(document.isFrozen());
    EXPECT_FALSE(Button("MergeSure").isEnabled());
    Wait();
    EXPECT_EQ(document.thereCount(), 6U);
    EXPECT_EQ(Button("MergeSure").text(), QStringLiteral("Merge &all 0 same and contained"));
    EXPECT_FALSE(Button("MergeSure").isEnabled());
    EXPECT_THAT(Told(), HasSubstr("Merged 2 groups: 2 records are part of others now."));
    EXPECT_THAT(Find<QLabel>("Heading").text().toStdString(), HasSubstr("are one now"));
    document.undoStack().undo();
    EXPECT_TRUE(Button("MergeSure").isEnabled());
    EXPECT_THAT(TextOf(Rows()), testing::StartsWith("undecided|same"));
    EXPECT_GT(Beside().model()->rowCount(), 0);
}

TEST_F(BookDuplicatesPage, ADoubleClickIsOneClick) {
    ShowLooked(People());
    Rows().selectRow(0);
    QTest::mouseClick(&Button("Merge"), Qt::LeftButton);
    Wait();
    ASSERT_EQ(document.thereCount(), 7U);
    // The pointer is over another button now.
    QPushButton& sure = Button("MergeSure");
    const QPoint middle = sure.rect().center();
    QMouseEvent second(QEvent::MouseButtonDblClick,
                       middle,
                       sure.mapToGlobal(middle),
                       Qt::LeftButton,
                       Qt::LeftButton,
                       {});
    QApplication::sendEvent(&sure, &second);
    QTest::mouseRelease(&sure, Qt::LeftButton);
    Wait();
    EXPECT_EQ(document.thereCount(), 7U);
    QTest::mouseClick(&sure, Qt::LeftButton);
    Wait();
    EXPECT_EQ(document.thereCount(), 6U);
}

TEST_F(BookDuplicatesPage, SeveralGroupsAreDecidedAtOnce) {
    ShowLooked(People());
    Rows().selectAll();
    Button("Keep").click();
    EXPECT_THAT(TextOf(Rows()), testing::Not(HasSubstr("undecided")));
    Button("Later").click();
    EXPECT_THAT(TextOf(Rows()), HasSubstr("later|share a name"));
    Rows().model()->setData(Rows().model()->index(2, 0), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(Button("MergeTicked").text(), QStringLiteral("Merge 1 t&icked"));
    Button("MergeTicked").click();
    Wait();
    EXPECT_THAT(TextOf(Rows()), HasSubstr("merged|agree"));
    EXPECT_THAT(TextOf(Rows()), HasSubstr("changed: look again|share an address"));
    EXPECT_THAT(Find<QLabel>("Status").text().toStdString(),
                HasSubstr("The book has changed: look again to compare 1 record."));
}

TEST_F(BookDuplicatesPage, WhatIsDecidedCanBeLeftOut) {
    ShowLooked(People());
    Rows().selectRow(1);
    Find<QCheckBox>("Undecided").setChecked(true);
    EXPECT_EQ(Rows().currentIndex().row(), 1);
    Button("Keep").click();
    EXPECT_EQ(Rows().model()->rowCount(), 4);
    // The next one is at hand.
    EXPECT_EQ(Rows().currentIndex().row(), 1);
    EXPECT_THAT(TextOf(Beside()), HasSubstr("Cy Clark (wins)"));
}

TEST_F(BookDuplicatesPage, WorksByKeysAlone) {
    Open(Write("a.vcf", People()));
    Show();
    TabTo("Look");
    Press(Qt::Key_Space);
    Wait();
    TabTo("Groups");
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    // Space ticks, and takes the tick away.
    Press(Qt::Key_Space);
    EXPECT_THAT(TextOf(Rows()), HasSubstr("to be merged|agree"));
    Press(Qt::Key_Space);
    EXPECT_THAT(TextOf(Rows()), HasSubstr("undecided|agree"));
    QSignalSpy asked(&page, &DuplicatesPage::recordAsked);
    Press(Qt::Key_Return);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toUInt(), 4U);
    TabTo("Keep");
    Press(Qt::Key_Space);
    EXPECT_THAT(TextOf(Rows()), HasSubstr("kept apart|agree"));
    TabTo("Beside");
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Press(Qt::Key_Return);
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked[1][0].toUInt(), 5U);
    TabTo("Merge");
    Press(Qt::Key_Space);
    Wait();
    EXPECT_EQ(UndoName(), "Merge 2 records of C. Clark");
    for (const char* const name : {"Save", "Load", "Tiers", "Undecided", "Later", "MergeSure"}) {
        TabTo(name);
    }
}

TEST_F(BookDuplicatesPage, TheFocusComesBackWhenWorkHasEnded) {
    Open(Write("a.vcf", People()));
    Show();
    for (const bool cancels : {true, false}) {
        TabTo("Look");
        Press(Qt::Key_Space);
        EXPECT_FALSE(Button("Look").isEnabled());
        if (cancels) {
            worker.cancel();
        }
        Wait();
        EXPECT_TRUE(Button("Look").hasFocus());
    }
}

TEST_F(BookDuplicatesPage, PlansAreSavedAndLoadedByDialogs) {
    ShowLooked(People());
    const QString name = QString::fromStdString(PathOf("plan"));
    {
        const test::ModalUser user({[&] { test::ModalUser::type(name); }});
        Button("Save").click();
    }
    Wait();
    EXPECT_THAT(Read(PathOf("plan.txt")), HasSubstr("# same: Ada Abbott"));
    {
        const test::ModalUser user({[&] { test::ModalUser::type(name + QStringLiteral(".txt")); }});
        Button("Load").click();
    }
    Wait();
    EXPECT_THAT(Told(), HasSubstr("2 groups are to be merged, as "));
    EXPECT_EQ(Button("MergeTicked").text(), QStringLiteral("Merge 2 t&icked"));
}

TEST_F(BookDuplicatesPage, WrongLinesOfAPlanAreListed) {
    ShowLooked(People());
    Write("plan.txt", "merge\nx\n");
    page.duplicates().loadPlan(QString::fromStdString(PathOf("plan.txt")));
    Wait();
    auto& list = *page.findChild<QListView*>(QStringLiteral("planErrorsList"));
    ASSERT_TRUE(list.isVisible());
    ASSERT_EQ(list.model()->rowCount(), 3);
    EXPECT_TRUE(list.model()->index(0, 0).data().toString().startsWith(
        QStringLiteral("line 1: the plan names no source")));
    EXPECT_EQ(list.model()->index(2, 0).data().toString(),
              QStringLiteral("line 2: a line begins with merge, ask, keep or #"));
    auto& close = *page.findChild<QPushButton*>(QStringLiteral("planErrorsClose"));
    EXPECT_TRUE(close.hasFocus());
    Press(Qt::Key_Space);
    EXPECT_FALSE(list.isVisible());
    EXPECT_TRUE(Beside().isVisible());
}

TEST_F(BookDuplicatesPage, EverythingHasANameAndARole) {
    ShowLooked(People());
    for (const QWidget* const widget : page.findChildren<QWidget*>()) {
        const bool is_control = widget->focusPolicy() != Qt::NoFocus && widget->isVisible() &&
                                !widget->objectName().startsWith(QStringLiteral("qt_"));
        if (!is_control) {
            continue;
        }
        QAccessibleInterface* const read =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        EXPECT_FALSE(read->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
        EXPECT_FALSE(widget->objectName().isEmpty()) << read->text(QAccessible::Name).toStdString();
    }
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Rows())->role(), QAccessible::Table);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Button("Merge"))->role(),
              QAccessible::PushButton);
}

TEST_F(BookDuplicatesPage, NoNameIsHtmlOrTurnsLettersRound) {
    ShowLooked(book::test::CardsOf("FN:<b>Al\u202E</b>|EMAIL:a@b.example",
                                   "FN:<b>Al\u202E</b>|EMAIL:a@b.example"));
    EXPECT_THAT(TextOf(Rows()), HasSubstr("<b>Al\\u202E</b>"));
    EXPECT_THAT(TextOf(Beside()), HasSubstr("<b>Al\\u202E</b>"));
    EXPECT_EQ(Find<QLabel>("Heading").textFormat(), Qt::PlainText);
    EXPECT_THAT(Find<QLabel>("Heading").text().toStdString(), HasSubstr("<b>Al\\u202E</b>"));
    EXPECT_THAT(Rows().model()->index(0, 3).data(Qt::ToolTipRole).toString().toStdString(),
                HasSubstr("&lt;b&gt;"));
}

TEST_F(BookDuplicatesPage, WhatWasNotComparedIsSaid) {
    std::string cards;
    for (int i = 0; i < 70; ++i) {
        cards += book::test::CardOf("FN:Person " + std::to_string(i) + "|EMAIL:a@b.example");
    }
    ShowLooked(cards);
    EXPECT_THAT(Find<QLabel>("Status").text().toStdString(),
                HasSubstr("Not compared: address: 70 records share a@b.example"));
    EXPECT_THAT(Find<QLabel>("Status").text().toStdString(), HasSubstr("No duplicates were found"));
}

}  // namespace
}  // namespace orvik

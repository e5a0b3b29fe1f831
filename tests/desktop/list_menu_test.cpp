// The context menu of the lists, and its keys.

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>

#include "desktop/form1_window_fixture.h"
#include "desktop/modal_user.h"
#include "desktop/text/short_text.h"
#include "desktop/windows/changed_entry.h"
#include "desktop/windows/entry_dialog.h"

namespace orvik {
namespace {

using test::BoxIs;
using test::kThree;
using test::ModalUser;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;

// The style of a desktop whose dialogs have pictures on their buttons.
class PicturesOnButtons : public QProxyStyle {
 public:
    int styleHint(StyleHint hint,
                  const QStyleOption* option,
                  const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

class ListMenuTest : public test::Form1WindowTest {
 protected:
    void Open(const std::string& native = kThree) {
        Show();
        window.activateWindow();
        List(native);
        Settle();
        list1_.setFocus();
    }
    static EntryDialog& Dialog() {
        return *qobject_cast<EntryDialog*>(QApplication::activeModalWidget());
    }
    static QLineEdit& Field(const char* name) {
        return *Dialog().findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    static void Press(QDialogButtonBox::StandardButton button) {
        Dialog().findChild<QDialogButtonBox*>()->button(button)->click();
    }
    static void Type(const QString& address, const QString& nickname) {
        Field("entryAddress").setText(address);
        Field("entryNickname").setText(nickname);
        Press(QDialogButtonBox::Ok);
    }
    static QAction& ActionOf(QListView& list, const char* name) {
        return *list.findChild<QAction*>(QString::fromLatin1(name));
    }

    QListView& list1_ = Find<QListView>("List1");
    QListView& list2_ = Find<QListView>("List2");
};

TEST_F(ListMenuTest, TheFormsButtonsHaveWordsOnly) {
    const QString usual = QApplication::style()->name();
    const auto back = qScopeGuard([&] { QApplication::setStyle(usual); });
    QApplication::setStyle(new PicturesOnButtons);
    Open();
    ClickRow(list1_, 0);
    const ModalUser user({[] {
        for (const QAbstractButton* const button :
             Dialog().findChild<QDialogButtonBox*>()->buttons()) {
            EXPECT_TRUE(button->icon().isNull()) << button->text().toStdString();
        }
        Press(QDialogButtonBox::Cancel);
    }});
    QTest::keyClick(&list1_, Qt::Key_Return);
    EXPECT_EQ(user.done(), 1U);
}

TEST_F(ListMenuTest, EnterEditsTheEntryThatHasTheFocus) {
    Open();
    ClickRow(list1_, 1);
    const ModalUser user({[] {
        EXPECT_EQ(Field("entryAddress").text(), QStringLiteral("A2"));
        EXPECT_EQ(Field("entryNickname").text(), QStringLiteral("Bo"));
        EXPECT_EQ(Dialog().focusWidget(), &Field("entryAddress"));
        Type(QStringLiteral("b@x.org"), QStringLiteral("Be B."));
    }});
    QTest::keyClick(&list1_, Qt::Key_Return);
    EXPECT_EQ(user.done(), 1U);
    EXPECT_EQ(module1.WorkText, "A1\r\nb@x.org\r\nA3\r\n-nick-\r\nAl\r\nBe B.\r\nCy\r\n");
    EXPECT_EQ(list2_.model()->index(1, 0).data().toString(), QStringLiteral("Be B."));
    EXPECT_EQ(list1_.currentIndex().row(), 1);
    EXPECT_THAT(form1.List1.Selected(), IsEmpty());
    EXPECT_EQ(Find<QAction>("undo").text(), QStringLiteral("&Undo Edit entry"));
    Find<QAction>("undo").trigger();
    EXPECT_EQ(module1.WorkText, kThree);
}

TEST_F(ListMenuTest, ADoubleClickEditsAndCancelLeavesTheEntry) {
    Open();
    const ModalUser user({[] {
        Field("entryAddress").setText(QStringLiteral("x"));
        Press(QDialogButtonBox::Cancel);
    }});
    const QPoint place = list2_.visualRect(list2_.model()->index(2, 0)).center();
    QTest::mouseClick(list2_.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list2_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(user.done(), 1U);
    EXPECT_EQ(module1.WorkText, kThree);
    EXPECT_EQ(module1.history.UndoTitle(), "");
}

TEST_F(ListMenuTest, WhatCannotBeKeptIsRefusedWithTheReason) {
    Open();
    ClickRow(list1_, 0);
    const struct {
        QString Address;
        QString Nickname;
        const char* Reason;
    } rows[] = {
        {QStringLiteral("a\nb"), {}, "An entry has no line break in it."},
        {QStringLiteral("a"), QString(QChar(0)), "An entry has no line break in it."},
        {QStringLiteral("a"), QString(QChar(0x2028)), "An entry has no line break in it."},
        {QStringLiteral("a\""), {}, "An entry has no double quote in it."},
        {QStringLiteral("a>"), {}, "An address has neither < nor > in it."},
        {QStringLiteral("a,b"), {}, "An address does not have in it what separates the entries."},
        {QStringLiteral("a-nick-"), {}, "An address does not have -nick- in it."},
        {QStringLiteral("a"), QStringLiteral("-nick-"), "No nickname can be -nick-."},
    };
    module1.textSep = ",";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Reason);
        ExpectTold(row.Reason);
        const ModalUser user({[&] {
            Type(row.Address, row.Nickname);
            // It is still there, with what was typed.
            EXPECT_EQ(Field("entryAddress").text(), row.Address);
            Press(QDialogButtonBox::Cancel);
        }});
        ActionOf(list1_, "editEntry").trigger();
        EXPECT_EQ(user.done(), 1U);
    }
    EXPECT_EQ(module1.WorkText, kThree);
}

TEST_F(ListMenuTest, DelDeletesTheSelectedEntries) {
    std::string native;
    for (int i = 0; i < 100; ++i) {
        native += "a" + std::to_string(i) + "\r\n";
    }
    native += "-nick-\r\n";
    for (int i = 0; i < 100; ++i) {
        native += "n" + std::to_string(i) + "\r\n";
    }
    Open(native);
    list2_.setFocus();
    list2_.scrollTo(list2_.model()->index(60, 0));
    ClickRow(list2_, 59);
    ClickRow(list2_, 60, Qt::ShiftModifier);
    const int place = list2_.verticalScrollBar()->value();
    QTest::keyClick(&list2_, Qt::Key_Delete);
    EXPECT_EQ(form1.List1.Items().size(), 98U);
    EXPECT_EQ(form1.List1.Items()[59], "a61");
    EXPECT_EQ(form1.List2.Items()[59], "n61");
    EXPECT_EQ(list2_.currentIndex().row(), 59);
    EXPECT_EQ(list2_.verticalScrollBar()->value(), place);
    EXPECT_TRUE(list2_.hasFocus());
    QTest::keySequence(&list2_, QKeySequence::SelectAll);
    QTest::keyClick(&list2_, Qt::Key_Delete);
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(PanelText(2), QStringLiteral("0 items"));
    EXPECT_FALSE(ActionOf(list2_, "deleteEntries").isEnabled());
    EXPECT_FALSE(ActionOf(list2_, "editEntry").isEnabled());
}

TEST_F(ListMenuTest, ABookOfAnySizeCanBeChanged) {
    std::string native;
    for (int i = 0; i < 20000; ++i) {
        native += "mary.miller@x.org\r\n";
    }
    native += "-nick-\r\n";
    for (int i = 0; i < 20000; ++i) {
        native += "Mary\r\n";
    }
    Open(native);
    ClickRow(list1_, 0);
    QTest::keyClick(&list1_, Qt::Key_End);
    const ModalUser user({[] { Type(QStringLiteral("z"), QStringLiteral("Zoe")); }});
    QTest::keyClick(&list1_, Qt::Key_Enter);
    EXPECT_EQ(form1.List2.Items()[19999], "Zoe");
    EXPECT_EQ(list1_.currentIndex().row(), 19999);
    window.activateWindow();
    Settle();
    QTest::keyClick(&list1_, Qt::Key_Space);
    QTest::keyClick(&list1_, Qt::Key_Delete);
    EXPECT_EQ(form1.List2.Items().size(), 19999U);
    EXPECT_EQ(list1_.currentIndex().row(), 19998);
}

TEST_F(ListMenuTest, AHalfOfManyMegabytesStaysAsItIs) {
    const std::string nickname(std::size_t{8} << 20U, 'n');
    Open("A1\r\n-nick-\r\n" + nickname + "\r\n");
    ClickRow(list1_, 0);
    const ModalUser user({[] {
        EXPECT_TRUE(Field("entryNickname").isReadOnly());
        EXPECT_EQ(Field("entryNickname").text().size(), kMostTyped + 1);
        EXPECT_FALSE(Field("entryNickname").toolTip().isEmpty());
        EXPECT_FALSE(Field("entryAddress").isReadOnly());
        Field("entryAddress").setText(QStringLiteral("z"));
        Press(QDialogButtonBox::Ok);
    }});
    QTest::keyClick(&list1_, Qt::Key_Enter);
    EXPECT_EQ(form1.List1.Items()[0], "z");
    EXPECT_EQ(form1.List2.Items()[0], nickname);
}

TEST_F(ListMenuTest, KeysCopy) {
    Open();
    ClickRow(list1_, 1);
    EXPECT_CALL(platform, SetClipboardText(std::string_view("A2\r\n")));
    QTest::keySequence(&list1_, QKeySequence::Copy);
    EXPECT_CALL(platform, SetClipboardText(std::string_view("\"Bo\" <A2>\r\n")));
    QTest::keySequence(&list1_, QKeySequence(QStringLiteral("Ctrl+Shift+C")));
}

TEST_F(ListMenuTest, TheMenuHasItsRowsInOrder) {
    Open();
    for (const QListView* const list : {&list1_, &list2_}) {
        std::vector<std::string> rows;
        for (const QAction* const action : list->actions()) {
            rows.push_back(action->text().toStdString());
        }
        EXPECT_THAT(rows,
                    ElementsAre("&Undo",
                                "&Redo",
                                "",
                                "Ed&it entry...",
                                "&Delete entries",
                                "",
                                "Copy &address",
                                "Copy &entry",
                                "",
                                "&Select All",
                                "&Find..."));
    }
}

TEST_F(ListMenuTest, AnEntryThatACommandTookAwayIsGone) {
    Open();
    ClickRow(list1_, 2);
    // The lists stay as they were.
    EXPECT_CALL(platform, ShowBox(_)).Times(2).WillRepeatedly(Return(Answer::OK));
    Find<QAction>("mnuRemDup").trigger();
    ASSERT_EQ(form1.List1.Items().size(), 3U);
    for (const char* const row : {"editEntry", "deleteEntries"}) {
        ExpectTold("This entry is no longer in the book.");
        ActionOf(list1_, row).trigger();
    }
    EXPECT_EQ(module1.WorkText, "-nick-");
}

TEST(ChangedEntry, IsInTheEncodingOfTheText) {
    const auto entry =
        [](const char16_t* nickname, std::string_view before, std::string_view text) {
            return ToEntry(QStringLiteral("a"), QString::fromUtf16(nickname), "a", before, text);
        };
    EXPECT_EQ(entry(u"\u00FC", "x", "plain").Nickname, "\xC3\xBC");
    EXPECT_EQ(entry(u"\u00FC", "x", "\xE4").Nickname, "\xFC");
    EXPECT_EQ(entry(u"\u00FC", "x", "\xE4").WholeText, "");
    // An entry that is UTF-8 in a text that is not stays so where it is not changed.
    EXPECT_EQ(entry(u"\u00FC", "\xC3\xBC", "\xC3\xBC\r\n\xE4").Nickname, "\xC3\xBC");
}

TEST(ChangedEntry, ALetterOutsideWindows1252MakesTheTextUtf8) {
    const ChangedEntry entry = ToEntry(
        QStringLiteral("a"), QString::fromUtf16(u"\u0416"), "a", "\xE4", "a\r\n-nick-\r\n\xE4\r\n");
    EXPECT_EQ(entry.Nickname, "\xD0\x96");
    EXPECT_EQ(entry.WholeText, "a\r\n-nick-\r\n\xC3\xA4\r\n");
}

TEST_F(ListMenuTest, ALetterOutsideWindows1252IsOneStepToUndo) {
    const std::string native = "a\r\nb\r\n-nick-\r\n\xE4\r\nBo\r\n";
    Open(native);
    ClickRow(list1_, 1);
    const ModalUser user({[] { Type(QStringLiteral("b"), QString::fromUtf16(u"\u0416")); }});
    ActionOf(list1_, "editEntry").trigger();
    EXPECT_EQ(module1.WorkText, "a\r\nb\r\n-nick-\r\n\xC3\xA4\r\n\xD0\x96\r\n");
    Find<QAction>("undo").trigger();
    EXPECT_EQ(module1.WorkText, native);
    EXPECT_EQ(module1.history.UndoTitle(), "");
}

}  // namespace
}  // namespace orvik

// The lists of the main window side by side.

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include "desktop/form1_window_fixture.h"
#include "desktop/views/list_box_view.h"

namespace orvik {
namespace {

using test::kThree;
using testing::ElementsAre;
using testing::IsEmpty;

class ListsTest : public test::Form1WindowTest {
 protected:
    // A book of addresses aN@x and nicknames nN.
    void ListMany(int addresses, int nicknames) {
        std::string text;
        for (int i = 0; i < addresses; ++i) {
            text += "a" + std::to_string(i) + "@x\r\n";
        }
        text += "-nick-\r\n";
        for (int i = 0; i < nicknames; ++i) {
            text += "n" + std::to_string(i) + "\r\n";
        }
        Show();
        List(text);
        Settle();
    }
    void SelectAddresses() {
        EXPECT_CALL(platform, ShowForm(testing::_, testing::_)).Times(testing::AnyNumber());
        EXPECT_CALL(platform, CloseForm(testing::_)).Times(testing::AnyNumber());
        desktop.run([this] {
            program.frm_select.Show(Showing::Modeless);
            program.frm_select.Command1_Click();
        });
        Settle();
    }
    static int Value(const QListView& list) { return list.verticalScrollBar()->value(); }
    // All lists stand at the same rows.
    void ExpectTogether() {
        EXPECT_EQ(Value(list1_), Value(list2_));
        EXPECT_EQ(list1_.verticalScrollBar()->maximum(), list2_.verticalScrollBar()->maximum());
        if (list3_.isVisible()) {
            EXPECT_EQ(Value(list1_), Value(list3_));
            EXPECT_EQ(list1_.verticalScrollBar()->maximum(), list3_.verticalScrollBar()->maximum());
        }
        const QModelIndex row = list1_.model()->index(0, 0);
        EXPECT_EQ(list1_.visualRect(row).y(), list2_.visualRect(list2_.model()->index(0, 0)).y());
    }
    static bool InSight(const QListView& list, int row) {
        return list.viewport()->rect().contains(
            QPoint(1, list.visualRect(list.model()->index(row, 0)).center().y()));
    }
    static void Wheel(QListView& list, int steps) {
        const QPoint place = list.viewport()->rect().center();
        QWheelEvent turn(place,
                         list.viewport()->mapToGlobal(place),
                         {},
                         {0, -120 * steps},
                         Qt::NoButton,
                         Qt::NoModifier,
                         Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(list.viewport(), &turn);
    }

    ListBoxView& list1_ = Find<ListBoxView>("List1");
    ListBoxView& list2_ = Find<ListBoxView>("List2");
    ListBoxView& list3_ = Find<ListBoxView>("List3");
};

TEST_F(ListsTest, OneScrollBarMovesAllLists) {
    ListMany(100, 100);
    EXPECT_FALSE(list1_.verticalScrollBar()->isVisible());
    EXPECT_TRUE(list2_.verticalScrollBar()->isVisible());
    list2_.verticalScrollBar()->setValue(333);
    EXPECT_EQ(Value(list1_), 333);
    ExpectTogether();
    SelectAddresses();
    EXPECT_FALSE(list3_.verticalScrollBar()->isVisible());
    EXPECT_EQ(Value(list3_), 333);
    list2_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
    ExpectTogether();
    EXPECT_TRUE(InSight(list1_, 99));
}

TEST_F(ListsTest, WithoutNeedThereIsNoScrollBar) {
    Show();
    List(kThree);
    Settle();
    EXPECT_FALSE(list2_.verticalScrollBar()->isVisible());
    window.resize(window.width(), 105);
    Settle();
    EXPECT_TRUE(list2_.verticalScrollBar()->isVisible());
    ExpectTogether();
    window.resize(window.width(), 400);
    Settle();
    EXPECT_FALSE(list2_.verticalScrollBar()->isVisible());
}

TEST_F(ListsTest, TheWheelMovesAllLists) {
    ListMany(100, 100);
    SelectAddresses();
    for (QListView* const list : {&list1_, &list2_, &list3_}) {
        const int before = Value(list1_);
        Wheel(*list, 1);
        EXPECT_GT(Value(list1_), before);
        ExpectTogether();
    }
}

TEST_F(ListsTest, KeysMoveAllLists) {
    ListMany(100, 100);
    ClickRow(list1_, 0);
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Home}) {
        QTest::keyClick(&list1_, key);
        ExpectTogether();
        EXPECT_EQ(list1_.currentIndex().row(), list2_.currentIndex().row());
        EXPECT_TRUE(InSight(list2_, list2_.currentIndex().row()));
    }
    QTest::keyClick(&list2_, Qt::Key_End);
    ExpectTogether();
    EXPECT_TRUE(InSight(list1_, 99));
}

TEST_F(ListsTest, FindAndASelectionMoveAllLists) {
    ListMany(100, 100);
    Find<QAction>("find").trigger();
    QTest::keyClicks(&Find<QLineEdit>("findText"), QStringLiteral("n77"));
    EXPECT_TRUE(InSight(list1_, 77));
    EXPECT_TRUE(InSight(list2_, 77));
    ExpectTogether();
    // As a screen reader selects.
    list2_.setCurrentIndex(list2_.model()->index(5, 0));
    EXPECT_TRUE(InSight(list1_, 5));
    ExpectTogether();
}

TEST_F(ListsTest, ADragBeyondTheEdgeMovesAllLists) {
    ListMany(100, 100);
    QWidget& area = *list1_.viewport();
    QTest::mousePress(&area, Qt::LeftButton, {}, {20, 5});
    QTest::mouseMove(&area, {20, area.height() - 4});
    QMouseEvent move(QEvent::MouseMove,
                     QPointF(20, area.height() - 2),
                     area.mapToGlobal(QPointF(20, area.height() - 2)),
                     Qt::NoButton,
                     Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&area, &move);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Value(list1_) > 0; }, 3000));
    ExpectTogether();
    QTest::mouseRelease(&area, Qt::LeftButton, {}, {20, area.height() - 2});
    ExpectTogether();
}

TEST_F(ListsTest, TheLongestListGivesTheRange) {
    for (const auto& [addresses, nicknames] : {std::pair(30, 100), std::pair(100, 30)}) {
        SCOPED_TRACE(addresses);
        ListMany(addresses, nicknames);
        ExpectTogether();
        QListView& longer = addresses > nicknames ? list1_ : list2_;
        QListView& shorter = addresses > nicknames ? list2_ : list1_;
        ClickRow(longer, 0);
        QTest::keyClick(&longer, Qt::Key_End);
        ExpectTogether();
        EXPECT_TRUE(InSight(longer, 99));
        // Beyond its end the shorter one is empty, also when it is laid out and painted.
        Settle();
        shorter.viewport()->repaint();
        EXPECT_FALSE(shorter.indexAt(shorter.viewport()->rect().center()).isValid());
        ExpectTogether();
        QTest::mouseClick(
            shorter.viewport(), Qt::LeftButton, {}, shorter.viewport()->rect().center());
        ExpectTogether();
        window.resize(window.width(), window.height() + 40);
        Settle();
        ExpectTogether();
        EXPECT_TRUE(InSight(longer, 99));
    }
}

TEST_F(ListsTest, TheNumbersCoverNoNickname) {
    for (const int count : {3, 1200}) {
        SCOPED_TRACE(count);
        ListMany(count, count);
        SelectAddresses();
        EXPECT_EQ(list3_.geometry().right(), list1_.geometry().right());
        EXPECT_EQ(list3_.geometry().right() + 1, list2_.x());
        const QModelIndex last = list3_.model()->index(list3_.model()->rowCount() - 1, 0);
        EXPECT_GE(list3_.viewport()->width(), list3_.sizeOf(last.data().toString()).width());
        // The addresses end before the numbers.
        EXPECT_LE(list1_.x() + list1_.viewport()->geometry().right(), list3_.x());
        EXPECT_EQ(form1.List3.Left, form1.List1.Width - 255);
        ExpectTogether();
        desktop.run([this] {
            form1.List3.Clear();
            form1.List3.Visible = false;
        });
        EXPECT_GT(list1_.viewport()->width(), list1_.width() - 10);
    }
}

TEST_F(ListsTest, PlainClicksOnNumbersAdd) {
    ListMany(5, 5);
    const auto& hint = Find<QLabel>("numberHint");
    EXPECT_FALSE(hint.isVisible());
    SelectAddresses();
    ClickRow(list3_, 0);
    ClickRow(list3_, 2);
    EXPECT_THAT(form1.List3.Selected(), ElementsAre(0, 2));
    ClickRow(list3_, 0);
    EXPECT_THAT(form1.List3.Selected(), ElementsAre(2));
    ClickRow(list3_, 4, Qt::ShiftModifier);
    EXPECT_EQ(form1.List3.Selected().back(), 4U);
    // A click beside the numbers takes none away.
    const auto before = form1.List3.Selected();
    QTest::mouseClick(list3_.viewport(), Qt::LeftButton, {}, {2, list3_.viewport()->height() - 2});
    EXPECT_EQ(form1.List3.Selected(), before);
    EXPECT_TRUE(hint.isVisible());
    EXPECT_FALSE(hint.geometry().intersects(list3_.geometry()));
    EXPECT_FALSE(hint.geometry().intersects(Find<QPushButton>("cmdDone").geometry()));
    EXPECT_EQ(list3_.accessibleDescription(), hint.text());
}

TEST_F(ListsTest, AfterASortTheEntryHasTheFocusAgain) {
    std::string text;
    for (int i = 199; i >= 100; --i) {
        text += "a" + std::to_string(i) + "@x\r\n";
    }
    text += "-nick-\r\n";
    for (int i = 0; i < 100; ++i) {
        text += "n" + std::to_string(i) + "\r\n";
    }
    Show();
    List(text);
    Settle();
    list1_.setFocus();
    ClickRow(list1_, 2);
    for (const char* const command : {"mnuAlphAddr", "undo", "redo", "mnuAlphNick"}) {
        SCOPED_TRACE(command);
        Find<QAction>(command).trigger();
        Settle();
        for (QListView* const list :
             {static_cast<QListView*>(&list1_), static_cast<QListView*>(&list2_)}) {
            const int row = list->currentIndex().row();
            EXPECT_EQ(list1_.model()->index(row, 0).data().toString(), QStringLiteral("a197@x"));
            EXPECT_TRUE(InSight(*list, row));
        }
        ExpectTogether();
        if (std::string_view(command).starts_with("mnu")) {
            EXPECT_THAT(form1.List1.Selected(), IsEmpty());
            EXPECT_THAT(form1.List2.Selected(), IsEmpty());
            EXPECT_FALSE(list1_.selectionModel()->hasSelection());
        }
        EXPECT_TRUE(list1_.hasFocus());
    }
    Find<QPushButton>("cmdEmail").click();
    EXPECT_EQ(list1_.currentIndex().row(), 97);
    EXPECT_TRUE(InSight(list1_, 97));
}

TEST_F(ListsTest, AnotherBookBeginsAtTheTop) {
    ListMany(100, 100);
    ClickRow(list1_, 0);
    QTest::keyClick(&list1_, Qt::Key_End);
    form1.Caption = "Orvik - other";
    List(std::string(module1.WorkText));
    Settle();
    EXPECT_EQ(Value(list1_), 0);
    ExpectTogether();
}

TEST_F(ListsTest, ACutOffRowHasItsTipAtOnce) {
    const QString address = QStringLiteral("w").repeated(70);
    Show();
    window.activateWindow();
    List(address.toStdString() + "\r\nb\r\n-nick-\r\nAl\r\nBo\r\n");
    Settle();
    const auto rest_on = [this](int row) {
        const QPoint place = list1_.visualRect(list1_.model()->index(row, 0)).center();
        QMouseEvent move(QEvent::MouseMove,
                         QPointF(place),
                         list1_.viewport()->mapToGlobal(QPointF(place)),
                         Qt::NoButton,
                         Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(list1_.viewport(), &move);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_TRUE(list1_.viewport()->hasMouseTracking());
    EXPECT_EQ(rest_on(0), address);
    rest_on(1);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000));
}

TEST_F(ListsTest, TheFirstWindowShowsASampleUncut) {
    const QFont usual = QApplication::font();
    const auto back = qScopeGuard([&] { QApplication::setFont(usual); });
    for (const int size : {7, 9, 14, 18}) {
        SCOPED_TRACE(size);
        QFont font = usual;
        font.setPointSize(size);
        QApplication::setFont(font);
        Desktop other_desktop;
        RecentBooks no_books;
        Form1Window first(module1, other_desktop, no_books);
        first.show();
        SetNative("");
        std::string text;
        for (int i = 0; i < 40; ++i) {
            text += "dina.delacroix@example.org\r\n";
        }
        text += "-nick-\r\n";
        for (int i = 0; i < 40; ++i) {
            text += "Delacroix, Dina\r\n";
        }
        SetNative(text);
        other_desktop.run([this] { module1.RefreshLists(); });
        Settle();
        int rows = 0;
        for (const char* const name : {"List1", "List2"}) {
            const auto& list = *first.findChild<ListBoxView*>(QString::fromLatin1(name));
            const QModelIndex row = list.model()->index(0, 0);
            EXPECT_LE(list.sizeOf(row.data().toString()).width(), list.viewport()->width());
            rows = list.viewport()->height() / list.sizeOf(QStringLiteral("X")).height();
        }
        EXPECT_GE(rows, 9);
        EXPECT_GE(first.width(), 400);
        EXPECT_GE(first.height(), 300);
    }
    window.sync();
}

}  // namespace
}  // namespace orvik

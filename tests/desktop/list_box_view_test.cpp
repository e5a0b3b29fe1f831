#include "desktop/views/list_box_view.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "desktop/text/short_text.h"

namespace orvik {
namespace {

using testing::ElementsAre;

class ListBoxViewTest : public testing::Test {
 protected:
    ListBoxViewTest() {
        for (const char* const item : {"anna",
                                       "berta",
                                       "",
                                       "\xFC"
                                       "ber",
                                       "\xC3\xBC"
                                       "ber"}) {
            box.AddItem(item);
        }
        view.resize(200, 300);
        view.sync();
        view.show();
    }

    bool Run(const std::function<void()>& event) {
        if (!refusing) {
            event();
        }
        view.sync();
        return !refusing;
    }
    void Click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(view.viewport(),
                          Qt::LeftButton,
                          modifiers,
                          view.visualRect(view.model()->index(row, 0)).center());
    }
    [[nodiscard]] QString Shown(int row) const {
        return view.model()->index(row, 0).data().toString();
    }
    [[nodiscard]] std::vector<int> SelectedRows() const {
        std::vector<int> rows;
        for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) {
            rows.push_back(index.row());
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    ListBox box;
    bool refusing = false;
    int clicks = 0;
    ListBoxView view{box,
                     [this](const std::function<void()>& event) { return Run(event); },
                     [this] { ++clicks; },
                     nullptr};
};

TEST_F(ListBoxViewTest, ShowsItemsInTheirOwnEncoding) {
    const QAbstractItemModelTester tester(view.model());
    ASSERT_EQ(view.model()->rowCount(), 5);
    EXPECT_EQ(Shown(0), QStringLiteral("anna"));
    EXPECT_EQ(Shown(2), QString());
    EXPECT_EQ(Shown(3), QStringLiteral("\u00FCber"));
    EXPECT_EQ(Shown(4), QStringLiteral("\u00FCber"));
}

TEST_F(ListBoxViewTest, RowsThatAreGoneBeforeTheNextSyncAreEmpty) {
    box.Clear();
    box.AddItem("new");
    EXPECT_EQ(view.model()->rowCount(), 5);
    EXPECT_EQ(Shown(0), QStringLiteral("new"));
    EXPECT_EQ(Shown(4), QString());
    view.sync();
    EXPECT_EQ(view.model()->rowCount(), 1);
}

TEST_F(ListBoxViewTest, ASecondSyncTouchesNothing) {
    const QSignalSpy reset(view.model(), &QAbstractItemModel::modelReset);
    box.Select({1});
    view.sync();
    const QSignalSpy selected(view.selectionModel(), &QItemSelectionModel::selectionChanged);
    view.sync();
    EXPECT_EQ(reset.size() + selected.size(), 0);
}

TEST_F(ListBoxViewTest, AClickReachesTheFormOnce) {
    Click(1);
    EXPECT_THAT(box.Selected(), ElementsAre(1));
    EXPECT_EQ(box.ListIndex, 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxViewTest, AClickOnTheSelectedRowIsAClick) {
    Click(1);
    Click(1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxViewTest, ADeselectionIsAClickOnItsRow) {
    Click(1);
    Click(3, Qt::ControlModifier);
    EXPECT_THAT(box.Selected(), ElementsAre(1, 3));
    Click(1, Qt::ControlModifier);
    EXPECT_THAT(box.Selected(), ElementsAre(3));
    EXPECT_EQ(box.ListIndex, 1);
    EXPECT_EQ(clicks, 3);
}

TEST_F(ListBoxViewTest, KeysSelectAndDeselect) {
    Click(0);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_THAT(box.Selected(), ElementsAre(1));
    EXPECT_EQ(box.ListIndex, 1);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(box.Selected(), ElementsAre(1, 2));
    EXPECT_EQ(box.ListIndex, 2);
    QTest::keyClick(&view, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_THAT(box.Selected(), ElementsAre(1));
    EXPECT_EQ(box.ListIndex, 2);
    QTest::keySequence(&view, QKeySequence::SelectAll);
    EXPECT_EQ(box.Selected().size(), 5U);
    EXPECT_EQ(clicks, 5);
}

TEST_F(ListBoxViewTest, TypingFindsARow) {
    QTest::keyClicks(&view, QStringLiteral("be"));
    EXPECT_THAT(box.Selected(), ElementsAre(1));
    EXPECT_EQ(box.ListIndex, 1);
}

TEST_F(ListBoxViewTest, ASelectionWithoutAnInputEventIsAClickToo) {
    view.setCurrentIndex(view.model()->index(2, 0));
    EXPECT_THAT(box.Selected(), ElementsAre(2));
    EXPECT_EQ(box.ListIndex, 2);
    view.selectionModel()->select(view.model()->index(4, 0), QItemSelectionModel::Toggle);
    EXPECT_THAT(box.Selected(), ElementsAre(2, 4));
    EXPECT_EQ(box.ListIndex, 4);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxViewTest, TheFormsSelectionIsShownWithoutAClick) {
    box.Select({0, 1, 4});
    view.sync();
    EXPECT_THAT(SelectedRows(), ElementsAre(0, 1, 4));
    box.Select({3});
    view.sync();
    EXPECT_THAT(SelectedRows(), ElementsAre(3));
    EXPECT_EQ(view.currentIndex().row(), 3);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListBoxViewTest, ARefusedClickIsTakenBack) {
    Click(1);
    refusing = true;
    Click(3);
    EXPECT_THAT(SelectedRows(), ElementsAre(1));
    EXPECT_THAT(box.Selected(), ElementsAre(1));
}

TEST_F(ListBoxViewTest, NewItemsHaveNoSelection) {
    Click(1);
    box.Clear();
    box.AddItem("one");
    box.AddItem("two");
    view.sync();
    EXPECT_TRUE(SelectedRows().empty());
}

TEST_F(ListBoxViewTest, OnlyATextThatIsCutOffHasAToolTip) {
    const std::string long_text(70, 'w');
    box.AddItem(long_text);
    view.sync();
    const auto tip_of = [this](int row) {
        const QPoint at = view.visualRect(view.model()->index(row, 0)).center();
        QHelpEvent help(QEvent::ToolTip, at, view.viewport()->mapToGlobal(at));
        QApplication::sendEvent(view.viewport(), &help);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(tip_of(0), "");
    EXPECT_EQ(tip_of(5), long_text);
    box.Clear();
    box.AddItem(long_text + " & \"Al\"");
    box.AddItem("<b>" + long_text);
    view.sync();
    EXPECT_EQ(tip_of(0), long_text + " & \"Al\"");
    EXPECT_EQ(tip_of(1), "<p>&lt;b&gt;" + long_text + "</p>");
}

TEST_F(ListBoxViewTest, OfARowOfManyMegabytesTheBeginningIsShown) {
    constexpr std::size_t kLong = std::size_t{8} << 20U;
    box.AddItem(std::string(kLong, 'a'));
    // One byte at the end decides.
    box.AddItem("\xC3\xBC" + std::string(kLong, 'a') + "\xFF");
    view.sync();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Shown(5), QString(kMostShown, u'a') + u'\u2026');
        EXPECT_TRUE(Shown(6).startsWith(QStringLiteral("\u00C3\u00BCa")));
        EXPECT_EQ(Shown(6).size(), kMostShown + 1);
    }
    view.repaint();
    EXPECT_EQ(view.box().Items()[5].size(), kLong);
    box.Clear();
    for (int i = 0; i < 6; ++i) {
        box.AddItem(std::string(kLong, 'b'));
    }
    view.sync();
    EXPECT_EQ(Shown(5), QString(kMostShown, u'b') + u'\u2026');
}

TEST_F(ListBoxViewTest, ATipOfAHugeRowStaysOnTheScreen) {
    box.AddItem(std::string(3'000'000, 'w'));
    view.sync();
    const QPoint at = view.visualRect(view.model()->index(5, 0)).center();
    QHelpEvent help(QEvent::ToolTip, at, view.viewport()->mapToGlobal(at));
    QApplication::sendEvent(view.viewport(), &help);
    EXPECT_TRUE(QToolTip::text().startsWith(QStringLiteral("www")));
    EXPECT_LT(QToolTip::text().size(), 2000);
}

TEST_F(ListBoxViewTest, EmptyRowsAreAsHighAsTheOthers) {
    EXPECT_EQ(view.sizeHintForRow(2), view.sizeHintForRow(0));
    EXPECT_GE(view.sizeHintForRow(2), view.fontMetrics().height());
}

}  // namespace
}  // namespace orvik

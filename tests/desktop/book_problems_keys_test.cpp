// The page of problems by keys alone, for a screen reader, while the book is busy, and with very
// many problems.

#include <QAccessible>
#include <QSignalSpy>

#include "desktop/book_problems_fixture.h"

namespace orvik {
namespace {

using test::BookProblemsTest;
using test::Find;
using test::kOneOfEach;
using test::ReadInto;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(BookProblemsTest, TabReachesAll) {
    open("a.ldif", kOneOfEach);
    ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
    goTo("the sign < in the name");
    EXPECT_THAT(test::ReachedByTab(Find<QComboBox>(*page, "problemKinds")),
                ElementsAre("problemKinds",
                            "problemTable",
                            "problemDetail",
                            "problemFixButton",
                            "problemKeep",
                            "problemLeaveOut",
                            "problemSourceLink"));
    auto& fix = button("problemFixButton");
    fix.setFocus();
    QTest::keyClick(&fix, Qt::Key_Space);
    auto& text = Find<QLineEdit>(*page, "problemFixText");
    EXPECT_TRUE(text.hasFocus());
    QTest::keyClicks(&text, QStringLiteral(" al@example.org"));
    EXPECT_THAT(test::ReachedByTab(text),
                ElementsAre("problemFixText",
                            "problemFixOffer",
                            "problemFixChange",
                            "problemFixCancel",
                            "problemSourceLink",
                            "problemKinds",
                            "problemTable",
                            "problemDetail",
                            "problemFixButton",
                            "problemKeep",
                            "problemLeaveOut"));
    auto& offer = Find<LinkButton>(*page, "problemFixOffer");
    offer.setFocus();
    QTest::keyClick(&offer, Qt::Key_Space);
    EXPECT_TRUE(text.hasFocus());
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_THAT(rows(), Not(HasSubstr("Bad")));
    EXPECT_TRUE(table().hasFocus());
}

// A screen reader selects, and moves nothing.
TEST_F(BookProblemsTest, WhatIsSelectedAloneIsShown) {
    open("a.ldif", kOneOfEach);
    const int row = goTo("a domain without a dot");
    goTo("the sign < in the name");
    table().selectionModel()->select(
        table().model()->index(row, 0),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(table().currentIndex().row(), row);
    EXPECT_THAT(box("problemDetail"), HasSubstr("a domain without a dot"));
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1);
}

TEST_F(BookProblemsTest, EscapeLeavesTheEditor) {
    open("a.ldif", kOneOfEach);
    goTo("the sign < in the name");
    click("problemFixButton");
    auto& text = Find<QLineEdit>(*page, "problemFixText");
    text.setText(QStringLiteral("al@example.org"));
    QTest::keyClick(&text, Qt::Key_Escape);
    EXPECT_FALSE(text.isVisible());
    EXPECT_EQ(document.undoStack().count(), 1);
    click("problemFixButton");
    EXPECT_EQ(text.text(), QStringLiteral("<al@example.org>"));
}

TEST_F(BookProblemsTest, EverythingHasANameAndARole) {
    open("a.ldif", kOneOfEach);
    goTo("the sign < in the name");
    click("problemFixButton");
    click("problemSourceLink");
    EXPECT_THAT(test::WithoutName(*page), testing::IsEmpty());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&table())->role(), QAccessible::Table);
}

TEST_F(BookProblemsTest, NothingIsChangedWhileTheBookIsFrozen) {
    open("a.ldif", kOneOfEach);
    goTo("the sign < in the name");
    click("problemFixButton");
    document.setFrozen(true);
    EXPECT_FALSE(Find<QLineEdit>(*page, "problemFixText").isVisible());
    for (const char* const name : {"problemFixButton", "problemKeep", "problemLeaveOut"}) {
        EXPECT_FALSE(button(name).isEnabled()) << name;
    }
    EXPECT_TRUE(table().isEnabled());
    document.setFrozen(false);
    EXPECT_TRUE(button("problemKeep").isEnabled());
}

TEST_F(BookProblemsTest, ALargeBookIsLookedAtWithACancel) {
    ReadInto(document, "a.ldif", kOneOfEach);
    BookChecks slow(document, 0);
    ProblemsPage shown(document, slow, nullptr);
    shown.show();
    auto& state = Find<QLabel>(shown, "problemStateText");
    auto& link = Find<LinkButton>(shown, "problemStateLink");
    EXPECT_EQ(state.text(), QStringLiteral("Looking for what is wrong..."));
    QTest::mouseClick(&link, Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&slow] { return !slow.isBusy(); }));
    EXPECT_EQ(state.text(), QStringLiteral("Not all of the book was looked at since it changed."));
    auto& rows = Find<QTableView>(shown, "problemTable");
    EXPECT_THAT(test::RowsOf(*rows.model()), Not(HasSubstr("Bad")));
    QTest::mouseClick(&link, Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&slow] { return !slow.isBusy(); }));
    EXPECT_THAT(test::RowsOf(*rows.model()), HasSubstr("Bad addresses (1)"));
    EXPECT_FALSE(state.isVisible());
}

TEST_F(BookProblemsTest, TheEditorStaysWhenMoreIsFound) {
    ReadInto(document, "a.ldif", kOneOfEach);
    BookChecks slow(document, 0);
    ProblemsPage shown(document, slow, nullptr);
    shown.show();
    auto& rows = Find<QTableView>(shown, "problemTable");
    test::GoTo(rows, QStringLiteral("is no base64"));
    QTest::mouseClick(&Find<QPushButton>(shown, "problemFixButton"), Qt::LeftButton);
    auto& text = Find<QLineEdit>(shown, "problemFixText");
    ASSERT_TRUE(QTest::qWaitFor([&slow] { return !slow.isBusy(); }));
    EXPECT_FALSE(text.isHidden());
    EXPECT_THAT(test::RowsOf(*rows.model()), Not(HasSubstr("Bad")));
    QTest::keyClick(&text, Qt::Key_Escape);
    EXPECT_THAT(test::RowsOf(*rows.model()), HasSubstr("Bad addresses (1)"));
}

TEST_F(BookProblemsTest, ManyProblemsAreNumbers) {
    std::string bytes;
    for (int i = 0; i < 3000; ++i) {
        bytes += "dn: cn=A\ncn: A\nmail: a@\ntelephoneNumber:: ***\n\n";
    }
    open("a.ldif", bytes);
    EXPECT_EQ(table().model()->rowCount(), 2 + 3001 + 3001);
    EXPECT_LT(page->findChildren<QWidget*>().size(), 80);
    EXPECT_THAT(rows(), HasSubstr("Bad addresses (3 000) |"));
    table().scrollToBottom();
    page->grab();
}

TEST_F(BookProblemsTest, APageThatNobodySeesHoldsNothing) {
    open("a.ldif", kOneOfEach);
    page->hide();
    EXPECT_EQ(rows(), "");
    document.remove(QStringLiteral("Delete"), {0, 1, 2});
    EXPECT_EQ(rows(), "");
    undo();
    page->show();
    EXPECT_THAT(rows(), HasSubstr("Bad addresses (1)"));
}

}  // namespace
}  // namespace orvik

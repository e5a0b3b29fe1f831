// What a hurried user does in a Book window, and what it must not cost.

#include <QDialog>
#include <QLineEdit>

#include "desktop/book_window_fixture.h"

namespace orvik {
namespace {

using book::Column;

class BookHurryTest : public test::BookWindowTest {
 protected:
    // Types something that is no address, and leaves it there.
    QLineEdit& TypeNoAddress() {
        OpenText(Card("Ada", "EMAIL:al@example.org\n"));
        Show();
        Table().setCurrentIndex(Place(0, Column::Addresses));
        Do("bookChange");
        auto& cell = Find<QLineEdit>("cellEditor");
        cell.selectAll();
        QTest::keyClicks(&cell, QStringLiteral("al@@example.org"));
        return cell;
    }
    [[nodiscard]] QDialog* Move() const {
        return window.findChild<QDialog*>(QStringLiteral("moveDialog"));
    }
    void Leave(QLineEdit& cell) { QTest::keyClick(&cell, Qt::Key_Escape); }
};

TEST_F(BookHurryTest, TheFirstRecordOfABookIsShown) {
    OpenText(Card("Ada") + Card("Ben"));
    EXPECT_EQ(Find<QLabel>("personTitle").text(), QStringLiteral("Ada"));
    Table().selectRow(1);
    OpenText(Card("Cy"));
    EXPECT_EQ(Find<QLabel>("personTitle").text(), QStringLiteral("Ben"));
}

TEST_F(BookHurryTest, WhatIsRefusedStaysWhenTheBookIsToBeMoved) {
    QLineEdit& cell = TypeNoAddress();
    Do("bookMove");
    EXPECT_EQ(Move(), nullptr);
    EXPECT_TRUE(IsTyping());
    EXPECT_EQ(Told(), "al@@example.org is no address: two @.");
    Leave(cell);
    Do("bookMove");
    ASSERT_NE(Move(), nullptr);
    Move()->reject();
    Wait();
}

TEST_F(BookHurryTest, WhatIsRefusedStaysWhenTheWindowIsToBeClosed) {
    QLineEdit& cell = TypeNoAddress();
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(IsTyping());
    EXPECT_EQ(cell.text(), QStringLiteral("al@@example.org"));
    Leave(cell);
    EXPECT_TRUE(window.close());
}

TEST_F(BookHurryTest, MoveSaysThatTheFilterDoesNotCount) {
    OpenText(Card("Ada") + Card("Ben"));
    Show();
    for (const char* const words : {"", "ben"}) {
        Filter(words);
        Do("bookMove");
        ASSERT_NE(Move(), nullptr);
        EXPECT_EQ(Find<QLabel>("moveFiltered").isVisible(), *words != '\0') << words;
        Move()->reject();
        Wait();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace
}  // namespace orvik

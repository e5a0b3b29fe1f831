// Sorting and filtering the table of a Book window.

#include <QHeaderView>
#include <QMenu>

#include "desktop/book_window_fixture.h"

namespace orvik {
namespace {

using book::Column;

class BookRowsTest : public test::BookWindowTest {
 protected:
    void OpenFour() {
        OpenText(Card("Zoe", "EMAIL:b@b.example\n") + Card("\xC3\x84nne", "NOTE:Boats\n") +
                 Card("Bo", "EMAIL:a@a.example\nTEL:555-0100\n") + Card("anna"));
    }
    void ClickHeader(Column column) {
        QHeaderView& header = *Table().horizontalHeader();
        const int place = header.sectionViewportPosition(static_cast<int>(column)) + 10;
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(place, 5));
        Wait();
    }
};

TEST_F(BookRowsTest, ClicksOnAHeaderSortAndGiveTheOrderOfTheFilesBack) {
    OpenFour();
    Show();
    EXPECT_EQ(Names(), "Zoe \u00C4nne Bo anna");
    ClickHeader(Column::Name);
    EXPECT_EQ(Names(), "anna \u00C4nne Bo Zoe");
    ClickHeader(Column::Name);
    EXPECT_EQ(Names(), "Zoe Bo \u00C4nne anna");
    ClickHeader(Column::Name);
    EXPECT_EQ(Names(), "Zoe \u00C4nne Bo anna");
    ClickHeader(Column::Addresses);
    EXPECT_EQ(Names(), "Bo Zoe \u00C4nne anna");
}

TEST_F(BookRowsTest, TheMenuSortsToo) {
    OpenFour();
    Show();
    Do("sort0");
    Wait();
    EXPECT_EQ(Names(), "anna \u00C4nne Bo Zoe");
    EXPECT_TRUE(Find<QAction>("sort0").isChecked());
    Do("sortReverse");
    Wait();
    EXPECT_EQ(Names(), "Zoe Bo \u00C4nne anna");
    Do("sortNone");
    EXPECT_EQ(Names(), "Zoe \u00C4nne Bo anna");
    EXPECT_FALSE(Find<QAction>("sortReverse").isEnabled());
}

TEST_F(BookRowsTest, TheLastOfManyOrdersCounts) {
    OpenFour();
    Do("sort0");
    Do("sort2");
    Do("sort3");
    Do("sort0");
    Wait();
    EXPECT_EQ(Names(), "anna \u00C4nne Bo Zoe");
    Do("sort2");
    Do("sortNone");
    Wait();
    EXPECT_EQ(Names(), "Zoe \u00C4nne Bo anna");
}

TEST_F(BookRowsTest, AFilterNarrowsAndWidens) {
    OpenFour();
    EXPECT_EQ(Counts(), "4 people");
    Filter("AN");
    EXPECT_EQ(Names(), "\u00C4nne anna");
    EXPECT_EQ(Counts(), "4 people; 2 shown");
    Filter("anna");
    EXPECT_EQ(Names(), "anna");
    Filter("boat");
    EXPECT_EQ(Names(), "\u00C4nne");
    Filter("5550100");
    EXPECT_EQ(Names(), "Bo");
    Filter("nobody");
    EXPECT_EQ(Names(), "");
    Filter("");
    EXPECT_EQ(Names(), "Zoe \u00C4nne Bo anna");
}

TEST_F(BookRowsTest, AFilterKeepsTheOrderAndSeesChanges) {
    OpenFour();
    Do("sort0");
    Wait();
    Filter("n");
    EXPECT_EQ(Names(), "anna \u00C4nne");
    // Who is changed stays where they are, and is found by what they are now.
    Type(0, Column::Name, "Zed");
    EXPECT_EQ(Names(), "Zed \u00C4nne");
    Filter("zed");
    EXPECT_EQ(Names(), "Zed");
    Filter("anna");
    EXPECT_EQ(Names(), "");
}

TEST_F(BookRowsTest, TenThousandPeopleAreSortedAndFound) {
    std::string text;
    constexpr int kPeople = 10'000;
    for (int i = 0; i < kPeople; ++i) {
        const std::string number = std::to_string((i * 7919) % kPeople + kPeople);
        text += Card("P" + number, "EMAIL:p" + number + "@a.example\n");
    }
    OpenText(text);
    EXPECT_EQ(Counts(), "10,000 people");
    Filter("p1234");
    EXPECT_EQ(Table().model()->rowCount(), 10);
    Do("sort0");
    Wait();
    EXPECT_EQ(Cell(0, Column::Name), "P12340");
    EXPECT_EQ(Cell(9, Column::Name), "P12349");
    Filter("");
    EXPECT_EQ(Cell(0, Column::Name), "P10000");
    EXPECT_EQ(Cell(9'999, Column::Name), "P19999");
    Do("sort2");
    Do("sortReverse");
    Wait();
    EXPECT_EQ(Cell(0, Column::Name), "P19999");
}

TEST_F(BookRowsTest, WhatIsSelectedStaysSelected) {
    OpenFour();
    Table().selectRow(2);
    Do("sort0");
    Wait();
    EXPECT_EQ(Table().selected(), (BookDocument::Numbers{2}));
    EXPECT_EQ(Table().currentIndex().row(), 2);
    Filter("bo");
    EXPECT_EQ(Table().selected(), (BookDocument::Numbers{2}));
    Filter("zoe");
    EXPECT_EQ(Table().selectedCount(), 0U);
    Filter("");
    Table().selectAll();
    EXPECT_EQ(Table().selectedCount(), 4U);
    EXPECT_EQ(Counts(), "4 people; 4 selected");
}

TEST_F(BookRowsTest, MoreFilesAreSortedAndFilteredToo) {
    OpenFour();
    Do("sort0");
    Filter("an");
    Write("more.vcf", Card("Ante") + Card("Bea") + Card("Andy"));
    Open({"more.vcf"});
    EXPECT_EQ(Names(), "Andy anna \u00C4nne Ante");
    EXPECT_EQ(Counts(), "7 people; 4 shown");
    Do("bookUndo");
    Wait();
    EXPECT_EQ(Names(), "anna \u00C4nne");
}

TEST_F(BookRowsTest, ListsAndMembersAreSeenFromBothSides) {
    OpenText(Card("Al", "EMAIL:al@a.example\n") + Card("Bo", "EMAIL:bo@a.example\n") +
             "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Choir\nMEMBER:mailto:al@a.example\n"
             "MEMBER:mailto:no@a.example\nEND:VCARD\n");
    EXPECT_EQ(Counts(), "2 people, 1 list");
    EXPECT_EQ(Cell(0, Column::Lists), "Choir");
    EXPECT_EQ(Cell(1, Column::Lists), "");
    EXPECT_EQ(Cell(2, Column::Lists), "Al, no@a.example");
    Do("sort4");
    Wait();
    EXPECT_EQ(Names(), "Choir Al Bo");
}

}  // namespace
}  // namespace orvik

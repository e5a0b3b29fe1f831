// Typing in the table of a Book window: each act is one step of undo.

#include "desktop/book_window_fixture.h"

namespace orvik {
namespace {

using book::Column;

class RecordEditsTest : public test::BookWindowTest {
 protected:
    void SetUp() override {
        OpenText(Card("Ada Abbott",
                      "N:Abbott;Ada;;;\nNICKNAME:ad\nEMAIL;TYPE=work:a@a.example\n"
                      "EMAIL:b@b.example\nTEL:1\n") +
                 Card("Bo", "EMAIL:bo@a.example\n") +
                 "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Choir\nMEMBER:mailto:bo@a.example\n"
                 "MEMBER:mailto:a@a.example\nEND:VCARD\n");
        Show();
    }
    [[nodiscard]] std::string UndoText() {
        return window.document().undoStack().undoText().toStdString();
    }
    // Undoes and does again.
    void ExpectStep(int row, Column column, const char* before, const char* after) {
        EXPECT_EQ(Cell(row, column), after);
        Do("bookUndo");
        EXPECT_EQ(Cell(row, column), before);
        Do("bookRedo");
        EXPECT_EQ(Cell(row, column), after);
    }
};

TEST_F(RecordEditsTest, EachChangeIsOneStepWithItsName) {
    Type(0, Column::Name, "Ada Berg");
    EXPECT_EQ(UndoText(), "Change name of Ada Abbott");
    ExpectStep(0, Column::Name, "Ada Abbott", "Ada Berg");
    Type(0, Column::Nickname, "beg");
    EXPECT_EQ(UndoText(), "Change nickname of Ada Berg");
    ExpectStep(0, Column::Nickname, "ad", "beg");
    Type(0, Column::Addresses, "n@a.example");
    EXPECT_EQ(UndoText(), "Change address of Ada Berg");
    EXPECT_EQ(Told(), "The first of 2 was changed.");
    ExpectStep(0, Column::Addresses, "a@a.example, b@b.example", "n@a.example, b@b.example");
    Type(0, Column::Phones, "");
    EXPECT_EQ(UndoText(), "Change phone of Ada Berg");
    ExpectStep(0, Column::Phones, "1", "");
    EXPECT_EQ(TextOf("bookUndo"), "&Undo Change phone of Ada Berg");
    EXPECT_TRUE(window.isWindowModified());
    for (int i = 0; i < 4; ++i) {
        Do("bookUndo");
    }
    EXPECT_EQ(Cell(0, Column::Name), "Ada Abbott");
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(RecordEditsTest, WhoeverTypesKeepsItWhenListsAreFound) {
    Type(0, Column::Addresses, "n@a.example");
    EXPECT_FALSE(IsTyping());
    Table().setCurrentIndex(Place(0, Column::Phones));
    Do("bookChange");
    QLineEdit& field = Find<QLineEdit>("cellEditor");
    field.setText(QStringLiteral("23"));
    Wait();
    EXPECT_EQ(field.text(), QStringLiteral("23"));
    End(field);
    EXPECT_EQ(Cell(0, Column::Phones), "23");
}

TEST_F(RecordEditsTest, WhatIsTheSameIsNoChange) {
    Type(0, Column::Name, " Ada Abbott ");
    Type(0, Column::Nickname, "ad");
    EXPECT_FALSE(window.document().isUnsaved());
}

TEST_F(RecordEditsTest, ABadAddressIsRefusedAndStaysInItsField) {
    Type(0, Column::Addresses, "a@@a.example");
    EXPECT_EQ(Told(), "a@@a.example is no address: two @.");
    ASSERT_TRUE(IsTyping());
    QLineEdit& field = Find<QLineEdit>("cellEditor");
    EXPECT_EQ(field.text(), QStringLiteral("a@@a.example"));
    field.setText(QStringLiteral("a@localhost"));
    End(field);
    EXPECT_EQ(Told(), "a@localhost was taken, though it is odd: a domain without a dot.");
    EXPECT_EQ(Cell(0, Column::Addresses), "a@localhost, b@b.example");
    EXPECT_FALSE(IsTyping());
}

TEST_F(RecordEditsTest, WhoeverLeavesABadValueKeepsTheOldOne) {
    Type(0, Column::Phones, "none");
    EXPECT_EQ(Told(), "none is no phone number: no digit.");
    Find<QLineEdit>("filterText").setFocus();
    EXPECT_EQ(Cell(0, Column::Phones), "1");
    Type(0, Column::Name, "  ");
    EXPECT_EQ(Told(), "A name cannot be empty.");
    End(Find<QLineEdit>("cellEditor"), Qt::Key_Escape);
    EXPECT_EQ(Cell(0, Column::Name), "Ada Abbott");
    EXPECT_FALSE(window.document().isUnsaved());
}

TEST_F(RecordEditsTest, ListsFollowTheirMembers) {
    Type(1, Column::Addresses, "new@a.example");
    Wait();
    EXPECT_EQ(Cell(1, Column::Lists), "Choir");
    EXPECT_EQ(Cell(2, Column::Lists), "Bo, Ada Abbott");
    Do("bookUndo");
    Wait();
    EXPECT_EQ(Cell(1, Column::Addresses), "bo@a.example");
    EXPECT_EQ(Cell(1, Column::Lists), "Choir");
    Table().selectRow(0);
    Do("bookDelete");
    Wait();
    EXPECT_EQ(Names(), "Bo Choir");
    EXPECT_EQ(Cell(1, Column::Lists), "Bo");
    Do("bookUndo");
    Wait();
    EXPECT_EQ(Cell(2, Column::Lists), "Bo, Ada Abbott");
}

TEST_F(RecordEditsTest, AListHasNoAddressToType) {
    Table().setCurrentIndex(Table().model()->index(2, static_cast<int>(Column::Addresses)));
    EXPECT_FALSE(Find<QAction>("bookChange").isEnabled());
    Type(2, Column::Name, "Band");
    EXPECT_EQ(Cell(2, Column::Name), "Band");
    EXPECT_EQ(Cell(1, Column::Lists), "Band");
}

TEST_F(RecordEditsTest, DeletingIsOneStepForAll) {
    Table().selectRow(1);
    Do("bookDelete");
    EXPECT_EQ(UndoText(), "Delete Bo");
    EXPECT_EQ(Table().currentIndex().row(), 1) << "the next one";
    Table().selectAll();
    Do("bookDelete");
    EXPECT_EQ(UndoText(), "Delete 2 records");
    EXPECT_EQ(Names(), "");
    EXPECT_FALSE(Find<QAction>("bookDelete").isEnabled());
    Do("bookUndo");
    EXPECT_EQ(Names(), "Ada Abbott Choir");
    Do("bookUndo");
    EXPECT_EQ(Names(), "Ada Abbott Bo Choir");
}

TEST_F(RecordEditsTest, ANewPersonIsTypedAtOnce) {
    Filter("bo");
    Do("bookAdd");
    ASSERT_TRUE(IsTyping()) << "though the filter does not find them";
    QLineEdit& field = Find<QLineEdit>("cellEditor");
    QTest::keyClicks(&field, QStringLiteral("Cy"));
    End(field, Qt::Key_Tab);
    EXPECT_EQ(UndoText(), "Add a person");
    EXPECT_EQ(Table().currentIndex().column(), static_cast<int>(Column::Nickname));
    Filter("");
    EXPECT_EQ(Names(), "Ada Abbott Bo Choir Cy");
    EXPECT_EQ(Cell(3, Column::Source), "");
    Do("bookUndo");
    EXPECT_EQ(Names(), "Ada Abbott Bo Choir") << "adding and naming is one step";
    Do("bookRedo");
    EXPECT_EQ(Names(), "Ada Abbott Bo Choir Cy");
}

TEST_F(RecordEditsTest, ANewPersonOfWhomNothingIsTypedGoes) {
    Do("bookAdd");
    End(Find<QLineEdit>("cellEditor"), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.document().thereCount(), 3U);
    EXPECT_FALSE(window.document().isUnsaved());
    Do("bookAdd");
    Find<QLineEdit>("filterText").setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(window.document().thereCount(), 3U);
    EXPECT_EQ(UndoText(), "Open book.vcf");
}

TEST_F(RecordEditsTest, NothingIsTypedWhileTheDocumentIsFrozen) {
    window.document().setFrozen(true);
    for (const char* const action : {"bookAdd", "bookDelete", "bookUndo", "bookChange"}) {
        EXPECT_FALSE(Find<QAction>(action).isEnabled()) << action;
    }
    const QModelIndex name = Table().model()->index(0, 0);
    EXPECT_FALSE(name.flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(Table().model()->setData(name, QStringLiteral("Eve"), Qt::EditRole));
    window.document().setFrozen(false);
    EXPECT_TRUE(name.flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(RecordEditsTest, NamesOfStepsAreNoKeys) {
    Type(1, Column::Name, "A & B");
    Type(1, Column::Name, "C");
    EXPECT_EQ(TextOf("bookUndo"), "&Undo Change name of A && B");
}

TEST(RecordEdits, TheFirstPersonOfAnEmptyWindow) {
    SystemFiles files(false);
    RecentBooks books;
    BookWindow window(files, books);
    window.show();
    window.findChild<QAction*>(QStringLiteral("bookAdd"))->trigger();
    auto* const field = window.findChild<QLineEdit*>(QStringLiteral("cellEditor"));
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, QStringLiteral("Ada"));
    QTest::keyClick(field, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.document().thereCount(), 1U);
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("bookCounts"))->text(),
              QStringLiteral("1 person"));
    EXPECT_TRUE(window.isWindowModified());
}

}  // namespace
}  // namespace orvik

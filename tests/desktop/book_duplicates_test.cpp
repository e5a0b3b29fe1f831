#include "desktop/book/duplicates.h"

#include <QUndoStack>

#include "book/match/plan.h"
#include "desktop/duplicates_fixture.h"

namespace orvik {
namespace {

using testing::HasSubstr;
using Lines = Duplicates::Lines;

constexpr const char* kFound = "same 0 1; contained 2 3; agree 4 5; address 4 6; name 0 7";

class BookDuplicates : public test::DuplicatesTest {
 protected:
    BookDuplicates() {
        QObject::connect(&duplicates, &Duplicates::told, &duplicates, [this](const QString& text) {
            told = text.toStdString();
        });
    }

    void Merge(const Lines& lines) {
        duplicates.merge(lines);
        Wait();
    }

    // Ends the next work in the middle.
    void CancelInTheMiddle() {
        QObject::connect(&worker,
                         &BookWorker::progressed,
                         &duplicates,
                         [this](const QString& /*step*/, int percent) {
                             if (percent > 0) {
                                 worker.cancel();
                             }
                         });
    }

    static std::string Crowd() {
        std::string cards;
        for (int i = 0; i < 4'000; ++i) {
            const std::string name = "FN:Person " + std::to_string(i / 2);
            cards += book::test::CardOf(name + "|EMAIL:a" + std::to_string(i / 2) + "@b.example");
        }
        return cards;
    }

    std::string told;
};

TEST_F(BookDuplicates, AreFoundInEachTier) {
    OpenAndLook(People());
    EXPECT_EQ(Groups(), kFound);
    EXPECT_EQ(duplicates.countOf(book::Tier::Same), 1U);
    EXPECT_EQ(duplicates.countOf(book::Tier::Plan), 0U);
    EXPECT_EQ(duplicates.sure(), (Lines{0, 1}));
    EXPECT_TRUE(duplicates.hasLooked());
    EXPECT_EQ(duplicates.notCompared(), 0U);
    EXPECT_FALSE(document.isFrozen());
    EXPECT_EQ(document.undoStack().count(), 1);
}

TEST_F(BookDuplicates, OneGroupIsMergedAsOneStep) {
    OpenAndLook(People());
    Merge({2});
    EXPECT_EQ(UndoName(), "Merge 2 records of C. Clark");
    EXPECT_EQ(Groups(), "same 0 1; contained 2 3; agree 4 5 merged; address 4 6 old; name 0 7");
    EXPECT_FALSE(document.isThere(5));
    EXPECT_EQ(NameAt(document, 4), "Cy Clark");
    EXPECT_THAT(told,
                testing::AllOf(HasSubstr("Merged 2 records of C. Clark: 1 record is part of "
                                         "another one now."),
                               HasSubstr("Carried along: Name \u201CC. Clark\u201D.")));
    EXPECT_EQ(document.thereCount(), 7U);
    document.undoStack().undo();
    EXPECT_EQ(Groups(), kFound);
    EXPECT_EQ(NameAt(document, 4), "C. Clark");
    EXPECT_EQ(document.thereCount(), 8U);
    document.undoStack().redo();
    EXPECT_EQ(Groups(), "same 0 1; contained 2 3; agree 4 5 merged; address 4 6 old; name 0 7");
    EXPECT_EQ(duplicates.notCompared(), 1U);
}

TEST_F(BookDuplicates, AllThatAreSureAreMergedAsOneStep) {
    OpenAndLook(People());
    Merge(duplicates.sure());
    EXPECT_EQ(UndoName(), "Merge 2 groups");
    EXPECT_EQ(People(document), "Ada Abbott, Ben Berg, C. Clark, Cy Clark, Dora, Ada Abbott");
    EXPECT_EQ(duplicates.sure(), Lines());
    document.undoStack().undo();
    EXPECT_EQ(Groups(), kFound);
    EXPECT_EQ(document.undoStack().count(), 2);
}

TEST_F(BookDuplicates, ListsNameTheRecordThatTookTheirMember) {
    OpenAndLook(People() + book::test::CardOf("FN:Crew|X-ADDRESSBOOKSERVER-KIND:group|"
                                              "X-ADDRESSBOOKSERVER-MEMBER:mailto:cy@c.example"));
    const auto uid = book::test::CardOf("FN:Eve|EMAIL:eve@e.example|UID:eve-1");
    const auto twin = book::test::CardOf("FN:Eve|EMAIL:eve@e.example|UID:eve-2|NOTE:x");
    Open(Write("b.vcf",
               twin + uid +
                   book::test::CardOf("FN:Team|X-ADDRESSBOOKSERVER-KIND:group|"
                                      "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:eve-1")));
    duplicates.look();
    Wait();
    ASSERT_THAT(Groups(), HasSubstr("contained 9 10"));
    Merge({2});
    EXPECT_FALSE(document.isThere(10));
    EXPECT_EQ(document.at(11).Properties.back().Value, "eve-2");
    document.undoStack().undo();
    EXPECT_EQ(document.at(11).Properties.back().Value, "urn:uuid:eve-1");
}

TEST_F(BookDuplicates, DecisionsDoNothingToTheBook) {
    OpenAndLook(People());
    duplicates.say({0, 3}, book::Decision::Keep);
    duplicates.say({1}, book::Decision::Later);
    duplicates.say({2}, book::Decision::Merge);
    EXPECT_EQ(Groups(),
              "same 0 1 kept; contained 2 3 later; agree 4 5 ticked; address 4 6 kept; name 0 7");
    EXPECT_EQ(document.undoStack().count(), 1);
    EXPECT_EQ(duplicates.ticked(), Lines{2});
    EXPECT_EQ(duplicates.sure(), Lines());
    duplicates.look();
    Wait();
    EXPECT_EQ(Groups(),
              "same 0 1 kept; contained 2 3 later; agree 4 5 ticked; address 4 6 kept; name 0 7");
}

TEST_F(BookDuplicates, NothingJoinsWhatIsKeptApart) {
    OpenAndLook(book::test::CardsOf("FN:Al|EMAIL:a@b.c|NOTE:x|NOTE:y",
                                    "FN:Al|EMAIL:a@b.c|NOTE:x|NOTE:y",
                                    "FN:Al|EMAIL:z@b.c|NOTE:x|NOTE:y"));
    ASSERT_EQ(Groups(), "same 0 1; name 0 2");
    duplicates.say({0}, book::Decision::Keep);
    Merge({1});
    EXPECT_THAT(Groups(), HasSubstr("merged"));
    document.undoStack().undo();
    const std::string plan =
        Write("plan.txt",
              "# source " + PathOf("a.vcf") + " " + book::Sha256(Read(PathOf("a.vcf"))) +
                  "\nkeep " + PathOf("a.vcf") + ":11 " + PathOf("a.vcf") + ":21\n");
    duplicates.loadPlan(QString::fromStdString(plan));
    Wait();
    ASSERT_EQ(Groups(), "same 0 1 kept; name 0 2; plan 1 2 kept");
    Merge({0, 1});
    EXPECT_EQ(document.thereCount(), 3U);
    EXPECT_EQ(told, "2 groups are not merged, as others keep their records apart.");
    EXPECT_FALSE(document.isFrozen());
}

TEST_F(BookDuplicates, NothingIsMergedThatHasChanged) {
    OpenAndLook(People());
    Rename(0, "Ida Abbott");
    EXPECT_EQ(Groups(), "same 0 1 old; contained 2 3; agree 4 5; address 4 6; name 0 7 old");
    EXPECT_EQ(duplicates.notCompared(), 1U);
    EXPECT_EQ(duplicates.sure(), Lines{1});
    duplicates.say({0}, book::Decision::Keep);
    duplicates.merge({0});
    EXPECT_FALSE(worker.isBusy());
    EXPECT_EQ(told, "Nothing is merged: the book has changed. Look again.");
    Merge({0, 1});
    EXPECT_THAT(told, HasSubstr("1 group is not merged, as the book has changed: look again."));
    EXPECT_TRUE(document.isThere(1));
    EXPECT_FALSE(document.isThere(3));
    document.undoStack().undo();
    document.undoStack().undo();
    EXPECT_EQ(Groups(), kFound);
    // What is removed, or new, has not been compared either.
    document.remove(QStringLiteral("Delete"), {7});
    EXPECT_THAT(Groups(), HasSubstr("name 0 7 old"));
    document.add(QStringLiteral("Add"), {document.at(7)});
    EXPECT_EQ(duplicates.notCompared(), 1U);
    duplicates.look();
    Wait();
    EXPECT_THAT(Groups(), HasSubstr("name 0 8"));
    EXPECT_EQ(duplicates.notCompared(), 0U);
}

TEST_F(BookDuplicates, AStepOfRecordsWithoutANameHasOne) {
    OpenAndLook(book::test::CardsOf("TEL:1|NOTE:x", "TEL:1|NOTE:x"));
    Merge({0});
    EXPECT_EQ(UndoName(), "Merge 2 records of (no name)");
}

TEST_F(BookDuplicates, AMergingThatCannotBeRedoneIsForgotten) {
    OpenAndLook(People());
    Merge({0});
    document.undoStack().undo();
    document.remove(QStringLiteral("Delete"), {1});
    EXPECT_THAT(Groups(), HasSubstr("same 0 1 old"));
    document.undoStack().undo();
    EXPECT_EQ(Groups(), kFound);
}

TEST_F(BookDuplicates, WhatIsMergedStaysListedWhenOneLooksAgain) {
    OpenAndLook(People());
    Merge({0});
    duplicates.look();
    Wait();
    EXPECT_EQ(Groups(), "same 0 1 merged; contained 2 3; agree 4 5; address 4 6; name 0 7");
}

TEST_F(BookDuplicates, ALookIsCancelledInTheMiddle) {
    OpenAndLook(People());
    Open(Write("b.vcf", Crowd()));
    CancelInTheMiddle();
    duplicates.look();
    EXPECT_TRUE(duplicates.isWorking());
    EXPECT_FALSE(document.isFrozen());
    Wait();
    EXPECT_EQ(told, "Cancelled: nothing was changed.");
    EXPECT_EQ(Groups(), kFound);
    EXPECT_EQ(duplicates.notCompared(), 4'000U);
    EXPECT_TRUE(duplicates.canWork());
}

TEST_F(BookDuplicates, AMergingIsCancelledInTheMiddle) {
    OpenAndLook(Crowd());
    const std::string before = Groups();
    ASSERT_EQ(duplicates.sure().size(), 2'000U);
    CancelInTheMiddle();
    duplicates.merge(duplicates.sure());
    EXPECT_TRUE(document.isFrozen());
    EXPECT_FALSE(duplicates.canDecide());
    Wait();
    EXPECT_EQ(told, "Cancelled: nothing was changed.");
    EXPECT_FALSE(document.isFrozen());
    EXPECT_EQ(Groups(), before);
    EXPECT_EQ(document.thereCount(), 4'000U);
    EXPECT_EQ(document.undoStack().count(), 1);
}

TEST_F(BookDuplicates, OneThingIsDoneAtATime) {
    OpenAndLook(People());
    document.setFrozen(true);
    duplicates.merge({0});
    duplicates.say({0}, book::Decision::Keep);
    duplicates.look();
    EXPECT_FALSE(worker.isBusy());
    EXPECT_EQ(Groups(), kFound);
    document.setFrozen(false);
    duplicates.merge({0});
    duplicates.merge({1});
    duplicates.say({2}, book::Decision::Keep);
    Wait();
    EXPECT_EQ(Groups(), "same 0 1 merged; contained 2 3; agree 4 5; address 4 6; name 0 7 old");
}

}  // namespace
}  // namespace orvik

#include "book/match/plan_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;

class CheckPlanTest : public testing::Test {
 protected:
    // Cards that begin on the lines 1, 11, 21 and 31; the last one is a list.
    CheckPlanTest()
        : read_(ReadVCard,
                test::CardsOf("FN:Al|EMAIL:a@b.c",
                              "FN:Bo|EMAIL:b@b.c",
                              "FN:Cy|EMAIL:c@b.c",
                              "FN:Crew|X-ADDRESSBOOKSERVER-KIND:group")) {}

    CheckedPlan Checked(const std::string& lines) {
        const Plan plan =
            ParsePlan("# source file " + Sha256(read_.book.SourceAt(0).Bytes()) + "\n" + lines);
        return CheckPlan(plan, read_.book);
    }

    std::string ErrorsOf(const std::string& lines) {
        std::string text;
        for (const PlanError& error : Checked(lines).Errors) {
            text += std::to_string(error.Line) + ": " + error.Text + "\n";
        }
        return text;
    }

    test::ReadBook read_;
};

TEST_F(CheckPlanTest, LinesThatMergeAreJoined) {
    EXPECT_THAT(Checked("merge file:11 file:1\nask file:1 file:21\nkeep file:1 file:21").Groups,
                ElementsAre(ElementsAre(1, 0)));
    EXPECT_THAT(Checked("merge file:11 file:1\nmerge file:21 file:11").Groups,
                ElementsAre(ElementsAre(1, 0, 2)));
    EXPECT_THAT(Checked("merge file:1\nmerge file:11").Groups, testing::IsEmpty());
}

TEST_F(CheckPlanTest, WhatIsNotThereIsNamedByLine) {
    EXPECT_EQ(ErrorsOf("merge file:1 file:12\nask other:1"),
              "2: file:12: no record begins on this line\n3: other is no source of the plan\n");
    EXPECT_EQ(ErrorsOf("keep file:0"), "2: file:0: no record begins on this line\n");
}

TEST_F(CheckPlanTest, PeopleAndListsStayApart) {
    EXPECT_EQ(ErrorsOf("merge file:1 file:31"), "2: a person and a list cannot become one\n");
    EXPECT_EQ(ErrorsOf("ask file:1 file:31"), "");
}

TEST_F(CheckPlanTest, WhatIsKeptApartIsNotMerged) {
    EXPECT_EQ(ErrorsOf("merge file:1 file:11\nkeep file:11 file:1"),
              "3: this keeps apart what line 2 merges\n");
    EXPECT_EQ(ErrorsOf("keep file:1 file:21\nmerge file:1 file:11\nmerge file:11 file:21"),
              "2: this keeps apart what line 4 merges\n");
}

TEST_F(CheckPlanTest, ARecordStandsOnceInALine) {
    EXPECT_EQ(ErrorsOf("merge file:1 file:11 file:1\nkeep file:21 file:21"),
              "2: file:1: the line names this record twice\n"
              "3: file:21: the line names this record twice\n");
    EXPECT_EQ(ErrorsOf("merge file:1 file:11\nmerge file:1 file:21"), "");
}

TEST_F(CheckPlanTest, WhatIsWrongIsToldTogether) {
    const std::string lines =
        "merge file:1 file:11\nglue file:1\nkeep file:1 file:11\nmerge file\nask file:2\n";
    EXPECT_EQ(ErrorsOf(lines),
              "3: a line begins with merge, ask, keep or #\n"
              "4: this keeps apart what line 2 merges\n"
              "5: a record is named as FILE:LINE, with the name in quotes where it has blanks\n"
              "6: file:2: no record begins on this line\n");
    EXPECT_THAT(Checked(lines).Groups, testing::IsEmpty());
}

TEST_F(CheckPlanTest, ChangedSourcesAreNamed) {
    const Plan changed =
        ParsePlan("# source file " + Sha256("other") + "\n# source gone " + Sha256("") + "\n");
    const CheckedPlan checked = CheckPlan(changed, read_.book);
    ASSERT_THAT(checked.Errors, testing::SizeIs(2));
    EXPECT_EQ(checked.Errors[0].Text, "file is not what it was when the plan was made");
    EXPECT_EQ(checked.Errors[1].Text, "gone was not read");
    EXPECT_EQ(checked.Errors[1].Line, 2U);
}

TEST(CheckPlanPlacesTest, SeveralRecordsOnOneLineCannotBeNamed) {
    test::ReadBook read(ReadVCard, test::CardsOf("FN:Al|EMAIL:a@b.c", "FN:AL|EMAIL:a@b.c"));
    read.book.Contacts[1].From.Line = 1;
    EXPECT_THAT(FindMatches(read.book, false).Lines, testing::IsEmpty());
    EXPECT_THAT(FindMatches(read.book, false).Notes,
                ElementsAre("2 records were left out: no line is theirs alone"));
    const CheckedPlan checked = CheckPlan(
        ParsePlan("# source file " + Sha256(read.book.SourceAt(0).Bytes()) + "\nmerge file:1"),
        read.book);
    ASSERT_THAT(checked.Errors, testing::SizeIs(1));
    EXPECT_EQ(checked.Errors[0].Text, "file:1: several records begin on this line");
}

TEST_F(CheckPlanTest, LinesHaveTheirRecordsAndComments) {
    const CheckedPlan checked = Checked("merge file:11 file:1 #  so: # it is\nkeep file:21 file:1");
    ASSERT_THAT(checked.Lines, testing::SizeIs(2));
    EXPECT_THAT(checked.Lines[0].Records, ElementsAre(1, 0));
    EXPECT_EQ(checked.Lines[0].Reason, "so: # it is");
    EXPECT_EQ(checked.Lines[0].Why, Tier::Plan);
    EXPECT_EQ(checked.Lines[1].Do, Action::Keep);
    EXPECT_EQ(checked.Lines[1].Reason, "");
}

TEST_F(CheckPlanTest, WhoCameFromNoFileIsOnNoLine) {
    read_.book.Contacts.emplace_back();
    EXPECT_EQ(ErrorsOf("keep file:0"), "2: file:0: no record begins on this line\n");
}

// Files with the bytes of two of these, and another one.
class FindSourcesTest : public testing::Test {
 protected:
    FindSourcesTest() {
        for (const char* const name : {"x/a.vcf", "x/b.vcf", "x/c.vcf"}) {
            book_.AddSource(
                std::make_unique<Source>(name, *name == 'x' && name[2] == 'c' ? "2" : "1"));
        }
    }

    std::string NamesIn(const std::string& text) {
        Plan plan = ParsePlan(text);
        FindSources(plan, book_);
        std::string names;
        for (const PlanSource& source : plan.Sources) {
            names += source.Name + " ";
        }
        for (const PlannedLine& line : plan.Lines) {
            for (const PlanPlace& place : line.Places) {
                names += place.File + ":" + std::to_string(place.Line) + " ";
            }
        }
        return names;
    }

    const std::string one_ = Sha256("1");
    const std::string two_ = Sha256("2");
    Book book_;
};

TEST_F(FindSourcesTest, TheSameBytesAreTheSameFile) {
    EXPECT_EQ(NamesIn("# source c.vcf " + two_ + "\n# source a.vcf " + one_ +
                      "\nmerge a.vcf:3 c.vcf:1 z:9\n"),
              "x/c.vcf x/a.vcf x/a.vcf:3 x/c.vcf:1 z:9 ");
}

TEST_F(FindSourcesTest, EachOfSeveralEqualFilesIsMeantOnce) {
    EXPECT_EQ(
        NamesIn("# source a " + one_ + "\n# source b " + one_ + "\n# source d " + one_ + "\n"),
        "x/a.vcf x/b.vcf d ");
}

TEST_F(FindSourcesTest, ANameThatIsThereIsMeantItself) {
    EXPECT_EQ(NamesIn("# source x/a.vcf " + two_ + "\n# source b " + one_ + "\n"),
              "x/a.vcf x/b.vcf ");
    EXPECT_EQ(NamesIn("# source b " + Sha256("3") + "\n"), "b ");
}

}  // namespace
}  // namespace orvik::book

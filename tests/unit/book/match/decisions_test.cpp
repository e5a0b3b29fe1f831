#include "book/match/decisions.h"

#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/match/merge_records.h"
#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const StandingOf kAllHold = [](std::uint32_t /*line*/) { return Standing::Holds; };

// "same 0 1; merge name 0 2" with what is said first, where something is.
std::string Shown(const DecidedLines& lines) {
    constexpr std::array<std::string_view, 4> kSaid = {"", "merge ", "keep ", "later "};
    std::string text;
    for (const DecidedLine& line : lines) {
        text.append(text.empty() ? "" : "; ").append(kSaid[static_cast<std::size_t>(line.Said)]);
        text.append(NameOf(line.Match.Why));
        for (const std::uint32_t record : line.Match.Records) {
            text += " " + std::to_string(record);
        }
    }
    return text;
}

// Cards that begin on the lines 1, 11, 21 and so on: two that are the same, one that the first one
// holds, and a namesake.
class DecisionsTest : public testing::Test {
 protected:
    DecisionsTest()
        : read_(ReadVCard,
                test::CardsOf("FN:Al|EMAIL:a@b.c|NOTE:x",
                              "FN:AL|EMAIL:a@b.c|NOTE:x",
                              "FN:Al|EMAIL:a@b.c",
                              "FN:Al|EMAIL:d@e.f")) {
        Look();
    }

    void Look(const StandingOf& standing = kAllHold) {
        Matches found = FindMatches(read_.book, false);
        notes_ = found.Notes;
        const std::vector<std::uint32_t> numbers = {0, 1, 2, 3};
        lines_ = WithFound(found, read_.book, numbers, lines_, standing);
    }

    std::string Planned(const StandingOf& standing = kAllHold) {
        return PlanOf(read_.book, lines_, notes_, standing).Text;
    }

    std::size_t Take(const std::string& plan, const std::vector<bool>& is_there) {
        const CheckedPlan checked = CheckPlan(
            ParsePlan("# source file " + Sha256(read_.book.SourceAt(0).Bytes()) + "\n" + plan),
            read_.book);
        EXPECT_THAT(checked.Errors, IsEmpty());
        return TakePlan(checked, read_.book, is_there, lines_);
    }

    const std::vector<bool> all_ = {true, true, true, true};
    test::ReadBook read_;
    DecidedLines lines_;
    std::vector<std::string> notes_;
};

TEST_F(DecisionsTest, ThePlanOfNoDecisionsIsThatOfWhatWasFound) {
    ASSERT_EQ(Shown(lines_), "same 0 1; contained 0 2; name 0 3");
    const Matches found = FindMatches(read_.book, false);
    EXPECT_EQ(Planned(), PlanText(read_.book, found));
    notes_.emplace_back("too many");
    EXPECT_TRUE(Planned().ends_with("# not compared: too many\n"));
}

TEST_F(DecisionsTest, ThePlanHasWhatWasSaid) {
    lines_[0].Said = Decision::Keep;
    lines_[1].Said = Decision::Later;
    lines_[2].Said = Decision::Merge;
    const std::string plan = Planned();
    EXPECT_THAT(plan, testing::HasSubstr("\nkeep   file:1  file:11   # same: "));
    EXPECT_THAT(plan, testing::HasSubstr("\nask    file:1  file:21   # contained: "));
    EXPECT_THAT(plan, testing::HasSubstr("\nmerge  file:1  file:31   # name: "));
    DecidedLines again;
    std::swap(again, lines_);
    Look();
    EXPECT_EQ(Take(plan.substr(plan.find('\n')), all_), 0U);
    EXPECT_EQ(Shown(lines_), Shown(again));
    EXPECT_EQ(Planned(), plan);
}

TEST_F(DecisionsTest, APlanLeavesOutWhatTheFilesDoNotHold) {
    EXPECT_EQ(PlanOf(read_.book, lines_, {}, kAllHold).LeftOut, 0U);
    const StandingOf first_is_old = [](std::uint32_t line) {
        return line == 0 ? Standing::Old : Standing::Holds;
    };
    const DecidedPlan plan = PlanOf(read_.book, lines_, {}, first_is_old);
    EXPECT_EQ(plan.LeftOut, 1U);
    EXPECT_THAT(plan.Text, testing::Not(testing::HasSubstr("# same")));
    // What was changed before it was compared.
    read_.book.SetValue(read_.book.Contacts[2], 1, "a@b.c");
    lines_.clear();
    Look();
    ASSERT_EQ(Shown(lines_), "same 0 1; contained 0 2; name 0 3");
    EXPECT_EQ(PlanOf(read_.book, lines_, {}, kAllHold).LeftOut, 1U);
    // What stands nowhere, or where another one stands.
    read_.book.Contacts[3].From = {};
    EXPECT_EQ(PlanOf(read_.book, lines_, {}, kAllHold).LeftOut, 2U);
    read_.book.Contacts[1].From.Line = 1;
    EXPECT_EQ(PlanOf(read_.book, lines_, {}, kAllHold).LeftOut, 3U);
}

TEST_F(DecisionsTest, APlanNamesNoFileThatIsThereTwice) {
    const std::uint32_t file = read_.book.AddSource(
        std::make_unique<Source>("file", test::CardsOf("FN:Al|EMAIL:a@b.c|NOTE:x")));
    Charset letters(read_.book.SourceAt(file), {});
    ReadVCard(read_.book, file, letters);
    const DecidedPlan plan = PlanOf(read_.book, lines_, {}, kAllHold);
    EXPECT_EQ(plan.Text, "");
    EXPECT_EQ(plan.LeftOut, 3U);
}

TEST_F(DecisionsTest, WhatWasSaidHoldsForTheSameRecords) {
    lines_[0].Said = Decision::Keep;
    lines_[1].Said = Decision::Merge;
    std::swap(lines_[1].Match.Records[0], lines_[1].Match.Records[1]);
    Look();
    EXPECT_EQ(Shown(lines_), "keep same 0 1; merge contained 2 0; name 0 3");
    Look([](std::uint32_t line) { return line == 0 ? Standing::Old : Standing::Holds; });
    EXPECT_EQ(Shown(lines_), "same 0 1; merge contained 2 0; name 0 3");
}

TEST_F(DecisionsTest, LinesThatAreDoneStay) {
    lines_[0].MergedIn = 1;
    std::erase_if(read_.book.Contacts,
                  [this](const Contact& contact) { return &contact == &read_.book.Contacts[1]; });
    Matches found = FindMatches(read_.book, false);
    const std::vector<std::uint32_t> numbers = {0, 2, 3};
    lines_ = WithFound(found, read_.book, numbers, lines_, [](std::uint32_t line) {
        return line == 0 ? Standing::Done : Standing::Old;
    });
    EXPECT_EQ(Shown(lines_), "same 0 1; contained 0 2; name 0 3");
    EXPECT_EQ(lines_[0].MergedIn, 1U);
    EXPECT_EQ(lines_[1].MergedIn, 0U);
}

TEST_F(DecisionsTest, OnlyTheFirstTwoTiersAreSure) {
    EXPECT_TRUE(IsSure(lines_[0]));
    EXPECT_TRUE(IsSure(lines_[1]));
    EXPECT_FALSE(IsSure(lines_[2]));
    lines_[0].Said = Decision::Keep;
    lines_[1].Match.Do = Action::Ask;
    EXPECT_FALSE(IsSure(lines_[0]));
    EXPECT_FALSE(IsSure(lines_[1]));
}

TEST_F(DecisionsTest, ChosenLinesAreJoined) {
    const std::vector<std::uint32_t> all = {0, 1};
    const ChosenGroups chosen = GroupsOfChosen(lines_, all, 4);
    EXPECT_THAT(chosen.Groups, ElementsAre(ElementsAre(0, 1, 2)));
    EXPECT_THAT(chosen.Lines, ElementsAre(0, 1));
    EXPECT_EQ(chosen.KeptApart, 0U);
}

TEST_F(DecisionsTest, NothingJoinsWhatIsKeptApart) {
    lines_.push_back({{Action::Keep, Tier::Plan, {1, 2}, {}}, Decision::Keep});
    lines_.push_back({{Action::Keep, Tier::Plan, {1, 3}, {}}, Decision::Keep});
    const std::vector<std::uint32_t> both = {0, 1};
    const ChosenGroups none = GroupsOfChosen(lines_, both, 4);
    EXPECT_THAT(none.Groups, IsEmpty());
    EXPECT_THAT(none.Lines, IsEmpty());
    EXPECT_EQ(none.KeptApart, 2U);
    const std::vector<std::uint32_t> one = {1};
    EXPECT_THAT(GroupsOfChosen(lines_, one, 4).Groups, ElementsAre(ElementsAre(0, 2)));
    // Whoever chooses that very line has changed his mind.
    const std::vector<std::uint32_t> kept = {3};
    EXPECT_THAT(GroupsOfChosen(lines_, kept, 4).Groups, ElementsAre(ElementsAre(1, 2)));
    // What is only proposed keeps nothing apart.
    lines_[3].Said = Decision::Open;
    EXPECT_THAT(GroupsOfChosen(lines_, both, 4).Groups, ElementsAre(ElementsAre(0, 1, 2)));
}

TEST_F(DecisionsTest, APlanAddsWhatItAloneNames) {
    EXPECT_EQ(Take("merge file:11 file:21 # my own\nkeep file:1\nkeep file:31 file:1", all_), 0U);
    EXPECT_EQ(Shown(lines_), "same 0 1; contained 0 2; keep name 3 0; merge plan 1 2");
    EXPECT_EQ(lines_[3].Match.Reason, "my own");
    EXPECT_FALSE(IsSure(lines_[3]));
    const std::string plan = Planned();
    EXPECT_THAT(plan, testing::HasSubstr("merge  file:11  file:21   # plan: my own\n"));
    lines_.pop_back();
    EXPECT_EQ(Take(plan.substr(plan.find('\n')), all_), 0U);
    EXPECT_EQ(lines_[3].Match.Reason, "my own");
    // It stays when the records are compared anew.
    Look();
    EXPECT_EQ(Shown(lines_), "merge same 0 1; merge contained 0 2; keep name 3 0; merge plan 1 2");
}

TEST_F(DecisionsTest, APlanOfRecordsThatChangedIsLeftOut) {
    const std::string plan = "merge file:1 file:11\nkeep file:1 file:31\nask file:11 file:31";
    EXPECT_EQ(Take(plan, {true, false, true, true}), 2U);
    EXPECT_EQ(Shown(lines_), "same 0 1; contained 0 2; keep name 0 3");
    lines_[0].MergedIn = 1;
    EXPECT_EQ(Take(plan, {true, false, true, true}), 1U);
    lines_[0].MergedIn = 0;
    read_.book.SetValue(read_.book.Contacts[0], 1, "x");
    EXPECT_EQ(Take(plan, all_), 2U);
}

TEST_F(DecisionsTest, OfSeveralLinesOfAPlanTheOneThatMergesWins) {
    EXPECT_EQ(Take("merge file:1 file:11\nask file:1 file:11\n", all_), 0U);
    EXPECT_EQ(lines_[0].Said, Decision::Merge);
}

}  // namespace
}  // namespace orvik::book

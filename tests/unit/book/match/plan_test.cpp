#include "book/match/plan.h"

#include <array>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

// "1 merge a.vcf:3 b.vcf:4" for a line, "2! text" for one that is none.
std::string Shown(const Plan& plan) {
    std::string text;
    for (const PlanSource& source : plan.Sources) {
        text += std::to_string(source.Line) + " source " + source.Name + "\n";
    }
    for (const PlannedLine& line : plan.Lines) {
        text += std::to_string(line.Line) + " " + std::string(NameOf(line.Do));
        for (const PlanPlace& place : line.Places) {
            text += " " + test::Escaped(place.File) + ":" + std::to_string(place.Line);
        }
        text += "\n";
    }
    for (const PlanError& error : plan.Errors) {
        text += std::to_string(error.Line) + "! " + error.Text + "\n";
    }
    return text;
}

const std::string kSum(64, 'a');
const std::string kSource = "# source a.vcf " + kSum + "\n";

TEST(PlanTextTest, HoldsSourcesLinesAndNotes) {
    const test::ReadBook read(ReadVCard, test::CardsOf("FN:Al|EMAIL:a@b.c", "FN:AL|EMAIL:a@b.c"));
    Matches found = FindMatches(read.book, false);
    found.Notes.emplace_back("too many");
    const std::string plan = PlanText(read.book, found);
    EXPECT_EQ(plan,
              "# source file " + Sha256(read.book.SourceAt(0).Bytes()) +
                  "\nmerge  file:1  file:11   # same: Al <a@b.c>\n# not compared: too many\n");
    EXPECT_EQ(plan, PlanText(read.book, found));
    EXPECT_EQ(Shown(ParsePlan(plan)), "1 source file\n2 merge file:1 file:11\n");
}

TEST(PlanTextTest, ChecksumIsSha256) {
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(PlanTextTest, OddNamesStandInQuotesAndComeBack) {
    const std::array<std::pair<std::string_view, std::string_view>, 9> rows = {
        {{"a.vcf", "a.vcf"},
         {"J\u00FCrg/b.vcf", "J\u00FCrg/b.vcf"},
         {"my book.vcf", "\"my book.vcf\""},
         {"a:1", "\"a:1\""},
         {"#a", "\"#a\""},
         {"a\"b\\c", "\"a\\\"b\\\\c\""},
         {"a\nb\x7F", "\"a\\x0Ab\\x7F\""},
         {"a\xFF\u00FC", "\"a\\xFF\\xC3\\xBC\""},
         {"", "\"\""}}};
    for (const auto& [name, quoted] : rows) {
        EXPECT_EQ(QuotedName(name), quoted);
        const Plan plan = ParsePlan("# source " + QuotedName(name) + " " + kSum + "\nask " +
                                    QuotedName(name) + ":7\n");
        ASSERT_THAT(plan.Sources, testing::SizeIs(1)) << quoted;
        EXPECT_EQ(plan.Sources.front().Name, name);
        ASSERT_THAT(plan.Lines, testing::SizeIs(1)) << quoted;
        EXPECT_EQ(plan.Lines.front().Places.front().File, name);
        EXPECT_EQ(plan.Lines.front().Places.front().Line, 7U);
    }
}

TEST(ParsePlanTest, CommentsOrderAndBlanksDoNotMatter) {
    EXPECT_EQ(Shown(ParsePlan("\xEF\xBB\xBF\n# mine\n  merge\ta.vcf:1   a.vcf:22#same: # x\r\n" +
                              kSource + "keep a.vcf:1 # \"\nask a:b:3")),
              "4 source a.vcf\n3 merge a.vcf:1 a.vcf:22\n5 keep a.vcf:1\n6 ask a:b:3\n");
    EXPECT_EQ(Shown(ParsePlan(kSource)), "1 source a.vcf\n");
}

TEST(ParsePlanTest, WhatIsNoLineIsNamed) {
    constexpr std::string_view kPlace =
        "a record is named as FILE:LINE, with the name in quotes where it has blanks";
    const std::array<std::pair<std::string, std::string>, 13> rows = {
        {{"join a.vcf:1", "a line begins with merge, ask, keep or #"},
         {"\"merge\" a.vcf:1", "a line begins with merge, ask, keep or #"},
         {"merge", "no record is named, as FILE:LINE"},
         {"merge # a.vcf:1", "no record is named, as FILE:LINE"},
         {"merge a.vcf", std::string(kPlace)},
         {"merge a.vcf:", std::string(kPlace)},
         {"merge a.vcf:x", std::string(kPlace)},
         {"merge a.vcf:1x", std::string(kPlace)},
         {"merge a.vcf:-1", std::string(kPlace)},
         {"merge a.vcf:99999999999", std::string(kPlace)},
         {"merge \"a.vcf\"", std::string(kPlace)},
         {"merge \"a.vcf:1", "the name of a file has a quote that is not closed"},
         {"merge \"a\\q\":1", "the name of a file has a quote that is not closed"}}};
    for (const auto& [line, text] : rows) {
        EXPECT_EQ(Shown(ParsePlan(kSource + line + "\n")), "1 source a.vcf\n2! " + text + "\n")
            << line;
    }
}

TEST(ParsePlanTest, SourcesNeedTheirSumsAndAreNamedOnce) {
    EXPECT_EQ(Shown(ParsePlan(kSource + kSource)),
              "1 source a.vcf\n2! this source is named twice\n");
    for (const std::string line : {"# source a.vcf", "# source a.vcf abc", "#source \"a\"b "}) {
        EXPECT_EQ(Shown(ParsePlan(line + "\n")),
                  "1! a source needs its name and the 64 digits of its SHA-256\n");
    }
    EXPECT_EQ(Shown(ParsePlan("# source \"a")),
              "1! the name of a source has a quote that is not closed\n");
    EXPECT_EQ(Shown(ParsePlan("")),
              "1! the plan names no source; a line \"# source FILE SHA-256\" does for each\n");
}

}  // namespace
}  // namespace orvik::book

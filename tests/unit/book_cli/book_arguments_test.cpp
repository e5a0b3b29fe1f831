#include "book_cli/book_arguments.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvik::book_cli {
namespace {

using book::Dialect;
using book::LdifAttributes;
using cli::ExitStatus;
using testing::ElementsAre;

class BookArgumentsTest : public testing::Test {
 protected:
    std::variant<Arguments, ExitStatus> Parse(std::vector<const char*> words) {
        words.insert(words.begin(), "orvik-book");
        return ParseArguments(static_cast<int>(words.size()), words.data(), out, err);
    }
    Arguments Parsed(const std::vector<const char*>& words) {
        const auto parsed = Parse(words);
        EXPECT_TRUE(std::holds_alternative<Arguments>(parsed)) << err.str();
        return std::holds_alternative<Arguments>(parsed) ? std::get<Arguments>(parsed)
                                                         : Arguments();
    }

    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(BookArgumentsTest, EachVerbTakesFiles) {
    const Arguments show = Parsed({"show", "a.ldif", "-", "--json", "--charset", "cp850"});
    EXPECT_EQ(show.What, Verb::Show);
    EXPECT_THAT(show.Files, ElementsAre("a.ldif", "-"));
    EXPECT_TRUE(show.Json);
    EXPECT_EQ(show.Charset, "cp850");
    EXPECT_FALSE(show.Force);
    const Arguments check = Parsed({"check", "a.ldif", "-", "--json"});
    EXPECT_EQ(check.What, Verb::Check);
    EXPECT_THAT(check.Files, ElementsAre("a.ldif", "-"));
    EXPECT_TRUE(check.Json);
    const Arguments diff = Parsed({"diff", "a", "b", "--report", "r", "--force"});
    EXPECT_EQ(diff.What, Verb::Diff);
    EXPECT_THAT(diff.Files, ElementsAre("a", "b"));
    EXPECT_EQ(diff.Report, "r");
    EXPECT_TRUE(diff.Force);
}

TEST_F(BookArgumentsTest, OptionsAndTheEndingTellWhatIsWritten) {
    const Arguments plain = Parsed({"convert", "a"});
    EXPECT_EQ(plain.Output, "-");
    EXPECT_EQ(plain.Target, Dialect::VCard30);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "b.VCF"}).Target, Dialect::VCard30);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "b.vcf", "--vcard", "4"}).Target, Dialect::VCard40);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "b.txt", "--vcard", "3"}).Target, Dialect::VCard30);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "b.TXT"}).Target, Dialect::PlainList);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "b.html"}).Target, Dialect::Netscape3);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "b.nv", "--vcard", "3"}).Target, Dialect::VCard30);
    EXPECT_EQ(Parsed({"convert", "a", "-o", "any", "--to", "pine"}).Target, Dialect::Pine);
    EXPECT_EQ(std::get<ExitStatus>(Parse({"convert", "a", "-o", "b.nv", "--split", "3"})),
              ExitStatus::Usage);
    const Arguments ldif = Parsed({"convert", "a", "-o", "b.ldi", "--allow-loss"});
    EXPECT_EQ(ldif.Target, Dialect::Ldif);
    EXPECT_FALSE(ldif.Set);
    EXPECT_TRUE(ldif.AllowLoss);
    const Arguments set = Parsed({"convert", "a", "--attributes", "kcontacts"});
    EXPECT_EQ(set.Target, Dialect::Ldif);
    EXPECT_EQ(set.Set, LdifAttributes::KContacts);
}

TEST_F(BookArgumentsTest, AProgramAndTheEndingTellWhatItGets) {
    const Arguments ldif = Parsed({"convert", "a", "--to", "thunderbird", "-o", "b.ldif"});
    ASSERT_NE(ldif.For, nullptr);
    EXPECT_EQ(ldif.For->Title, "Thunderbird");
    EXPECT_EQ(ldif.Target, Dialect::Ldif);
    EXPECT_EQ(ldif.Set, LdifAttributes::Thunderbird);
    const Arguments table = Parsed({"convert", "a", "--to", "outlook", "-o", "b.CSV"});
    EXPECT_EQ(table.Target, Dialect::Csv);
    ASSERT_NE(table.Form, nullptr);
    EXPECT_EQ(table.Form->Table, book::CsvProgram::Outlook);
    const Arguments open = Parsed({"convert", "a", "--to", "evolution"});
    EXPECT_NE(open.For, nullptr);
    EXPECT_EQ(open.Form, nullptr);
    EXPECT_EQ(Parsed({"convert", "a"}).For, nullptr);
    for (const char* const other : {"--vcard=3", "--attributes=mozilla", "--to=apple"}) {
        EXPECT_EQ(std::get<ExitStatus>(Parse({"convert", "a", "--to", "google", other})),
                  ExitStatus::Usage);
    }
    EXPECT_EQ(std::get<ExitStatus>(Parse({"convert", "a", "--to", "Google"})), ExitStatus::Usage);
}

TEST_F(BookArgumentsTest, AFileHoldsSoManyAndOlderBooksAreSeveral) {
    const Arguments some = Parsed({"convert",
                                   "a",
                                   "-o",
                                   "b.vcf",
                                   "--split",
                                   "0300",
                                   "--new-since",
                                   "c",
                                   "--new-since",
                                   "d",
                                   "e"});
    EXPECT_EQ(some.Split, 300U);
    EXPECT_THAT(some.NewSince, ElementsAre("c", "d"));
    EXPECT_THAT(some.Files, ElementsAre("a", "e"));
    EXPECT_EQ(Parsed({"convert", "a"}).Split, 0U);
    for (const char* const wrong :
         {"0", "", "-1", "3x", " 3", "1000000000", "99999999999999999999"}) {
        EXPECT_EQ(std::get<ExitStatus>(Parse({"convert", "a", "-o", "b.vcf", "--split", wrong})),
                  ExitStatus::Usage)
            << wrong;
    }
    EXPECT_EQ(std::get<ExitStatus>(Parse({"convert", "-", "--new-since", "-"})), ExitStatus::Usage);
    EXPECT_EQ(std::get<ExitStatus>(Parse({"show", "a", "--split", "3"})), ExitStatus::Usage);
}

TEST_F(BookArgumentsTest, DupesWritesAPlanAndCleanReadsIt) {
    const Arguments dupes = Parsed({"dupes", "a", "b", "--plan", "p", "--merge", "agree"});
    EXPECT_EQ(dupes.What, Verb::Dupes);
    EXPECT_EQ(dupes.Output, "p");
    EXPECT_TRUE(dupes.MergesAgreeing);
    EXPECT_EQ(Parsed({"dupes", "a"}).Output, kStandardStream);
    const Arguments clean = Parsed({"clean", "--plan", "p", "-o", "b.ldif"});
    EXPECT_EQ(clean.What, Verb::Clean);
    EXPECT_EQ(clean.Plan, "p");
    EXPECT_EQ(clean.Target, book::Dialect::Ldif);
    EXPECT_THAT(clean.Files, testing::IsEmpty());
    EXPECT_FALSE(Parsed({"clean", "a"}).MergesAgreeing);
    for (const std::vector<const char*>& wrong :
         std::vector<std::vector<const char*>>{{"clean"},
                                               {"clean", "a", "--plan", "p"},
                                               {"clean", "--plan", "p", "--merge", "agree"},
                                               {"clean", "a", "a"},
                                               {"clean", "--plan", "-"},
                                               {"dupes", "a", "a"},
                                               {"dupes"},
                                               {"dupes", "a", "-o", "b.vcf"},
                                               {"show", "a", "--plan", "p"}}) {
        EXPECT_EQ(std::get<ExitStatus>(Parse(wrong)), ExitStatus::Usage) << wrong.back();
    }
}

TEST_F(BookArgumentsTest, OrdersAndLocalesAreKnown) {
    EXPECT_EQ(Parsed({"convert", "a"}).Sort, book::SortBy::None);
    EXPECT_EQ(Parsed({"convert", "a", "--sort", "domain"}).Sort, book::SortBy::Domain);
    EXPECT_EQ(Parsed({"clean", "a", "--sort", "name", "--locale", "sv"}).Locale, "sv");
    EXPECT_EQ(std::get<ExitStatus>(Parse({"clean", "a", "--sort", "size"})), ExitStatus::Usage);
    EXPECT_EQ(std::get<ExitStatus>(Parse({"clean", "a", "--locale", "xx"})), ExitStatus::Usage);
}

TEST_F(BookArgumentsTest, MistakesAreToldAndNamesAreShownAsText) {
    EXPECT_EQ(std::get<ExitStatus>(Parse({})), ExitStatus::Usage);
    EXPECT_EQ(std::get<ExitStatus>(Parse({"convert", "a", "-o", "b\x1B[2J"})), ExitStatus::Usage);
    EXPECT_THAT(err.str(), testing::HasSubstr("b\\x1B[2J tells no format"));
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(std::get<ExitStatus>(Parse({"show", "--help"})), ExitStatus::Done);
    EXPECT_THAT(out.str(), testing::HasSubstr("--report"));
}

TEST_F(BookArgumentsTest, ANameInBracketsIsOneName) {
    EXPECT_THAT(Parsed({"show", "[a,b]", "c"}).Files, ElementsAre("./[a,b]", "c"));
    EXPECT_EQ(Parsed({"convert", "a", "-o", "[a,b]", "--vcard", "3"}).Output, "./[a,b]");
}

}  // namespace
}  // namespace orvik::book_cli

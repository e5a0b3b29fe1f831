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
    const Arguments ldif = Parsed({"convert", "a", "-o", "b.ldi", "--allow-loss"});
    EXPECT_EQ(ldif.Target, Dialect::Ldif);
    EXPECT_FALSE(ldif.Set);
    EXPECT_TRUE(ldif.AllowLoss);
    const Arguments set = Parsed({"convert", "a", "--attributes", "kcontacts"});
    EXPECT_EQ(set.Target, Dialect::Ldif);
    EXPECT_EQ(set.Set, LdifAttributes::KContacts);
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

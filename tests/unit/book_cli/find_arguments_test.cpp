#include "book_cli/find_arguments.h"

#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "book_cli/book_arguments.h"

namespace orvik::book_cli {
namespace {

using Parsed = std::variant<Arguments, cli::ExitStatus>;

Parsed Parse(std::vector<const char*> words) {
    words.insert(words.begin(), {"orvik-book", "find"});
    std::ostringstream out;
    std::ostringstream err;
    return ParseArguments(static_cast<int>(words.size()), words.data(), out, err);
}

TEST(FindArguments, AreAllOptional) {
    const auto parsed = std::get<Arguments>(Parse({"Inbox"}));
    EXPECT_EQ(Verb::Find, parsed.What);
    EXPECT_EQ(std::vector<std::string>{"Inbox"}, parsed.Files);
    EXPECT_EQ(1U, parsed.Find.Least);
    EXPECT_EQ(book::kNoTime, parsed.Find.Since);
    EXPECT_FALSE(parsed.Find.HeadersOnly || parsed.Find.NoReply);
}

TEST(FindArguments, MayStandBeforeThePaths) {
    const auto parsed = std::get<Arguments>(Parse({"--since",
                                                   "1970-01-02",
                                                   "--min",
                                                   "3",
                                                   "--no-reply",
                                                   "--headers-only",
                                                   "--me",
                                                   "a@x.example",
                                                   "b@x.example",
                                                   "mail",
                                                   "./c@x.example"}));
    EXPECT_EQ((std::vector<std::string>{"mail", "./c@x.example"}), parsed.Files);
    EXPECT_EQ((std::vector<std::string>{"a@x.example", "b@x.example"}), parsed.Find.Mine);
    EXPECT_EQ(86400, parsed.Find.Since);
    EXPECT_EQ(3U, parsed.Find.Least);
    EXPECT_TRUE(parsed.Find.HeadersOnly && parsed.Find.NoReply);
}

TEST(FindArguments, MayBeWrong) {
    for (const char* const day : {"1998",
                                  "1998-1-1",
                                  "1998-13-01",
                                  "1998-02-30",
                                  "19980101",
                                  "+998-01-01",
                                  "1998-01-01x"}) {
        EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({"x", "--since", day})))
            << day;
    }
    EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({})));
    EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({"-"})));
    EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({"x", "--me", "x@"})));
}

TEST(FindArguments, TellTheTarget) {
    EXPECT_EQ(book::Dialect::Ldif, std::get<Arguments>(Parse({"x", "-o", "y.ldif"})).Target);
    EXPECT_EQ(book::Dialect::VCard40, std::get<Arguments>(Parse({"x", "--vcard", "4"})).Target);
    EXPECT_EQ(book::Dialect::VCard30, std::get<Arguments>(Parse({"x", "--json"})).Target);
    const auto parsed = std::get<Arguments>(Parse({"x", "-o", "y.csv", "--to", "google"}));
    EXPECT_EQ(book::Dialect::Csv, parsed.Target);
    EXPECT_EQ(7U, std::get<Arguments>(Parse({"x", "-o", "y.vcf", "--split", "7"})).Split);
    EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({"x", "-o", "y.doc"})));
    EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({"x", "-o", "y.csv"})));
    EXPECT_EQ(cli::ExitStatus::Usage, std::get<cli::ExitStatus>(Parse({"x", "--split", "7"})));
}

}  // namespace
}  // namespace orvik::book_cli

#include "book_cli/targets.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/old/old_writers.h"

namespace orvik::book_cli {
namespace {

using Names = std::vector<std::string>;

TEST(AnyForms, AreAllThatATargetsNameCanAskFor) {
    for (const book::OldWriter& writer : book::OldWriters()) {
        const auto is_it = [&](const AnyForm& one) {
            return one.Form == writer.Form && one.Ending == writer.Ending;
        };
        EXPECT_EQ(std::any_of(AnyForms().begin(), AnyForms().end(), is_it), !writer.Ending.empty())
            << writer.Title;
    }
    for (const AnyForm& one : AnyForms()) {
        EXPECT_TRUE(!one.Set || one.Form == book::Dialect::Ldif);
    }
}

TEST(EndsAs, OtherEndingsOfAFormatAreAsGood) {
    EXPECT_TRUE(EndsAs(".vcf", "a.VCF"));
    EXPECT_TRUE(EndsAs(".vcf", "a.vcard"));
    EXPECT_TRUE(EndsAs(".ldif", "a.ldi"));
    EXPECT_TRUE(EndsAs(".htm", "a.html"));
    EXPECT_TRUE(EndsAs("", "aliases"));
    EXPECT_FALSE(EndsAs(".vcf", "a.csv"));
    EXPECT_FALSE(EndsAs(".csv", "a.vcard"));
}

TEST(EndedAs, ANameGetsTheEndingThatItHasNot) {
    EXPECT_EQ(EndedAs(".csv", "b/book"), "b/book.csv");
    EXPECT_EQ(EndedAs(".csv", "book.vcf"), "book.vcf.csv");
    EXPECT_EQ(EndedAs(".csv", "book.Csv"), "book.Csv");
    EXPECT_EQ(EndedAs(".htm", "book.html"), "book.html");
    EXPECT_EQ(EndedAs("", "aliases"), "aliases");
}

TEST(NameFor, FollowsFromTheSources) {
    EXPECT_EQ(NameFor(Names{"old/book.ldif"}, "google", ".csv"), "book-google.csv");
    EXPECT_EQ(NameFor(Names{"old/book.ldif", "b.vcf"}, "google", ".csv"),
              "book-and-1-more-google.csv");
    EXPECT_EQ(NameFor(Names{"/home/a.b/Address Book"}, "mutt", ""), "Address Book-mutt");
    EXPECT_EQ(NameFor(Names{"old/.addressbook"}, "apple", ".vcf"), ".addressbook-apple.vcf");
    EXPECT_EQ(NameFor(Names{"-"}, "apple", ".vcf"), "addresses-apple.vcf");
    EXPECT_EQ(NameFor(Names{}, "", ".vcf"), "addresses.vcf");
    EXPECT_EQ(NameFor(Names{"folder/"}, "", ".vcf"), "addresses.vcf");
}

TEST(NameFor, IsNotThatOfASource) {
    EXPECT_EQ(NameFor(Names{"a/book.vcf"}, "", ".vcf"), "book-new.vcf");
    EXPECT_EQ(NameFor(Names{"a/book.vcf"}, "", ".ldif"), "book.ldif");
    EXPECT_EQ(NameFor(Names{"x-apple.vcf", "x-apple-and-1-more-apple.vcf"}, "apple", ".vcf"),
              "x-apple-and-1-more-apple-new.vcf");
}

}  // namespace
}  // namespace orvik::book_cli

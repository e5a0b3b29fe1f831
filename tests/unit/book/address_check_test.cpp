#include "book/address_check.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// "class: reason".
std::string Verdict(std::string_view address) {
    const CheckedAddress checked = CheckAddress(address);
    const std::string reason = checked.Reason();
    return std::string(NameOf(checked.Class())) + (reason.empty() ? "" : ": " + reason);
}

struct Row {
    std::string_view Address;
    const char* Verdict;
};

template <std::size_t count>
void ExpectAll(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        EXPECT_EQ(Verdict(row.Address), row.Verdict) << test::Escaped(row.Address);
    }
}

TEST(CheckAddress, PlainAddressesAreValid) {
    const Row rows[] = {
        {"al@example.org", "valid"},
        {"Ada.Abbott@Example.ORG", "valid"},
        {"a@b.c", "valid"},
        {"ada+list@example.org", "valid"},
        {"!#$%&'*+-/=?^_`{|}~@example.org", "valid"},
        {"-ada-@example.org", "valid"},
        {"1@2.example", "valid"},
        {"ada@a-b.c--d.x1", "valid"},
        {"c=us/o=firm/s=ada@example.org", "valid"},
        // The domain may be digits where it does not end.
        {"ada@123.example", "valid"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, SaysWhatIsAgainstTheSidesOfTheAt) {
    const Row rows[] = {
        {"", "bad: nothing but blanks"},
        {" \t\r\n", "bad: nothing but blanks"},
        {"ada", "bad: no @"},
        {"ada..abbott", "bad: no @"},
        {"\"ada@example.org\"", "bad: no @"},
        {"\"ada@example\" .", "bad: no @"},
        {"@", "bad: nothing before the @"},
        {"@example.org", "bad: nothing before the @"},
        {"(ada)@example.org", "bad: nothing before the @"},
        {"ada@", "bad: nothing behind the @"},
        {"ada@ (home)", "bad: nothing behind the @"},
        {"joe@@example.org", "bad: two @"},
        {"joe@work@example.org", "bad: two @"},
        {"joe@example.org@", "bad: two @"},
        {"joe@[192.0.2.1]@example.org", "bad: two @"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, SaysWhereDotsAndHyphensMustNotBe) {
    const Row rows[] = {
        {".ada@example.org", "bad: a dot at the start of the name"},
        {"ada.@example.org", "bad: a dot at the end of the name"},
        {"ada..abbott@example.org", "bad: two dots in a row in the name"},
        {"ada@.example.org", "bad: a dot at the start of the domain"},
        {"ada@example.org.", "bad: a dot at the end of the domain"},
        {"ada@example..org", "bad: two dots in a row in the domain"},
        {"ada@.", "bad: a dot at the start of the domain"},
        {"ada@-example.org", "bad: a hyphen at the start of a label of the domain"},
        {"ada@example.-", "bad: a hyphen at the start of a label of the domain"},
        {"ada@example-.org", "bad: a hyphen at the end of a label of the domain"},
        {"ada@example.org-", "bad: a hyphen at the end of a label of the domain"},
        {"ada@example-(x).org", "bad: a hyphen at the end of a label of the domain"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, NamesSignsThatAreInNoAddress) {
    const Row rows[] = {
        {"Ada <ada@example.org>", "bad: the sign < in the name"},
        {"mailto:ada@example.org", "bad: the sign : in the name"},
        {"ada,al@example.org", "bad: the sign , in the name"},
        {"ada;al@example.org", "bad: the sign ; in the name"},
        {"ada)@example.org", "bad: the sign ) in the name"},
        {"ada\\@example.org", "bad: the sign \\ in the name"},
        {"ada\"abbott@example.org", "bad: the sign \" in the name"},
        {"ada[1]@example.org", "bad: the sign [ in the name"},
        {"ada@example,org", "bad: the sign , in the domain"},
        {"ada@exam\"ple\".org", "bad: the sign \" in the domain"},
        {"ada@\"example.org\"", "bad: the sign \" in the domain"},
        {"ada@example.org>", "bad: the sign > in the domain"},
        {"ada@x[192.0.2.1]", "bad: the sign [ in the domain"},
        {"ada@[192.0.2.1]x", "bad: letters behind the closing bracket"},
        {"Ada Abbott@example.org", "bad: a blank in the name"},
        {"ada(x)abbott@example.org", "bad: a comment in the middle of the name"},
        {"ada (x) abbott@example.org", "bad: a comment in the middle of the name"},
        {"ada@exam ple.org", "bad: a blank in the domain"},
        {"ada@exam(x)ple.org", "bad: a comment in the middle of the domain"},
        {"\"ada\"abbott@example.org", "bad: letters behind the closing quotation mark"},
        {"\"ada\"\"abbott\"@example.org", "bad: letters behind the closing quotation mark"},
        {"\"ada\" abbott@example.org", "bad: a blank in the name"},
        {"\"ada\".abb\"ott@example.org", "bad: the sign \" in the name"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, TakesNoControlLettersAndLineBreaksOutsideOfQuotes) {
    const Row rows[] = {
        {"a\0da@example.org"sv, "bad: a control letter in the name"},
        {"a\x07"
         "da@example.org",
         "bad: a control letter in the name"},
        {"ada@ex\x7F"
         "ample.org",
         "bad: a control letter in the domain"},
        {"\"a\0\"@example.org"sv, "bad: a control letter in the name"},
        {"(\0)ada@example.org"sv, "bad: a control letter in the name"},
        {"ada@[\0]"sv, "bad: a control letter in the domain"},
        {"ada@example.org\n", "bad: a line break in the domain"},
        {"ada@example.org\r\n", "bad: a line break in the domain"},
        {"ada@example.org \r\n\r\n ", "bad: a line break in the domain"},
        {"\nada@example.org", "bad: a line break in the name"},
        {"\"a\nb\"@example.org", "bad: a line break in the name"},
        {"\"a\r\nb\"@example.org", "bad: a line break in the name"},
        {"(\r)ada@example.org", "bad: a line break in the name"},
        {"ada\rabbott@example.org", "bad: a line break in the name"},
        {"\"\x01\"@example.org", "deprecated: a control letter in quotation marks or a comment"},
        {"(\x7F)ada@example.org", "deprecated: a control letter in quotation marks or a comment"},
        {"\"\\\0\"@example.org"sv, "deprecated: a control letter behind a backslash"},
        {"\"\\\r\"@example.org", "deprecated: a control letter behind a backslash"},
        {"(\\\n)ada@example.org", "deprecated: a control letter behind a backslash"},
        {"\"\\\t\"@example.org", "odd: a name in quotation marks"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, QuotedNamesAreOddAndMixedOnesDeprecated) {
    const Row rows[] = {
        {"\"ada abbott\"@example.org", "odd: a name in quotation marks"},
        {"\"\"@example.org", "odd: a name in quotation marks"},
        {"\"ada@home\"@example.org", "odd: a name in quotation marks"},
        {"\"a\\\"b\\\\\"@example.org", "odd: a name in quotation marks"},
        {"\".a..b.\"@example.org", "odd: a name in quotation marks"},
        {"\"a\r\n b\"@example.org", "odd: a name in quotation marks"},
        {"\"j\xC3\xB6rg\"@example.org", "odd: a name in quotation marks"},
        {"\"a\".b@example.org", "deprecated: quotes, blanks or comments beside a dot of the name"},
        {"a.\"b\"@example.org", "deprecated: quotes, blanks or comments beside a dot of the name"},
        {"\"ada@example.org", "bad: a quotation that is never closed"},
        {"\"ada\\\"@example.org", "bad: a quotation that is never closed"},
        {"\"@\\", "bad: a backslash at the end"},
        {"\"\\\xC3\xA4\"@example.org", "bad: a backslash before a letter that is not ASCII"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, BlanksAndCommentsAreOddAroundAndDeprecatedInside) {
    const Row rows[] = {
        {" ada@example.org", "odd: blanks or line breaks around it"},
        {"ada@example.org\t", "odd: blanks or line breaks around it"},
        {"\r\n ada@example.org", "odd: blanks or line breaks around it"},
        {"ada@example.org \r\n ", "odd: blanks or line breaks around it"},
        {"(team)ada@example.org", "odd: a comment"},
        {"ada@example.org (home (of \\) \"hers))", "odd: a comment"},
        {"()ada@example.org(\xC3\xB6)", "odd: a comment"},
        {"ada@[192.0.2.1] (x)", "odd: a comment"},
        {"ada @example.org", "deprecated: blanks or comments beside the @"},
        {"ada@ example.org", "deprecated: blanks or comments beside the @"},
        {"ada(x)@example.org", "deprecated: blanks or comments beside the @"},
        {"ada@(x)[192.0.2.1]", "deprecated: blanks or comments beside the @"},
        {"ada . abbott@example.org",
         "deprecated: quotes, blanks or comments beside a dot of the name"},
        {"ada(x).abbott@example.org",
         "deprecated: quotes, blanks or comments beside a dot of the name"},
        {"ada@example .org", "deprecated: blanks or comments beside a dot of the domain"},
        {"ada@example.(x)org", "deprecated: blanks or comments beside a dot of the domain"},
        {"\r\n \r\n ada@example.org", "deprecated: a line of nothing but blanks"},
        {"\"a\r\n \r\n b\"@example.org", "deprecated: a line of nothing but blanks"},
        {"ada@example.org(x", "bad: a comment that is never closed"},
        {"((x)ada@example.org", "bad: a comment that is never closed"},
        {"ada@example.org(x\\", "bad: a backslash at the end"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, UnusualDomainsAreOdd) {
    const Row rows[] = {
        {"ada@localhost", "odd: a domain without a dot"},
        {"ada@example.123", "odd: a domain that ends in a number"},
        {"ada@192.0.2.1", "odd: a domain that ends in a number"},
        {"ada@7", "odd: a domain that ends in a number"},
        {"ada@ex_ample.org", "odd: a sign in the domain that no host has"},
        {"ada@b\xC3\xBC_cher.org", "odd: a sign in the domain that no host has"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, TheGravestFlawIsTold) {
    const Row rows[] = {
        {" \"ada\"@localhost", "odd: blanks or line breaks around it"},
        {" \"ada\" @localhost", "deprecated: blanks or comments beside the @"},
        {"ada@ ex_ample.org", "odd: a sign in the domain that no host has"},
        {"ada@ ex_ample..org", "bad: two dots in a row in the domain"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, ExchangeNamesAreOdd) {
    const Row rows[] = {
        {"/O=FIRST ORG/OU=SITE/CN=RECIPIENTS/CN=ADA", "odd: an Exchange name, no internet address"},
        {"/o=first/cn=ada@work@home", "odd: an Exchange name, no internet address"},
        {"/O=", "odd: an Exchange name, no internet address"},
        // This one can be both.
        {"/o=first@example.org", "valid"},
        {"/O=\xFF", "bad: bytes that are no text"},
        {"O=FIRST", "bad: no @"},
    };
    ExpectAll(rows);
}

TEST(CheckAddress, BytesThatAreNoUtf8AreBad) {
    for (const std::string_view bytes :
         {"\xFF", "\xC3", "\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
        const std::string text(bytes);
        EXPECT_EQ(Verdict("a" + text + "@example.org"), "bad: bytes that are no text");
        EXPECT_EQ(Verdict("ada@example.org" + text), "bad: bytes that are no text");
        EXPECT_EQ(Verdict("\"" + text + "\"@example.org"), "bad: bytes that are no text");
    }
}

}  // namespace
}  // namespace orvik::book

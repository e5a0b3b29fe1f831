#include "book/ascii_domain.h"

#include <string>

#include <gtest/gtest.h>

#include "book/address_check.h"

namespace orvik::book {
namespace {

// The form, or what is against it.
std::string Form(std::string_view domain) {
    const AsciiDomain found = AsciiDomainOf(domain);
    return found.Text + (found.IsRefused ? "refused" : "") + (found.IsMapped ? " mapped" : "") +
           (found.HasNoLetters ? " no letters" : "");
}

struct Row {
    std::string_view Domain;
    const char* Wanted;
};

template <std::size_t count>
void ExpectAll(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        EXPECT_EQ(Form(row.Domain), row.Wanted) << row.Domain;
    }
}

TEST(AsciiDomain, AsciiStaysAsItIs) {
    const Row rows[] = {
        {"example.org", "example.org"},
        {"Example.ORG", "Example.ORG"},
        {"ab--c.example", "ab--c.example"},
        {"r3---x.example", "r3---x.example"},
        {"xn--bcher-kva.example", "xn--bcher-kva.example"},
        {"XN--BCHER-KVA.example", "XN--BCHER-KVA.example"},
        {"xn--a.example", "xn--a.example no letters"},
        {"example.xn--example", "example.xn--example no letters"},
        // Letters from right to left beside a label that begins with a digit.
        {"xn--5dbcd.3com", "xn--5dbcd.3com no letters"},
    };
    ExpectAll(rows);
}

TEST(AsciiDomain, LettersHaveAForm) {
    const Row rows[] = {
        {"b\xC3\xBC"
         "cher.example",
         "xn--bcher-kva.example"},
        {"B\xC3\x9C"
         "CHER.example",
         "xn--bcher-kva.example"},
        {"fa\xC3\x9F.example", "xn--fa-hia.example"},
        {"r3---x.b\xC3\xBC"
         "cher",
         "r3---x.xn--bcher-kva"},
        {"xn--bcher-kva.b\xC3\xBC"
         "cher",
         "xn--bcher-kva.xn--bcher-kva"},
        {"\xCF\x83\xCF\x82.example", "xn--3xab.example"},
        // right to left
        {"\xD7\x91\xD7\x92\xD7\x93.example", "xn--5dbcd.example"},
        {"\xD9\x85\xD8\xB5\xD8\xB1.\xD9\x85\xD8\xB5\xD8\xB1", "xn--wgbh1c.xn--wgbh1c"},
        // a joiner where the script needs it
        {"\xE0\xA4\x95\xE0\xA5\x8D\xE2\x80\x8D\xE0\xA4\xB7.example", "xn--11b2ezcw70k.example"},
    };
    ExpectAll(rows);
}

TEST(AsciiDomain, LettersThatStandForOthersAreMapped) {
    const Row rows[] = {
        {"example\xE3\x80\x82org", "example.org mapped"},
        {"\xEF\xBD\x85xample.org", "example.org mapped"},
        {"exa\xC2\xADmple.org", "example.org mapped"},
        {"exa\xE2\x80\x8Bmple.org", "example.org mapped"},
        {"bu\xCC\x88"
         "cher.example",
         "xn--bcher-kva.example mapped"},
        {"\xEF\xAC\x81.example", "fi.example mapped"},
    };
    ExpectAll(rows);
}

TEST(AsciiDomain, OthersAreRefused) {
    for (const std::string_view domain : {
             "\xEF\xBF\xBD.example",  // a letter that was lost
             "\xC2\xA0.example",      // a blank that does not break
             "\xE2\x89\xA0.example",  // a sign
             "a\xEF\xBC\xA0"
             "b.example",  // another @
             "a\xE2\x80\xAE"
             "b.example",  // turns the direction
             "a\xE2\x80\x8D"
             "b.example",  // a joiner with nothing to join
             "\xCC\x88"
             "a.example",              // a mark with nothing under it
             "ab--\xC3\xBC.example",   // hyphens as in xn--
             "xn--\xC3\xBC.example",   // two forms at once
             "\xC2\xAD.example",       // nothing is left of it
             "a\xE3\x80\x82.example",  // a dot before a dot
             "\xE3\x80\x82"
             "a.example",  // a dot at the start
             "-\xC2\xAD"
             "a.example",  // a hyphen at the start
             "a-\xE3\x80\x82"
             "b.example",  // a hyphen at the end
             "\xD7\x91"
             "a\xD7\x92.example",              // both directions in a label
             "\xD7\x91\xD7\x92\xD7\x93.3com",  // and beside each other
         }) {
        EXPECT_EQ(Form(domain), "refused") << domain;
    }
}

TEST(AsciiDomain, MakesTheAsciiFormOfAnAddress) {
    const struct {
        const char* Address;
        Flaw Worst;
        const char* Ascii;
    } rows[] = {
        {"al@example.org", Flaw::None, ""},
        {"al@b\xC3\xBC"
         "cher.example",
         Flaw::None,
         "al@xn--bcher-kva.example"},
        {"al@b\xC3\xBC"
         "cher",
         Flaw::OneLabel,
         "al@xn--bcher-kva"},
        {"al@(x)b\xC3\xBC"
         "cher . example",
         Flaw::GapInDomain,
         "al@xn--bcher-kva.example"},
        {"\"a l\"@b\xC3\xBC"
         "cher.example",
         Flaw::Quoted,
         "\"a l\"@xn--bcher-kva.example"},
        {"al@xn--bcher-kva.example", Flaw::None, ""},
        {"al@xn--a.example", Flaw::NoLetters, ""},
        {"al@example\xE3\x80\x82org", Flaw::MappedDomain, "al@example.org"},
        // The name has no such form.
        {"j\xC3\xB6rg@b\xC3\xBC"
         "cher.example",
         Flaw::None,
         ""},
        {"j\xC3\xB6rg@example.org", Flaw::None, ""},
        {"al@b\xC3\xBC_cher.example", Flaw::NoHost, ""},
        {"al@[b\xC3\xBC"
         "cher]",
         Flaw::UnknownLiteral,
         ""},
        {"al@a\xE2\x80\xAE"
         "b.example",
         Flaw::RefusedDomain,
         ""},
        {"al@\xC2\xADxn--a.example", Flaw::RefusedDomain, ""},
    };
    for (const auto& row : rows) {
        const CheckedAddress checked = CheckAddress(row.Address);
        EXPECT_EQ(checked.Worst.What, row.Worst) << row.Address;
        EXPECT_EQ(checked.Ascii, row.Ascii) << row.Address;
    }
}

TEST(AsciiDomain, LettersOfTheNameThatNobodySeesAreOdd) {
    for (const char* const letter : {"\xC2\xA0",
                                     "\xC2\xAD",
                                     "\xC2\x85",
                                     "\xE2\x80\x8B",
                                     "\xE2\x80\x8D",
                                     "\xE2\x80\xAE",
                                     "\xE2\x80\xA8",
                                     "\xE3\x80\x80",
                                     "\xEF\xBB\xBF",
                                     "\xEF\xB8\x8F"}) {
        const std::string address = std::string("a") + letter + "l@example.org";
        EXPECT_EQ(CheckAddress(address).Worst.What, Flaw::HiddenLetter) << address;
    }
    EXPECT_EQ(CheckAddress("a\xEF\xBF\xBDl@example.org").Worst.What, Flaw::LostLetter);
    EXPECT_EQ(CheckAddress("\xE5\xB1\xB1\xF0\x9F\x98\x80@example.org").Worst.What, Flaw::None);
}

}  // namespace
}  // namespace orvik::book

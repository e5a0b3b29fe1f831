// How long an address and its parts may be, and that none takes long.

#include <string>

#include <gtest/gtest.h>

#include "book/address_check.h"

namespace orvik::book {
namespace {

Flaw FlawOf(const std::string& address) {
    return CheckAddress(address).Worst.What;
}

std::string Letters(std::size_t count) {
    return std::string(count, 'a');
}

// A domain of so many bytes, in labels of 50 bytes or less.
std::string Domain(std::size_t length) {
    std::string domain;
    while (length - domain.size() > 52) {
        domain += Letters(49) + ".";
    }
    return domain + Letters(length - domain.size());
}

TEST(AddressLimits, ANameHas64BytesAtMost) {
    EXPECT_EQ(FlawOf(Letters(64) + "@example.org"), Flaw::None);
    EXPECT_EQ(FlawOf(Letters(65) + "@example.org"), Flaw::NameLong);
    EXPECT_EQ(CheckAddress(Letters(65) + "@example.org").Reason(), "a name longer than 64 bytes");
    EXPECT_EQ(FlawOf("(" + Letters(99) + ") " + Letters(64) + "@example.org"), Flaw::Comment);
    // Quotation marks and backslashes count, line breaks do not.
    EXPECT_EQ(FlawOf("\"" + Letters(62) + "\"@example.org"), Flaw::Quoted);
    EXPECT_EQ(FlawOf("\"" + Letters(63) + "\"@example.org"), Flaw::NameLong);
    EXPECT_EQ(FlawOf("\"\\" + Letters(61) + "\"@example.org"), Flaw::Quoted);
    EXPECT_EQ(FlawOf("\"\\" + Letters(62) + "\"@example.org"), Flaw::NameLong);
    EXPECT_EQ(FlawOf("\"\r\n " + Letters(61) + "\"@example.org"), Flaw::Quoted);
    EXPECT_EQ(FlawOf("\"\r\n " + Letters(62) + "\"@example.org"), Flaw::NameLong);
    std::string umlauts;
    for (int i = 0; i < 32; ++i) {
        umlauts += "\xC3\xBC";
    }
    EXPECT_EQ(FlawOf(umlauts + "@example.org"), Flaw::None);
    EXPECT_EQ(FlawOf(umlauts + "a@example.org"), Flaw::NameLong);
}

TEST(AddressLimits, ALabelHas63BytesAtMost) {
    EXPECT_EQ(FlawOf("a@" + Letters(63) + ".org"), Flaw::None);
    EXPECT_EQ(FlawOf("a@" + Letters(64) + ".org"), Flaw::LabelLong);
    EXPECT_EQ(FlawOf("a@example." + Letters(64)), Flaw::LabelLong);
    EXPECT_EQ(FlawOf("a@(" + Letters(99) + ")" + Letters(63) + ".org"), Flaw::GapBesideAt);
    // What counts is the form that is looked up: 55 letters and "xn--", "-", "4ya".
    EXPECT_EQ(FlawOf("a@" + Letters(55) + "\xC3\xBC.org"), Flaw::None);
    EXPECT_EQ(CheckAddress("a@" + Letters(55) + "\xC3\xBC.org").Ascii.size(), 2 + 63 + 4U);
    EXPECT_EQ(FlawOf("a@" + Letters(56) + "\xC3\xBC.org"), Flaw::LabelLong);
}

TEST(AddressLimits, AnAddressHas254BytesAtMost) {
    ASSERT_EQ(Domain(252).size(), 252U);
    EXPECT_EQ(FlawOf("a@" + Domain(252)), Flaw::None);
    EXPECT_EQ(FlawOf("a@" + Domain(253)), Flaw::AddressLong);
    EXPECT_EQ(FlawOf("a@" + Domain(255)), Flaw::AddressLong);
    EXPECT_EQ(FlawOf("a@" + Domain(256)), Flaw::DomainLong);
    EXPECT_EQ(FlawOf(Letters(64) + "@" + Domain(189)), Flaw::None);
    EXPECT_EQ(FlawOf(Letters(64) + "@" + Domain(190)), Flaw::AddressLong);
    EXPECT_EQ(FlawOf("a@" + Domain(252) + "(" + Letters(99) + ")"), Flaw::Comment);
    EXPECT_EQ(FlawOf("a@[x:" + Letters(248) + "]"), Flaw::UnknownLiteral);
    EXPECT_EQ(FlawOf("a@[x:" + Letters(249) + "]"), Flaw::AddressLong);
}

TEST(AddressLimits, VeryLongDomainsAreNotLookedUp) {
    std::string domain = "\xC3\xBC.";
    while (domain.size() < 1020) {
        domain += "\xC2\xAD";  // a soft hyphen, which the other form does not have
    }
    EXPECT_EQ(CheckAddress("a@" + domain + "org").Ascii, "a@xn--tda.org");
    EXPECT_EQ(FlawOf("a@" + domain + "org"), Flaw::MappedDomain);
    EXPECT_EQ(FlawOf("a@" + domain + "xorg"), Flaw::LabelLong);
    EXPECT_EQ(CheckAddress("a@" + domain + "xorg").Ascii, "");
}

// With anything but linear time, or with a call for each bracket, this would not end well.
TEST(AddressLimits, AnyRepetitionIsRead) {
    constexpr std::size_t kMany = 1U << 16U;
    for (const std::string_view part :
         {"a",    "a.",        "@",       "\"",      "\"\".",    "\\",    "(",
          ")",    "()",        "(\\",     " ",       "\t",       "\r\n ", "[",
          "]",    "[]",        "a@",      "a@a.",    "\xC3\xBC", "xn--",  "xn--a.",
          ":",    "::",        "1:",      "1.",      "\xC2\xAD", "/O=",   "\xE3\x80\x82",
          "\xFF", "\xD7\x90.", "\"a\" .", "(a) . a", "\xCC\x88", "a-",    "\xEF\xB7\xBA"}) {
        std::string text;
        text.reserve(kMany + part.size());
        while (text.size() < kMany) {
            text += part;
        }
        for (const char* const before : {"", "a@", "a@[", "a@[IPv6:", "\"", "(", "a@("}) {
            EXPECT_NE(FlawOf(before + text), Flaw::None) << before << part;
        }
        EXPECT_NE(FlawOf(text + "@example.org"), Flaw::None) << part;
    }
}

}  // namespace
}  // namespace orvik::book

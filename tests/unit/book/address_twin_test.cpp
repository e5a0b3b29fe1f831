// The quick code that looks at addresses says what the grammars say.

#include "unit/book/address_twin.h"

#include <array>
#include <map>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

constexpr auto kSeeds = std::to_array<std::string_view>({
    " ",
    "al@example.org",
    "ada.abbott+list@mail.example.org",
    "\"ada abbott\"@example.org",
    "\"a\\\"b\\\\\"@example.org",
    "\"ada\".abbott@example.org",
    "ada . abbott@example.org",
    " ada@example.org ",
    "(team)ada@example.org(home)",
    "ada@(home (of \\) hers))example.org",
    "ada@example (x) . org",
    "\r\n ada@example.org",
    "ada@example.org\r\n \r\n ",
    "\"a\r\n b\"@example.org",
    "ada@[192.0.2.1]",
    "ada@[IPv6:2001:db8::1]",
    "ada@[IPv6:1:2:3:4:5:6:7:8]",
    "ada@[IPv6:1:2:3:4:5:6::8]",
    "ada@[IPv6:::ffff:192.0.2.255]",
    "ada@[IPv6:1:2:3:4:5:6:192.0.2.1]",
    "ada@[x-tag:what \\] ever]",
    "ada@example",
    "ada@192.0.2.1",
    "ada@a-b.c--d.example",
    "ada@ex_ample.org",
    "j\xC3\xB6rg@b\xC3\xBC"
    "cher.example",
    "ada@xn--bcher-kva.example",
    "ada@xn--a.example",
    "ada@\xD7\x91\xD7\x92\xD7\x93.example",
    "ada@example\xE3\x80\x82org",
    "a\xE2\x80\x8B"
    "da@example.org",
    "ada@@example.org",
    "ada..abbott@example.org",
    ".ada@example.org.",
    "ada@-example-.org",
    "Ada <ada@example.org>",
    "/O=FIRST/OU=SITE/CN=RECIPIENTS/CN=ADA",
    "\"\x01\\\x7F\"@example.org",
    "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa@example.org",
    "ada@aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa.example",
    "ada@aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa."
    "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa."
    "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa."
    "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa.example",
});

constexpr auto kPieces = std::to_array<std::string_view>({
    "@",
    ".",
    "..",
    "\"",
    "\\",
    "(",
    ")",
    "[",
    "]",
    " ",
    "\t",
    "\r",
    "\n",
    "\r\n ",
    "\r\n",
    "-",
    "--",
    "xn--",
    "_",
    ":",
    "::",
    "IPv6:",
    "1",
    "255",
    "256",
    "a",
    "ffff",
    ",",
    "<",
    "/O=",
    "\x01",
    "\x7F",
    "\xC3\xBC",
    "\xC3",
    "\xA0",
    "\xE2\x80\x8B",
    "\xEF\xBF\xBD",
    "\xE3\x80\x82",
    "\xD7\x90",
    "\xF0\x9F\x98\x80",
    "aaaaaaaaaaaaaaaa",
    "aaaaaaaa.aaaaaaaa.aaaaaaaa.aaaaaaaa.",
});

// Mutates an address in one to four places.
class Mutator {
 public:
    std::string Next() {
        std::string text(kSeeds[Below(kSeeds.size())]);
        for (std::size_t count = 1 + Below(4); count > 0; --count) {
            Mutate(text);
        }
        text.resize(std::min(text.size(), test::kLongestDerived));
        return text;
    }

 private:
    // The library's distributions differ from place to place.
    std::size_t Below(std::size_t end) { return random_() % end; }

    void Mutate(std::string& text) {
        const std::size_t at = Below(text.size() + 1);
        const std::size_t length = std::min(Below(6), text.size() - at);
        switch (Below(6)) {
            case 0:
                text.erase(at, length);
                break;
            case 1:
                text.insert(at, text.substr(at, length));
                break;
            case 2: {
                const std::string_view other = kSeeds[Below(kSeeds.size())];
                text = text.substr(0, at) + std::string(other.substr(Below(other.size())));
                break;
            }
            case 3:
                text.insert(at, 1, static_cast<char>(Below(256)));
                break;
            default:
                text.replace(at, Below(2), kPieces[Below(kPieces.size())]);
                break;
        }
    }

    std::mt19937 random_{17};
};

TEST(AddressTwin, AgreesOnTheSeeds) {
    for (const std::string_view seed : kSeeds) {
        EXPECT_TRUE(test::AgreesWithTwin(seed)) << test::Escaped(seed);
    }
}

TEST(AddressTwin, AgreesOnMutatedAddresses) {
    constexpr int kAddresses = 100'000;
    Mutator mutator;
    std::map<Flaw, int> seen;
    int disagreements = 0;
    for (int i = 0; i < kAddresses && disagreements < 20; ++i) {
        const std::string address = mutator.Next();
        const CheckedAddress checked = CheckAddress(address);
        ++seen[checked.Worst.What];
        if (!test::AgreesWithTwin(address)) {
            ++disagreements;
            ADD_FAILURE() << test::Escaped(address) << ": " << checked.Reason();
        }
    }
    // The comparison leaves out nothing.
    for (int flaw = 0; flaw < static_cast<int>(Flaw::kCount); ++flaw) {
        EXPECT_GE(seen[static_cast<Flaw>(flaw)], 5) << WordsFor({static_cast<Flaw>(flaw)});
    }
}

}  // namespace
}  // namespace orvik::book

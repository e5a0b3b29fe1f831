#include "book/address_repair.h"

#include <array>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

struct Row {
    std::string_view Typed;
    std::string_view Meant;
};

TEST(SurelyMeantTest, WhatStandsAroundAnAddressGoes) {
    constexpr std::array kRows = {
        Row{" al@example.org ", "al@example.org"},
        Row{"al@example.org\r\n", "al@example.org"},
        Row{"mailto:al@example.org", "al@example.org"},
        Row{"MAILTO:al@example.org?subject=Hi", "al@example.org"},
        Row{"<al@example.org>", "al@example.org"},
        Row{" <Al@example.org>, ", "Al@example.org"},
        Row{"Al Berg <al@example.org>", "al@example.org"},
        Row{"al@example.org;", "al@example.org"},
        Row{"al@example.org.", "al@example.org"},
        Row{"<mailto:al@example.org>", "al@example.org"},
        Row{"al\xEF\xBC\xA0"
            "example\xE3\x80\x82org",
            "al@example.org"},
        Row{"\xC2\xA0"
            "al@example.org",
            "al@example.org"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(SurelyMeant(row.Typed), row.Meant) << row.Typed;
    }
}

TEST(SurelyMeantTest, NothingIsMadeUp) {
    for (const char* const typed : {"",
                                    " ",
                                    "al",
                                    "mailto:",
                                    "al@@example.org",
                                    "al@example.org",
                                    "al..b@example.org",
                                    "/O=FIRM/CN=AL",
                                    "\xFF@example.org",
                                    "al@"}) {
        EXPECT_EQ(SurelyMeant(typed), "") << typed;
    }
    EXPECT_EQ(SurelyMeant(std::string(2000000, ' ') + "al@example.org"), "");
}

}  // namespace
}  // namespace orvik::book

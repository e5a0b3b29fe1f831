#include "book/address_literal.h"

#include <string>

#include <gtest/gtest.h>

#include "book/address_check.h"

namespace orvik::book {
namespace {

TEST(LiteralFlaw, KnowsIpv4) {
    for (const char* const good : {"192.0.2.1", "0.0.0.0", "255.255.255.255", "010.1.1.1"}) {
        EXPECT_EQ(LiteralFlaw(good), Flaw::Machine) << good;
    }
    for (const char* const other : {"",
                                    "192.0.2",
                                    "192.0.2.1.5",
                                    "192.0.2.256",
                                    "192.0.2.",
                                    ".192.0.2.1",
                                    "192..2.1",
                                    "1920.0.2.1",
                                    "192.0.2.1 ",
                                    "192.0.2.x"}) {
        EXPECT_EQ(LiteralFlaw(other), Flaw::UnknownLiteral) << other;
    }
}

TEST(LiteralFlaw, KnowsIpv6) {
    for (const char* const good : {"IPv6:1:2:3:4:5:6:7:8",
                                   "ipv6:2001:db8::1",
                                   "IPv6:::",
                                   "IPv6:::1",
                                   "IPv6:1::",
                                   "IPv6:1:2:3:4:5:6::",
                                   "IPv6:::3:4:5:6:7:8",
                                   "IPv6:ABCD:ef01::",
                                   "IPv6:1:2:3:4:5:6:192.0.2.1",
                                   "IPv6:::192.0.2.1",
                                   "IPv6:1:2::3:4:192.0.2.1"}) {
        EXPECT_EQ(LiteralFlaw(good), Flaw::Machine) << good;
    }
    for (const char* const old : {"IPv6:1:2:3:4:5:6:7::",
                                  "IPv6:::2:3:4:5:6:7:8",
                                  "IPv6:1:2:3::5:6:7:8",
                                  "IPv6:1:2:3::4:5:192.0.2.1"}) {
        EXPECT_EQ(LiteralFlaw(old), Flaw::OneGroup) << old;
    }
    for (const char* const none : {"IPv6:",
                                   "IPv6:1",
                                   "IPv6::1",
                                   "IPv6:1:",
                                   "IPv6::",
                                   "IPv6::::",
                                   "IPv6:1::2:",
                                   "IPv6:1::2::3",
                                   "IPv6:1:::2",
                                   "IPv6:12345::",
                                   "IPv6:g::",
                                   "IPv6:1:2:3:4:5:6:7",
                                   "IPv6:1:2:3:4:5:6:7:8:9",
                                   "IPv6:1:2:3:4::5:6:7:8",
                                   "IPv6:1:2:3:4:5:192.0.2.1",
                                   "IPv6:1:2:3:4:5:6:7:192.0.2.1",
                                   "IPv6:::192.0.2.256",
                                   "IPv6:::192.0.2.1:1",
                                   "IPv6:::a192.0.2.1",
                                   "IPv6:192.0.2.1",
                                   "IPv6: ::1"}) {
        EXPECT_EQ(LiteralFlaw(none), Flaw::NoIpAddress) << none;
    }
}

TEST(LiteralFlaw, KnowsNoOtherKind) {
    for (const char* const other : {"2001:db8::1", "IPv5:::1", "x400:c=us", "anything", "IPv6"}) {
        EXPECT_EQ(LiteralFlaw(other), Flaw::UnknownLiteral) << other;
    }
}

TEST(LiteralFlaw, StandsInBracketsOfAnAddress) {
    const struct {
        const char* Address;
        Flaw Worst;
    } rows[] = {
        {"ada@[192.0.2.1]", Flaw::Machine},
        {"ada@[IPv6:::1]", Flaw::Machine},
        {"ada@[ 192.0.2.1]", Flaw::UnknownLiteral},
        {"ada@[192.\r\n 0.2.1]", Flaw::UnknownLiteral},
        {"ada@[\\192.0.2.1]", Flaw::UnknownLiteral},
        {"ada@[any \\] thing \x01]", Flaw::UnknownLiteral},
        {"ada@[]", Flaw::UnknownLiteral},
        {"ada@[\xC3\xBC]", Flaw::UnknownLiteral},
        {"ada@[192.0.2.1", Flaw::BracketOpen},
        {"ada@[192.0.2.1\\]", Flaw::BracketOpen},
        {"ada@[192.0.2.1\\", Flaw::BackslashAtEnd},
        {"ada@[[192.0.2.1]]", Flaw::Sign},
        {"ada@[192.0.2.1]]", Flaw::BehindBracket},
        {"ada@[192.0.2.1].example", Flaw::BehindBracket},
        {"ada@[\n]", Flaw::LineBreak},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CheckAddress(row.Address).Worst.What, row.Worst) << row.Address;
    }
}

}  // namespace
}  // namespace orvik::book

#include "app/printable.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace orvik {
namespace {

using namespace std::string_literals;

using Rows = std::vector<std::pair<std::string, std::string>>;

void ExpectShown(const Rows& rows) {
    for (const auto& [name, shown] : rows) {
        EXPECT_EQ(Printable(name), shown);
        EXPECT_EQ(Printable("a" + name + "b"), "a" + shown + "b");
    }
}

TEST(PrintableTest, LettersStay) {
    ExpectShown({
        {"", ""},
        {"book.ldif", "book.ldif"},
        {" my \"books\"\\<b>&amp;[*]%1~", " my \"books\"\\<b>&amp;[*]%1~"},
        {"J\xC3\xBCrg", "J\xC3\xBCrg"},
        {"\xC2\xA0", "\xC2\xA0"},
        {"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"},
        {"\xE2\x80\x8D\xE2\x80\xA7\xE2\x80\xAF", "\xE2\x80\x8D\xE2\x80\xA7\xE2\x80\xAF"},
        {"\xE2\x81\xA5\xE2\x81\xAA", "\xE2\x81\xA5\xE2\x81\xAA"},
        {"\xF0\x9F\x93\x96", "\xF0\x9F\x93\x96"},
        {"\xF4\x8F\xBF\xBD", "\xF4\x8F\xBF\xBD"},
    });
}

TEST(PrintableTest, ControlsOfOneByteAreEscaped) {
    ExpectShown({
        {"\0"s, "\\x00"},
        {"\x01", "\\x01"},
        {"\t", "\\x09"},
        {"\n", "\\x0A"},
        {"\r", "\\x0D"},
        {"\x1B[2J", "\\x1B[2J"},
        {"\x1F", "\\x1F"},
        {"\x7F", "\\x7F"},
    });
}

TEST(PrintableTest, ControlsOfTwoBytesAreEscaped) {
    for (unsigned byte = 0x80; byte < 0xA0; ++byte) {
        const std::string name = {'\xC2', static_cast<char>(byte)};
        const std::string shown = Printable(name);
        EXPECT_EQ(shown.substr(0, 4), "\\u00") << byte;
        EXPECT_EQ(std::stoul(shown.substr(2), nullptr, 16), byte);
    }
    EXPECT_EQ(Printable("\xC2\x9B"), "\\u009B");
}

TEST(PrintableTest, WhatTurnsTheDirectionIsEscaped) {
    ExpectShown({
        {"\xD8\x9C", "\\u061C"},
        {"\xE2\x80\x8E", "\\u200E"},
        {"\xE2\x80\x8F", "\\u200F"},
        {"\xE2\x80\xAA", "\\u202A"},
        {"\xE2\x80\xAB", "\\u202B"},
        {"\xE2\x80\xAC", "\\u202C"},
        {"\xE2\x80\xAD", "\\u202D"},
        {"\xE2\x80\xAE", "\\u202E"},
        {"\xE2\x81\xA6", "\\u2066"},
        {"\xE2\x81\xA7", "\\u2067"},
        {"\xE2\x81\xA8", "\\u2068"},
        {"\xE2\x81\xA9", "\\u2069"},
    });
}

TEST(PrintableTest, SeparatorsOfLinesAreEscaped) {
    ExpectShown({{"\xE2\x80\xA8", "\\u2028"}, {"\xE2\x80\xA9", "\\u2029"}});
}

TEST(PrintableTest, BytesThatAreNoUtf8AreEscaped) {
    ExpectShown({
        {"J\xFCrg", "J\\xFCrg"},
        {"\x9B", "\\x9B"},
        {"\xC3", "\\xC3"},
        {"\xC0\x80", "\\xC0\\x80"},
        {"\xE0\x80\x80", "\\xE0\\x80\\x80"},
        {"\xED\xA0\x80", "\\xED\\xA0\\x80"},
        {"\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80"},
        {"\xFF", "\\xFF"},
    });
}

TEST(PrintableInTest, OnlyTheNameChanges) {
    EXPECT_EQ(PrintableIn("Two\nlines of a\nb here", "a\nb"), "Two\nlines of a\\x0Ab here");
    EXPECT_EQ(PrintableIn("no\nname", "other"), "no\nname");
    EXPECT_EQ(PrintableIn("no\nname", ""), "no\nname");
}

TEST(PrintableLineTest, LineBreaksAreOneBlank) {
    EXPECT_EQ(PrintableLine("Two\r\n\r\nlines"), "Two lines");
    EXPECT_EQ(PrintableLine("\nand\rmore\n"), " and more ");
    EXPECT_EQ(PrintableLine("a\x1B\nb\xE2\x80\xAE"), "a\\x1B b\\u202E");
    EXPECT_EQ(PrintableLine(""), "");
}

}  // namespace
}  // namespace orvik

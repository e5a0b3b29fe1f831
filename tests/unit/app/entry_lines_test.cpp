#include "app/entry_lines.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(EntryLinesTest, EachFormOfABookGivesTheSameLines) {
    constexpr std::string_view kLines = "\"Al\" <A1>\r\n\"\" <A2>\r\n";
    EXPECT_EQ(EntryLines("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n", true, "\r"), kLines);
    EXPECT_EQ(EntryLines("Al<A1>\rA2\r", false, "\r"), kLines);
    EXPECT_EQ(EntryLines(kLines, false, "\r"), kLines);
    EXPECT_EQ(EntryLines("\"Al\"<A1>,A2,", false, ","), kLines);
}

TEST(EntryLinesTest, WhatIsThereStays) {
    EXPECT_EQ(EntryLines("a@b, c@d\r\n\r\nr\xFC\r\n-nick-\r\n5\" disk\r\nBo\r\n\r\n", true, "\r"),
              "\"5\" disk\" <a@b, c@d>\r\n\"Bo\" <>\r\n\"\" <r\xFC>\r\n");
}

// As somebody types it in edit mode.
TEST(EntryLinesTest, AnEntryWithoutAnEndKeepsItsLastLetter) {
    EXPECT_EQ(EntryLines("a@b\r\nc@d", false, "\r"), "\"\" <a@b>\r\n\"\" <c@d>\r\n");
    EXPECT_EQ(EntryLines("Al<a@b>", false, "\r"), "\"Al\" <a@b>\r\n");
    EXPECT_EQ(EntryLines("Al<a@b>,c@d", false, ","), "\"Al\" <a@b>\r\n\"\" <c@d>\r\n");
}

TEST(EntryLinesTest, NothingGivesNoLine) {
    EXPECT_EQ(EntryLines("", true, "\r"), "");
    EXPECT_EQ(EntryLines("", false, "\r"), "");
    EXPECT_EQ(EntryLines("\r\n-nick-\r\n\r\n", true, "\r"), "");
    EXPECT_EQ(EntryLines("\r\r", false, "\r"), "");
}

}  // namespace
}  // namespace orvik

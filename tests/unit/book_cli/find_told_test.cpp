#include "book_cli/find_told.h"

#include <gtest/gtest.h>

namespace orvik::book_cli {
namespace {

TEST(FoundText, SaysWhatWasLeftOut) {
    book::SearchTotals totals;
    totals.Messages = 51798;
    totals.Bytes = 102'400'000;
    FindCounts counts;
    counts.Addresses = 104596;
    counts.Twice = 5231;
    EXPECT_EQ("51 798 messages, 102 MB: 104 596 addresses, 5 231 seen twice or more\n",
              FoundText(totals, counts, false));
    totals.Ids = 51798;
    counts.NoReply = 212;
    totals.Undecodable = 3;
    const std::string left_out =
        "left out: 51 798 Message-IDs, 212 no-reply, 3 in undecodable parts";
    EXPECT_EQ("51 798 messages, 102 MB: 104 596 addresses, 5 231 seen twice or more\n" + left_out +
                  " (listed with --report)\n",
              FoundText(totals, counts, false));
    EXPECT_TRUE(FoundText(totals, counts, true).ends_with(left_out + "\n"));
}

TEST(FoundText, CountsOneAsOne) {
    book::SearchTotals totals;
    totals.Messages = 1;
    totals.Texts = 1;
    totals.Bytes = 1499;
    totals.Ids = 1;
    totals.Links = 1;
    FindCounts counts;
    counts.Addresses = 1;
    EXPECT_EQ(
        "1 message and 1 other text, 1 kB: 1 address, 0 seen twice or more\n"
        "left out: 1 Message-ID, 1 link\n",
        FoundText(totals, counts, false));
}

}  // namespace
}  // namespace orvik::book_cli

#include "app/entry_sum.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

constexpr std::string_view kNative = "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n";

EntrySum OfNative(std::string_view text) {
    return SumEntries(text, true, "\r");
}
EntrySum OfList(std::string_view text, std::string_view separator = "\r") {
    return SumEntries(text, false, separator);
}

TEST(EntrySumTest, TheFormsOfABookAreEqual) {
    const EntrySum native = OfNative(kNative);
    EXPECT_EQ(native.Count, 2U);
    for (const EntrySum& list : {OfList("\"Al\" <A1>\r\n\"\" <A2>\r\n"),
                                 OfList("Al <A1>\rA2\r"),
                                 OfList("\"Al\"<A1>,A2,", ",")}) {
        EXPECT_EQ(list.Count, native.Count);
    }
    EXPECT_EQ(OfList("\"Al\" <A1>\r\n\"\" <A2>\r\n").Hash, native.Hash);
    EXPECT_EQ(OfList("\"Al\"<A1>,A2,", ",").Hash, native.Hash);
}

TEST(EntrySumTest, AnyOtherEntryIsAnotherHash) {
    const EntrySum native = OfNative(kNative);
    for (const std::string_view other : {"A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n",
                                         "A2\r\nA1\r\n-nick-\r\n\r\nAl\r\n",
                                         "A1\r\nA2\r\n-nick-\r\n\r\nAl\r\n",
                                         "A1\r\n-nick-\r\nAl\r\n",
                                         "A1\r\na2\r\n-nick-\r\nAl\r\n\r\n",
                                         "Al\r\nA2\r\n-nick-\r\nA1\r\n\r\n"}) {
        EXPECT_NE(OfNative(other).Hash, native.Hash) << other;
    }
}

TEST(EntrySumTest, NothingIsNoEntry) {
    EXPECT_EQ(OfList("").Count, 0U);
    EXPECT_EQ(OfNative("").Count, 0U);
    EXPECT_EQ(OfNative("-nick-").Count, 0U);
    EXPECT_EQ(OfList("").Hash, OfNative("-nick-").Hash);
}

// The lists show it as a row, and the way to edit mode and back drops it.
TEST(EntrySumTest, AnEmptyEntryCountsAndDoesNotMatter) {
    const EntrySum sum = OfNative("A1\r\n\r\nA2\r\n-nick-\r\nAl\r\n\r\n\r\n");
    EXPECT_EQ(sum.Count, 3U);
    EXPECT_EQ(sum.Hash, OfNative(kNative).Hash);
}

}  // namespace
}  // namespace orvik

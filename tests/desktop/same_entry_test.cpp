#include "desktop/views/same_entry.h"

#include <initializer_list>
#include <string_view>

#include <gtest/gtest.h>

namespace orvik {
namespace {

ItemList List(std::initializer_list<std::string_view> items) {
    ItemList list;
    for (const std::string_view item : items) {
        list.Add(item);
    }
    return list;
}

TEST(SameEntry, IsFoundInAnotherOrder) {
    const Entries before{List({"b", "a", "c"}), List({"1", "2", "3"})};
    const Entries now{List({"a", "b", "c"}), List({"2", "1", "3"})};
    EXPECT_EQ(SameEntry(before, 0, now), 1U);
    EXPECT_EQ(SameEntry(before, 1, now), 0U);
    EXPECT_EQ(SameEntry(before, 2, now), 2U);
}

TEST(SameEntry, BothHalvesMustBeTheSame) {
    const Entries before{List({"a"}), List({"1"})};
    EXPECT_EQ(SameEntry(before, 0, {List({"a", "a"}), List({"2", "1"})}), 1U);
    EXPECT_FALSE(SameEntry(before, 0, {List({"a"}), List({"2"})}));
    EXPECT_FALSE(SameEntry(before, 0, {}));
    EXPECT_FALSE(SameEntry(before, 1, before));
}

TEST(SameEntry, OfEqualOnesIsTheSameFromTheTop) {
    const Entries before{List({"x", "a", "b", "a"}), List({"", "1", "", "1"})};
    const Entries now{List({"a", "a", "b", "x"}), List({"1", "1", "", ""})};
    EXPECT_EQ(SameEntry(before, 1, now), 0U);
    EXPECT_EQ(SameEntry(before, 3, now), 1U);
    // One of them has gone.
    EXPECT_EQ(SameEntry(before, 3, {List({"a"}), List({"1"})}), 0U);
}

TEST(SameEntry, OneListMayBeLonger) {
    const Entries before{List({"a"}), List({"1", "2"})};
    EXPECT_EQ(SameEntry(before, 1, {List({"", "a"}), List({"2", "1"})}), 0U);
}

}  // namespace
}  // namespace orvik

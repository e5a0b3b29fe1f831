#include "book_cli/split.h"

#include <algorithm>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvik::book_cli {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Files = std::vector<std::vector<std::size_t>>;

TEST(LayOutTest, PeopleStayInTheirOrder) {
    EXPECT_THAT(LayOut(5, 2, {}).Files,
                ElementsAre(ElementsAre(0, 1), ElementsAre(2, 3), ElementsAre(4)));
    EXPECT_THAT(LayOut(2, 5, {}).Files, ElementsAre(ElementsAre(0, 1)));
    EXPECT_THAT(LayOut(0, 5, {}).Files, IsEmpty());
}

TEST(LayOutTest, AListStaysWithItsMembers) {
    const std::vector<ListGroup> lists = {{4, {0, 3}}};
    const Layout layout = LayOut(5, 3, lists);
    EXPECT_EQ(layout.Files, (Files{{0, 3, 4}, {1, 2}}));
    EXPECT_THAT(layout.Torn, IsEmpty());
}

TEST(LayOutTest, WhatHasNoRoomStandsAtTheEnd) {
    const std::vector<ListGroup> lists = {{0, {1, 2, 3, 4}}, {5, {4, 4}}};
    const Layout layout = LayOut(6, 3, lists);
    EXPECT_EQ(layout.Files, (Files{{1, 4, 5}, {2, 3, 0}}));
    EXPECT_THAT(layout.Torn, ElementsAre(0));
}

TEST(LayOutTest, ListsMayNameThemselvesAndOneAnother) {
    const std::vector<ListGroup> lists = {{0, {0, 1}}, {1, {0, 2}}};
    const Layout layout = LayOut(3, 3, lists);
    EXPECT_EQ(layout.Files, (Files{{0, 1, 2}}));
    EXPECT_THAT(layout.Torn, IsEmpty());
    EXPECT_THAT(LayOut(3, 1, lists).Torn, ElementsAre(0, 1));
}

// The file that holds a record.
std::size_t FileOf(const Layout& layout, std::size_t record) {
    const auto found = std::find_if(
        layout.Files.begin(), layout.Files.end(), [record](const std::vector<std::size_t>& file) {
            return std::find(file.begin(), file.end(), record) != file.end();
        });
    return static_cast<std::size_t>(found - layout.Files.begin());
}

TEST(LayOutTest, EachRecordIsInOneFileAndOnlyTornListsAreApart) {
    std::mt19937 random(17);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same in each run
    const auto below = [&random](std::size_t end) { return random() % end; };
    for (int round = 0; round < 500; ++round) {
        const std::size_t records = 1 + below(40);
        const std::size_t most = 1 + below(10);
        std::vector<ListGroup> lists;
        for (std::size_t i = 0; i < records; ++i) {
            if (below(4) == 0) {
                lists.push_back({i, {}});
                for (std::size_t k = below(6); k > 0; --k) {
                    lists.back().Members.push_back(below(records));
                }
            }
        }
        const Layout layout = LayOut(records, most, lists);
        std::multiset<std::size_t> all;
        for (const auto& file : layout.Files) {
            EXPECT_FALSE(file.empty());
            EXPECT_LE(file.size(), most);
            all.insert(file.begin(), file.end());
        }
        EXPECT_EQ(all.size(), records);
        EXPECT_EQ(std::set<std::size_t>(all.begin(), all.end()).size(), records);
        for (const ListGroup& list : lists) {
            const bool torn =
                std::find(layout.Torn.begin(), layout.Torn.end(), list.List) != layout.Torn.end();
            for (const std::size_t member : list.Members) {
                EXPECT_TRUE(torn || FileOf(layout, member) == FileOf(layout, list.List));
            }
        }
    }
}

TEST(PartNamesTest, NumbersSortAndStandBeforeTheEnding) {
    EXPECT_THAT(PartNames("a.vcf", 2), ElementsAre("a-1.vcf", "a-2.vcf"));
    EXPECT_EQ(PartNames("a.vcf", 100).front(), "a-001.vcf");
    EXPECT_THAT(PartNames("a.d/book", 1), ElementsAre("a.d/book-1"));
    EXPECT_THAT(PartNames("./a.b.csv", 1), ElementsAre("./a.b-1.csv"));
}

}  // namespace
}  // namespace orvik::book_cli

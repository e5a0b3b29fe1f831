#include <string>
#include <utility>
#include <vector>

#include "app/working_text.h"

namespace orvik {
namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

Entries Read(std::string_view text) {
    Entries entries;
    NativeReader reader(text);
    while (reader.Next()) {
        const std::string address(reader.RawAddress());
        entries.emplace_back(address, reader.TakeNickname());
    }
    return entries;
}

struct Row {
    const char* name;
    std::string_view text;
    Entries entries;
};

class NativeReaderTest : public testing::TestWithParam<Row> {};

TEST_P(NativeReaderTest, Row) {
    EXPECT_EQ(Read(GetParam().text), GetParam().entries);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    NativeReaderTest,
    testing::Values(
        Row{"TwoEntries_ArePaired",
            "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n",
            {{"A1", "Al"}, {"\nA2", "Bo"}}},
        Row{"EmptyNickname_IsKept", "A1\r\n-nick-\r\n\r\n", {{"A1", ""}}},
        Row{"EmptyAddress_IsKept", "\r\n-nick-\r\nAl\r\n", {{"", "Al"}}},
        Row{"TooFewNicknames_AreEmpty",
            "A1\r\nA2\r\n-nick-\r\nAl\r\n",
            {{"A1", "Al"}, {"\nA2", ""}}},
        Row{"LoneCrInNickname_IsPartOfIt", "A1\r\n-nick-\r\nA\rl\r\n", {{"A1", "A\rl"}}},
        Row{"NicknameBlockWithoutCrLf_LosesLastCharacter", "A1\r\n-nick-\r\nAlx", {{"A1", "Al"}}},
        Row{"TextEndsAtSeparator_HasEmptyNickname", "A1\r\n-nick-", {{"A1", ""}}},
        Row{"SeparatorInsideLine_EndsTheBlock", "A1\r\nA-nick-\r\nAl\r\n", {{"A1", "Al"}}},
        Row{"SeparatorAtStart_HasNoEntry", "-nick-\r\nAl\r\n", {}},
        Row{"NoSeparator_IsOneAddressBlock", "A1\r\nA2", {{"A1", ""}, {"\nA2", ""}}},
        Row{"NoSeparatorButCrLfAtEnd_HasEmptyLastEntry", "A1\r\n", {{"A1", ""}, {"\n", ""}}},
        Row{"EmptyText_HasNoEntry", "", {}}),
    [](const auto& row) { return row.param.name; });

TEST(NativeReader, Separator_IsItsPosition) {
    EXPECT_EQ(NativeReader("A1\r\n-nick-\r\nAl\r\n").Separator(), 5U);
}

TEST(NativeReader, NoSeparator_CountsTheAddedLineBreak) {
    EXPECT_EQ(NativeReader("A1").Separator(), 5U);
}

TEST(NativeReader, EmptyText_HasSeparatorAtStart) {
    EXPECT_EQ(NativeReader("").Separator(), 1U);
}

TEST(NativeReader, AddressEnd_IsThePositionOfItsCr) {
    NativeReader reader("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.AddressEnd(), 3U);
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.AddressEnd(), 7U);
    EXPECT_FALSE(reader.Next());
}

TEST(NativeReader, AfterTheLastEntry_StaysAtTheEnd) {
    NativeReader reader("A1\r\n-nick-\r\nAl\r\n");
    ASSERT_TRUE(reader.Next());
    EXPECT_FALSE(reader.Next());
    EXPECT_FALSE(reader.Next());
}

TEST(NativeReader, OtherLineEnd_IsTakenInsteadOfCr) {
    NativeReader reader("A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n", '\n');
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.RawAddress(), "A1\r");
    EXPECT_EQ(reader.TakeNickname(), "Al");
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.RawAddress(), "A2\r");
    EXPECT_EQ(reader.AddressEnd(), 8U);
    EXPECT_FALSE(reader.Next());
}

TEST(NativeText, Separator_DividesTheText) {
    const NativeText text("A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(text.Text(), "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(text.Separator(), 5U);
    EXPECT_EQ(text.Nicknames(), 13U);
}

TEST(NativeText, NoSeparator_StandsAtTheEnd) {
    EXPECT_EQ(NativeText("A1").Text(), "A1\r\n-nick-\r\n");
    EXPECT_EQ(NativeText("").Text(), "-nick-\r\n");
}

TEST(NativeReader, NicknamesTakenBeyondTheEnd_AreEmpty) {
    NativeReader reader("A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(reader.TakeNickname(), "Al");
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(reader.TakeNickname(), "");
    }
}

TEST(NativeOfEntries, LengthsTellWhatTheSignsArePartOf) {
    const std::string list = "\"Al\" <A1>\r\n\"\" <>\r\n\"A\" <\" <A\" <2>>\r\n";
    EXPECT_EQ(NativeOfEntries(list, {2, 0, 6}),
              "A1\r\n\r\nA\" <2>\r\n-nick-\r\nAl\r\n\r\nA\" <\r\n");
    EXPECT_EQ(NativeOfEntries(list, {2, 0, 2}),
              "A1\r\n\r\n2>\r\n-nick-\r\nAl\r\n\r\nA\" <\" <A\r\n");
    EXPECT_EQ(NativeOfEntries("", {}), "-nick-\r\n");
}

}  // namespace
}  // namespace orvik

#include "desktop/text/find_entry.h"

#include <QString>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

ItemList ListOf(const std::vector<std::string>& items) {
    ItemList list;
    for (const std::string& item : items) {
        list.Add(item);
    }
    return list;
}

// The row, behind a "~" if the search wrapped; empty if nothing was found.
std::string Found(const ItemList& addresses,
                  const ItemList& nicknames,
                  const QString& wanted,
                  std::size_t from,
                  Direction direction = Direction::Forward) {
    const auto found = FindEntry(addresses, nicknames, wanted, from, direction);
    return found ? (found->Wrapped ? "~" : "") + std::to_string(found->Row) : "";
}

TEST(FindEntry, LooksInBothListsWhateverTheCase) {
    const ItemList addresses = ListOf({"a@x.org", "b@x.org", "c@Y.org"});
    const ItemList nicknames = ListOf({"Al", "Bo", "", "further"});
    EXPECT_EQ(Found(addresses, nicknames, QStringLiteral("bO"), 0), "1");
    EXPECT_EQ(Found(addresses, nicknames, QStringLiteral("@y"), 0), "2");
    EXPECT_EQ(Found(addresses, nicknames, QStringLiteral("FURTHER"), 0), "3");
    EXPECT_EQ(Found(addresses, nicknames, QStringLiteral("nobody"), 0), "");
    EXPECT_EQ(Found(addresses, nicknames, QString(), 0), "");
    EXPECT_EQ(Found({}, {}, QStringLiteral("a"), 0), "");
}

TEST(FindEntry, GoesOnceRoundTheBook) {
    const ItemList list = ListOf({"ab", "b", "ab"});
    const auto forward = [&](std::size_t from) {
        return Found(list, {}, QStringLiteral("a"), from);
    };
    EXPECT_EQ(forward(0), "0");
    EXPECT_EQ(forward(1), "2");
    EXPECT_EQ(forward(3), "~0");
    EXPECT_EQ(forward(99), "~0");
    const auto backward = [&](std::size_t from) {
        return Found(list, {}, QStringLiteral("a"), from, Direction::Backward);
    };
    EXPECT_EQ(backward(3), "2");
    EXPECT_EQ(backward(2), "0");
    EXPECT_EQ(backward(0), "~2");
    EXPECT_EQ(Found(list, {}, QStringLiteral("B"), 1, Direction::Backward), "0");
}

TEST(FindEntry, ComparesLettersAndNotBytes) {
    const std::string utf8 = "J\xC3\xBCrgen";
    const std::string windows = "J\xFCrgen";
    const ItemList list = ListOf({"Jurgen", utf8, windows});
    EXPECT_EQ(Found(list, {}, QStringLiteral("J\u00DCR"), 0), "1");
    EXPECT_EQ(Found(list, {}, QStringLiteral("J\u00DCR"), 2), "2");
    EXPECT_EQ(Found(list, {}, QStringLiteral("RGEN"), 1), "1");
    // The Kelvin sign is a capital k.
    EXPECT_EQ(Found(ListOf({"ok"}), {}, QStringLiteral("\u212A"), 0), "0");
    EXPECT_EQ(Found(ListOf({"o\xE2\x84\xAA"}), {}, QStringLiteral("K"), 0), "0");
}

// The slow way, row by row as it is shown.
TEST(FindEntry, FindsWhatALiteralSearchFinds) {
    std::mt19937 random(20);
    const auto pick = [&](const std::vector<std::string>& from) {
        return from[random() % from.size()];
    };
    const std::vector<std::string> letters = {
        "a", "A", "b", "B", "@", "\xC3\xA4", "\xC3\x84", "\xE4", "\xC4", "\xE2\x84\xAA", "k"};
    const auto text = [&](std::size_t most) {
        std::string made;
        for (std::size_t i = random() % (most + 1); i > 0; --i) {
            made += pick(letters);
        }
        return made;
    };
    for (int round = 0; round < 2000; ++round) {
        ItemList list;
        for (int row = 0; row < 6; ++row) {
            list.Add(text(6));
        }
        const QString wanted = ToLetters(text(2) + pick(letters));
        std::string expected;
        for (std::size_t row = 0; row < list.size() && expected.empty(); ++row) {
            if (ToLetters(list[row]).contains(wanted, Qt::CaseInsensitive)) {
                expected = std::to_string(row);
            }
        }
        ASSERT_EQ(Found(list, {}, wanted, 0), expected) << wanted.toStdString();
    }
}

}  // namespace
}  // namespace orvik

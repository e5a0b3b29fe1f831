#include "desktop/text/find_entry.h"

#include <QString>
#include <algorithm>
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
std::string Literal(const ItemList& addresses,
                    const ItemList& nicknames,
                    const QString& wanted,
                    std::size_t from,
                    Direction direction) {
    const auto has = [&](const ItemList& list, std::size_t row) {
        return row < list.size() && ToLetters(list[row]).contains(wanted, Qt::CaseInsensitive);
    };
    const std::size_t rows = std::max(addresses.size(), nicknames.size());
    from = std::min(from, rows);
    const bool forward = direction == Direction::Forward;
    for (std::size_t i = 0; i < rows; ++i) {
        const std::size_t row = forward ? (from + i) % rows : (from + rows - 1 - i) % rows;
        if (has(addresses, row) || has(nicknames, row)) {
            return ((forward ? row < from : row >= from) ? "~" : "") + std::to_string(row);
        }
    }
    return "";
}

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
        ASSERT_EQ(Found(list, {}, wanted, 0), Literal(list, {}, wanted, 0, Direction::Forward))
            << wanted.toStdString();
    }
}

// The rows of a text, as the main window's lists have them.
ItemList RowsOf(const SharedText& text) {
    ItemList list;
    list.Clear(text);
    std::string_view rest = text;
    for (std::size_t end = rest.find('\r'); end != std::string_view::npos; end = rest.find('\r')) {
        list.Add(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return list;
}

TEST(FindEntry, FindsInRowsOfATextWhatALiteralSearchFinds) {
    std::mt19937 random(21);
    const auto rows_of = [&](std::size_t rows, const std::string& letters) {
        std::string made;
        for (std::size_t row = 0; row < rows; ++row) {
            for (auto left = random() % 12; left > 0; --left) {
                made += letters[random() % letters.size()];
            }
            made += "\r\n";
        }
        return made;
    };
    const std::string few = "aAbB";
    const std::string all = "aAbBkK@-\xC3\xA4\x84\xE4\xFF";
    for (int round = 0; round < 600; ++round) {
        const std::string& letters = round % 2 == 0 ? few : all;
        const ItemList addresses = RowsOf(rows_of(random() % 30, letters));
        const ItemList nicknames = RowsOf(rows_of(random() % 30, letters));
        std::string wanted;
        for (auto left = 1 + random() % 5; left > 0; --left) {
            wanted += letters[random() % letters.size()];
        }
        for (const Direction direction : {Direction::Forward, Direction::Backward}) {
            const std::size_t from = random() % 32;
            ASSERT_EQ(Found(addresses, nicknames, ToLetters(wanted), from, direction),
                      Literal(addresses, nicknames, ToLetters(wanted), from, direction))
                << testing::PrintToString(wanted) << ' ' << from;
        }
    }
}

TEST(FindEntry, LettersOverTheEndOfARowAreInNone) {
    EXPECT_EQ(Found(ListOf({"ab", "cd", "abc"}), {}, QStringLiteral("bc"), 0), "2");
    EXPECT_EQ(Found(RowsOf("ab\r\ncd\r\n"), {}, QStringLiteral("b\r\nc"), 0), "");
    EXPECT_EQ(Found(RowsOf("ab\r\ncd\r\n"), {}, QStringLiteral("\n"), 0), "");
}

// More rows than are looked through at once.
TEST(FindEntry, FindsInLongBooks) {
    std::string addresses;
    std::string nicknames;
    for (int row = 0; row < 5000; ++row) {
        addresses += "a" + std::to_string(row) + "@x.org\r\n";
        nicknames += row % 5 == 0 ? "J\xFCrgen " + std::to_string(row) + "\r\n" : "\r\n";
    }
    const ItemList list1 = RowsOf(addresses);
    const ItemList list2 = RowsOf(nicknames);
    for (const char* const wanted :
         {"a4999@", "A1023@", "a1024@", "a17@", "J\u00DCRGEN 1025", "rgen 4995", "nobody"}) {
        for (const Direction direction : {Direction::Forward, Direction::Backward}) {
            for (const std::size_t from : {0, 17, 18, 1024, 1025, 4999, 5000}) {
                ASSERT_EQ(Found(list1, list2, QString::fromUtf8(wanted), from, direction),
                          Literal(list1, list2, QString::fromUtf8(wanted), from, direction))
                    << wanted << ' ' << from;
            }
        }
    }
}

}  // namespace
}  // namespace orvik

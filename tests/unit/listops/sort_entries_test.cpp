#include "listops/sort_entries.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "app/encoding.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"
#include "unit/literal_upper_case.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::LiteralText;
using test::UpperLiterally;

using Sorted = std::optional<std::pair<std::string, std::string>>;

Sorted Sort(std::string_view text, SortKey key) {
    const std::optional<SortedBlocks> sorted = SortEntries(text, key);
    return sorted ? Sorted({sorted->Addresses, sorted->Nicknames}) : std::nullopt;
}

struct Row {
    const char* name;
    std::string_view text;
    SortKey key;
    std::string addresses;
    std::string nicknames;
};

class SortEntriesTest : public testing::TestWithParam<Row> {};

TEST_P(SortEntriesTest, Row) {
    EXPECT_EQ(Sort(GetParam().text, GetParam().key),
              Sorted({GetParam().addresses, GetParam().nicknames}));
}

INSTANTIATE_TEST_SUITE_P(,
                         SortEntriesTest,
                         testing::Values(Row{"ByAddress_IgnoresCaseAndKeepsEqualOnes",
                                             "bx\r\nAx\r\nax\r\n-nick-\r\n1\r\n2\r\n3\r\n",
                                             SortKey::Address,
                                             "Ax\r\nax\r\nbx\r\n",
                                             "2\r\n3\r\n1\r\n"},
                                         Row{"ByNickname_PutsEmptyOnesFirst",
                                             "A1\r\nA2\r\nA3\r\n-nick-\r\nb\r\n\r\nA\r\n",
                                             SortKey::Nickname,
                                             "A2\r\nA3\r\nA1\r\n",
                                             "\r\nA\r\nb\r\n"},
                                         Row{"DigitsLettersUnderscore_GoByTheirCodes",
                                             "_\r\nz\r\nZ1\r\n9\r\n-nick-\r\n1\r\n2\r\n3\r\n4\r\n",
                                             SortKey::Address,
                                             "9\r\nz\r\nZ1\r\n_\r\n",
                                             "4\r\n2\r\n3\r\n1\r\n"},
                                         Row{"ShorterLine_ComesFirst",
                                             "a!\r\na\r\n-nick-\r\n1\r\n2\r\n",
                                             SortKey::Address,
                                             "a\r\na!\r\n",
                                             "2\r\n1\r\n"},
                                         Row{"BytesAbove127_ComeLast",
                                             "\xE9\r\nz\r\n\xC9"
                                             "a\r\n-nick-\r\n1\r\n2\r\n3\r\n",
                                             SortKey::Address,
                                             "z\r\n\xE9\r\n\xC9"
                                             "a\r\n",
                                             "2\r\n1\r\n3\r\n"},
                                         Row{"Utf8Text_IgnoresTheCaseOfItsLetters",
                                             "\xC3\x89"
                                             "b\r\nz\r\n\xC3\xA9"
                                             "a\r\n-nick-\r\n1\r\n2\r\n3\r\n",
                                             SortKey::Address,
                                             "z\r\n\xC3\xA9"
                                             "a\r\n\xC3\x89"
                                             "b\r\n",
                                             "2\r\n3\r\n1\r\n"},
                                         Row{"OneByteOfTheOtherBlock_MakesItWindows1252",
                                             "\xC3\xA9"
                                             "a\r\n\xC3\x89"
                                             "b\r\n-nick-\r\n1\r\n\xE9\r\n",
                                             SortKey::Address,
                                             "\xC3\x89"
                                             "b\r\n\xC3\xA9"
                                             "a\r\n",
                                             "\xE9\r\n1\r\n"},
                                         Row{"OneByteOfADroppedLine_MakesItWindows1252",
                                             "\xC3\xA9"
                                             "a\r\n\xC3\x89"
                                             "b\r\n-nick-\r\n1\r\n2\r\n\xE9",
                                             SortKey::Address,
                                             "\xC3\x89"
                                             "b\r\n\xC3\xA9"
                                             "a\r\n",
                                             "2\r\n1\r\n"},
                                         Row{"MissingNicknames_ComeFirst",
                                             "b\r\na\r\n-nick-\r\nx\r\n",
                                             SortKey::Nickname,
                                             "a\r\nb\r\n",
                                             "x\r\n"},
                                         Row{"MissingAddresses_ComeFirst",
                                             "b\r\n-nick-\r\nx\r\ny\r\n",
                                             SortKey::Address,
                                             "b\r\n",
                                             "y\r\nx\r\n"},
                                         Row{"LineWithoutLf_IsDropped",
                                             "b\r\na-nick-\r\nx\r\ny",
                                             SortKey::Address,
                                             "b\r\n",
                                             "x\r\n"},
                                         Row{"NoSeparatorLine_IsReadAsIfItStoodAtTheEnd",
                                             "b\r\na",
                                             SortKey::Address,
                                             "a\r\nb\r\n",
                                             ""},
                                         Row{"EmptyText_HasNoLines", "", SortKey::Address, "", ""}),
                         [](const auto& row) { return row.param.name; });

std::string Block(const std::vector<std::string>& lines) {
    std::string block;
    for (const std::string& line : lines) {
        block += line + "\r\n";
    }
    return block;
}

std::string Native(std::size_t addresses, std::size_t nicknames) {
    return Block(std::vector<std::string>(addresses, "a")) + "-nick-\r\n" +
           Block(std::vector<std::string>(nicknames, "b"));
}

TEST(SortEntries, FiveHundredEntries_LoseTheLast) {
    std::vector<std::string> lines;
    for (int i = 500; i > 0; --i) {
        lines.push_back(std::to_string(1000 + i));
    }
    const std::string text = Block(lines) + "-nick-\r\n" + Block(lines);
    lines.pop_back();
    std::reverse(lines.begin(), lines.end());
    EXPECT_EQ(Sort(text, SortKey::Address), Sorted({Block(lines), Block(lines)}));
}

TEST(SortEntries, MoreThan500LinesInEitherBlock_AreTooMany) {
    EXPECT_TRUE(Sort(Native(500, 500), SortKey::Address));
    EXPECT_FALSE(Sort(Native(501, 500), SortKey::Address));
    EXPECT_FALSE(Sort(Native(500, 501), SortKey::Address));
}

// The sort once more, slow and literal: exchanges of neighbours in 500 slots.
class LiteralSort {
 public:
    static Sorted Run(const std::string& native, SortKey key) {
        LiteralSort sort;
        sort.encoding_ = EncodingOf(native);
        const std::string whole = test::WithSeparator(native);
        const LiteralText text(whole);
        std::size_t p = 1;
        while (text(p, 6) != "-nick-") {
            ++p;
        }
        Slots nicknames;
        Slots addresses;
        if (!Gather(text, p + 8, text.size(), nicknames) || !Gather(text, 1, p - 1, addresses)) {
            return std::nullopt;
        }
        Slots& keys = key == SortKey::Address ? addresses : nicknames;
        Slots& others = key == SortKey::Address ? nicknames : addresses;
        sort.Order(keys, others);
        std::string sorted_addresses;
        std::string sorted_nicknames;
        for (std::size_t i = 1; i <= kLast; ++i) {
            sorted_addresses += addresses[sort.order_[i]];
            sorted_nicknames += nicknames[sort.order_[i]];
        }
        return Sorted({sorted_addresses, sorted_nicknames});
    }

 private:
    static constexpr std::size_t kLast = 500;
    using Slots = std::array<std::string, kLast + 1>;

    static bool Gather(const LiteralText& text, std::size_t from, std::size_t to, Slots& slots) {
        std::string line;
        std::size_t stored = 0;
        for (std::size_t i = from; i <= to; ++i) {
            line += text(i);
            if (text(i) == "\n") {
                if (stored == kLast) {
                    return false;
                }
                ++stored;
                slots.at(stored) = std::exchange(line, "");
            }
        }
        return true;
    }

    // Slot 0 is never filled, and the last place stays with it.
    void Order(Slots& keys, Slots& others) {
        Slots saved_keys;
        Slots saved_others;
        for (std::size_t i = 1; i < kLast; ++i) {
            order_[i] = i;
            saved_keys[i] = keys[i];
            saved_others[i] = others[i];
            keys[i] = UpperLiterally(keys[i], encoding_);
            others[i] = UpperLiterally(others[i], encoding_);
        }
        bool exchanged = true;
        while (exchanged) {
            exchanged = false;
            for (std::size_t i = 1; i < kLast; ++i) {
                if (keys[order_[i]].compare(keys[order_[i + 1]]) > 0) {
                    std::swap(order_[i], order_[i + 1]);
                    exchanged = true;
                }
            }
        }
        for (std::size_t i = 1; i < kLast; ++i) {
            keys[i] = saved_keys[i];
            others[i] = saved_others[i];
        }
    }

    Encoding encoding_ = Encoding::Utf8;
    std::array<std::size_t, kLast + 1> order_{};
};

void CompareSorts(const std::string& text) {
    for (const SortKey key : {SortKey::Address, SortKey::Nickname}) {
        ASSERT_EQ(Sort(text, key), LiteralSort::Run(text, key)) << testing::PrintToString(text);
    }
}

TEST(SortEntries, EveryShortText_EqualsLiteralSort) {
    ForEveryText({"a", "B", "\r\n", "\n", "-nick-\r\n", "\xE9"}, 5, CompareSorts);
    ForEveryText({"z\r\n", "\xC3\xA9", "\xC3\x89", "a\r\n", "-nick-\r\n", "\xA9"}, 4, CompareSorts);
}

const std::vector<std::string> kWindows1252Letters = {
    "a", "A", "b", "B", "1", "9", "_", " ", "\xE9", "\xC9", "\xFF", "\x9F", "\xF7"};
const std::vector<std::string> kUtf8Letters = {"a",
                                               "A",
                                               "i",
                                               "I",
                                               "1",
                                               "_",
                                               "\xC3\xA9",
                                               "\xC3\x89",
                                               "\xC4\xB1",
                                               "\xD0\xB6",
                                               "\xD0\x96",
                                               "\xE2\x82\xAC"};

// Lines of one or two letters, so that many of them are equal.
std::string RandomBlock(std::mt19937& random,
                        std::size_t lines,
                        const std::vector<std::string>& letters = kWindows1252Letters) {
    std::string block;
    for (std::size_t i = 0; i < lines; ++i) {
        for (std::size_t length = random() % 3; length > 0; --length) {
            block += letters[random() % letters.size()];
        }
        block += "\r\n";
    }
    return block;
}

TEST(SortEntries, RandomBlocks_EqualLiteralSort) {
    std::mt19937 random(5);  // NOLINT: the same blocks each time
    for (int round = 0; round < 300 && !HasFailure(); ++round) {
        const std::size_t addresses = random() % 40;
        const std::size_t nicknames = random() % 3 == 0 ? random() % 40 : addresses;
        const auto& letters = round % 2 == 0 ? kWindows1252Letters : kUtf8Letters;
        CompareSorts(RandomBlock(random, addresses, letters) + "-nick-\r\n" +
                     RandomBlock(random, nicknames, letters));
    }
}

TEST(SortEntries, CountsAtTheLimit_EqualLiteralSort) {
    std::mt19937 random(6);  // NOLINT: the same blocks each time
    for (const std::size_t addresses : {0, 1, 498, 499, 500, 501}) {
        for (const std::size_t nicknames : {0, 1, 499, 500, 501}) {
            CompareSorts(RandomBlock(random, addresses) + "-nick-\r\n" +
                         RandomBlock(random, nicknames));
        }
    }
}

}  // namespace
}  // namespace orvik

#include "formats/csv_reader.h"

#include <string>

#include "unit/failure.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::CsvLine;
using test::FailureOf;
using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;
using test::LiteralText;

using Native = std::optional<std::string>;

constexpr std::string_view kThirteenCommas = ",,,,,,,,,,,,,";

struct Row {
    const char* name;
    std::string csv;
    Native native;
};

std::string NameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

class CsvToNativeTest : public testing::TestWithParam<Row> {};

TEST_P(CsvToNativeTest, Row) {
    EXPECT_EQ(CsvToNative(GetParam().csv), GetParam().native);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    CsvToNativeTest,
    testing::Values(
        Row{"Line_IsOneEntry", "h\r\n" + CsvLine("Al", "A1"), "A1\r\n-nick-\r\nAl\r\n"},
        Row{"Lines_ComeInOrder",
            "h\r\n" + CsvLine("Al", "A1") + CsvLine("Bo", "A2"),
            "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n"},
        Row{"RestOfLine_IsSkipped",
            "h\r\nAl,A1,,,,,,,,,,,,,,16,17,18\r\n",
            "A1\r\n-nick-\r\nAl\r\n"},
        Row{"LineBehindFifteenthComma_MayEnd",
            "h\r\nAl,A1,3,4,5,6,7,8,9,10,11,12,13,14,15,\r\n",
            "A1\r\n-nick-\r\nAl\r\n"},
        Row{"HeaderOnly_HasNoEntries", "h\r\n", "-nick-\r\n"},
        Row{"HeaderWithoutLineEnd_HasNoEntries", "h", "-nick-\r\n"},
        Row{"EmptyText_HasNoEntries", "", "-nick-\r\n"},
        Row{"HeaderEndedByLf_IsSkipped", "h\n" + CsvLine("Al", "A1"), "A1\r\n-nick-\r\nAl\r\n"},
        Row{"Quotes_AreKept",
            "h\r\n" + CsvLine("\"Al\"", "\"A1\""),
            "\"A1\"\r\n-nick-\r\n\"Al\"\r\n"},
        Row{"CommaInQuotes_EndsTheColumn",
            "h\r\n" + CsvLine("\"Smith, Al\"", "A1"),
            " Al\"\r\n-nick-\r\n\"Smith\r\n"},
        Row{"EmptyColumns_AreEmptyLines", "h\r\n" + CsvLine("", ""), "\r\n-nick-\r\n\r\n"},
        Row{"LastLineWithoutLineEnd_CountsWithACharacterBehindTheCommas",
            "h\r\nAl,A1,,,,,,,,,,,,,,x",
            "A1\r\n-nick-\r\nAl\r\n"},
        Row{"CommaAsLastCharacter_IsNotPassed", "h\r\nAl,A1,,,,,,,,,,,,,,", std::nullopt},
        Row{"TwoColumns_TakeTheMissingOnesFromTheNextLines",
            "h\r\nAl,A1\r\n" + CsvLine("Bo", "A2") + CsvLine("Cy", "A3"),
            "A1\r\nBo\r\nA3\r\n-nick-\r\nAl\r\nCy\r\n"},
        Row{"NoComma_IsNotRead", "h\r\nAl\r\n", std::nullopt},
        Row{"OneCharacter_IsNotRead", "h\r\nA", std::nullopt},
        Row{"OneComma_IsNotRead", "h\r\nAl,A1\r\n", std::nullopt},
        Row{"FourteenCommas_AreNotEnough", "h\r\nAl,A1,,,,,,,,,,,,,\r\n", std::nullopt},
        Row{"EmptyLineAtEnd_IsNotRead", "h\r\n" + CsvLine("Al", "A1") + "\r\n", std::nullopt},
        Row{"LineEndedByLf_TakesTheNextLineWithIt",
            "h\nAl,A1,,,,,,,,,,,,,,\nBo,A2,,,,,,,,,,,,,,\n",
            "A1\r\n-nick-\r\nAl\r\n"}),
    NameOf);

class WordPerfectToNativeTest : public testing::TestWithParam<Row> {};

TEST_P(WordPerfectToNativeTest, Row) {
    EXPECT_EQ(WordPerfectToNative(GetParam().csv), GetParam().native);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    WordPerfectToNativeTest,
    testing::Values(
        Row{"Line_IsOneEntry", "h\r\n1,Al,3,4,5,A1,7\r\n", "A1\r\n-nick-\r\nAl\r\n"},
        Row{"Lines_ComeInOrder",
            "h\r\n1,Al,3,4,5,A1,7\r\n,Bo,,,,A2,\r\n",
            "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n"},
        Row{"Quotes_AreDropped", "h\r\n\"1\",\"A\"\"l\",,,,\"A1\",\r\n", "A1\r\n-nick-\r\nAl\r\n"},
        Row{"CommaInQuotes_EndsTheColumn",
            "h\r\n1,\"Smith, Al\",4,5,6,A1,\r\n",
            "6\r\n-nick-\r\nSmith\r\n"},
        Row{"HeaderOnly_HasNoEntries", "h\r\n", "-nick-\r\n"},
        Row{"EmptyText_HasNoEntries", "", "-nick-\r\n"},
        Row{"EmptyColumns_AreEmptyLines", "h\r\n,,,,,,\r\n", "\r\n-nick-\r\n\r\n"},
        Row{"LastLineWithoutLineEnd_Counts", "h\r\n1,Al,3,4,5,A1,", "A1\r\n-nick-\r\nAl\r\n"},
        Row{"AddressInLastColumn_IsNotRead", "h\r\n1,Al,3,4,5,A1\r\n", std::nullopt},
        Row{"FewColumns_TakeTheMissingOnesFromTheNextLine",
            "h\r\n1,Al,3\r\n1,Bo,3,4,5,A2,7\r\n",
            "4\r\n-nick-\r\nAl\r\n"},
        Row{"NoComma_IsNotRead", "h\r\n1\r\n", std::nullopt},
        Row{"OneComma_IsNotRead", "h\r\n1,", std::nullopt},
        Row{"CommaAsLastCharacter_IsNotPassed", "h\r\n1,Al,3,4,5,", std::nullopt},
        Row{"EmptyLineAtEnd_IsNotRead", "h\r\n1,Al,3,4,5,A1,7\r\n\r\n", std::nullopt}),
    NameOf);

// The readers once more, slow and literal: nothing is returned where they are about to read a
// character and stand on the last one or behind it.
class LiteralReader {
 public:
    explicit LiteralReader(std::string_view csv) : text_(csv) {
        while (text_(p_) != "\n" && p_ <= text_.size()) {
            ++p_;
        }
        ++p_;
    }

    Native Read(bool (LiteralReader::*read_line)()) {
        while (p_ <= text_.size()) {
            if (!(this->*read_line)()) {
                return std::nullopt;
            }
            while (text_(p_, 2) != "\r\n" && p_ <= text_.size()) {
                ++p_;
            }
            p_ += 2;
            addresses_ += "\r\n";
            nicknames_ += "\r\n";
        }
        return addresses_ + "-nick-\r\n" + nicknames_;
    }

    bool ReadCsvLine() {
        while (text_(p_) != ",") {
            if (AtLast()) {
                return false;
            }
            nicknames_ += text_(p_);
            ++p_;
        }
        for (++p_; text_(p_) != ","; ++p_) {
            if (AtLast()) {
                return false;
            }
            addresses_ += text_(p_);
        }
        return Count(2, 15);
    }

    bool ReadWordPerfectLine() {
        while (text_(p_) != "," && p_ <= text_.size()) {
            ++p_;
        }
        for (++p_; text_(p_) != ","; ++p_) {
            if (AtLast()) {
                return false;
            }
            if (text_(p_) != "\"") {
                nicknames_ += text_(p_);
            }
        }
        ++p_;
        if (!Count(1, 3)) {
            return false;
        }
        while (text_(p_) != ",") {
            if (AtLast()) {
                return false;
            }
            if (text_(p_) != "\"") {
                addresses_ += text_(p_);
            }
            ++p_;
        }
        return true;
    }

 private:
    [[nodiscard]] bool AtLast() const { return p_ >= text_.size(); }

    bool Count(int k, int last) {
        while (k <= last) {
            if (AtLast()) {
                return false;
            }
            if (text_(p_) == ",") {
                ++k;
            }
            ++p_;
        }
        return true;
    }

    LiteralText text_;
    std::size_t p_ = 1;
    std::string addresses_;
    std::string nicknames_;
};

void CompareReads(const std::string& text) {
    ASSERT_EQ(CsvToNative(text), LiteralReader(text).Read(&LiteralReader::ReadCsvLine))
        << testing::PrintToString(text);
    ASSERT_EQ(WordPerfectToNative(text),
              LiteralReader(text).Read(&LiteralReader::ReadWordPerfectLine))
        << testing::PrintToString(text);
}

TEST(Columns, EveryShortText_EqualsLiteralReaders) {
    ForEveryText({"a", ",", "\"", "\r", "\n", "\r\n", kThirteenCommas}, 6, CompareReads);
}

TEST(Columns, EveryTextOfTenCommasAndLineBreaks_EqualsLiteralReaders) {
    ForEveryText({"a", ",", "\r\n"}, 10, CompareReads);
}

TEST(Columns, RandomLongTexts_EqualLiteralReaders) {
    const Fragments fragments = {"a",
                                 ",",
                                 ",",
                                 "\"",
                                 "\r\n",
                                 "\r\n",
                                 ",,,",
                                 kThirteenCommas,
                                 "Al,A1,,,,,,,,,,,,,,\r\n",
                                 "1,Al,3,4,5,A1,7\r\n",
                                 "\r",
                                 "\n",
                                 "\xE9"};
    ForRandomTexts(fragments, 60, 4000, CompareReads);
}

}  // namespace
}  // namespace orvik

#include "book/csv_rows.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

// Rows in brackets with the lines that they begin and end in; cells between bars.
std::string Rows(const std::string& text, char separator = ',') {
    Arena texts;
    CsvRows rows(text, separator, texts);
    CsvRow row;
    std::string shown;
    while (rows.Next(row)) {
        shown += "[" + std::to_string(row.Number) + "-" + std::to_string(row.Last) + " ";
        for (const std::string_view cell : row.Cells) {
            shown.append("|").append(cell);
        }
        shown += "|";
        shown += row.Doubt == Reason::None ? "" : " " + std::string(WordsFor(row.Doubt));
        shown += "]";
    }
    return shown;
}

TEST(CsvRows, PartCellsByOneSeparator) {
    EXPECT_EQ(Rows("a,b,\n1,,3\n"), "[1-1 |a|b||][2-2 |1||3|]");
    EXPECT_EQ(Rows("a;b,c\n", ';'), "[1-1 |a|b,c|]");
    EXPECT_EQ(Rows("a\tb\n", '\t'), "[1-1 |a|b|]");
    EXPECT_EQ(Rows("a|b", '|'), "[1-1 |a|b|]");
    EXPECT_EQ(Rows(""), "");
    EXPECT_EQ(Rows(","), "[1-1 |||]");
}

TEST(CsvRows, TakeQuotesAndWhatIsInThem) {
    const struct {
        std::string Text;
        std::string Expected;
    } rows[] = {
        {"\"a,b\",c", "[1-1 |a,b|c|]"},
        {"\"a \"\"b\"\" c\",d", "[1-1 |a \"b\" c|d|]"},
        {"\"\",\"\"\"\",x", "[1-1 ||\"|x|]"},
        {"\"a\nb\",c\nd,e", "[1-2 |a\nb|c|][3-3 |d|e|]"},
        {"\"a\r\nb\r\n\",c\r\nd,e\r\n", "[1-3 |a\r\nb\r\n|c|][4-4 |d|e|]"},
        {"a, \"b, c\"", "[1-1 |a|b, c|]"},
        {"a,b\"c\"", "[1-1 |a|b\"c\"|]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Rows(row.Text), row.Expected) << row.Text;
    }
}

TEST(CsvRows, CountTheLinesOfEachEnd) {
    EXPECT_EQ(Rows("a\rb\r\nc\nd\r\r\n\n\ne"), "[1-1 |a|][2-2 |b|][3-3 |c|][4-4 |d|][7-7 |e|]");
}

TEST(CsvRows, TakeAQuoteThatNothingClosesForALetter) {
    EXPECT_EQ(Rows("a,\"b\nc,d\ne,f\n"),
              "[1-1 |a|\"b| has a quote without an end][2-2 |c|d|][3-3 |e|f|]");
    // The next cell in quotes tells that the one before has no end.
    EXPECT_EQ(Rows("a,\"b\nc,\"d\"\n"), "[1-1 |a|\"b| has a quote without an end][2-2 |c|d|]");
    EXPECT_EQ(Rows("\""), "[1-1 |\"| has a quote without an end]");
    EXPECT_EQ(Rows("\"a\"\"\nb"), "[1-1 |\"a\"\"| has a quote without an end][2-2 |b|]");
}

TEST(CsvRows, KeepAQuoteInsideThatIsNotDoubled) {
    EXPECT_EQ(Rows("\"Ada \"Lovely\" Abbott\",b"),
              "[1-1 |Ada \"Lovely\" Abbott|b| has a quote that is not doubled]");
}

TEST(CsvRows, DoubtACellThatHoldsRows) {
    EXPECT_EQ(Rows("h,i\na,\"b\nc,d\ne,f\ng,h\"\ni,j"),
              "[1-1 |h|i|][2-5 |a|b\nc,d\ne,f\ng,h|][6-6 |i|j|]");
    EXPECT_EQ(Rows("h,i\na,\"b,x\nc,d\ne,f\ng,h\"\ni,j"),
              "[1-1 |h|i|][2-5 |a|b,x\nc,d\ne,f\ng,h| has lines that look like rows of their own]"
              "[6-6 |i|j|]");
}

// Each of these took a second look at all that follows, for each of its cells.
TEST(CsvRows, TakeLinearTime) {
    constexpr std::size_t kTimes = 400000;
    for (const std::string& piece : {std::string("\"x,"),
                                     std::string(",\"\"x"),
                                     std::string(",\"\",\"\"x"),
                                     std::string("\"a\n"),
                                     std::string("\"\"\"")}) {
        std::string text = "a,\"b";
        for (std::size_t i = 0; i < kTimes; ++i) {
            text += piece;
        }
        Arena texts;
        CsvRows rows(text, ',', texts);
        CsvRow row;
        std::size_t bytes = 0;
        while (rows.Next(row)) {
            bytes += row.Span.size();
        }
        EXPECT_EQ(bytes, text.size()) << piece;
    }
}

}  // namespace
}  // namespace orvik::book

#include "book/csv_row_writer.h"

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

std::string Cell(std::string_view value) {
    std::string text;
    AppendCsvCell(value, text);
    return text;
}

TEST(CsvRowWriter, QuotesWhatNeedsIt) {
    EXPECT_EQ(Cell(""), "");
    EXPECT_EQ(Cell("Ada"), "Ada");
    EXPECT_EQ(Cell("Abbott, Ada"), "\"Abbott, Ada\"");
    EXPECT_EQ(Cell("a;b"), "\"a;b\"");
    EXPECT_EQ(Cell("a|b"), "\"a|b\"");
    EXPECT_EQ(Cell("a\tb"), "\"a\tb\"");
    EXPECT_EQ(Cell("\"Ada\""), "\"\"\"Ada\"\"\"");
    EXPECT_EQ(Cell("a\nb"), "\"a\nb\"");
    EXPECT_EQ(Cell(" a"), "\" a\"");
    EXPECT_EQ(Cell("* "), "\"* \"");
}

TEST(CsvRowWriter, EndsRowsAndForgetsThem) {
    std::string text;
    CsvRowWriter row(3, "\r\n", "\n", text);
    row.Cell(0) = "a";
    EXPECT_FALSE(row.IsFree(0));
    EXPECT_TRUE(row.IsFree(1));
    EXPECT_FALSE(row.IsFree(3));
    EXPECT_TRUE(row.End());
    EXPECT_FALSE(row.End());
    row.AppendLines("b\r\nc\rd\n", 2);
    EXPECT_TRUE(row.End());
    EXPECT_EQ(text, "a,,\r\n,,\"b\nc\nd\n\"\r\n");
}

}  // namespace
}  // namespace orvik::book

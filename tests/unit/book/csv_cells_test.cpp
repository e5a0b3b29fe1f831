#include "book/csv_cells.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/csv_values.h"

namespace orvik::book {
namespace {

TEST(CsvCells, AreNumbersOfSeveralKinds) {
    EXPECT_TRUE(IsDialledCell(" +1 555 0100 ") && IsDialledCell("0151234567"));
    EXPECT_FALSE(IsDialledCell("12345678") || IsDialledCell("") || IsDialledCell("1980-04-12"));
    EXPECT_TRUE(IsDateCell("1980-04-12") && IsDateCell("12.4.1980") && IsDateCell("4/13/1980"));
    EXPECT_FALSE(IsDateCell("12.4.80") || IsDateCell("--04-12") || IsDateCell("") ||
                 IsDateCell("13.13.1980"));
    EXPECT_TRUE(IsCodeCell("101") && IsCodeCell(" 89073 ") && IsLongCodeCell(" 89073"));
    EXPECT_FALSE(IsCodeCell("12") || IsCodeCell("123456") || IsCodeCell("AB1 2CD") ||
                 IsLongCodeCell("1234"));
    EXPECT_TRUE(HasDigit("Room 5"));
    EXPECT_FALSE(HasDigit("Falso") || HasDigit(""));
}

TEST(CsvCells, TellWhatTheyHold) {
    for (const std::string_view cell :
         {"ada@example.org", " ada@example.org ", "Ada <ada@example.org>"}) {
        EXPECT_TRUE(IsAddressCell(cell)) << cell;
    }
    for (const std::string_view cell :
         {"", "me @ home", "@example.org", "ada@", "a@b@c", "a@b, c@d"}) {
        EXPECT_FALSE(IsAddressCell(cell)) << cell;
    }
    const struct {
        const char* Cell;
        std::vector<std::string_view> Expected;
    } rows[] = {
        {"a@x", {"a@x"}},
        {" a@x , Ada <b@x>;c@x,", {"a@x", "Ada <b@x>", "c@x"}},
        {"\"Abbott, Ada\" <a@x>;b@x", {"\"Abbott, Ada\" <a@x>", "b@x"}},
        {"Abbott, Ada <a@x>", {}},
        {"a@x, none", {}},
        {" ,;", {}},
        {"", {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(AddressesIn(row.Cell), row.Expected) << row.Cell;
        const bool one = IsAddressCell(row.Cell);
        EXPECT_EQ(HasAddressesAlone(row.Cell), one || !row.Expected.empty()) << row.Cell;
    }
    EXPECT_TRUE(HasAddressesAlone("Abbott, Ada <a@x>"));
    EXPECT_FALSE(HasAddressesAlone("a@x, none"));
    EXPECT_TRUE(IsWebCell("https://example.org/a"));
    EXPECT_TRUE(IsWebCell("www.example.org"));
    EXPECT_FALSE(IsWebCell("www."));
    EXPECT_FALSE(IsWebCell("see https://example.org"));
    EXPECT_TRUE(IsPhoneCell("+1 (555) 01-00"));
    for (const std::string_view cell : {"12345", "2001-02-03", "x555 0100", ""}) {
        EXPECT_FALSE(IsPhoneCell(cell)) << cell;
    }
    EXPECT_TRUE(IsDayCell("31"));
    EXPECT_FALSE(IsDayCell("0"));
    EXPECT_FALSE(IsDayCell("32"));
    EXPECT_FALSE(IsDayCell("3."));
    EXPECT_TRUE(IsNameCell("Ada O'Abbott"));
    EXPECT_FALSE(IsNameCell("Route 66"));
}

TEST(CsvCells, ReadDatesInTheirOrder) {
    const struct {
        std::string Cell;
        DateOrder Order;
        std::string Expected;
    } rows[] = {
        {"4/12/1980", DateOrder::MonthFirst, "1980-04-12"},
        {"4/12/1980", DateOrder::DayFirst, "1980-12-04"},
        {"13/4/1980", DateOrder::MonthFirst, "1980-04-13"},
        {"4/13/1980", DateOrder::DayFirst, "1980-04-13"},
        {"12.4.1980", DateOrder::MonthFirst, "1980-04-12"},
        {"12.4.1980.", DateOrder::DayFirst, "1980-04-12"},
        {"1980/4/12", DateOrder::DayFirst, "1980-04-12"},
        {"1980-04-12", DateOrder::DayFirst, "1980-04-12"},
        {"--04-12", DateOrder::DayFirst, "--04-12"},
        {"--13-12", DateOrder::DayFirst, ""},
        {"4/12/80", DateOrder::MonthFirst, ""},
        {"32/13/1980", DateOrder::DayFirst, ""},
        {"4/12-1980", DateOrder::DayFirst, ""},
        {"spring", DateOrder::DayFirst, ""},
        {"", DateOrder::DayFirst, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsoDate(row.Cell, row.Order), row.Expected) << row.Cell;
    }
}

TEST(CsvCells, FindTheOrderOfAColumnOfDates) {
    using Cells = std::vector<std::string_view>;
    const auto order = [](const Cells& cells) { return OrderOf(cells, DateOrder::MonthFirst); };
    EXPECT_EQ(order({"1/2/1980", "13/2/1980"}).Order, DateOrder::DayFirst);
    EXPECT_EQ(order({"1/2/1980", "1/13/1980"}).Order, DateOrder::MonthFirst);
    EXPECT_TRUE(order({"1/2/1980", "1/13/1980"}).Certain);
    EXPECT_EQ(order({"1.2.1980"}).Order, DateOrder::DayFirst);
    EXPECT_FALSE(order({"1/2/1980", "0/0/00"}).Certain);
    EXPECT_TRUE(order({"2/2/1980", "1980-01-02", ""}).Certain);
}

TEST(CsvValues, KnowWhatSaysNothing) {
    EXPECT_TRUE(IsNothing("birthday", "0/0/00"));
    EXPECT_TRUE(IsNothing("anniversary", "00.00.00"));
    EXPECT_TRUE(IsNothing("birthday", "0.0.00"));
    EXPECT_FALSE(IsNothing("birthday", "1/1/00"));
    EXPECT_TRUE(IsNothing("gender", "Keine Angabe"));
    EXPECT_FALSE(IsNothing("gender", "Male"));
    EXPECT_TRUE(IsNothing("email1.type", "SMTP"));
    EXPECT_FALSE(IsNothing("email1.type", "EX"));
    EXPECT_TRUE(IsNothing("private", "Falso"));
    EXPECT_TRUE(IsNothing("private", "FALSCH"));
    EXPECT_FALSE(IsNothing("note", "Normal"));
}

TEST(CsvValues, KnowKinds) {
    EXPECT_EQ(CsvKindOf("* Work Fax").Types, "work fax pref");
    EXPECT_EQ(CsvKindOf("Mobile").Types, "cell");
    EXPECT_EQ(CsvKindOf("").Types, "");
    EXPECT_EQ(CsvKindOf("*").Types, "pref");
    EXPECT_EQ(CsvKindOf("* Boat").Types, "pref");
    EXPECT_EQ(CsvKindOf("* Boat").Label, "Boat");
}

TEST(CsvValues, MakeDatesOfParts) {
    EXPECT_EQ(DateOfParts("1980", "4", "12"), "1980-04-12");
    EXPECT_EQ(DateOfParts("", "4", "12"), "--04-12");
    EXPECT_EQ(DateOfParts("0", "2", "29"), "--02-29");
    EXPECT_EQ(DateOfParts("1980", "", "12"), "");
    EXPECT_EQ(DateOfParts("1980", "13", "12"), "");
    EXPECT_EQ(DateOfParts("80", "1", "12"), "");
}

}  // namespace
}  // namespace orvik::book

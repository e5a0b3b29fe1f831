#include "book/csv_form.h"

#include <string>

#include <gtest/gtest.h>

#include "book/read_csv.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

// The first person must not become the header.
TEST(CsvForm, KnowsAFirstRowOfAPerson) {
    const struct {
        const char* Text;
        bool HasHeader;
    } rows[] = {
        {"Ada,\"a@x.org,b@x.org\",555 0100,n1\nBen,c@x.org,555 0101,n2\n", false},
        {"Ada,\"a@x.org; Ada <b@x.org>\",n1\nBen,c@x.org,n2\n", false},
        {"Ada,none,555 0100,n1\nBen,c@x.org,555 0101,n2\n", false},
        {"Ada,none,www.example.org,n1\nBen,c@x.org,www.example.net,n2\n", false},
        {"Ada,None,n1\nBen,c@x.org,n2\n", false},
        {"Ada,-,n1\nBen,c@x.org,n2\n", false},
        {"Ada,ada@,n1\nBen,c@x.org,n2\n", false},
        {"Foo,Bar,Baz\nBen,c@x.org,n2\n", true},
        {"Name,Email,555 0100\nBen,c@x.org,n2\n", true},
    };
    for (const auto& row : rows) {
        const auto form = CsvFormOf(row.Text);
        ASSERT_TRUE(form) << row.Text;
        EXPECT_EQ(form->HasHeader, row.HasHeader) << row.Text;
    }
}

TEST(CsvForm, BeginsBehindComments) {
    const struct {
        const char* Text;
        const char* Evidence;
    } rows[] = {
        {"# ours\r\n#\r\nAda,a@x.org\r\nBen,b@x.org\r\n", "line 3 begins rows with addresses"},
        {"# a, b\n\"Ada\",\"a@x.org\",\"n\"\n\"Ben\",\"b@x.org\",\"n\"\n",
         "line 2 begins rows with addresses"},
        {"#ours\nName,Email\nAda,a@x.org\n", "line 2 names columns"},
        {"#Name,Email\nAda,a@x.org\n", "line 1 names columns"},
        {"Searching ... 2 entries\na@x.org\tAda Abbott\tclub\nb@x.org\tBen Berg\t\n",
         "line 2 begins rows with addresses"},
        {"Cy c@x.org\na@x.org\tAda Abbott\tclub\nb@x.org\tBen Berg\t\n", ""},
        {"Found\na@x.org,Ada,club\nb@x.org,Ben,\n", ""},
        {"# nothing\n", ""},
        {"#", ""},
    };
    for (const auto& row : rows) {
        const auto form = CsvFormOf(row.Text);
        EXPECT_EQ(form ? form->Evidence : "", row.Evidence) << row.Text;
    }
}

TEST(CsvForm, KeepsTheNumbersOfLines) {
    const test::ReadBook read(
        [](Book& book, std::uint32_t file, Charset& charset) { ReadCsv(book, file, charset, {}); },
        "# ours\n\"Ada Abbott\",\"a@x.org,Ada <b@x.org>\",n1\nBen Berg,c@x.org,n2\n");
    EXPECT_EQ(test::Shown(read.book),
              "person\nFN:Ada Abbott\nEMAIL:a@x.org\nEMAIL:Ada <b@x.org>\n"
              "X-ORVIK-CSV-column-3:n1\n"
              "person\nFN:Ben Berg\nEMAIL:c@x.org\nX-ORVIK-CSV-column-3:n2\n");
    EXPECT_EQ(read.book.Contacts[0].From.Line, 2U);
    EXPECT_EQ(read.book.BytesOf(read.book.Contacts[1]), "Ben Berg,c@x.org,n2\n");
}

TEST(CsvForm, TellsTheLineBeforeAnAnswer) {
    const test::ReadBook read(
        [](Book& book, std::uint32_t file, Charset& charset) { ReadCsv(book, file, charset, {}); },
        "2 found\na@x.org\tAda Abbott\t\nb@x.org\tBen Berg\t\n");
    EXPECT_EQ(test::Told(read.book), "skipped 1 : 2 found: belongs to no record\n");
    EXPECT_EQ(read.book.Contacts.size(), 2U);
}

}  // namespace
}  // namespace orvik::book

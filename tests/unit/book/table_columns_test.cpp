#include "book/table_columns.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

constexpr std::size_t kMost = 100;

std::string TextIn(Column column, const std::string& lines, std::size_t most = kMost) {
    const test::ReadBook read(ReadVCard, "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n");
    return ColumnText(read.book, read.book.Contacts[0], column, most);
}

TEST(ColumnText, JoinsTheValuesOfAKind) {
    const std::string lines =
        "FN:Ada Abbott\nNICKNAME:al,bo\nNICKNAME:cy\nEMAIL:a@b.example\nEMAIL:\nEMAIL:c@d.example\n"
        "TEL:1\nTEL:2\nNOTE:one\\ntwo\nNOTE:three\n";
    EXPECT_EQ(TextIn(Column::Name, lines), "Ada Abbott");
    EXPECT_EQ(TextIn(Column::Nickname, lines), "al, bo, cy");
    EXPECT_EQ(TextIn(Column::Addresses, lines), "a@b.example, c@d.example");
    EXPECT_EQ(TextIn(Column::Phones, lines), "1, 2");
    EXPECT_EQ(TextIn(Column::Notes, lines), "one two, three");
    EXPECT_EQ(TextIn(Column::Source, lines), "file, line 1");
    EXPECT_EQ(TextIn(Column::Lists, lines), "");
}

TEST(ColumnText, NamesWhoHasNoName) {
    EXPECT_EQ(TextIn(Column::Name, "N:Abbott;Ada;;;\n"), "Ada Abbott");
    EXPECT_EQ(TextIn(Column::Name, "EMAIL:a@b.example\n"), "a@b.example");
    EXPECT_EQ(TextIn(Column::Name, "NOTE:x\n"), "");
}

TEST(ColumnText, EndsWhereNobodySeesMore) {
    EXPECT_EQ(TextIn(Column::Addresses, "EMAIL:a@b.example\nEMAIL:c@d.example\n", 14),
              "a@b.example, c");
    // No letter is cut.
    EXPECT_EQ(TextIn(Column::Name, "FN:a\xC3\xBC\xC3\xBC\n", 4), "a\xC3\xBC");
    EXPECT_EQ(TextIn(Column::Notes, "NOTE:" + std::string(100'000, 'x') + "\n").size(), kMost);
}

TEST(ColumnText, SaysNothingOfTheSourceOfWhatIsNew) {
    Book book;
    const Contact made;
    EXPECT_EQ(ColumnText(book, made, Column::Source, kMost), "");
    book.AddSource(std::make_unique<Source>("/a/b/c.vcf", ""));
    Contact read;
    read.From = {0, 12, 3, 0, 0};
    EXPECT_EQ(ColumnText(book, read, Column::Source, kMost), "c.vcf, line 12");
}

}  // namespace
}  // namespace orvik::book

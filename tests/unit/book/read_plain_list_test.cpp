#include "book/old/read_plain_list.h"

#include <string>

#include <gtest/gtest.h>

#include "book/old/plain_entry.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

TEST(PlainEntry, IsReadInEachForm) {
    const struct {
        std::string_view Text;
        std::string_view Expected;  // "name|address"; empty for no entry
    } rows[] = {
        {"\"Al\" <A1>", "Al|A1"},
        {" Al Berg <a1@b> ", "Al Berg|a1@b"},
        {"<a1@b> Al", "Al|a1@b"},
        {"<a1@b>", "|a1@b"},
        {"<a1@b", "|a1@b"},
        {"a 1@b \"Al\"", "Al|a 1@b"},
        {"\"Al\" a1@b", "Al|a1@b"},
        {"\"Al \"Q\" Berg\" <a1@b>", "Al \"Q\" Berg|a1@b"},
        {"\"Al <x>\" <a1@b>", "Al <x>|a1@b"},
        {"a1@b (Al)", "Al|a1@b"},
        {"a1@b Al", "Al|a1@b"},
        {"Al a1@b", "Al|a1@b"},
        {"a1@b", "|a1@b"},
        {"Al", ""},
        {"Al Berg", ""},
        {"Al <>", ""},
        {"\"Al\"", ""},
        {"<", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        const auto entry = PlainEntryOf(row.Text);
        const std::string shown =
            entry ? std::string(entry->Name) + "|" + std::string(entry->Address) : std::string();
        EXPECT_EQ(shown, row.Expected) << row.Text;
    }
}

TEST(PlainEntry, FillsALineAsTheWindowWritesIt) {
    const struct {
        std::string_view Text;
        std::string_view Expected;  // "name|address"; empty for no such line
    } rows[] = {
        {"\"Al\" <a1@b>", "Al|a1@b"},
        {" \"Al\"<A1> ", "Al|A1"},
        {"\"Al\" <a1@b, c@d>", "Al|a1@b, c@d"},
        {"\"5\" disk; x@y\" <a1@b>", "5\" disk; x@y|a1@b"},
        {"\"Al\" <>", "Al|"},
        {"\"\" <a1@b>", "|a1@b"},
        {"\"\" <>", "|"},
        {"\"Al\" <a1@b>, \"Bo\" <c@d>", ""},
        {"\"Al\" <a1@b>, c@d", ""},
        {"\"Al <a1@b>", ""},
        {"\" <a1@b>", ""},
        {"\"Al\" a1@b>", ""},
        {"Al <a1@b>", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        const auto entry = ListedEntryOf(row.Text);
        const std::string shown =
            entry ? std::string(entry->Name) + "|" + std::string(entry->Address) : std::string();
        EXPECT_EQ(shown, row.Expected) << row.Text;
    }
}

TEST(PlainEntry, IsJoinedWhereACommaPartedIt) {
    const struct {
        std::string_view Text;
        std::string_view Next;
        std::string_view Expected;  // "name|address"; empty for two entries
    } rows[] = {
        {"\"Berg\" <>", "\" <b@x>\" < Ben>", "Berg, Ben|b@x"},
        {" \"Berg\" <>", " \" <b@x>\" <Ben O> ", "Berg, Ben O|b@x"},
        {"\"\" <>", "\" <b@x>\" < Ben>", ""},
        {"\"Berg\" <c@x>", "\" <b@x>\" < Ben>", ""},
        {"\"Berg\" <>", "\"Ben\" <b@x>", ""},
        {"\"Berg\" <>", "\" <b@x>\" <>", ""},
        {"\"Berg\" <>", "\" <b>\" < Ben>", ""},
        {"\"Berg\" <>", "\" <b@x>\" < B\"n>", ""},
        {"\"Berg\" <>", "", ""},
        {"\" <>", "\" <b@x>\" < Ben>", ""},
    };
    for (const auto& row : rows) {
        const auto joined = JoinedEntryOf(row.Text, row.Next);
        const std::string shown =
            joined ? joined->Name + "|" + std::string(joined->Address) : std::string();
        EXPECT_EQ(shown, row.Expected) << row.Text << row.Next;
    }
}

TEST(ReadPlainList, PutsNamesTogetherThatCommasParted) {
    const ReadBook read(ReadPlainList,
                        "\"Ada\" <a@x>,\"Berg\" <>,\" <b@x>\" < Ben>,\"Coe\" <>,\"\" <d@x>,\n"
                        "\"E\" <>,\" <e@x>\" < Ed>");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:Ada\nN:;Ada;;;\nEMAIL:a@x\n"
              "person\nFN:Berg, Ben\nN:Berg;Ben;;;\nEMAIL:b@x\n"
              "person\nEMAIL:d@x\n"
              "person\nFN:E, Ed\nN:E;Ed;;;\nEMAIL:e@x\n");
    EXPECT_EQ(Told(read.book),
              "doubtful 1 name: Berg, Ben: was put together again from what a comma had made two "
              "entries of\n"
              "skipped 1 : \"Coe\" <>: belongs to no record\n"
              "doubtful 2 name: E, Ed: was put together again from what a comma had made two "
              "entries of\n");
    EXPECT_EQ(read.book.BytesOf(read.book.Contacts[1]), "\"Berg\" <>,\" <b@x>\" < Ben>");
    EXPECT_EQ(read.book.BytesOf(read.book.Contacts[3]), "\"E\" <>,\" <e@x>\" < Ed>");
}

TEST(ReadPlainList, TakesAPersonForEachAddress) {
    const struct {
        std::string Text;
        std::string Expected;
        std::string Told;
    } rows[] = {
        {"\"Ada\" <ada@example.org>\r\nben@example.org\r\n",
         "person\nFN:Ada\nN:;Ada;;;\nEMAIL:ada@example.org\nperson\nEMAIL:ben@example.org\n",
         ""},
        {"ada@example.org, Berg, Ben <ben@example.org>; \"Cy, C\" <cy@example.org>,\r",
         "person\nEMAIL:ada@example.org\n"
         "person\nFN:Berg, Ben\nN:Berg;Ben;;;\nEMAIL:ben@example.org\n"
         "person\nFN:Cy, C\nN:Cy;C;;;\nEMAIL:cy@example.org\n",
         ""},
        {"# ours\nroot\nthe end\nFriends:\n\n\"Ada\" <A1>\n",
         "person\nEMAIL:root\nperson\nFN:Ada\nN:;Ada;;;\nEMAIL:A1\n",
         "skipped 1 : # ours: belongs to no record\n"
         "skipped 3 : the end: belongs to no record\n"},
        {"\"al@b\" <Al>\n\"bo@b\" <Bo>\n",
         "person\nFN:Al\nN:;Al;;;\nEMAIL:al@b\nperson\nFN:Bo\nN:;Bo;;;\nEMAIL:bo@b\n",
         "doubtful 1 EMAIL: al@b: stood in the place of the name, as in all such entries of the "
         "file\n"},
        {"J\xF6rg <j@b>\n", "person\nFN:J\xC3\xB6rg\nN:;J\xC3\xB6rg;;;\nEMAIL:j@b\n", ""},
        {"\"Al\" <a@b, c@d>\n\"Bo\" <>\n\"\" <>\n",
         "person\nFN:Al\nN:;Al;;;\nEMAIL:a@b, c@d\nperson\nFN:Bo\nN:;Bo;;;\n",
         "skipped 3 : \"\" <>: belongs to no record\n"},
        {",;\n, al@b\n", "person\nEMAIL:al@b\n", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        const ReadBook read(ReadPlainList, row.Text);
        EXPECT_EQ(Shown(read.book), row.Expected) << row.Text;
        EXPECT_EQ(Told(read.book), row.Told) << row.Text;
    }
}

}  // namespace
}  // namespace orvik::book

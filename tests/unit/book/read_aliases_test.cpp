#include "book/old/read_aliases.h"

#include <string>

#include <gtest/gtest.h>

#include "book/old/alias_text.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

std::string ShownText(const AliasText& text) {
    std::string shown;
    for (const Mailbox& one : text.Boxes) {
        shown += "[" + one.Name + "|" + one.Address + "]";
    }
    return shown + (text.Comment.empty() ? "" : "#" + text.Comment);
}

TEST(MailxAlias, IsPartedByBlanksAndCommas) {
    const struct {
        const char* Text;
        const char* Expected;
    } rows[] = {
        {"", ""},
        {"a@x", "[|a@x]"},
        {"ada ben, c@x", "[ada|][ben|][|c@x]"},
        {"\"Ben Berg\" <b@x>", "[Ben Berg|b@x]"},
        {"\"Bill Smith\"<g@x>", "[Bill Smith|g@x]"},
        {"Bill Smith<g@x> ada", "[Bill Smith|g@x][ada|]"},
        {"ada, Ben Berg <b@x>", "[ada|][Ben Berg|b@x]"},
        {"'Ed Eve <e@x>' ada", "[Ed Eve|e@x][ada|]"},
        {"(Cy Coe) c@x", "[Cy Coe|c@x]"},
        {"c@x (Cy Coe) d@x", "[Cy Coe|c@x][|d@x]"},
        {"a@x # b@x", "[|a@x]#b@x"},
        {"a#b@x", "[|a#b@x]"},
        {"\"Ada", "[\"Ada|]"},
        {"Ada <a@x", "[Ada|][|<a@x]"},
        {"O'Hara o@x", "[O'Hara|][|o@x]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ShownText(MailxAliasOf(row.Text)), row.Expected) << row.Text;
    }
}

TEST(MuttAlias, LosesTheQuotesOfSettings) {
    const struct {
        const char* Text;
        const char* Expected;
    } rows[] = {
        {"", ""},
        {"\\\"Abbott, Ada\\\" <a@x> # rows", "[Abbott, Ada|a@x]#rows"},
        {"\"Abbott, Ada\" <a@x>", "[Abbott, Ada|a@x]"},
        {"'Abbott, Ada' <a@x>", "[Abbott, Ada|a@x]"},
        {"\"\\\"Abbott, Ada\\\" <a@x>\"", "[Abbott, Ada|a@x]"},
        {"\"Ada <a@x>, b@x\"", "[Ada|a@x][|b@x]"},
        {"\\\"a \\\\\\\"b\\\\\\\" c\\\" <a@x>", "[a \"b\" c|a@x]"},
        {"\"a \\\\ b\" <a@x>", "[a \\ b|a@x]"},
        {"Ed O\\'Eve <e@x>, ada", "[Ed O'Eve|e@x][ada|]"},
        {"Ed O'Eve <e@x>", "[Ed O'Eve|e@x]"},
        {"Fi \\$5 \\`x\\` $HOME `id` <f@x>", "[Fi $5 `x` $HOME `id`|f@x]"},
        {"f@x#no (Fi Foe) #yes", "[Fi Foe|f@x#no]#yes"},
        {"=?utf-8?Q?J=C3=B6rg,_J?= <j@x>", "[=?utf-8?Q?J=C3=B6rg|][_J?=|j@x]"},
        {"=?utf-8?Q?J=C3=B6rg=2C_J?= <j@x>", "[J\xC3\xB6rg, J|j@x]"},
        {"\"Ada <a@x>", "[\"Ada|a@x]"},
        {"Ada\\", "[Ada\\|]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ShownText(MuttAliasOf(row.Text)), row.Expected) << row.Text;
    }
}

TEST(ReadMailrc, MakesPeopleAndLists) {
    const ReadBook read(ReadMailrc,
                        "set folder=x\n# alias no one@x\nunset y\n"
                        "alias ada ada@x\n"
                        "group rowers ada \\\n  c@x \"Di Dorn\" <d@x> nobody\n"
                        "alias ada2 \"Abbott, Ada\" <ada@x> # rows tags:a\n"
                        "source /etc/other\n"
                        "alias rowers ada2, rowers\n"
                        "alias none\n"
                        "alias\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:ada\nEMAIL:ada@x\n"
              "list\nNICKNAME:rowers\nMEMBER:x-orvik-line:4\nMEMBER:mailto:c@x\n"
              "MEMBER:cn=Di Dorn,mail=d@x\nMEMBER;VALUE=text:nobody\n"
              "MEMBER:x-orvik-line:7\nMEMBER:x-orvik-line:5\n"
              "person\nNICKNAME:ada2\nFN:Abbott, Ada\nN:Abbott;Ada;;;\nEMAIL:ada@x\n"
              "NOTE:rows tags:a\n"
              "person\nNICKNAME:none\n");
    EXPECT_EQ(Told(read.book),
              "skipped 8 : source /etc/other: names a file or an address that is never opened\n"
              "skipped 1 : set folder=x (and 2 more of the file): is a setting of the program\n");
    const Origin& from = read.book.Contacts[1].From;
    EXPECT_EQ(from.Line, 5U);
    EXPECT_EQ(from.Lines, 2U);
    EXPECT_EQ(read.book.BytesOf(read.book.Contacts[1]),
              "group rowers ada \\\n  c@x \"Di Dorn\" <d@x> nobody\n");
}

TEST(ReadMutt, MakesPeopleAndLists) {
    const ReadBook read(ReadMutt,
                        "alias -group club -group a,b Ada \\\"Abbott, Ada\\\" <a@x> "
                        "# rows tags:one,two,, here\n"
                        "alias gus Gus Gray <g@x>\n"
                        "alias gus__gray@y Gus Gray <gray@y>\n"
                        "alias gus__other@y Other <other@y>\n"
                        "alias rowers ADA, \\\n cox@x, nobody\n"
                        "alias rowers gus\n"
                        "group -group x -addr y@z\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:Ada\nFN:Abbott, Ada\nN:Abbott;Ada;;;\nEMAIL:a@x\n"
              "CATEGORIES:club\nCATEGORIES:a\\,b\nCATEGORIES:one\nCATEGORIES:two\n"
              "NOTE:rows here\n"
              "person\nNICKNAME:gus\nFN:Gus Gray\nN:Gray;Gus;;;\nEMAIL:g@x\nEMAIL:gray@y\n"
              "person\nNICKNAME:gus__other@y\nFN:Other\nN:;Other;;;\nEMAIL:other@y\n"
              "list\nNICKNAME:rowers\nMEMBER:x-orvik-line:1\nMEMBER:mailto:cox@x\n"
              "MEMBER;VALUE=text:nobody\n"
              "list\nNICKNAME:rowers\nMEMBER:x-orvik-line:2\n");
    EXPECT_EQ(Told(read.book),
              "skipped 8 : group -group x -addr y@z: is a setting of the program\n"
              "doubtful 2 N: Gus Gray: was parted at a blank into given and family name, as all "
              "such names of the file\n");
}

TEST(ReadMutt, ReadsLettersLineByLine) {
    const ReadBook read(
        ReadMutt, "alias j J\xF6rg <j@x>\nalias z Zo\xC3\xAB <z@x>\nalias b a\xF6, \\\n b@x\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:j\nFN:J\xC3\xB6rg\nN:;J\xC3\xB6rg;;;\nEMAIL:j@x\n"
              "person\nNICKNAME:z\nFN:Zo\xC3\xAB\nN:;Zo\xC3\xAB;;;\nEMAIL:z@x\n"
              "list\nNICKNAME:b\nMEMBER;VALUE=text:a\xC3\xB6\nMEMBER:mailto:b@x\n");
    EXPECT_EQ(read.sentence.substr(0, 40), "UTF-8 (1 record), windows-1252 (assumed;");
}

}  // namespace
}  // namespace orvik::book

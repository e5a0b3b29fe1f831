#include "book/old/read_cc_mail.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

TEST(ReadCcMail, TakesAPersonForEachName) {
    const struct {
        std::string Text;
        std::string Expected;
        std::string Told;
    } rows[] = {
        {"Name: Doe, Jo\r\nLocn: R\r\nAddr: Mail01 \"Jo\" <jo@example.org>\r\nCmts: rows\r\n"
         "Name: Al Berg\r\nAddr: al@example.org\r\nCmts:\r\n",
         "person\nFN:Doe, Jo\nN:Doe;Jo;;;\nX-ORVIK-CCMAIL-Locn:R\nEMAIL:jo@example.org\n"
         "X-ORVIK-CCMAIL-Addr:Mail01 \"Jo\" <jo@example.org>\nNOTE:rows\n"
         "person\nFN:Al Berg\nN:Berg;Al;;;\nEMAIL:al@example.org\n",
         "doubtful 5 N: Al Berg: was parted at a blank into given and family name, as all such "
         "names of the file\n"},
        {"Name: Jo\nAddr: jo@example.org at Internet-Mail\n",
         "person\nFN:Jo\nN:;Jo;;;\nEMAIL:jo@example.org\n"
         "X-ORVIK-CCMAIL-Addr:jo@example.org at Internet-Mail\n",
         ""},
        {"NAME:jo@example.org\rADDR:\rCMTS: one\r two\rthree: 3\r",
         "person\nEMAIL:jo@example.org\nNOTE:one\\x0Atwo\\x0Athree: 3\n",
         ""},
        {"Name: Jo <jo@example.org>\nAddr: Mail01\n",
         "person\nFN:Jo <jo@example.org>\nN:<jo@example.org>;Jo;;;\nEMAIL:jo@example.org\n"
         "X-ORVIK-CCMAIL-Addr:Mail01\n",
         "doubtful 1 N: Jo <jo@example.org>: was parted at a blank into given and family name, as "
         "all such names of the file\n"},
        {"Name: jo@example.org\nAddr: x jo@example.net\n",
         "person\nFN:jo@example.org\nN:;jo@example.org;;;\nEMAIL:jo@example.net\n"
         "X-ORVIK-CCMAIL-Addr:x jo@example.net\n",
         ""},
        {"before\nName: Jo\nwhat\nPhone: 1\nAddr: @\nLocn:\n",
         "person\nFN:Jo\nN:;Jo;;;\nX-ORVIK-CCMAIL-no-field:what\nX-ORVIK-CCMAIL-Phone:1\n"
         "X-ORVIK-CCMAIL-Addr:@\n",
         "skipped 1 : before: belongs to no record\n"
         "doubtful 2 : what: is no field\n"},
        {"Name:\n", "person\n", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        const ReadBook read(ReadCcMail, row.Text);
        EXPECT_EQ(Shown(read.book), row.Expected) << row.Text;
        EXPECT_EQ(Told(read.book), row.Told) << row.Text;
    }
}

TEST(ReadCcMail, LettersAreThoseOfTheFile) {
    const ReadBook read(ReadCcMail, "Name: M\xFCller, J\xF6rg\nAddr: j@b\nCmts: gr\xFCn\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:M\xC3\xBCller, J\xC3\xB6rg\nN:M\xC3\xBCller;J\xC3\xB6rg;;;\nEMAIL:j@b\n"
              "NOTE:gr\xC3\xBCn\n");
}

}  // namespace
}  // namespace orvik::book

#include "book/edits.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

// The fields of a card in which something was typed, less its version.
std::string Edited(const std::string& lines, Editable what, const std::string& value) {
    test::ReadBook read(ReadVCard, "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n");
    Book& book = read.book;
    std::vector<Property> fields = EditedFields(book, book.Contacts[0], what, value);
    const std::string before = test::Shown(book, book.Contacts[0]);
    const Contact now = book.WithFields(book.Contacts[0], fields);
    EXPECT_EQ(test::Shown(book, book.Contacts[0]), before) << "the old one stays";
    EXPECT_TRUE(now.Changed);
    const std::string shown = test::Shown(book, now);
    return shown.substr(shown.find('\n') + 1);
}

std::string TextOf(const std::string& lines, Editable what) {
    const test::ReadBook read(ReadVCard, "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n");
    return EditText(read.book, read.book.Contacts[0], what) + "|" +
           std::to_string(CountOf(read.book, read.book.Contacts[0], what));
}

TEST(EditText, IsTheFirstValue) {
    const std::string lines =
        "FN:Ada\nNICKNAME:,a\\,l,bo\nEMAIL:\nEMAIL:a@b.example\nEMAIL:c@d.example\nTEL:1\n";
    EXPECT_EQ(TextOf(lines, Editable::Name), "Ada|1");
    EXPECT_EQ(TextOf(lines, Editable::Nickname), "a,l|2");
    EXPECT_EQ(TextOf(lines, Editable::Address), "a@b.example|2");
    EXPECT_EQ(TextOf(lines, Editable::Phone), "1|1");
    EXPECT_EQ(TextOf("FN:Ada\n", Editable::Phone), "|0");
}

TEST(EditedFields, AnAddressKeepsItsParametersAndItsPlace) {
    EXPECT_EQ(Edited("FN:Ada\nitem1.EMAIL;TYPE=work:a@b.example\nEMAIL:c@d.example\n",
                     Editable::Address,
                     "n@b.example"),
              "FN:Ada\nitem1.EMAIL;TYPE=work:n@b.example\nEMAIL:c@d.example\n");
    EXPECT_EQ(Edited("FN:Ada\n", Editable::Address, "n@b.example"), "FN:Ada\nEMAIL:n@b.example\n");
}

TEST(EditedFields, AnEmptyValueRemovesTheFirst) {
    EXPECT_EQ(Edited("FN:Ada\nEMAIL:a@b.example\nEMAIL:c@d.example\n", Editable::Address, ""),
              "FN:Ada\nEMAIL:c@d.example\n");
    EXPECT_EQ(Edited("FN:Ada\nitem1.TEL:1\nitem1.X-ABLabel:Boat\nitem2.X-ABLabel:Else\n",
                     Editable::Phone,
                     ""),
              "FN:Ada\nitem2.X-ABLabel:Else\n");
    EXPECT_EQ(Edited("FN:Ada\nitem1.TEL:1\nitem1.EMAIL:a@b.example\nitem1.X-ABLabel:Boat\n",
                     Editable::Phone,
                     ""),
              "FN:Ada\nitem1.EMAIL:a@b.example\nitem1.X-ABLabel:Boat\n");
    EXPECT_EQ(Edited("FN:Ada\n", Editable::Phone, ""), "FN:Ada\n");
}

TEST(EditedFields, APhoneIsNoAddressOfTheWebAnyMore) {
    const std::string lines = "FN:Ada\nTEL;VALUE=uri;TYPE=home:tel:+1-555\n";
    EXPECT_EQ(Edited(lines, Editable::Phone, "+1 555"), "FN:Ada\nTEL;TYPE=home:+1 555\n");
    EXPECT_EQ(Edited(lines, Editable::Phone, "tel:+1-556"),
              "FN:Ada\nTEL;VALUE=uri;TYPE=home:tel:+1-556\n");
}

TEST(EditedFields, ANicknameIsOneOfTheList) {
    EXPECT_EQ(Edited("FN:Ada\nNICKNAME:al,bo\n", Editable::Nickname, "x,y"),
              "FN:Ada\nNICKNAME:x\\,y,bo\n");
    EXPECT_EQ(Edited("FN:Ada\nNICKNAME:al,bo\n", Editable::Nickname, ""), "FN:Ada\nNICKNAME:bo\n");
    EXPECT_EQ(Edited("FN:Ada\nNICKNAME:al\n", Editable::Nickname, ""), "FN:Ada\n");
    EXPECT_EQ(Edited("FN:Ada\n", Editable::Nickname, "a,l"), "FN:Ada\nNICKNAME:a\\,l\n");
    EXPECT_EQ(Edited("FN:Ada\n", Editable::Nickname, ""), "FN:Ada\n");
    const std::string android =
        "FN:Ada\nX-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;Al;1;;;\n";
    EXPECT_EQ(Edited(android, Editable::Nickname, "b;o"),
              "FN:Ada\nX-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;b\\;o;1;;;\n");
    EXPECT_EQ(Edited(android, Editable::Nickname, ""), "FN:Ada\n");
}

TEST(EditedFields, ThePartsFollowTheName) {
    EXPECT_EQ(Edited("FN:Ada Abbott\nN:Abbott;Ada;;;\n", Editable::Name, "Ada Berg"),
              "FN:Ada Berg\nN:Berg;Ada;;;\n");
    EXPECT_EQ(Edited("N:Abbott;Ada;;;\n", Editable::Name, "Ada Berg"), "N:Berg;Ada;;;\n");
    // What the parts do not show stands in a name of its own.
    EXPECT_EQ(Edited("N:Abbott;Ada;;Dr.;\n", Editable::Name, "Dr. Ada Berg"),
              "FN:Dr. Ada Berg\nN:Berg;Ada;;Dr.;\n");
    EXPECT_EQ(Edited("EMAIL:a@b.example\n", Editable::Name, "Ada"), "FN:Ada\nEMAIL:a@b.example\n");
    EXPECT_EQ(Edited("FN;LANGUAGE=ja:Aya\nFN:Ada\n", Editable::Name, "Eve"),
              "FN;LANGUAGE=ja:Aya\nFN:Eve\n");
}

TEST(EditedFields, ANameInOnePartStaysInOne) {
    EXPECT_EQ(Edited("FN:Acme Sails\nN:Acme Sails;;;;\n", Editable::Name, "Best Sails Ltd"),
              "FN:Best Sails Ltd\nN:Best Sails Ltd;;;;\n");
    EXPECT_EQ(
        Edited(
            "FN:Choir\nN:Choir;;;;\nX-ADDRESSBOOKSERVER-KIND:group\n", Editable::Name, "New Choir"),
        "FN:New Choir\nN:New Choir;;;;\nX-ADDRESSBOOKSERVER-KIND:group\n");
}

TEST(PartsOfNewName, KeepsWhatStillStandsInTheName) {
    const auto now = [](const char* parts, const char* name) {
        return PartsOfNewName(parts, name);
    };
    EXPECT_EQ(now("Abbott;Ada;Maria;Dr.;", "Dr. Ada Maria Berg"), "Berg;Ada;Maria;Dr.;");
    EXPECT_EQ(now("Abbott;Ada;Maria;Dr.;", "Ada Abbott"), "Abbott;Ada;;;");
    EXPECT_EQ(now("Abbott;Ada;;;", "Eve Abbott"), "Abbott;Eve;;;");
    EXPECT_EQ(now("van der Berg;Ben;;;", "Benno van der Berg"), "van der Berg;Benno;;;");
    EXPECT_EQ(now("Abbott;Ada;;;", "Ada van der Berg"), "van der Berg;Ada;;;");
    EXPECT_EQ(now("Abbott;Ada;Maria;;", "Ada Maria Berg"), "Berg;Ada;Maria;;");
    EXPECT_EQ(now("Abbott;Al;;;Jr.", "Al Berg, Jr."), "Berg;Al;;;Jr.");
    EXPECT_EQ(now("Abbott;Al;;;Jr.", "Al Berg"), "Berg;Al;;;");
    EXPECT_EQ(now("Abbott;Ada;;;", "Berg, Eve"), "Berg;Eve;;;");
    EXPECT_EQ(now("Abbott;Ada;Maria;;", "Abbott, Eve Maria"), "Abbott;Eve;Maria;;");
    EXPECT_EQ(now("Abbott;Ada;;;", "Zoe May Quist"), "Quist;Zoe May;;;");
    EXPECT_EQ(now("Abbott;Ada;;;", "Zoe"), ";Zoe;;;");
    EXPECT_EQ(now("A\\;b;Ada;;;", "Eve A;b"), "A\\;b;Eve;;;");
    EXPECT_EQ(now("Abbott;Ada;;;;2nd;3rd", "Eve Abbott"), "Abbott;Eve;;;;2nd;3rd");
    EXPECT_EQ(now("", "Eve Abbott"), "Abbott;Eve;;;");
}

TEST(CheckTyped, RefusesWhatIsNone) {
    EXPECT_EQ(TypedValue(" Ada\n\tAbbott\x7F "), "Ada  Abbott");
    EXPECT_TRUE(CheckTyped(Editable::Name, "").IsRefused);
    EXPECT_TRUE(CheckTyped(Editable::Name, "\xE2\x80\x8B").IsRefused) << "a letter nobody sees";
    EXPECT_FALSE(CheckTyped(Editable::Name, "Ada").IsRefused);
    EXPECT_FALSE(CheckTyped(Editable::Nickname, "").IsRefused);
    const Verdict two = CheckTyped(Editable::Address, "al@@example.org");
    EXPECT_TRUE(two.IsRefused);
    EXPECT_EQ(two.Words, "two @");
    const Verdict odd = CheckTyped(Editable::Address, "al@localhost");
    EXPECT_FALSE(odd.IsRefused);
    EXPECT_EQ(odd.Words, "a domain without a dot");
    EXPECT_EQ(CheckTyped(Editable::Address, "al@example.org").Words, "");
    EXPECT_FALSE(CheckTyped(Editable::Address, "").IsRefused);
    EXPECT_EQ(CheckTyped(Editable::Phone, "none").Words, "no digit");
    EXPECT_FALSE(CheckTyped(Editable::Phone, "1-800-BOATS").IsRefused);
    EXPECT_FALSE(CheckTyped(Editable::Phone, "").IsRefused);
}

}  // namespace
}  // namespace orvik::book

#include "book/typed_views.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using List = std::vector<std::string>;

ReadBook Card(const std::string& lines) {
    return {ReadVCard, "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n"};
}

std::string ShownOf(const std::string& lines) {
    const ReadBook read = Card(lines);
    return NameOf(read.book, read.book.Contacts[0]).Shown;
}

TEST(NameOf, TakesThePartsAndTheirText) {
    const ReadBook read = Card("N:Ab\\;bott;Ada,Eve;M.;Dr.;Jr.\nFN:Dr. Ada\n");
    const PersonName name = NameOf(read.book, read.book.Contacts[0]);
    EXPECT_EQ(name.Shown, "Dr. Ada");
    EXPECT_EQ(name.Family, "Ab;bott");
    EXPECT_EQ(name.Given, "Ada,Eve");
    EXPECT_EQ(name.Middle, "M.");
    EXPECT_EQ(name.Prefix, "Dr.");
    EXPECT_EQ(name.Suffix, "Jr.");
}

TEST(NameOf, ShowsWhatThereIs) {
    EXPECT_EQ(ShownOf("FN;LANGUAGE=ja:Aya\nFN:Ada\nFN:Eve\n"), "Ada");
    EXPECT_EQ(ShownOf("FN;LANGUAGE=ja:Aya\n"), "Aya");
    EXPECT_EQ(ShownOf("FN:\nN:Abbott;Ada;;;\n"), "Ada Abbott");
    EXPECT_EQ(ShownOf("N:Abbott;;;;\nORG:F\n"), "Abbott");
    EXPECT_EQ(ShownOf("ORG:F\\, Ltd;Sales\nEMAIL:a@b\n"), "F, Ltd");
    EXPECT_EQ(ShownOf("EMAIL:a@b\nNICKNAME:al\n"), "al");
    EXPECT_EQ(ShownOf("EMAIL:a@b\n"), "a@b");
    EXPECT_EQ(ShownOf("NOTE:x\n"), "");
}

TEST(TypedViews, FindAllOfAKind) {
    const ReadBook read = Card(
        "NICKNAME:a\\,b,,c\nEMAIL;TYPE=PREF:a@b\nX-NICKNAME:d\nTEL:1\nTEL;TYPE=CELL:2\nTEL:\n"
        "X-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;Bob;1;;;\n"
        "X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Eve;1;;;\nitem1.EMAIL:c@d\n");
    const Contact& contact = read.book.Contacts[0];
    EXPECT_EQ(NicknamesOf(read.book, contact), (List{"a,b", "c", "d", "Bob"}));
    EXPECT_EQ(AddressesOf(contact), (List{"a@b", "c@d"}));
    const std::vector<const Property*> fields = AddressFieldsOf(contact);
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[1]->Value, "c@d");
    EXPECT_EQ(fields[1]->Name, NameId{field::kEmail});
    EXPECT_EQ(PhonesOf(contact), (List{"1", "2"}));
    EXPECT_EQ(TextOf(read.book, contact.Properties[0]), "a,b,,c");
}

}  // namespace
}  // namespace orvik::book

#include "book/csv_kinds.h"

#include <gtest/gtest.h>

#include "unit/book/written_table.h"

namespace orvik::book {
namespace {

TEST(CsvKinds, SaysWhatTypesMean) {
    EXPECT_EQ(BitsOfTypes("home fax"), kind::kHome | kind::kFax);
    EXPECT_EQ(BitsOfTypes("voice"), 0U);
    EXPECT_EQ(BitsOfTypes("iphone"), kind::kCell);
    EXPECT_EQ(WordOfKind(0).Text, "");
    EXPECT_EQ(WordOfKind(kind::kCell).Text, "Mobile");
    EXPECT_EQ(WordOfKind(kind::kWork | kind::kFax).Text, "Work Fax");
    EXPECT_EQ(WordOfKind(BitsOfTypes("car")).Text, "Car phone");
    EXPECT_EQ(WordOfKind(BitsOfTypes("work x-company")).Text, "Company phone");
}

TEST(CsvKinds, SaysWhatAWordLeavesOut) {
    const KindWord cell = WordOfKind(kind::kCell | kind::kWork);
    EXPECT_EQ(cell.Text, "Mobile");
    EXPECT_EQ(cell.Left, KindBits{kind::kWork});
    const KindWord fax = WordOfKind(kind::kHome | kind::kWork | kind::kFax);
    EXPECT_EQ(fax.Text, "Home Fax");
    EXPECT_EQ(fax.Left, KindBits{kind::kWork});
    EXPECT_EQ(WordOfKind(kind::kHome | kind::kWork).Text, "Home");
}

TEST(CsvKinds, TakesLabelsOfGroups) {
    test::ReadBook read(ReadVCard,
                        test::Card("item1.TEL:1\nitem1.X-ABLabel:Boat\n"
                                   "item2.TEL;TYPE=pref:2\nITEM2.X-ABLabel:_$!<Home>!$_\n"
                                   "TEL;TYPE=work:3\n"));
    const Contact& contact = read.book.Contacts[0];
    GroupLabels labels;
    labels.Fill(read.book, contact);
    std::string told;
    for (const Property& one : contact.Properties) {
        if (one.Name == field::kTel) {
            const KindOfProperty kind = KindOf(read.book, one, labels);
            told += std::to_string(kind.Bits) + " '" + std::string(kind.Label) + "' " +
                    (kind.IsPreferred() ? "first\n" : "\n");
        }
    }
    EXPECT_EQ(told, "0 'Boat' \n1 '' first\n2 '' \n");
}

}  // namespace
}  // namespace orvik::book

#include "book/ldif_name_cache.h"

#include <deque>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;

TEST(LdifNameCache, KnowsWhatWasMetAsItWasWritten) {
    FieldNames names;
    LdifNameCache cache(names);
    EXPECT_EQ(cache.Known("mail"), nullptr);
    const LdifAttribute& mail = cache.Of("mail");
    EXPECT_EQ(mail.Name, "mail");
    EXPECT_EQ(mail.Field, &LdifFieldOf("mail"));
    EXPECT_FALSE(mail.IsCarriedVCard);
    EXPECT_EQ(cache.Known("mail"), &mail);
    EXPECT_EQ(&cache.Of("mail"), &mail);
    // Another case is another name here, with the same meaning.
    EXPECT_EQ(cache.Known("MAIL"), nullptr);
    EXPECT_EQ(cache.Of("MAIL").Field, mail.Field);
    EXPECT_TRUE(cache.Of("X-Orvik-vCard-TEL").IsCarriedVCard);
}

TEST(LdifNameCache, TellsNamesOfEachLengthApart) {
    FieldNames names;
    LdifNameCache cache(names);
    std::deque<std::string> texts;
    for (std::size_t length = 1; length <= 40; ++length) {
        texts.emplace_back(length, 'a');
        EXPECT_EQ(cache.Known(texts.back()), nullptr) << length;
        EXPECT_EQ(cache.Of(texts.back()).Name, texts.back());
        // One letter is another one, wherever it stands.
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = texts.back();
            other[at] = 'b';
            EXPECT_EQ(cache.Known(other), nullptr) << length << " " << at;
        }
        EXPECT_EQ(cache.Known(std::string(length, 'a')), &cache.Of(texts.back())) << length;
    }
}

TEST(LdifNameCache, HasNoNameForNothing) {
    FieldNames names;
    LdifNameCache cache(names);
    EXPECT_EQ(cache.Known(""), nullptr);
    cache.Of("cn");
    EXPECT_EQ(cache.Known(""), nullptr);
}

// There are far more names than places, so that most push another one out, also out of the chain of
// what came behind what.
TEST(LdifNameCache, StaysRightWhenNamesPushEachOtherOut) {
    FieldNames names;
    LdifNameCache cache(names);
    std::deque<std::string> texts;
    for (int i = 0; i < 5000; ++i) {
        texts.push_back("x" + std::to_string(i * 7919 % 5000));
    }
    for (int round = 0; round < 3; ++round) {
        for (const std::string& text : texts) {
            const LdifAttribute* const known = cache.Known(text);
            if (known != nullptr) {
                ASSERT_EQ(known->Name, text);
            }
            const LdifAttribute& one = cache.Of(text);
            ASSERT_EQ(one.Name, text);
            ASSERT_EQ(one.Field->Meaning, LdifMeaning::Unknown);
            const NameId carried = cache.CarriedAs(text);
            ASSERT_EQ(names.Text(carried), "X-ORVIK-LDIF-" + text);
            ASSERT_EQ(cache.CarriedAs(text), carried);
        }
    }
}

TEST(LdifNameCache, CarriesANameThatItDoesNotHold) {
    FieldNames names;
    LdifNameCache cache(names);
    const NameId id = cache.CarriedAs("shoeSize");
    EXPECT_EQ(names.Text(id), "X-ORVIK-LDIF-shoeSize");
    cache.Of("shoeSize");
    EXPECT_EQ(cache.CarriedAs("shoeSize"), id);
    EXPECT_EQ(cache.CarriedAs("SHOESIZE"), id);
}

// What was met before is read as if it came for the first time, in any form.
TEST(LdifNameCache, ReadsEachFormOfAKnownName) {
    const std::string record =
        "mail: a@b\nmail:: YkBj\nmail:< file:///x\nmail:\nmail;x-a: d@e\nmail :f\nmail\nMail: g@h\n"
        "shoeSize: 1\nshoeSize;x-a: 2\nshoeSize:\n";
    const ReadBook one(ReadLdif, "dn: cn=a\n" + record);
    const ReadBook two(ReadLdif, "dn: cn=a\n" + record + "\ndn: cn=a\n" + record);
    ASSERT_EQ(two.book.Contacts.size(), 2U);
    const std::string wanted = Shown(one.book, one.book.Contacts[0]);
    EXPECT_EQ(Shown(two.book, two.book.Contacts[0]), wanted);
    EXPECT_EQ(Shown(two.book, two.book.Contacts[1]), wanted);
}

}  // namespace
}  // namespace orvik::book

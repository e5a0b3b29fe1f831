#include "book/value_edit.h"

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;

struct OneField {
    explicit OneField(const std::string& line)
        : read(ReadVCard, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Al\r\n" + line + "\r\nEND:VCARD\r\n"),
          field(read.book.Contacts.front().Properties.back()) {}

    // What is edited, and the value with "bo; c" in its place.
    [[nodiscard]] std::string Edited() const {
        const auto text = EditableText(read.book, field);
        return text ? *text + " -> " + ValueOfText(read.book, field, "bo; c") : "none";
    }

    ReadBook read;
    const Property& field;
};

TEST(ValueEditTest, WhatThereIsToChange) {
    EXPECT_EQ(OneField("EMAIL:al@@x").Edited(), "al@@x -> bo; c");
    EXPECT_EQ(OneField("TEL;TYPE=work:5").Edited(), "5 -> bo; c");
    EXPECT_EQ(OneField("MEMBER:mailto:al@x").Edited(), "al@x -> mailto:bo; c");
    EXPECT_EQ(OneField("MEMBER;VALUE=text:Al\\, B").Edited(), "Al, B -> bo\\; c");
    EXPECT_EQ(OneField("MEMBER:urn:uuid:1").Edited(), "urn:uuid:1 -> bo; c");
    EXPECT_EQ(OneField("MEMBER;X-ORVIK-DN=\"cn=Al\":mailto:al@x").Edited(), "none");
    EXPECT_EQ(OneField("EMAIL;X-EVOLUTION-DEST-EMAIL=al@x:al@x").Edited(), "none");
    EXPECT_EQ(OneField("ADR:;;Pier 5;Oslo;;;").Edited(), "none");
    EXPECT_EQ(OneField("NICKNAME:al,b").Edited(), "none");
    EXPECT_EQ(OneField("PHOTO;ENCODING=b:QWRh").Edited(), "none");
}

TEST(ValueEditTest, FieldsWithAChange) {
    ReadBook read(ReadLdif, "dn: cn=Al\ncn: Al\nmail: a@x\nmail: b@x\n");
    const Contact& contact = read.book.Contacts.front();
    std::vector<Property> fields = FieldsWith(contact, 1, "c@x");
    const Contact with = read.book.WithFields(contact, fields);
    EXPECT_EQ(Shown(read.book, with),
              Shown(read.book, contact).replace(Shown(read.book, contact).find("a@x"), 3, "c@x"));
    fields = FieldsWithout(contact, {1});
    const Contact without = read.book.WithFields(contact, fields);
    EXPECT_EQ(Shown(read.book, without).find("a@x"), std::string::npos);
    EXPECT_NE(Shown(read.book, without).find("b@x"), std::string::npos);
    EXPECT_NE(Shown(read.book, contact).find("a@x"), std::string::npos);
}

TEST(ValueEditTest, TheFieldThatARemarkIsAbout) {
    const ReadBook read(ReadLdif, "dn: cn=Al\ncn: Al\nmail: a@x\n");
    const Contact& contact = read.book.Contacts.front();
    Remark remark;
    EXPECT_EQ(FieldOfRemark(contact, remark), std::nullopt);
    remark.Value = "a@x";
    const auto field = FieldOfRemark(contact, remark);
    ASSERT_TRUE(field);
    EXPECT_EQ(contact.Properties[*field].Name, field::kEmail);
    remark.Value = "b@x";
    EXPECT_EQ(FieldOfRemark(contact, remark), std::nullopt);
}

}  // namespace
}  // namespace orvik::book

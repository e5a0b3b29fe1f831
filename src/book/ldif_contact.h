// One record of LDIF as a contact. Fields: ldif_fields.h.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/ldif_fields.h"
#include "book/ldif_lines.h"
#include "book/ldif_name_cache.h"
#include "book/lines.h"

namespace orvik::book {

class LdifContacts {
 public:
    // All must outlive this.
    LdifContacts(Book& book, Charset& charset, std::uint32_t file);

    // The contact of a record that begins in from.Line.
    void Add(const std::vector<TextRow>& rows, std::size_t first, const Origin& from);

 private:
    // Only so many fields are looked through for an equal one: nobody has more, and time stays
    // linear.
    static constexpr std::size_t kMostCompared = 64;

    // A value as it is kept.
    struct Value {
        std::string_view Text;
        bool Binary = false;  // Text is base64
        bool Raw = false;     // Text is where bytes are, not the bytes
    };
    // The components of a property that several lines make up.
    struct Parts {
        std::array<std::string_view, 7> Texts;
        std::uint32_t Line = 0;
    };

    void Clear();
    void TakeRow(const TextRow& row);
    void TakeBytes(const LdifField& field, const LdifParts& parts, const Value& value);
    void TakeText(const LdifField& field, const LdifParts& parts, std::string_view text);
    void TakeShownName(const LdifField& field, const LdifParts& parts, std::string_view text);
    void TakeMerged(const LdifField& field, const LdifParts& parts, std::string_view text);
    void TakePart(Parts& whole, std::size_t part, const LdifParts& parts, std::string_view text);
    void TakeOnce(std::string_view& place, const LdifParts& parts, std::string_view text);
    void CarryLate(const LdifParts& parts, std::string_view text);
    void TakeObjectClass(const LdifParts& parts, std::string_view text);
    void TakeUrl(const LdifField& field, const LdifParts& parts, std::string_view text);
    void TakeOptions(const LdifField& field, const LdifParts& parts, std::string_view text);
    Value ValueOf(const LdifField& field, const LdifParts& parts);
    Value FromBase64(const LdifField& field, const LdifParts& parts);
    std::string_view Letters(std::string_view bytes,
                             const LdifField& field,
                             const LdifParts& parts);
    void Carry(std::string_view name, std::string_view text, std::span<const Param> params = {});
    void Push(NameId name, std::string_view value, std::uint32_t details = 0) {
        // Made where it stays: a copy waits for its short parts.
        Property& one = properties_.emplace_back();
        one.Value = value;
        one.Name = name;
        one.File = file_;
        one.Line = row_;
        one.Details = details;
    }
    void PushOnce(NameId name, std::string_view value, std::uint32_t details = 0);
    void PushParts(NameId name, const Parts& whole, std::size_t count, std::string_view type);
    bool TakeCarried(const LdifParts& parts, std::string_view text);
    void TakeAttribute(const LdifAttribute& attribute, const LdifParts& parts);
    void Finish();
    void FinishCarried(std::size_t merged);
    void FinishPostal(Parts& whole, std::string_view postal, std::string_view name);
    void FinishUnit();
    // Another value of what is at the end of the record, right there.
    void CarryFirst(std::string_view name, std::string_view text);
    void FinishBirthday();
    void FinishDn();
    [[nodiscard]] bool Has(NameId name, std::string_view value) const;
    [[nodiscard]] std::string_view First(NameId name) const;
    std::uint32_t TypeDetails(std::string_view type);
    std::string_view AsPart(std::string_view text);
    void Doubt(Reason reason, const LdifParts& parts);

    Book& book_;
    Charset& charset_;
    std::uint32_t file_;
    std::vector<std::pair<std::string_view, std::uint32_t>> types_;
    std::uint32_t nameless_ = 0;
    LdifNameCache attributes_;
    bool has_nul_;      // the file has one somewhere
    bool plain_;        // all letters of the file are good UTF-8
    std::string text_;  // what is being made, before it is kept

    // Of the record that is being read.
    Contact contact_;
    std::vector<Property> properties_;
    PieceCharset piece_ = PieceCharset::Utf8;
    std::uint32_t row_ = 0;  // the line that is being taken
    std::string_view dn_;
    Parts name_;
    Parts work_;
    Parts home_;
    Parts org_;
    std::array<std::string_view, 3> birth_;
    std::string_view any_phone_;
    std::string_view post_box_;
    std::string_view postal_;
    std::string_view home_postal_;
    std::string_view unit_;
    bool of_kcontacts_ = false;
    bool named_by_display_ = false;  // no cn so far
    std::vector<Property> late_;     // other values of what stands at the end
    std::vector<Property> carried_;  // whole properties of which programs were given parts
    bool last_was_carried_ = false;
};

}  // namespace orvik::book

// One card as a contact.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/lines.h"
#include "book/vcard_lines.h"

namespace orvik::book {

class VCardContacts {
 public:
    // All must outlive this.
    VCardContacts(Book& book, Charset& charset, std::uint32_t file);

    // The contact of a card, of its lines between BEGIN and END. form is None for a card without
    // a version.
    void Add(const std::vector<TextRow>& rows, Dialect form, const Origin& from);

 private:
    // What the parameters say about the value, less what is gone when it is read.
    struct Manner {
        VCardEncoding Encoding = VCardEncoding::None;
        std::string_view Charset;
    };

    void Judge(const std::vector<TextRow>& rows);
    void TakeRow(const TextRow& row);
    void TakeVersion(const VCardParts& parts, std::uint32_t line);
    Manner TakeParams(const VCardParts& parts);
    std::uint32_t DetailsOf(const VCardParts& parts);
    void TakeTypes(NameId name, std::string_view value, const VCardParts& parts);
    std::string_view ParamText(std::string_view value, const VCardParts& parts);
    std::string_view ValueOf(NameId name, const VCardParts& parts, const Manner& manner);
    std::optional<std::string_view> TakeOwnParam(std::string_view own);
    std::string_view TakeBreaks(NameId name, std::string_view value);
    std::string_view OldValue(ValueForm form, const VCardParts& parts, const Manner& manner);
    std::string_view Base64Of(const VCardParts& parts);
    void AppendOld(std::string_view part,
                   ValueForm form,
                   const VCardParts& parts,
                   const Manner& manner,
                   std::string& to);
    std::string_view Letters(std::string_view bytes, const VCardParts& parts, const Manner& manner);
    void FindKind(NameId name, std::string_view value);
    void Doubt(Reason reason, const VCardParts& parts);

    Book& book_;
    Charset& charset_;
    std::uint32_t file_;

    // Of the card that is being read.
    Contact contact_;
    std::vector<Property> properties_;
    Dialect form_ = Dialect::None;
    PieceCharset piece_ = PieceCharset::Utf8;
    PieceCharset quoted_ = PieceCharset::Utf8;
    std::vector<Param> params_;
    std::uint32_t details_ = 0;  // of the last field without a group that has any
    std::string_view details_of_;
};

}  // namespace orvik::book

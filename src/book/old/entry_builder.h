// Puts the records of old formats together: their letters, their names, what nobody else knows.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/charset.h"

namespace orvik::book {

class EntryBuilder {
 public:
    // All must outlive this.
    EntryBuilder(Book& book, std::uint32_t file, Charset& charset);

    // Begins a record: its bytes in the source's text, its first line and how many it has, and its
    // values as they stand there, which share one set of letters.
    void Begin(std::string_view bytes,
               std::uint32_t line,
               std::uint32_t lines,
               ContactKind kind,
               std::span<const std::string_view> values);
    // A value of this record as letters; field is what the format calls it, for what is told.
    std::string_view Letters(std::string_view value, std::string_view field);
    // The same for a name, which may be shown as an example of the letters of the file.
    std::string_view LettersOfName(std::string_view value, std::string_view field);
    // Properties of this record, in the order in which they are added; values are UTF-8. Kept: the
    // text is copied. The line is that of the property.
    void Push(NameId name, std::string_view value, std::uint32_t line, std::uint32_t details = 0);
    void PushKept(NameId name,
                  const std::string& value,
                  std::uint32_t line,
                  std::uint32_t details = 0);
    // FN as it stands, unless it is empty, and the N that it most likely is; all words but the last
    // one are given names, and that is told once of a file.
    //   "Abbott, Ada" -> N "Abbott;Ada;;;";  "Ada Maria Abbott" -> N "Abbott;Ada Maria;;;"
    void PushName(std::string_view name, std::uint32_t line);
    // Whether a name and an address stand in each other's place, as they do in what the window made
    // of pages of Netscape 3; that is told once of a file.
    //   "ada@example.org", "Ada" -> true;  "Ada", "A1" -> false
    bool AreExchanged(std::string_view name, std::string_view address);
    // What the format calls a field that vCard has no name for, "X-ORVIK-<FORMAT>-<field>".
    void PushCarried(std::string_view format,
                     std::string_view field,
                     std::string_view value,
                     std::uint32_t line);
    // One value of a field that holds several, NICKNAME or CATEGORIES.
    void PushWords(NameId name, std::string_view value, std::uint32_t line);
    // A member of this list: the record of this file that begins on a line; or whoever has an
    // address, with a name or without; or, without an address, somebody of that name in any file.
    void PushMemberAt(std::uint32_t member, std::uint32_t line);
    void PushMember(std::string_view address, std::string_view name, std::uint32_t line);
    // TYPE parameters, "home voice".
    std::uint32_t Types(std::string_view types);
    // Something odd about this record.
    void Doubt(std::string_view field, std::string_view value, Reason why);
    // Text that is no record; not while one is begun.
    void Skip(std::string_view text, std::uint32_t line, Reason why);
    // Takes the record; one without properties is kept, too.
    void End();

 private:
    Book& book_;
    std::uint32_t file_;
    Charset& charset_;
    bool plain_;                 // all letters of the file are good UTF-8
    bool guessed_ = false;       // a name was parted at a blank, and that is told
    bool exchanged_ = false;     // an address stood in the place of the name, and that is told
    std::uint32_t as_text_ = 0;  // the details of members by name
    Contact contact_;
    PieceCharset piece_ = PieceCharset::Utf8;
    std::vector<Property> properties_;
};

}  // namespace orvik::book

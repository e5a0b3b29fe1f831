// A book as text, and books made of text.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/read_ldif.h"
#include "book/read_vcard.h"

namespace orvik::book::test {

// Control letters as \xNN, so that a failure can be read.
inline std::string Escaped(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string shown;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ') {
            shown += "\\x";
            shown += kDigits[byte / 16];
            shown += kDigits[byte % 16];
        } else {
            shown += c;
        }
    }
    return shown;
}

// "NAME;PARAM=VALUE:VALUE" for each property, with its group.
inline std::string Shown(const Book& book, const Contact& contact) {
    std::string shown = contact.Kind == ContactKind::List ? "list\n" : "person\n";
    for (const Property& one : contact.Properties) {
        const Details& details = book.DetailsOf(one);
        shown += details.Group.empty() ? "" : std::string(details.Group) + ".";
        shown += book.Names.Text(one.Name);
        for (const Param& param : details.Params) {
            shown += ";" + std::string(book.Names.Text(param.Name)) + "=";
            shown += Escaped(param.Value);
        }
        shown += ":" + Escaped(one.Value) + "\n";
    }
    return shown;
}

inline std::string Shown(const Book& book) {
    std::string shown;
    for (const Contact& contact : book.Contacts) {
        shown += Shown(book, contact);
    }
    return shown;
}

// "WHAT LINE FIELD: VALUE: REASON" for each remark.
inline std::string Told(const Book& book) {
    std::string told;
    for (const Remark& one : book.Told.Remarks()) {
        told += std::string(NameOf(one.Kind)) + " " + std::to_string(one.Line) + " " +
                std::string(one.Field) + ": " + Escaped(one.Value) + ": " +
                std::string(WordsFor(one.Why)) + "\n";
    }
    return told;
}

// A book read from the bytes of one file.
struct ReadBook {
    using Reader = void (*)(Book&, std::uint32_t, Charset&);

    ReadBook(Reader reader, std::string bytes, std::string_view charset = {}) {
        const std::uint32_t file =
            book.AddSource(std::make_unique<Source>("file", std::move(bytes)));
        Charset letters(book.SourceAt(file), charset);
        reader(book, file, letters);
        sentence = letters.Sentence("record");
    }

    Book book;
    std::string sentence;
};

}  // namespace orvik::book::test

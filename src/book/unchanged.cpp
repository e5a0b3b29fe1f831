#include "book/unchanged.h"

#include <algorithm>

#include "book/vcard_lines.h"

namespace orvik::book {
namespace {

bool IsUnchanged(const Contact& contact, Dialect target) {
    return !contact.Changed && contact.From.Lines > 0 && contact.Form == target && contact.IsUtf8;
}

// Whether a record ends as its format wants it; otherwise the next one would become part of it.
bool IsEnded(std::string_view record, Dialect form) {
    if (form == Dialect::Ldif) {
        return true;
    }
    record = record.substr(0, record.find_last_not_of("\r\n") + 1);
    return EndsCard(record.substr(record.find_last_of("\r\n") + 1));
}

}  // namespace

std::optional<std::string_view> UnchangedRecord(const Book& book,
                                                const Contact& contact,
                                                Dialect target) {
    if (!IsUnchanged(contact, target)) {
        return std::nullopt;
    }
    const std::string_view bytes = book.BytesOf(contact);
    return IsEnded(bytes, target) ? std::optional(bytes) : std::nullopt;
}

std::optional<std::string_view> UnchangedFile(const Book& book, Dialect target) {
    if (book.Contacts.empty()) {
        return std::nullopt;
    }
    const std::uint32_t file = book.Contacts.front().From.File;
    if (book.ReadFrom(file) != book.Contacts.size()) {
        return std::nullopt;
    }
    std::uint32_t line = 0;
    for (const Contact& contact : book.Contacts) {
        const bool next = contact.From.File == file && contact.From.Line > line;
        if (!next || !IsUnchanged(contact, target)) {
            return std::nullopt;
        }
        line = contact.From.Line;
    }
    return book.SourceAt(file).Bytes();
}

void CountAllKept(Book& book) {
    for (const Contact& contact : book.Contacts) {
        book.Told.CountMore(What::Kept, contact.Properties.size());
    }
}

}  // namespace orvik::book

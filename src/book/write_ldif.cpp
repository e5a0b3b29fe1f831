#include "book/write_ldif.h"

#include "book/identity.h"
#include "book/ldif_record.h"
#include "book/members.h"
#include "book/unchanged.h"

namespace orvik::book {

std::string WriteLdif(Book& book, std::optional<LdifAttributes> set, RecordPlaces* places) {
    const bool whole = !set && places == nullptr;
    if (const auto bytes = whole ? UnchangedFile(book, Dialect::Ldif) : std::nullopt) {
        CountAllKept(book);
        return std::string(*bytes);
    }
    const Identities identities(book);
    const Directory directory(book, identities);
    std::string text = "version: 1\n";
    text.reserve(book.LikelyLength());
    LdifRecordWriter writer(book, directory, set.value_or(LdifAttributes::Mozilla), text);
    for (std::size_t i = 0; i < book.Contacts.size(); ++i) {
        const Contact& contact = book.Contacts[i];
        if (places != nullptr) {
            places->push_back(text.size());
        }
        text += '\n';
        if (const auto bytes = set ? std::nullopt : UnchangedRecord(book, contact, Dialect::Ldif)) {
            text.append(*bytes);
            text.append(text.ends_with('\n') || text.ends_with('\r') ? "" : "\n");
            book.Told.CountMore(What::Kept, contact.Properties.size());
        } else {
            writer.Write(contact, identities, i);
        }
        book.CountWritten(i + 1);
    }
    if (places != nullptr) {
        places->push_back(text.size());
    }
    return text;
}

}  // namespace orvik::book

#include "book/write_ldif.h"

#include "book/identity.h"
#include "book/ldif_record.h"
#include "book/members.h"
#include "book/unchanged.h"

namespace orvik::book {

std::string WriteLdif(Book& book, std::optional<LdifAttributes> set) {
    if (const auto bytes = set ? std::nullopt : UnchangedFile(book, Dialect::Ldif)) {
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
    return text;
}

}  // namespace orvik::book

// What must hold of any bytes that are read as a book of records.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/detect.h"
#include "book/read_csv.h"
#include "book/read_ldif.h"
#include "book/read_vcard.h"
#include "book/utf8.h"
#include "book/write_csv.h"
#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "fuzz/fuzz_target.h"

namespace orvik::fuzz {

using BookReader = void (*)(book::Book&, std::uint32_t, book::Charset&);

inline std::unique_ptr<book::Book> ReadBook(BookReader reader,
                                            std::string bytes,
                                            std::string_view set = {}) {
    auto read = std::make_unique<book::Book>();
    const std::uint32_t file =
        read->AddSource(std::make_unique<book::Source>("file", std::move(bytes)));
    book::Charset charset(read->SourceAt(file), set);
    reader(*read, file, charset);
    Check(!charset.Sentence("record").empty(), "the character set is told");
    return read;
}

inline void CheckBack(BookReader reader, const std::string& written, const book::Book& book) {
    // NULs make other text of it, see WideFormOf.
    if (book::WideFormOf(written) != book::WideForm::None) {
        return;
    }
    const auto back = ReadBook(reader, written);
    Check(back->Contacts.size() == book.Contacts.size(), "each contact comes back");
}

inline void ReadTable(book::Book& book, std::uint32_t file, book::Charset& charset) {
    const auto found = book::ReadCsv(book, file, charset, {});
    Check(!found.Sentence.empty(), "what was decided is told");
}

// What a program's table holds is written as it is there.
inline void CheckTables(book::Book& book) {
    using enum book::CsvProgram;
    for (const book::CsvProgram program : {Thunderbird, Google, Outlook, OutlookNew}) {
        const std::string once = book::WriteCsv(book, program);
        // NULs, escapes, marks and ends of files make other text of it.
        const bool signs = once.find_first_of("\x1A\x1B") != std::string::npos ||
                           once.find("\xEF\xBB\xBF", 1) != std::string::npos;
        if (signs || book::WideFormOf(once) != book::WideForm::None) {
            continue;
        }
        const auto back = ReadBook(ReadTable, once, program == Outlook ? "windows-1252" : "");
        Check(book::WriteCsv(*back, program) == once, "a table comes back");
    }
}

inline void CheckTrips(BookReader reader, std::string_view bytes) {
    const auto read = ReadBook(reader, std::string(bytes));
    const book::Source source("file", std::string(bytes));
    Check(!book::Detect(source).Evidence.empty(), "the evidence is told");
    for (book::Contact& contact : read->Contacts) {
        for (const book::Property& property : contact.Properties) {
            Check(book::CountUtf8(property.Value).Bad == 0, "values are UTF-8");
        }
        contact.Changed = true;
    }
    CheckBack(book::ReadVCard, book::WriteVCard(*read, book::Dialect::VCard30), *read);
    CheckBack(book::ReadVCard, book::WriteVCard(*read, book::Dialect::VCard40), *read);
    CheckBack(book::ReadVCard,
              book::WriteVCard(*read, book::Dialect::VCard40, nullptr, book::GroupForm::Param),
              *read);
    CheckBack(book::ReadLdif, book::WriteLdif(*read, book::LdifAttributes::Mozilla), *read);
    CheckBack(book::ReadLdif, book::WriteLdif(*read, book::LdifAttributes::Thunderbird), *read);
    CheckBack(book::ReadLdif, book::WriteLdif(*read, book::LdifAttributes::KContacts), *read);
    CheckTables(*read);
}

}  // namespace orvik::fuzz

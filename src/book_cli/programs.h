// The programs that a book can be written for: which files each imports, how many records and bytes
// it takes, and where its user finds the import.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "book/ldif_sets.h"
#include "book/record.h"
#include "book/write_csv.h"
#include "book/write_vcard.h"

namespace orvik::book_cli {

// What a program takes; 0 where nobody knows of a limit.
struct ImportLimits {
    // Records of one file. More files are of use.
    std::size_t Records = 0;
    // Bytes of one record, of one picture, and e-mail addresses of one person.
    std::size_t RecordBytes = 0;
    std::size_t PhotoBytes = 0;
    std::size_t Addresses = 0;
    // Phones of one kind, as LDIF has kinds.
    std::size_t PhonesOfKind = 0;
    // Records, bytes without pictures, and bytes of pictures, of all that somebody keeps there.
    // More files are of none.
    std::size_t AllRecords = 0;
    std::size_t AllBytes = 0;
    std::size_t AllPhotoBytes = 0;
};

// A kind of file that a program imports.
struct ImportForm {
    std::string_view Ending = {};  // ".vcf"; empty for a file of any name
    book::Dialect Form = book::Dialect::VCard30;
    // Of LDIF and of CSV.
    std::optional<book::LdifAttributes> Set = {};
    book::CsvProgram Table = book::CsvProgram::Google;
    // How vCard has groups that the program reads.
    book::GroupForm Groups = book::GroupForm::Prefix;
    // Whether lists arrive as lists, or as what the program has in their place.
    bool TakesLists = false;
    // Lists have to be categories of their members; tables and old formats have their own ways.
    bool ListsAsCategories = false;
    // How lists of LDIF are read: members by their address alone, and no list in a list.
    bool MembersByAddress = false;
    bool ListsInLists = true;
    // Whether the bytes of pictures are read; tables hold none. And whether of the usual kinds
    // alone: JPEG, PNG, GIF and BMP.
    bool TakesPhotos = true;
    bool UsualPhotosOnly = false;
    ImportLimits Most = {};
    // Who keeps no more than all of that: "iCloud keeps".
    std::string_view Keeper = {};
    // Why no file may have more records; a sentence about the program.
    std::string_view Why = {};
    // Where the user imports it, in the words of the program where they are known.
    std::string_view Where = {};
};

struct Program {
    std::string_view Name;   // as --to has it
    std::string_view Title;  // as people call it
    // The first one is written where nothing asks for another, or the first that takes lists.
    std::span<const ImportForm> Forms;
};

// All of them, in the order in which they are named.
[[nodiscard]] std::span<const Program> Programs();

// Null for a name that is none.
[[nodiscard]] const Program* ProgramNamed(std::string_view name);

// FormOf: what a program imports under the ending of a file's name; null where it is none of them.
[[nodiscard]] const ImportForm* FormOf(const Program& program, std::string_view file);

// EndsAs: whether a file's name has an ending, or another one of the same format; any has none.
//   ".vcf", "book.vcard" -> true
[[nodiscard]] bool EndsAs(std::string_view ending, std::string_view file);

// FormFor: what is written for a program where no name asks for a form.
[[nodiscard]] const ImportForm& FormFor(const Program& program, bool has_lists);

// EndingsOf: ".vcf, .ldif or .csv".
[[nodiscard]] std::string EndingsOf(const Program& program);

}  // namespace orvik::book_cli

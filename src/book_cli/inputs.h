// The files that orvik-book reads, as one book.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/csv_columns.h"
#include "book/detect.h"
#include "book_cli/console.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

// What was found out about a source besides its records.
struct Input {
    book::Format Form = book::Format::None;
    std::string Evidence;  // "line 1 begins a card"
    std::string Charset;   // "windows-1252 (assumed; e.g. "Al")"
    bool CharsetIsDoubtful = false;
    // Of CSV alone: the program whose words its header has, and what was decided about its columns.
    std::string Program = {};
    std::string Columns = {};
    // The set of what is not UTF-8 in it.
    std::string OtherSet = {};
};

struct Loaded {
    book::Book Book;
    std::vector<Input> Inputs;  // by the number of the source
    // Of the first file that is no address book or cannot be read; the others are read.
    cli::ExitStatus Status = cli::ExitStatus::Done;
    // Contacts of the book that are not among its records any more, as an older book has them.
    std::vector<book::Contact> LeftOut = {};
    // Lists that became categories of their members.
    std::vector<book::Contact> Labels = {};

    [[nodiscard]] std::vector<book::Format> Formats() const;
};

// Load: reads files, "-" for standard input, and tells what is wrong with them. Nothing that they
// name is opened. charset is empty, or the one that the user named; columns are those of CSV that
// the user decides about. Errors: std::bad_alloc.
void Load(Console& console,
          std::span<const std::string> names,
          const std::string& charset,
          Loaded& loaded,
          std::span<const book::CsvMapping> columns);

// LoadBytes: the same of bytes that are there already, as if a file of this name held them. form is
// None, or what they are known to be.
void LoadBytes(Console& console,
               const std::string& name,
               std::string bytes,
               Loaded& loaded,
               book::Format form = book::Format::None);

// ReadBytes: a file that is no address book, or nothing, with the status, after telling what is
// wrong with it. Errors: std::bad_alloc.
[[nodiscard]] std::optional<std::string> ReadBytes(Console& console,
                                                   const std::string& name,
                                                   cli::ExitStatus& status);

}  // namespace orvik::book_cli

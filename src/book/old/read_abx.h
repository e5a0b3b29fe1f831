// Reads address books of WordPerfect. Format: docs/formats/wordperfect-abx.md.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/csv_columns.h"
#include "book/read_csv.h"
#include "book/source.h"

namespace orvik::book {

// Of tables whose header has tags.
//   ":::TAGMAP:::0FFE0003:***,3001001E:Name\n" -> "line 1 names columns by tags"
[[nodiscard]] std::optional<std::string> TaggedEvidence(const Source& source);
// Of other tables: those that are called so, and are tables, or hold addresses in the sixth column.
[[nodiscard]] std::optional<std::string> AbxEvidence(const Source& source);

// ReadAbx: a contact for each row; groups of a tagged table are lists.
CsvFound ReadAbx(Book& book,
                 std::uint32_t file,
                 Charset& charset,
                 std::span<const CsvMapping> asked);

}  // namespace orvik::book

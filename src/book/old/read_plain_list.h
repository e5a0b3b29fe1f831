// Reads a plain list of addresses. Format: docs/formats/working-text.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// IsTable: whether a text is rows of cells, and no list of names in quotes, commas in them or not.
[[nodiscard]] bool IsTable(const Source& source);

// Three of four lines that are not empty have to be addresses, with or without names, and nothing
// else: letters and programs hold some, too.
//   "Al <a@b>\nc@d\n" -> "line 1 begins a list of addresses"
[[nodiscard]] std::optional<std::string> PlainListEvidence(const Source& source);

// ReadPlainList: a contact for each address.
void ReadPlainList(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book

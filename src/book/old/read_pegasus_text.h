// The address book that Pegasus Mail exports as text. Format: docs/formats/pegasus.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// Why a source is such a text, tagged or as DOS had it.
[[nodiscard]] std::optional<std::string> PegasusTextEvidence(const Source& source);

// Each entry becomes a person.
void ReadPegasusText(Book& book, std::uint32_t file, Charset& charset);

// Whether an entry has a field of this name.
[[nodiscard]] bool IsPegasusLabel(std::string_view label);

// Whether a source is the binary book itself, of which the layout is known too little to read it.
[[nodiscard]] bool IsPegasusBinary(const Source& source);

}  // namespace orvik::book

// The distribution list of Pegasus Mail. Format: docs/formats/pegasus.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// Why a source is such a list: by lines of the program's own.
[[nodiscard]] std::optional<std::string> PegasusListEvidence(const Source& source);
// The same where its name is all that tells.
[[nodiscard]] std::optional<std::string> NamedPegasusListEvidence(const Source& source);

// Whether a word can be what a list calls one of its settings.
[[nodiscard]] bool IsListKeyword(std::string_view word);
// Whether a line of a list can be a member.
[[nodiscard]] bool IsListMember(std::string_view line);

// A line with an address becomes a person; the whole file is a list of these, of people by name,
// and of other lists.
void ReadPegasusList(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book

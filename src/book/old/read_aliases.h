// Aliases in the settings of mailx and of mutt. Formats: docs/formats/mailrc.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// Why a source has aliases, and whose.
[[nodiscard]] std::optional<std::string> MailrcEvidence(const Source& source);
[[nodiscard]] std::optional<std::string> MuttEvidence(const Source& source);

// An alias of one address becomes a person, any other one a list. Other settings are counted; files
// that they name are told, and never opened.
void ReadMailrc(Book& book, std::uint32_t file, Charset& charset);
void ReadMutt(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book

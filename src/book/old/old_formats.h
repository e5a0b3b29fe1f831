// The formats of old mail programs: how a file of each is known, and who reads it. A row each.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/detect.h"
#include "book/source.h"

namespace orvik::book {

struct OldFormat {
    Format Form = Format::None;
    std::string_view Name;  // "Juno address book"
    std::string_view Noun;  // what a record is called, "entry"
    // Signed: asked before cards and records of LDIF are looked for, since the file says what it
    // is. The others are asked after them and before tables, in the order of the rows.
    bool Signed = false;
    // Why a source is of this format; nothing for any other source. The ending of its name may
    // decide only between what the content leaves open.
    std::optional<std::string> (*Evidence)(const Source& source) = nullptr;
    // Adds the records of a source to its book, and what was odd about them to its report. Nothing
    // that the file names is opened. Time is linear.
    void (*Read)(Book& book, std::uint32_t file, Charset& charset) = nullptr;
};

[[nodiscard]] std::span<const OldFormat> OldFormats();
// The row of a format; null for one that is none of these.
[[nodiscard]] const OldFormat* OldFormatOf(Format form);

}  // namespace orvik::book

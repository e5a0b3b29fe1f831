// What fields are called in each version of vCard.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "book/record.h"

namespace orvik::book {

struct VCardName {
    std::string Text;
    bool Carried = false;  // under a name that only Orvik knows
};

// NameIn: what a field is called in a card of 3.0 or 4.0. A field that the version does not have is
// called X-ORVIK-VCARD-NAME, and by its own name again where it has it.
//   LABEL -> "LABEL" in 3.0, "X-ORVIK-VCARD-LABEL" in 4.0;  X-ORVIK-VCARD-LABEL -> "LABEL" in 3.0
[[nodiscard]] VCardName NameIn(Dialect version, std::string_view name);

// DateIn: a date or a time as a version writes it: 4.0 has no signs between the numbers.
//   "1980-04-12" -> "19800412";  "--04-12" -> "--0412";  what is no date stays
[[nodiscard]] std::string DateIn(Dialect version, std::string_view date);

// Bytes in an address, as 4.0 writes pictures.
struct DataUri {
    std::string_view Type;  // "image/jpeg"
    std::string_view Base64;
};
// SplitDataUri: "data:image/jpeg;base64,/9j/" -> image/jpeg, /9j/;  "https://..." -> none
[[nodiscard]] std::optional<DataUri> SplitDataUri(std::string_view value);

// Whether a type of 3.0 says what bytes are, and not whose they are.
//   "JPEG" -> true;  "HOME" -> false
[[nodiscard]] bool IsMediaType(std::string_view type);

// MediaTypeOf: what the address of bytes says that they are, by the type they have in 3.0. A
// picture without one is known by its first bytes.
//   PHOTO, "JPEG" -> "image/jpeg";  KEY, "" -> "application/octet-stream"
[[nodiscard]] std::string MediaTypeOf(NameId name, std::string_view type, std::string_view base64);

// TypeOfMedia: the type of 3.0 that tells as much; empty for bytes of which nothing is known.
//   PHOTO, "image/jpeg" -> "jpeg";  KEY, "text/plain" -> "text/plain"
[[nodiscard]] std::string_view TypeOfMedia(NameId name, std::string_view media);

}  // namespace orvik::book

// What a file is: its content decides; its name only where a table of one row would else be a text.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "book/source.h"

namespace orvik::book {

enum class Format : std::uint8_t {
    None,
    Ldif,
    VCard,
    Csv,
    Netscape3,
    Juno,
    WordPerfect,
    CcMail,
    PlainList,
    PegasusList,
    PegasusText,
    Eudora,
    Mailrc,
    Mutt,
    Pine,
    Abook
};

struct Detected {
    Format Form = Format::None;
    // Why it is an address book, "line 3 begins a card", or what it is instead, "a PNG image".
    std::string Evidence;
    // What to do about a file that is no address book here, but one for another program.
    std::string Advice = {};
};

// Detect: the format of a source. Text before the first record does not matter.
//   "BEGIN:VCARD\r\n..." -> VCard;  "dn: cn=Al\ncn: Al\n" -> Ldif;  "\x89PNG..." -> None
[[nodiscard]] Detected Detect(const Source& source);

// Whether a line begins a card or a record; blanks at its end do not matter.
[[nodiscard]] bool BeginsCard(std::string_view line);
// Here, as it is asked of each line.
[[nodiscard]] inline bool BeginsLdifRecord(std::string_view line) {
    return line.size() >= 3 && (line[0] == 'd' || line[0] == 'D') &&
           (line[1] == 'n' || line[1] == 'N') && line[2] == ':';
}

}  // namespace orvik::book

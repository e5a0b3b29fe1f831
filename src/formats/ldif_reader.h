// Reads a Netscape 4.x address book. Format: docs/formats/netscape4-ldif.md.

#pragma once

#include <string>
#include <string_view>

#include "app/late_text.h"
#include "formats/unread_entries.h"

namespace orvik {

// ReadLdif: the nicknames and addresses of an LDIF text as a list in the ASCII form, each record
// ended by the separator (CR LF for CR).
//   "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n"  ->  "\"Al\" <A1>\r\n"
// A text without a known line gives one separator.
// left_out, if it is not null, gets what is not read.
[[nodiscard]] std::string ReadLdif(std::string_view ldif,
                                   std::string_view separator,
                                   UnreadEntries* left_out = nullptr);

// Reads an LDIF text as it comes, so that no more of it is in memory than a piece and an entry.
class LdifReading {
 public:
    // As ReadLdif. left_out must outlive this.
    LdifReading(std::string_view separator, UnreadEntries* left_out);

    void Take(std::string_view piece);
    // The list, when all of the text was taken.
    [[nodiscard]] std::string List() &&;

 private:
    // Reads whole entries.
    void Read(std::string_view entries);

    std::string separator_;
    std::string entry_end_;
    UnreadEntries* left_out_;
    std::string list_;
    std::string rest_;  // what no end of an entry was found behind
    bool is_first_ = true;
};

// GiveLdifOf: an LDIF text of nothing but lines that are read, for one that ReadLdif made this list
// of with CR: with any separator it makes the same of both.
//   "\"Al\" <A1>\r\n"  ->  "\r\nxmozillanickname: Al\r\nmail: A1\r\n\r\n\r\n"
void GiveLdifOf(std::string_view list, const TakePiece& take);

// ReadWrittenLdif: what ReadLdif makes of what WriteLdif makes of a Native text, without the way
// there and back.
//   "A1\r\n-nick-\r\nAl\r\n"  ->  "\"Al\" <A1>\r\n"
[[nodiscard]] std::string ReadWrittenLdif(std::string_view native, std::string_view separator);

}  // namespace orvik

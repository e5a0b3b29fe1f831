// Reads the address book of Netscape 2 and 3, a page. Format: docs/formats/netscape3-html.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

//   "<!DOCTYPE NETSCAPE-Addressbook-file-1>..." -> "line 1 names the format"
[[nodiscard]] std::optional<std::string> Netscape3Evidence(const Source& source);
// Of pages without that line: one with a list of addresses.
//   "<DL><p><DT><A HREF=\"mailto:a@b\">..." -> "line 1 links an address in a list"
[[nodiscard]] std::optional<std::string> AddressPageEvidence(const Source& source);

// Whether a page says that it holds bookmarks, which have the same tags.
[[nodiscard]] bool IsBookmarkPage(const Source& source);

// ReadNetscape3: a contact for each entry and each folder; a folder is a list of what is in it.
void ReadNetscape3(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book

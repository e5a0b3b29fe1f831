// Exports a Netscape 4.x LDIF book for a handheld organiser. Format: docs/formats/pim.md.

#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvik {

// ExportPim: a line per record, its values joined by the separator. Lines that only Netscape uses
// ("dn: ", "cn: ", "objectclass: ", "xmozillause", "xnav") are dropped, wherever such a key stands.
//   "dn: x\r\ngivenname: Al\r\nmail: A1\r\n\r\n", ","  ->  "Al,A1\r\n"
// progress is given positions that the conversion comes to, counted from 1, in bytes; the last one
// of all among them.
[[nodiscard]] std::string ExportPim(std::string_view ldif,
                                    std::string_view separator,
                                    const std::function<void(std::size_t)>& progress);

// CountExported: how many entries an export has; one of which nothing is exported is none.
//   "Al,A1\r\n\r\nBo,B2" -> 2
[[nodiscard]] std::size_t CountExported(std::string_view output);

}  // namespace orvik

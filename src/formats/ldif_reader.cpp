#include "formats/ldif_reader.h"

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

constexpr std::string_view kNicknameKey = "\r\nxmozillanickname: ";
constexpr std::string_view kMailKey = "\r\nmail: ";
constexpr std::string_view kRecordEnd = "\r\n\r\n";

// Most lines begin with another letter than those that matter.
bool StartsWithKey(std::string_view rest, std::string_view key) {
    const std::size_t letter = kCrLf.size();
    return rest.size() > letter && rest[letter] == key[letter] && rest.starts_with(key);
}

}  // namespace

std::string ReadLdif(std::string_view ldif, std::string_view separator) {
    const std::string entry_end = EntryEnd(separator);
    std::string list;
    list.reserve(ldif.size() / 4);
    std::size_t i = FindFrom(ldif, kCrLf, 1);
    while (i <= ldif.size()) {
        const std::string_view rest = ldif.substr(i - 1);
        if (StartsWithKey(rest, kNicknameKey)) {
            i += kNicknameKey.size();
            list.append("\"").append(TakeUntil(ldif, i, kCrLf)).append("\" ");
        } else if (StartsWithKey(rest, kMailKey)) {
            i += kMailKey.size();
            list.append("<").append(TakeUntil(ldif, i, kCrLf)).append(">");
            // The line break behind an address is passed over, so the line that follows is never
            // recognised. In Netscape's books it is never a line that matters.
            ++i;
        } else {
            if (StartsWithKey(rest, kRecordEnd)) {
                list += entry_end;
            }
            ++i;
        }
        i = FindFrom(ldif, kCrLf, i);
    }
    if (list.empty() ||
        (!separator.empty() && list.back() != separator.back() && list.back() != '\n')) {
        list += entry_end;
    }
    return list;
}

}  // namespace orvik

#include "files/something_else.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "app/text.h"

namespace orvik {
namespace {

struct Kind {
    std::string_view Start;
    std::string_view Name;
};

constexpr std::array kBinary = {
    Kind{"\x89PNG\r\n\x1A\n", "a PNG picture"},
    Kind{"\xFF\xD8\xFF", "a JPEG picture"},
    Kind{"GIF87a", "a GIF picture"},
    Kind{"GIF89a", "a GIF picture"},
    Kind{"%PDF-", "a PDF document"},
    Kind{"PK\x03\x04", "a ZIP archive"},
    Kind{"\x1F\x8B\x08", "a gzip archive"},
};

// In lower case; a byte order mark and blank lines may stand before them.
constexpr std::array kText = {
    Kind{"begin:vcard", "a vCard"},
    Kind{"begin:vcalendar", "a calendar"},
};

// What the key of a mail's header is made of.
constexpr std::string_view kKeyLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

template <class Kinds>
std::string_view NameIn(const Kinds& kinds, std::string_view text) {
    const auto* const found = std::find_if(
        kinds.begin(), kinds.end(), [&](const Kind& kind) { return text.starts_with(kind.Start); });
    return found == kinds.end() ? std::string_view{} : found->Name;
}

// Where text begins, as far as a kind of text file shows there.
std::string TextStart(std::string_view file) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    constexpr std::size_t kLongest = 16;
    if (file.starts_with(kByteOrderMark)) {
        file.remove_prefix(kByteOrderMark.size());
    }
    file.remove_prefix(std::min(file.size(), file.find_first_not_of(" \t\r\n")));
    return ToLower(file.substr(0, kLongest));
}

// A mail begins with the line "From ", and the key of a header stands behind it: a list may have
// an entry that is called so.
bool IsMailFolder(std::string_view file) {
    if (!file.starts_with("From ")) {
        return false;
    }
    file.remove_prefix(std::min(file.size() - 1, file.find('\n')) + 1);
    const std::size_t key_end = std::min(file.size(), file.find_first_not_of(kKeyLetters));
    return key_end > 0 && Mid(file, key_end + 1, 1) == ":";
}

}  // namespace

std::string_view PlainlySomethingElse(std::string_view file) {
    if (IsMailFolder(file)) {
        return "a mail folder";
    }
    const std::string_view binary = NameIn(kBinary, file);
    return binary.empty() ? NameIn(kText, TextStart(file)) : binary;
}

}  // namespace orvik

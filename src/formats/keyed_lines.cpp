#include "formats/keyed_lines.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace orvik {
namespace {

// keys: in lower case, the frequent ones first.
KeyedFormat::Keys ByFirstLetter(std::initializer_list<std::string_view> keys) {
    KeyedFormat::Keys by_letter;
    for (const std::string_view key : keys) {
        by_letter.at(static_cast<unsigned char>(key.front())).push_back(key);
    }
    return by_letter;
}

// Whether a line begins with an own key, written as programs write it, and a colon: most lines that
// are not read do.
bool BeginsWithOwnKey(std::string_view line, const KeyedFormat& format) {
    const auto& keys = format.OwnKeysOf(line.front());
    return std::any_of(keys.begin(), keys.end(), [&](std::string_view own) {
        return line.size() > own.size() && line[own.size()] == ':' && line.starts_with(own);
    });
}

bool IsOwnKey(std::string_view key, const KeyedFormat& format) {
    // Only letters have such a letter in lower case.
    constexpr unsigned kLower = 0x20;
    const char first =
        key.empty() ? '\0' : static_cast<char>(static_cast<unsigned char>(key.front()) | kLower);
    const auto& keys = format.OwnKeysOf(first);
    return std::any_of(keys.begin(), keys.end(), [key](std::string_view own) {
        return own.size() == key.size() && own == ToLower(key);
    });
}

void TakeUnreadLine(UnreadEntries& left_out, std::string_view line, const KeyedFormat& format) {
    if (line.empty()) {
        left_out.EndEntry();
        return;
    }
    // A line that begins with a blank goes on with the one before it.
    if (line.front() == ' ' || line.front() == '#' || BeginsWithOwnKey(line, format)) {
        return;
    }
    const std::size_t colon = FindNear(line, ':', 0);
    if (colon == std::string_view::npos) {
        return;
    }
    const std::string_view key = line.substr(0, colon);
    if (!IsOwnKey(key.substr(0, FindNear(key, ';', 0)), format)) {
        left_out.Other(line.substr(colon + 1));
    }
}

}  // namespace

const KeyedFormat& LdifLines() {
    static const KeyedFormat kLdif{"xmozillanickname: ",
                                   "mail: ",
                                   true,
                                   ByFirstLetter({"objectclass",
                                                  "dn",
                                                  "xnavusehtmlmail",
                                                  "version",
                                                  "changetype",
                                                  "modifytimestamp",
                                                  "xnavusecallpointserver",
                                                  "xmozillausehtmlmail",
                                                  "xmozillauseconferenceserver",
                                                  "mozillausehtmlmail"})};
    return kLdif;
}

const KeyedFormat& JunoLines() {
    static const KeyedFormat kJuno{
        "Name:", "Email:", false, ByFirstLetter({"type", "version", "deleted", "time"})};
    return kJuno;
}

// LF ends an attribute too: a file without CR LF is one such line.
void TakeUnreadLines(UnreadEntries& left_out, std::string_view& file, const KeyedFormat& format) {
    for (bool at_start = true;; at_start = false) {
        std::string_view line = TakePart(file, "\n");
        const bool ended = line.ends_with('\r') && line.end() != file.end();
        if (ended) {
            line.remove_suffix(1);
        }
        if (at_start || !ended || !line.empty()) {
            TakeUnreadLine(left_out, line, format);
        }
        if (ended || file.empty()) {
            return;
        }
    }
}

}  // namespace orvik

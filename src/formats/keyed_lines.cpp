#include "formats/keyed_lines.h"

#include <algorithm>
#include <cstddef>

namespace orvik {
namespace {

// Whether a line begins with an own key, written as programs write it, and a colon: most lines that
// are not read do.
bool BeginsWithOwnKey(std::string_view line, const KeyedFormat& format) {
    return std::any_of(format.OwnKeys.begin(), format.OwnKeys.end(), [&](std::string_view own) {
        return line.front() == own.front() && line.size() > own.size() && line[own.size()] == ':' &&
               line.starts_with(own);
    });
}

bool IsOwnKey(std::string_view key, const KeyedFormat& format) {
    return std::any_of(format.OwnKeys.begin(), format.OwnKeys.end(), [key](std::string_view own) {
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
                                   {"objectclass",
                                    "dn",
                                    "xnavusehtmlmail",
                                    "version",
                                    "changetype",
                                    "modifytimestamp",
                                    "xnavusecallpointserver",
                                    "xmozillausehtmlmail",
                                    "xmozillauseconferenceserver",
                                    "mozillausehtmlmail"}};
    return kLdif;
}

const KeyedFormat& JunoLines() {
    static const KeyedFormat kJuno{
        "Name:", "Email:", false, {"type", "version", "deleted", "time"}};
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

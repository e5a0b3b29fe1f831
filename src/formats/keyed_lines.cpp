#include "formats/keyed_lines.h"

#include <algorithm>
#include <cstddef>

namespace orvik {
namespace {

bool IsOwnKey(std::string_view key, const KeyedFormat& format) {
    const auto same = [](char own, char c) {
        return own == c || (c >= 'A' && c <= 'Z' && own == c - 'A' + 'a');
    };
    return std::any_of(format.OwnKeys.begin(), format.OwnKeys.end(), [&](std::string_view own) {
        return own.size() == key.size() && std::equal(own.begin(), own.end(), key.begin(), same);
    });
}

void TakeUnreadLine(UnreadEntries& left_out, std::string_view line, const KeyedFormat& format) {
    if (line.empty()) {
        left_out.EndEntry();
        return;
    }
    // A line that begins with a blank goes on with the one before it.
    if (line.front() == ' ' || line.front() == '#') {
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
                                   {"dn",
                                    "version",
                                    "changetype",
                                    "objectclass",
                                    "modifytimestamp",
                                    "xnavusehtmlmail",
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

// The books whose lines are each a key and a value, LDIF and Juno's, as our readers take them: the
// line of a nickname, the line of an address, and all others, which are dropped.

#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "formats/unread_entries.h"

namespace orvik {

struct KeyedFormat {
    // The keys of what a program keeps for itself, by their first letter.
    using Keys = std::array<std::vector<std::string_view>, 256>;

    std::string_view NicknameKey;
    std::string_view AddressKey;
    // The line behind an address is passed over: it is never recognised.
    bool PassesOver;
    Keys OwnKeys;

    [[nodiscard]] const std::vector<std::string_view>& OwnKeysOf(char first) const {
        return OwnKeys[static_cast<unsigned char>(first)];  // NOLINT: 256 entries, one per char
    }
};

[[nodiscard]] const KeyedFormat& LdifLines();
[[nodiscard]] const KeyedFormat& JunoLines();

// TakeUnreadLines: takes the first line of a file, one that is not read, to what is left out.
void TakeUnreadLines(UnreadEntries& left_out, std::string_view& file, const KeyedFormat& format);

// ReadKeyedLines: gives the values of the lines that CR LF or the end of the file ends to a reader,
// which has Nickname(value), Address(value) and EmptyLine(). left_out, if it is not null, gets
// these values and those that are dropped. A line is recognised only behind CR LF, and so never the
// first, unless what the file is the rest of ended so.
template <class Reader>
void ReadKeyedLines(std::string_view file,
                    const KeyedFormat& format,
                    Reader& reader,
                    UnreadEntries* left_out,
                    bool behind_crlf = false) {
    // Most lines begin with another letter than a key.
    const auto begins_with = [&](std::string_view key) {
        return behind_crlf && file.front() == key.front() && file.starts_with(key);
    };
    while (!file.empty()) {
        if (begins_with(format.NicknameKey)) {
            const std::string_view nickname =
                TakePart(file, kCrLf).substr(format.NicknameKey.size());
            reader.Nickname(nickname);
            if (left_out != nullptr) {
                left_out->Nickname(nickname);
            }
        } else if (begins_with(format.AddressKey)) {
            const std::string_view address = TakePart(file, kCrLf).substr(format.AddressKey.size());
            reader.Address(address);
            if (left_out != nullptr) {
                left_out->Address(address);
            }
            behind_crlf = !format.PassesOver;
            continue;
        } else {
            if (behind_crlf && file.front() == '\r' && file.starts_with(kCrLf)) {
                reader.EmptyLine();
            }
            if (left_out != nullptr) {
                TakeUnreadLines(*left_out, file, format);
            } else {
                TakePart(file, kCrLf);
            }
        }
        behind_crlf = true;
    }
}

}  // namespace orvik

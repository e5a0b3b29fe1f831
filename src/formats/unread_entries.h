// Adds up the attributes that are not read, one entry after the other.

#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "app/reading_note.h"
#include "app/text.h"

namespace orvik {

// TakePart: takes what stands before the next end, and the end with it.
//   "a,b", "," -> "a", and "b" is left
inline std::string_view TakePart(std::string_view& rest, std::string_view end) {
    const std::size_t found = FindText(rest, end);
    const std::string_view part = rest.substr(0, found);
    rest.remove_prefix(found == std::string_view::npos ? rest.size() : found + end.size());
    return part;
}

// A book has many values, so all that is done for each stands here, where it costs no call.
class UnreadEntries {
 public:
    // The values that are read; they must outlive the entry. An entry holds one of each: another
    // one is not read.
    void Nickname(std::string_view value) { Hold(nickname_, value); }
    void Address(std::string_view value) { Hold(address_, value); }

    // A value that is not read. It counts unless it is empty or the entry says it already: unless
    // it is the nickname or the address, or one of them begins or ends with it as a whole word.
    void Other(std::string_view value) {
        value = Trimmed(value);
        if (value.empty()) {
            return;
        }
        if (nickname_ && address_) {
            Judge(value);
        } else {
            others_.push_back(value);
        }
    }

    void EndEntry() {
        for (const std::string_view value : others_) {
            Judge(value);
        }
        total_.Attributes += unread_;
        total_.Entries += unread_ > 0 ? 1 : 0;
        ForgetEntry();
    }
    // Forgets what was said of an entry that did not end.
    void ForgetEntry() {
        others_.clear();
        unread_ = 0;
        nickname_.reset();
        address_.reset();
    }

    // All of them; the last entry is ended.
    [[nodiscard]] Unread Total() {
        EndEntry();
        return total_;
    }

 private:
    using Value = std::optional<std::string_view>;

    // What may stand around a value: blanks, line breaks, and the quotes of a column.
    static bool IsAround(char c) {
        return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '"';
    }

    static std::string_view Trimmed(std::string_view value) {
        while (!value.empty() && IsAround(value.front())) {
            value.remove_prefix(1);
        }
        while (!value.empty() && IsAround(value.back())) {
            value.remove_suffix(1);
        }
        return value;
    }

    // Only the two ends are looked at, which costs no more than the value is long.
    static bool Says(std::string_view text, std::string_view value) {
        const auto parts_words = [](char c) { return c == ' ' || c == ','; };
        if (text.size() <= value.size()) {
            return text == value;
        }
        return (parts_words(text[value.size()]) && text.starts_with(value)) ||
               (parts_words(text[text.size() - value.size() - 1]) && text.ends_with(value));
    }

    void Hold(Value& held, std::string_view value) {
        if (held) {
            Other(value);
        } else {
            held = Trimmed(value);
        }
    }

    void Judge(std::string_view value) {
        const bool is_said =
            Says(nickname_.value_or(""), value) || Says(address_.value_or(""), value);
        unread_ += is_said ? 0 : 1;
    }

    Value nickname_;
    Value address_;
    std::vector<std::string_view> others_;  // of an entry that may get another nickname or address
    std::size_t unread_ = 0;                // of the entry
    Unread total_;
};

}  // namespace orvik

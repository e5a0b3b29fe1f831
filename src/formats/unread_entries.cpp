#include "formats/unread_entries.h"

#include <algorithm>
#include <cstddef>

namespace orvik {
namespace {

// What may stand around a value: blanks, line breaks, and the quotes of a column.
bool IsAround(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '"';
}

std::string_view Trimmed(std::string_view value) {
    while (!value.empty() && IsAround(value.front())) {
        value.remove_prefix(1);
    }
    while (!value.empty() && IsAround(value.back())) {
        value.remove_suffix(1);
    }
    return value;
}

// Only the two ends are looked at, which costs no more than the value is long.
bool Says(std::string_view text, std::string_view value) {
    const auto parts_words = [](char c) { return c == ' ' || c == ','; };
    if (text.size() <= value.size()) {
        return text == value;
    }
    return (parts_words(text[value.size()]) && text.starts_with(value)) ||
           (parts_words(text[text.size() - value.size() - 1]) && text.ends_with(value));
}

}  // namespace

void UnreadEntries::Other(std::string_view value) {
    value = Trimmed(value);
    if (!value.empty()) {
        others_.push_back(value);
    }
}

void UnreadEntries::Hold(Value& held, std::string_view value) {
    if (held) {
        Other(value);
    } else {
        held = Trimmed(value);
    }
}

void UnreadEntries::EndEntry() {
    const std::string_view nickname = nickname_.value_or("");
    const std::string_view address = address_.value_or("");
    const auto unread = std::count_if(others_.begin(), others_.end(), [&](std::string_view value) {
        return !Says(nickname, value) && !Says(address, value);
    });
    total_.Attributes += static_cast<std::size_t>(unread);
    total_.Entries += unread > 0 ? 1 : 0;
    others_.clear();
    nickname_.reset();
    address_.reset();
}

Unread UnreadEntries::Total() {
    EndEntry();
    return total_;
}

}  // namespace orvik

// Adds up the attributes that are not read, one entry after the other.

#pragma once

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

class UnreadEntries {
 public:
    // The values that are read; they must outlive the entry. An entry holds one of each: another
    // one is not read.
    void Nickname(std::string_view value) { Hold(nickname_, value); }
    void Address(std::string_view value) { Hold(address_, value); }

    // A value that is not read. It counts unless it is empty or the entry says it already: unless
    // it is the nickname or the address, or one of them begins or ends with it as a whole word.
    void Other(std::string_view value);

    void EndEntry();

    // All of them; the last entry is ended.
    [[nodiscard]] Unread Total();

 private:
    using Value = std::optional<std::string_view>;

    void Hold(Value& held, std::string_view value);

    Value nickname_;
    Value address_;
    std::vector<std::string_view> others_;
    Unread total_;
};

}  // namespace orvik

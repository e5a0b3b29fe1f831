// The entries of a book of pine, as its lines have them.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "book/lines.h"
#include "book/source.h"

namespace orvik::book {

constexpr std::size_t kPineFields = 5;

// A line, and those that begin with a blank behind it.
struct PineEntry {
    std::string_view Bytes;
    std::uint32_t Line = 0;
    std::uint32_t Lines = 0;
    std::array<std::string_view, kPineFields> Fields;  // without blanks around them
    std::size_t Tabs = 0;
    std::string Joined;  // what the fields stand in where there are several lines

    [[nodiscard]] std::string_view Nickname() const { return Fields[0]; }
    [[nodiscard]] std::string_view Name() const { return Fields[1]; }
    [[nodiscard]] std::string_view Address() const { return Fields[2]; }
    [[nodiscard]] bool IsComment() const;
    // Whether the program would not show it.
    [[nodiscard]] bool IsDeleted() const;
    [[nodiscard]] bool HasParentheses() const { return Address().starts_with('('); }
    // Whether it goes on behind a tab, as entries of nothing else do.
    [[nodiscard]] bool IsBroken() const;
};

class PineEntries {
 public:
    explicit PineEntries(const Source& source) : lines_(source.Text(), source.Signs().Cr) {}

    // The next one; entry is the same object each time, and must not be copied.
    bool Next(PineEntry& entry);

 private:
    bool TakeEntry(PineEntry& entry);

    Lines lines_;
    Line line_;
    bool has_line_ = false;
};

// Whether a text has none of the signs that a nickname of pine never has.
[[nodiscard]] bool IsPineNickname(std::string_view text);

}  // namespace orvik::book

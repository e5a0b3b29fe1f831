// Where the bytes of a part stand, and what becomes of its lines.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <gmime/gmime.h>

namespace orvik::book {

// Where a part stands in its message, which is in memory.
struct RawPart {
    std::string_view All;
    std::size_t Begin = 0;
    std::size_t End = 0;

    [[nodiscard]] std::string_view Text() const { return All.substr(Begin, End - Begin); }
};
[[nodiscard]] RawPart RawOf(GMimePart* part);

// What stands before a body instead of a header: the library drops lines that are no fields.
[[nodiscard]] std::string_view LinesBefore(const RawPart& body);

// Lines that are folded, as calendars and cards have them, are put together.
[[nodiscard]] std::string Unfolded(std::string_view text);

}  // namespace orvik::book

// The names that files bear for a moment, while a saving is under way. A program that is killed in
// that moment leaves its file behind, and the next one knows it by its name.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// What all of them begin with.
inline constexpr std::string_view kPassingBeginning = ".orvik-";

// Of a file that is written under a name, where the file system knows none without.
inline constexpr std::string_view kPassingNew = ".new";
// Of a file that is about to take the place of another.
inline constexpr std::string_view kPassingWhole = ".tmp";

// PassingName: a name that no file bears, ".orvik-", 16 hexadecimal digits and one of the endings.
[[nodiscard]] std::string PassingName(std::string_view ending);

// IsPassingName: whether a name is such a one.
[[nodiscard]] bool IsPassingName(std::string_view name);

}  // namespace orvik

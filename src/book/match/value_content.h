// How much the value of a field says about a person.

#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

namespace orvik::book {

// How many letters and digits there are, and how many of them are not ASCII, as an accent that
// somebody wrote is worth more than one that was left out.
[[nodiscard]] std::pair<std::size_t, std::size_t> ContentOf(std::string_view value);

// Whether there are but empty parts, or what stands where nothing is known.
[[nodiscard]] bool SaysNothing(std::string_view value);

}  // namespace orvik::book

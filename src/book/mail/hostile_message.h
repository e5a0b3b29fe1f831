// Messages that nobody sends but to do harm: the library would need more memory or stack for them
// than there is.

#pragma once

#include <string_view>

namespace orvik::book {

// HasTooManyGroups: whether a line of a message, with those folded to it, has so many colons that
// reading it as a list of groups inside of groups would not end well.
[[nodiscard]] bool HasTooManyGroups(std::string_view message);

// HasTooManyParts: whether so many lines could begin a part that no person made them.
[[nodiscard]] bool HasTooManyParts(std::string_view message);

}  // namespace orvik::book

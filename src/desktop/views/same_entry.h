// An entry found again in another order.

#pragma once

#include <cstddef>
#include <optional>

#include "app/controls.h"

namespace orvik {

// The items of the two lists: a row of both is an entry.
struct Entries {
    ItemList Addresses;
    ItemList Nicknames;
};

// SameEntry: the row in which an entry of the one order stands in the other, none if it is not
// there. Of equal entries it is the same one counted from the top, as sorting keeps them.
//   {"b", "a"}, 0, {"a", "b"} -> 1
[[nodiscard]] std::optional<std::size_t> SameEntry(const Entries& before,
                                                   std::size_t row,
                                                   const Entries& now);

}  // namespace orvik

// Finding an entry by what is shown of it.

#pragma once

#include <QStringView>
#include <cstddef>
#include <optional>

#include "app/controls.h"

namespace orvik {

enum class Direction { Forward, Backward };

struct FoundEntry {
    std::size_t Row;
    // The search went over the end of the book, or over its start.
    bool Wrapped;
};

// FindEntry: the first row whose address or nickname, as it is shown, contains these letters,
// whatever their case. Forward it looks at row `from` first, backward at the one before it, and it
// goes once round the book. Nothing is found where nothing is wanted.
//   {"a@x", "b@x"}, {"Al", "Bo"}, "bO", 0, Forward   ->  row 1
//   the same, "al", 1, Forward                       ->  row 0, wrapped
// Time: linear; a row is made letters of only if it has others than ASCII, and the others are
// looked through as one text.
[[nodiscard]] std::optional<FoundEntry> FindEntry(const ItemList& addresses,
                                                  const ItemList& nicknames,
                                                  QStringView wanted,
                                                  std::size_t from,
                                                  Direction direction);

}  // namespace orvik

// Where the records of a written book stand.

#pragma once

#include <cstddef>
#include <vector>

namespace orvik::book {

// Where each record begins in the text, in their order, and where the last one ends. What stands
// before the first one belongs to each file that holds some of them.
using RecordPlaces = std::vector<std::size_t>;

}  // namespace orvik::book

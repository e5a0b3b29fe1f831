#include "desktop/views/same_entry.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace orvik {
namespace {

using Entry = std::pair<std::string_view, std::string_view>;

std::size_t CountRows(const Entries& entries) {
    return std::max(entries.Addresses.size(), entries.Nicknames.size());
}

// One list may be longer than the other.
Entry EntryAt(const Entries& entries, std::size_t row) {
    const auto item = [row](const ItemList& list) {
        return row < list.size() ? list[row] : std::string_view{};
    };
    return {item(entries.Addresses), item(entries.Nicknames)};
}

}  // namespace

std::optional<std::size_t> SameEntry(const Entries& before, std::size_t row, const Entries& now) {
    if (row >= CountRows(before)) {
        return {};
    }
    const Entry wanted = EntryAt(before, row);
    std::size_t equal_before = 0;
    for (std::size_t i = 0; i < row; ++i) {
        equal_before += EntryAt(before, i) == wanted ? 1 : 0;
    }
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < CountRows(now); ++i) {
        if (EntryAt(now, i) == wanted) {
            found = i;
            if (equal_before-- == 0) {
                break;
            }
        }
    }
    return found;
}

}  // namespace orvik

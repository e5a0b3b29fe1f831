#include "listops/sort_entries.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "app/encoding.h"
#include "app/text.h"
#include "app/working_text.h"
#include "listops/upper_case.h"

namespace orvik {
namespace {

// Takes the lines of a block that are ended by LF. Returns false if there are too many.
bool TakeLines(std::string_view block, std::vector<std::string_view>& lines) {
    for (;;) {
        const std::size_t end = block.find('\n');
        if (end == std::string_view::npos) {
            return true;
        }
        if (lines.size() == kMostSorted) {
            return false;
        }
        lines.push_back(block.substr(0, end + 1));
        block.remove_prefix(end + 1);
    }
}

}  // namespace

std::optional<SortedBlocks> SortEntries(std::string_view text, SortKey key) {
    const NativeText native(text);
    std::vector<std::string_view> nicknames;
    std::vector<std::string_view> addresses;
    if (!TakeLines(Mid(native.Text(), native.Nicknames()), nicknames) ||
        !TakeLines(Mid(native.Text(), 1, native.Separator() - 1), addresses)) {
        return std::nullopt;
    }
    // The last place of a full book was never filled by the sort, and its entry was left out.
    const std::size_t count =
        std::min(std::max(addresses.size(), nicknames.size()), kMostSorted - 1);
    addresses.resize(count);
    nicknames.resize(count);

    const Encoding encoding = EncodingOf(text);
    std::vector<std::string> keys;
    keys.reserve(count);
    for (const std::string_view line : key == SortKey::Address ? addresses : nicknames) {
        keys.push_back(ToUpper(line, encoding));
    }
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return keys[a] < keys[b];
    });
    SortedBlocks sorted;
    for (const std::size_t i : order) {
        sorted.Addresses.append(addresses[i]);
        sorted.Nicknames.append(nicknames[i]);
    }
    return sorted;
}

}  // namespace orvik

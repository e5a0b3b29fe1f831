#include "listops/sort_entries.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

unsigned char Upper(unsigned char c) {
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) {
        return static_cast<unsigned char>(c - 0x20);
    }
    switch (c) {
        case 0x9A:
        case 0x9C:
        case 0x9E:
            return static_cast<unsigned char>(c - 0x10);
        case 0xFF:
            return 0x9F;
        default:
            return c;
    }
}

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

std::string ToUpper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
        return static_cast<char>(Upper(static_cast<unsigned char>(c)));
    });
    return upper;
}

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

    std::vector<std::string> keys;
    keys.reserve(count);
    for (const std::string_view line : key == SortKey::Address ? addresses : nicknames) {
        keys.push_back(ToUpper(line));
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

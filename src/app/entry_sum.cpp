#include "app/entry_sum.h"

#include <functional>

#include "app/working_text.h"

namespace orvik {
namespace {

// An odd number whose bits are spread, so that a step loses nothing and reaches all of them.
constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;

std::uint64_t Joined(std::uint64_t hash, std::string_view text) {
    constexpr int kHalf = 32;
    hash = (hash ^ std::hash<std::string_view>()(text)) * kSpread;
    return hash ^ (hash >> kHalf);
}

}  // namespace

EntrySum SumEntries(std::string_view text, bool native, std::string_view separator) {
    EntrySum sum;
    const auto take = [&](std::string_view address, std::string_view nickname) {
        ++sum.Count;
        // The way through LDIF, to edit mode for one, drops an entry that holds nothing.
        if (!address.empty() || !nickname.empty()) {
            sum.Hash = Joined(Joined(sum.Hash, address), nickname);
        }
    };
    if (native) {
        ForEachOfNative(text, take);
    } else {
        ForEachOfList(text, separator, take);
    }
    return sum;
}

}  // namespace orvik

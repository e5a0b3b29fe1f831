// The books of a run, in every format that a person may have: well written ones, whose entries are
// known, and ones with hostile bytes in them.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "depth/dice.h"
#include "depth/entries.h"

namespace orvik::depth {

enum class Kind { List, Native, Ldif, Netscape3, Juno, Csv, WordPerfect, Pegasus, Mail };
inline constexpr std::size_t kKinds = 9;

struct Book {
    std::string Text;
    // What a person would see of it, where nothing in it is odd.
    std::optional<Entries> Exact;
};

[[nodiscard]] Book MakeBook(Dice& dice, Kind kind);
[[nodiscard]] Entry MakeEntry(Dice& dice);
// A few bytes of any kind.
[[nodiscard]] std::string MakeNoise(Dice& dice);

// The kind of book that a file of this name is read as.
[[nodiscard]] Kind KindOf(std::string_view name);

}  // namespace orvik::depth

// What was found about records that may be one person: a line of a plan.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

// From sure to hardly: all values are equal; one record holds all that the other does; they share
// an address and nothing speaks against it; they share an address; they share a name. Plan is what
// a person's plan alone says.
enum class Tier : std::uint8_t { Same, Contained, Agree, Address, Name, Plan };
inline constexpr std::size_t kTiers = 5;  // that are looked for

// Merge them; ask a person; keep them apart.
enum class Action : std::uint8_t { Merge, Ask, Keep };
inline constexpr std::size_t kActions = 3;

inline constexpr std::array<std::string_view, kTiers + 1> kTierNames = {
    "same", "contained", "agree", "address", "name", "plan"};
inline constexpr std::array<std::string_view, kActions> kActionNames = {"merge", "ask", "keep"};

[[nodiscard]] constexpr std::string_view NameOf(Tier tier) {
    return kTierNames[static_cast<std::size_t>(tier)];
}
[[nodiscard]] constexpr std::string_view NameOf(Action action) {
    return kActionNames[static_cast<std::size_t>(action)];
}

// Who is compared: those alone whom a plan can name, as no other record begins on their line; or
// all, also who came from no file.
enum class TakesPart : std::uint8_t { Placed, All };

struct MatchLine {
    Action Do = Action::Keep;
    Tier Why = Tier::Name;
    // The numbers of at least two records, each once; the first one is kept when they merge.
    std::vector<std::uint32_t> Records;
    std::string Reason;  // behind the tier's name, in one line
};

}  // namespace orvik::book

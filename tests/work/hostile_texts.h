// Texts that no program wrote in good faith: each would bring a careless loop to a halt, to a
// square of its length, or out of the text.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvik::test {

struct HostileText {
    std::string Name;
    std::string Text;
    // What the entries of a list are split by (Module1::textSep).
    std::string Separator = "\r";
};

// Those that repeat something are about this many bytes long.
[[nodiscard]] std::vector<HostileText> HostileTexts(std::size_t size);

}  // namespace orvik::test

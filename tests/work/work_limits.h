// How much work is too much.

#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

#include "work/visits.h"

namespace orvik::test {

// For each byte of the longest text that a command is given or makes: how often it may be looked
// at, and how many steps it may take.
inline constexpr std::size_t kMostPerByte = 50;
inline constexpr std::size_t kMostStepsPerByte = 100;
// What any command takes, whatever the text is: files, windows, settings.
inline constexpr std::size_t kMostAtAll = 40000;
// An entry of one letter is a record of some 120 bytes in LDIF, and a text that grows has room for
// as much again.
inline constexpr std::size_t kMostGrowth = 260;
// How often a command shows its windows: once for each per cent of each conversion.
inline constexpr std::size_t kMostShown = 404;
inline constexpr std::size_t kMostShownAtAll = 101;

// The longest text of a command that was given one of this size.
inline std::size_t LongestText(std::size_t size, const Work& did) {
    return std::max(size, did.Largest);
}

inline double PerByte(std::size_t done, std::size_t size) {
    return static_cast<double>(done) / static_cast<double>(std::max(size, kMostAtAll / 10));
}

// Excess: what a command did too much that was given a text of this size; empty if nothing.
inline std::string Excess(std::size_t size, const Work& did) {
    const std::size_t longest = LongestText(size, did);
    if (longest > kMostGrowth * size + kMostAtAll) {
        return "a text of " + std::to_string(longest) + " bytes";
    }
    if (did.Bytes > kMostPerByte * longest + kMostAtAll) {
        return std::to_string(did.Bytes) + " bytes";
    }
    if (did.Steps > kMostStepsPerByte * longest + kMostAtAll) {
        return std::to_string(did.Steps) + " steps";
    }
    return {};
}

}  // namespace orvik::test

// How much work was done, without a clock: what is counted is the same in every run.

#pragma once

#include <cstddef>

namespace orvik::test {

struct Work {
    // Bytes that were read one by one, or that a memory function of the C library went through: a
    // search in a text, a copy, an erasure.
    std::size_t Bytes = 0;
    // Basic blocks that were run. A loop adds one at least for each of its rounds, also where it
    // reads nothing.
    std::size_t Steps = 0;
    // The size of the largest piece of memory that was asked for: about the longest text.
    std::size_t Largest = 0;
};

// From here on the work of all code that is built to be counted (CMakeLists.txt) counts.
void StartCounting() noexcept;
[[nodiscard]] Work WorkDone() noexcept;

}  // namespace orvik::test

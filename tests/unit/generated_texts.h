// Inputs for comparing a function with a slow, literal twin: every short text and random long ones.
// The same texts come in the same order on every machine.

#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace orvik::test {

using Fragments = std::vector<std::string_view>;

// Runs check on every text of at most longest fragments, the empty one included. Ends at the first
// failure.
template <class Check>
void ForEveryText(const Fragments& fragments, std::size_t longest, Check&& check) {
    for (std::size_t length = 0; length <= longest; ++length) {
        std::vector<std::size_t> digits(length, 0);
        for (bool more = true; more && !testing::Test::HasFailure();) {
            std::string text;
            for (const std::size_t digit : digits) {
                text += fragments[digit];
            }
            check(text);
            more = false;
            for (std::size_t& digit : digits) {
                digit = (digit + 1) % fragments.size();
                if (digit != 0) {
                    more = true;
                    break;
                }
            }
        }
    }
}

// Runs check on count random texts of at most longest fragments. Ends at the first failure.
template <class Check>
void ForRandomTexts(const Fragments& fragments,
                    std::size_t longest,
                    std::size_t count,
                    Check&& check) {
    // The distributions of the library differ between its makers; the generator does not.
    std::mt19937 random(20010913);  // NOLINT: the same texts each time
    for (std::size_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
        const std::size_t length = random() % (longest + 1);
        std::string text;
        for (std::size_t j = 0; j < length; ++j) {
            text += fragments[random() % fragments.size()];
        }
        check(text);
    }
}

}  // namespace orvik::test

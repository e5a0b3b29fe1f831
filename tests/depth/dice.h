// The chance of a run: the same seed gives the same run on every machine.

#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace orvik::depth {

class Dice {
 public:
    explicit Dice(std::uint64_t seed) : random_(seed) {}

    // The distributions of the library differ between its makers; the generator does not.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(random_() % count); }
    bool Percent(std::size_t share) { return Below(100) < share; }
    template <class Things>
    const auto& Of(const Things& things) {
        return things[Below(std::size(things))];
    }

 private:
    std::mt19937_64 random_;
};

}  // namespace orvik::depth

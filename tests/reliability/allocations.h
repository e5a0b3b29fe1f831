// Memory that runs out. A program that is linked with allocations.cpp counts what `new` gives while
// it is told to, and can let one call fail, or that one and all behind it.

#pragma once

#include <cstddef>

namespace orvik::test {

enum class Shortage { Once, FromThereOn };

// While it lives, allocations are counted, and the n-th of them fails; 0 for none.
class Allocations {
 public:
    explicit Allocations(std::size_t n, Shortage shortage = Shortage::Once);
    Allocations(const Allocations&) = delete;
    Allocations& operator=(const Allocations&) = delete;
    Allocations(Allocations&&) = delete;
    Allocations& operator=(Allocations&&) = delete;
    ~Allocations();

    // How many there were until now, the one that failed included.
    [[nodiscard]] static std::size_t Count();
};

// While it lives, what is allocated belongs to the test: it counts for nothing and does not fail.
class OwnMemory {
 public:
    OwnMemory();
    OwnMemory(const OwnMemory&) = delete;
    OwnMemory& operator=(const OwnMemory&) = delete;
    OwnMemory(OwnMemory&&) = delete;
    OwnMemory& operator=(OwnMemory&&) = delete;
    ~OwnMemory();
};

// The state behind these, which every `new` looks at.
struct AllocationState {
    bool Counting = false;
    int Own = 0;
    std::size_t Count = 0;
    std::size_t Failing = 0;
    Shortage How = Shortage::Once;
};
[[nodiscard]] AllocationState& Allocating() noexcept;

}  // namespace orvik::test

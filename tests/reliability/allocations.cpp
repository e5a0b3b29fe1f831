#include "reliability/allocations.h"

namespace orvik::test {

AllocationState& Allocating() noexcept {
    static constinit AllocationState state;
    return state;
}

Allocations::Allocations(std::size_t n, Shortage shortage) {
    Allocating() = {.Counting = true, .Own = 0, .Count = 0, .Failing = n, .How = shortage};
}

Allocations::~Allocations() {
    Allocating().Counting = false;
}

std::size_t Allocations::Count() {
    return Allocating().Count;
}

OwnMemory::OwnMemory() {
    ++Allocating().Own;
}

OwnMemory::~OwnMemory() {
    --Allocating().Own;
}

}  // namespace orvik::test

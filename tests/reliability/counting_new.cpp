// Every form of `new` and `delete`, on the C library's memory.

#include <cstdlib>
#include <new>

#include "reliability/allocations.h"

namespace {

using orvik::test::AllocationState;
using orvik::test::Shortage;

bool Fails() noexcept {
    AllocationState& state = orvik::test::Allocating();
    if (!state.Counting || state.Own > 0) {
        return false;
    }
    ++state.Count;
    return state.Count == state.Failing ||
           (state.How == Shortage::FromThereOn && state.Failing > 0 && state.Count > state.Failing);
}

void* Allocate(std::size_t size) noexcept {
    return Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* Allocate(std::size_t size, std::align_val_t alignment) noexcept {
    const auto step = static_cast<std::size_t>(alignment);
    return Fails() ? nullptr : std::aligned_alloc(step, (size + step - 1) / step * step);
}

void* Given(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) {
    return Given(Allocate(size));
}
void* operator new[](std::size_t size) {
    return Given(Allocate(size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return Given(Allocate(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return Given(Allocate(size, alignment));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}
void* operator new(std::size_t size,
                   std::align_val_t alignment,
                   const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, alignment);
}
void* operator new[](std::size_t size,
                     std::align_val_t alignment,
                     const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, alignment);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory,
                       std::size_t /*size*/,
                       std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}

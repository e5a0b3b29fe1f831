// How the programs get memory for texts of many megabytes. The system clears each page when it is
// touched first, which took a third of the time of opening a large book. So the last large block
// that was freed is kept for the next text, which has its pages already.

#include <malloc.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t kLargeText = std::size_t{4} << 20U;

// Each large block has pages of its own, so that it grows and shrinks without being copied.
const bool has_own_pages = mallopt(M_MMAP_THRESHOLD, static_cast<int>(kLargeText)) == 1;
std::atomic<void*> kept = nullptr;

void* Allocate(std::size_t size) noexcept {
    void* const old = has_own_pages && size >= kLargeText ? kept.exchange(nullptr) : nullptr;
    if (old == nullptr) {
        return std::malloc(size == 0 ? 1 : size);  // NOLINT: what operator new is made of
    }
    void* const memory = std::realloc(old, size);  // NOLINT
    if (memory == nullptr) {
        std::free(old);            // NOLINT
        return std::malloc(size);  // NOLINT
    }
    return memory;
}

void Free(void* memory, std::size_t size) noexcept {
    if (has_own_pages && size >= kLargeText) {
        memory = kept.exchange(memory);
    }
    std::free(memory);  // NOLINT
}

}  // namespace

// What the C++ library replaces it with calls std::free, and so does its operator delete.
void* operator new(std::size_t size) {
    for (;;) {
        if (void* const memory = Allocate(size)) {
            return memory;
        }
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) {
            throw std::bad_alloc();
        }
        handler();
    }
}

void operator delete(void* memory) noexcept {
    Free(memory, memory == nullptr ? 0 : malloc_usable_size(memory));
}

void operator delete(void* memory, std::size_t size) noexcept {
    Free(memory, size);
}

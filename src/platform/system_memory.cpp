// How the programs get memory for texts of many megabytes: in pages of 2 MiB where the system has
// them. Opening a large book took a third of its time for the first look at pages of 4 KiB.

#include <sys/mman.h>

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20U;
constexpr std::size_t kLargeText = 2 * kHugePage;

void* Allocate(std::size_t size) noexcept {
    if (size < kLargeText) {
        return std::malloc(size == 0 ? 1 : size);  // NOLINT: what operator new is made of
    }
    void* const memory = aligned_alloc(kHugePage, size);
    if (memory != nullptr) {
        // A system without such pages says so, and gives small ones.
        madvise(memory, size, MADV_HUGEPAGE);
    }
    return memory;
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

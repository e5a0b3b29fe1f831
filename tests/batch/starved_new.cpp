// Memory that does not suffice once: the allocation with the number in ORVIK_STARVED_AT fails, and
// a byte goes to file descriptor 9.

#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr int kFired = 9;
constexpr int kDecimal = 10;

long Wanted() {
    const char* const at = std::getenv("ORVIK_STARVED_AT");
    return at == nullptr ? 0 : std::strtol(at, nullptr, kDecimal);
}

bool IsStarved() {
    static const long wanted = Wanted();
    static long calls = 0;
    return ++calls == wanted;
}

}  // namespace

// All forms that are used stand here, so that none is freed by what it was not made by.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    if (IsStarved()) {
        static_cast<void>(!write(kFired, "x", 1));
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
    void* const memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

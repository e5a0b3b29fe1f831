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

void* operator new(std::size_t size) {
    if (IsStarved()) {
        static_cast<void>(!write(kFired, "x", 1));
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

// The compiler puts calls into the counted code: one for each basic block, one for each read and
// write. The linker gives every call of a memory function to its namesake here (--wrap).
//
// This file is not counted itself, so it uses no template of the standard library: the linker keeps
// one copy of each, and it must be one that counts.

#include "work/visits.h"

namespace {

using Bytes = unsigned char;

constinit orvik::test::Work work;

// How many bytes a search has looked at that ended at found.
std::size_t Searched(const void* from, const void* found, std::size_t size) {
    return found == nullptr ? size
                            : static_cast<std::size_t>(static_cast<const Bytes*>(found) -
                                                       static_cast<const Bytes*>(from)) +
                                  1;
}

// How many bytes are compared until two texts differ.
std::size_t Compared(const void* one, const void* other, std::size_t size) {
    const auto* const a = static_cast<const Bytes*>(one);
    const auto* const b = static_cast<const Bytes*>(other);
    std::size_t i = 0;
    while (i < size && a[i] == b[i]) {
        ++i;
    }
    return i < size ? i + 1 : size;
}

}  // namespace

namespace orvik::test {

void StartCounting() noexcept {
    work = {};
}

Work WorkDone() noexcept {
    return work;
}

}  // namespace orvik::test

extern "C" {

void __sanitizer_cov_trace_pc() {
    ++work.Steps;
}

void __asan_load1_noabort(const void* /*from*/) {
    ++work.Bytes;
}
void __asan_loadN_noabort(const void* /*from*/, std::size_t size) {
    work.Bytes += size;
}
// Wider ones are pointers, lengths and numbers: what reads text in words is counted as steps.
void __asan_load2_noabort(const void* /*from*/) {}
void __asan_load4_noabort(const void* /*from*/) {}
void __asan_load8_noabort(const void* /*from*/) {}
void __asan_load16_noabort(const void* /*from*/) {}
void __asan_store1_noabort(void* /*to*/) {}
void __asan_store2_noabort(void* /*to*/) {}
void __asan_store4_noabort(void* /*to*/) {}
void __asan_store8_noabort(void* /*to*/) {}
void __asan_store16_noabort(void* /*to*/) {}
void __asan_storeN_noabort(void* /*to*/, std::size_t /*size*/) {}
void __asan_handle_no_return() {}
void __asan_before_dynamic_init(const char* /*module*/) {}
void __asan_after_dynamic_init() {}

void* __real_memcpy(void* to, const void* from, std::size_t size);
void* __wrap_memcpy(void* to, const void* from, std::size_t size) {
    work.Bytes += size;
    return __real_memcpy(to, from, size);
}

void* __real_memmove(void* to, const void* from, std::size_t size);
void* __wrap_memmove(void* to, const void* from, std::size_t size) {
    work.Bytes += size;
    return __real_memmove(to, from, size);
}

void* __real_memset(void* to, int byte, std::size_t size);
void* __wrap_memset(void* to, int byte, std::size_t size) {
    work.Bytes += size;
    return __real_memset(to, byte, size);
}

void* __real_memchr(const void* from, int byte, std::size_t size);
void* __wrap_memchr(const void* from, int byte, std::size_t size) {
    void* const found = __real_memchr(from, byte, size);
    work.Bytes += Searched(from, found, size);
    return found;
}

int __real_memcmp(const void* one, const void* other, std::size_t size);
int __wrap_memcmp(const void* one, const void* other, std::size_t size) {
    work.Bytes += Compared(one, other, size);
    return __real_memcmp(one, other, size);
}

int __real_bcmp(const void* one, const void* other, std::size_t size);
int __wrap_bcmp(const void* one, const void* other, std::size_t size) {
    work.Bytes += Compared(one, other, size);
    return __real_bcmp(one, other, size);
}

std::size_t __real_strlen(const char* text);
std::size_t __wrap_strlen(const char* text) {
    const std::size_t size = __real_strlen(text);
    work.Bytes += size;
    return size;
}

// operator new.
void* __real__Znwm(std::size_t size);
void* __wrap__Znwm(std::size_t size) {
    work.Largest = size > work.Largest ? size : work.Largest;
    return __real__Znwm(size);
}

// std::hash of a text.
std::size_t __real__ZSt11_Hash_bytesPKvmm(const void* from, std::size_t size, std::size_t seed);
std::size_t __wrap__ZSt11_Hash_bytesPKvmm(const void* from, std::size_t size, std::size_t seed) {
    work.Bytes += size;
    return __real__ZSt11_Hash_bytesPKvmm(from, size, seed);
}
}

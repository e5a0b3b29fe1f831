#include "book/arena.h"

#include <cstdint>
#include <cstring>

namespace orvik::book {
namespace {

constexpr std::size_t kBlock = 64UL * 1024;
// So long a block has large pages, which the program asks for: small ones, each fetched by itself,
// took a fifth of the time of reading a long book. Those of them that are not used take no memory.
constexpr std::size_t kLargeBlock = 4UL * 1024 * 1024;

}  // namespace

std::string_view Arena::Keep(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    char* const place = Take(text.size(), 1);
    std::memcpy(place, text.data(), text.size());
    return {place, text.size()};
}

char* Arena::Take(std::size_t bytes, std::size_t alignment) {
    const std::size_t past = reinterpret_cast<std::uintptr_t>(next_) % alignment;
    const std::size_t gap = past == 0 ? 0 : alignment - past;
    if (next_ != nullptr && bytes + gap <= left_) {
        char* const place = next_ + gap;
        next_ = place + bytes;
        left_ -= bytes + gap;
        return place;
    }
    const std::size_t block = held_ < kLargeBlock ? kBlock : kLargeBlock;
    // What is long gets a block of its own, so that little of the others is wasted.
    const bool own = bytes > block / 4;
    const std::size_t length = own ? bytes : block;
    // NOLINTNEXTLINE(modernize-avoid-c-arrays): as in the header
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(length));
    held_ += length;
    char* const place = blocks_.back().get();
    if (!own) {
        next_ = place + bytes;
        left_ = length - bytes;
    }
    return place;
}

}  // namespace orvik::book

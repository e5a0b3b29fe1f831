#include "book/arena.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace orvik::book {
namespace {

constexpr std::size_t kFirstBlock = 64UL * 1024;
constexpr std::size_t kLargestBlock = 16UL * 1024 * 1024;

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
    // Blocks grow with what is held: the system gives large ones in large pages.
    const std::size_t block = std::clamp(held_ / 16, kFirstBlock, kLargestBlock);
    // What is long gets a block of its own, so that little of the others is wasted.
    const bool own = bytes > block / 4;
    const std::size_t length = own ? bytes : block;
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

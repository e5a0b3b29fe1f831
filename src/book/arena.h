// Text that no source holds: decoded, unfolded or given by the user. It stays where it is as long
// as the arena lives, and goes as a whole.

#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orvik::book {

class Arena {
 public:
    // A copy of text that lives as long as the arena.
    std::string_view Keep(std::string_view text);

    // Copies of values that need no destructor, one row behind the other.
    template <class Value>
    std::span<Value> KeepJoined(std::span<const Value> first, std::span<const Value> behind) {
        static_assert(std::is_trivially_copyable_v<Value>);
        const std::size_t count = first.size() + behind.size();
        if (count == 0) {
            return {};
        }
        auto* const place = reinterpret_cast<Value*>(Take(count * sizeof(Value), alignof(Value)));
        std::uninitialized_copy(behind.begin(),
                                behind.end(),
                                std::uninitialized_copy(first.begin(), first.end(), place));
        return {place, count};
    }

    // How many bytes were asked of the system.
    [[nodiscard]] std::size_t Held() const { return held_; }

 private:
    char* Take(std::size_t bytes, std::size_t alignment);

    // NOLINTNEXTLINE(modernize-avoid-c-arrays): how long each is, is known when it is made
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t held_ = 0;
};

}  // namespace orvik::book

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

    // A copy of values that need no destructor.
    template <class Value>
    std::span<const Value> KeepAll(std::span<const Value> values) {
        static_assert(std::is_trivially_copyable_v<Value>);
        char* const place = Take(values.size_bytes(), alignof(Value));
        auto* const first = reinterpret_cast<Value*>(place);
        std::uninitialized_copy(values.begin(), values.end(), first);
        return {first, values.size()};
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

#include "book/mail/hostile_message.h"

#include <cstddef>

namespace orvik::book {
namespace {

// A group takes some hundred bytes of stack, a part more than a kilobyte of memory.
constexpr std::size_t kMostGroups = 5000;
constexpr std::size_t kMostParts = 20'000;

}  // namespace

bool HasTooManyGroups(std::string_view message) {
    // Short ones cannot.
    if (message.size() < 2 * kMostGroups) {
        return false;
    }
    std::size_t colons = 0;
    std::size_t line = 0;
    for (std::size_t at = message.find(':'); at != std::string_view::npos;
         at = message.find(':', at + 1)) {
        // A new field begins where a line does not begin with a blank.
        for (std::size_t end = message.find('\n', line); end < at; end = message.find('\n', line)) {
            line = end + 1;
            if (message[line] != ' ' && message[line] != '\t') {
                colons = 0;
            }
        }
        if (++colons > kMostGroups) {
            return true;
        }
    }
    return false;
}

bool HasTooManyParts(std::string_view message) {
    constexpr std::string_view kBoundary = "\n--";
    if (message.size() < kMostParts * kBoundary.size()) {
        return false;
    }
    std::size_t parts = 0;
    for (std::size_t at = message.find(kBoundary); at != std::string_view::npos;
         at = message.find(kBoundary, at + kBoundary.size())) {
        ++parts;
    }
    return parts > kMostParts;
}

}  // namespace orvik::book

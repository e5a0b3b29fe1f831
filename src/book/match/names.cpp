#include "book/match/names.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace orvik::book {
namespace {

// Nobody has more; the rest of what is called a name is compared as a whole.
constexpr std::size_t kMostWords = 16;

std::u32string AllLetters(std::string_view text) {
    std::u32string letters;
    for (std::size_t at = 0; at < text.size();) {
        letters += static_cast<char32_t>(NextLetter(text, at));
    }
    return letters;
}

// Whether the first one is a letter alone with which the other one begins.
bool IsInitial(std::string_view letter, std::string_view whole) {
    constexpr std::size_t kLongestLetter = 4;
    return letter.size() <= kLongestLetter && letter != whole && whole.starts_with(letter) &&
           AllLetters(letter).size() == 1;
}

// Each word of less finds one of its own in more, first whole ones and then by initials.
bool FindsEachWord(const FoldedName& less, const FoldedName& more) {
    std::vector<std::string_view> left;
    std::vector<std::string_view> rest;
    std::set_difference(less.Words.begin(),
                        less.Words.end(),
                        more.Words.begin(),
                        more.Words.end(),
                        std::back_inserter(left));
    std::set_difference(more.Words.begin(),
                        more.Words.end(),
                        less.Words.begin(),
                        less.Words.end(),
                        std::back_inserter(rest));
    if (left.size() == less.Words.size()) {
        return false;
    }
    return std::all_of(left.begin(), left.end(), [&rest](std::string_view word) {
        const auto found = std::find_if(rest.begin(), rest.end(), [&](std::string_view other) {
            return IsInitial(word, other) || IsInitial(other, word);
        });
        if (found == rest.end()) {
            return false;
        }
        rest.erase(found);
        return true;
    });
}

// All words but one are equal, and that one has one typing error.
bool DiffersInOneSlip(const FoldedName& one, const FoldedName& other) {
    if (one.Words.size() != other.Words.size()) {
        return false;
    }
    std::vector<std::string_view> left;
    std::vector<std::string_view> right;
    std::set_difference(one.Words.begin(),
                        one.Words.end(),
                        other.Words.begin(),
                        other.Words.end(),
                        std::back_inserter(left));
    std::set_difference(other.Words.begin(),
                        other.Words.end(),
                        one.Words.begin(),
                        one.Words.end(),
                        std::back_inserter(right));
    // Numbers that differ in a digit are two numbers.
    constexpr std::string_view kDigits = "0123456789";
    return left.size() == 1 && right.size() == 1 &&
           left.front().find_first_of(kDigits) == std::string_view::npos &&
           right.front().find_first_of(kDigits) == std::string_view::npos &&
           IsOneSlip(left.front(), right.front());
}

}  // namespace

bool IsOneSlip(std::string_view one, std::string_view other) {
    constexpr std::size_t kLeast = 3;
    constexpr std::size_t kLongest = 64;
    if (one.size() > kLongest * 4 || other.size() > kLongest * 4) {
        return false;
    }
    std::u32string shorter = AllLetters(one);
    std::u32string longer = AllLetters(other);
    if (shorter.size() > longer.size()) {
        std::swap(shorter, longer);
    }
    if (longer.size() < kLeast || longer.size() - shorter.size() > 1) {
        return false;
    }
    const auto from = std::mismatch(shorter.begin(), shorter.end(), longer.begin());
    const std::u32string_view left(from.first, shorter.end());
    const std::u32string_view right(from.second, longer.end());
    if (left.size() < right.size()) {
        return left == right.substr(1);
    }
    if (left.empty()) {
        return false;
    }
    const bool swapped = left.size() > 1 && left[0] == right[1] && left[1] == right[0] &&
                         left.substr(2) == right.substr(2);
    return swapped || left.substr(1) == right.substr(1);
}

bool AreCompatible(const FoldedName& one, const FoldedName& other) {
    if (one.IsEmpty() || other.IsEmpty() || one.Key == other.Key || one.Glued == other.Glued) {
        return true;
    }
    if (one.Words.size() > kMostWords || other.Words.size() > kMostWords) {
        return false;
    }
    const bool less = one.Words.size() <= other.Words.size();
    return FindsEachWord(less ? one : other, less ? other : one) || DiffersInOneSlip(one, other);
}

}  // namespace orvik::book

// Small helpers for 8-bit text whose positions count from 1.

#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvik {

inline constexpr std::string_view kCrLf = "\r\n";

// Mid: the length characters of text from position, fewer where the text ends before that.
//   Mid("abc", 2, 5) -> "bc",  Mid("abc", 4, 1) -> ""
[[nodiscard]] inline std::string_view Mid(std::string_view text,
                                          std::size_t position,
                                          std::size_t length = std::string_view::npos) {
    return position > text.size() ? std::string_view{} : text.substr(position - 1, length);
}

// FindText: where the next wanted text, which is not empty, begins at or behind start, counted from
// 0; npos where there is none. Where wanted is known to the compiler a candidate costs no call.
[[nodiscard]] inline std::size_t FindText(std::string_view text,
                                          std::string_view wanted,
                                          std::size_t start = 0) {
    const std::string_view behind_first = wanted.substr(1);
    for (;;) {
        const std::size_t found = text.find(wanted.front(), start);
        if (found == std::string_view::npos ||
            text.substr(found + 1, behind_first.size()) == behind_first) {
            return found;
        }
        start = found + 1;
    }
}

// FindNear: where the next c stands at or behind start, counted from 0; npos where there is none.
// The first bytes are looked at without a call, which costs more than a short column is long.
[[nodiscard]] inline std::size_t FindNear(std::string_view text, char c, std::size_t start) {
    constexpr std::size_t kNear = 16;
    const char* const bytes = text.data();
    const std::size_t near_end = std::min(text.size(), start + kNear);
    for (; start < near_end; ++start) {
        if (bytes[start] == c) {
            return start;
        }
    }
    return text.find(c, start);
}

// FindFrom: the position of the next wanted text at or behind position, or one past the last
// character where there is none.
[[nodiscard]] inline std::size_t FindFrom(std::string_view text,
                                          std::string_view wanted,
                                          std::size_t position) {
    const std::size_t found = FindText(text, wanted, position - 1);
    return found == std::string_view::npos ? text.size() + 1 : found + 1;
}

// TakeUntil: what stands from position up to the next terminator, or to the end of the text where
// there is none. position moves to the terminator, or one past the last character.
//   TakeUntil("ab\r\n", 1, "\r\n")  ->  "ab", position 3
[[nodiscard]] inline std::string_view TakeUntil(std::string_view text,
                                                std::size_t& position,
                                                std::string_view terminator) {
    const std::size_t start = position;
    position = FindFrom(text, terminator, position);
    return start < position ? Mid(text, start, position - start) : std::string_view{};
}

// ToLower: ASCII letters in lower case, for file name endings.
[[nodiscard]] inline std::string ToLower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

// HasEnding: whether a file name ends so, in any case and with no dot required.
//   HasEnding("BOOK.LDIF", "ldif") -> true
[[nodiscard]] inline bool HasEnding(std::string_view name, std::string_view ending) {
    return name.size() >= ending.size() &&
           ToLower(name.substr(name.size() - ending.size())) == ending;
}

// WithWholeEnding: a file name whose ending was cut to three letters, ".ldi",
// gets its last one back.
[[nodiscard]] inline std::string WithWholeEnding(std::string name) {
    if (HasEnding(name, "ldi")) {
        name += 'f';
    }
    return name;
}

// CutEnd: removes the last count characters. Errors: RunTimeError 5 if the text
// is shorter.
void CutEnd(std::string& text, std::size_t count);

// Put: copies text to where there is room for it; returns where it ends there.
inline char* Put(char* to, std::string_view text) {
    return std::copy(text.begin(), text.end(), to);
}

// AppendWithout: appends text less every occurrence of dropped.
inline void AppendWithout(std::string& to, std::string_view text, char dropped) {
    for (;;) {
        const std::size_t found = text.find(dropped);
        to.append(text.substr(0, found));
        if (found == std::string_view::npos) {
            return;
        }
        text.remove_prefix(found + 1);
    }
}

}  // namespace orvik

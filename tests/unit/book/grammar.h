// Grammars, word for word and slowly: a production is a function from the places of a text where it
// may begin to those where it may end.

#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>

namespace orvik::book::test {

inline constexpr std::size_t kLongestDerived = 319;
using Places = std::bitset<kLongestDerived + 1>;

class Grammar {
 public:
    // Of at most kLongestDerived bytes, which must outlive the grammar.
    explicit Grammar(std::string_view text)
        : text_(text), has_others_(Range(~Places(), 0x80, 0xFF).any()) {}

 protected:
    [[nodiscard]] std::string_view Text() const { return text_; }
    [[nodiscard]] bool IsWhole(const Places& ends) const { return ends[text_.size()]; }
    static Places At(std::size_t place) { return Places().set(place); }

    // Behind each letter of a kind. Few places are set, so only those are looked at.
    template <class Kind>
    [[nodiscard]] Places Ends(const Places& from, const Kind& is_one) const {
        Places ends;
        for (std::size_t i = from._Find_first(); i < text_.size(); i = from._Find_next(i)) {
            if (is_one(text_[i])) {
                ends.set(i + 1);
            }
        }
        return ends;
    }
    // %xLOW-HIGH
    [[nodiscard]] Places Range(const Places& from, unsigned low, unsigned high) const {
        return Ends(from, [=](char letter) {
            const auto byte = static_cast<unsigned char>(letter);
            return byte >= low && byte <= high;
        });
    }
    [[nodiscard]] Places Letter(const Places& from, char letter) const {
        const auto code = static_cast<unsigned char>(letter);
        return Range(from, code, code);
    }
    [[nodiscard]] Places OneOf(const Places& from, std::string_view letters) const {
        return Ends(from,
                    [=](char letter) { return letters.find(letter) != std::string_view::npos; });
    }
    // *rule
    template <class Rule>
    static Places Any(const Places& from, const Rule& rule) {
        Places all = from;
        for (Places last = from; last.any();) {
            last = rule(last) & ~all;
            all |= last;
        }
        return all;
    }
    // 1*rule
    template <class Rule>
    static Places Some(const Places& from, const Rule& rule) {
        return Any(rule(from), rule);
    }

    // RFC 3629
    [[nodiscard]] Places Tail(const Places& from) const { return Range(from, 0x80, 0xBF); }
    [[nodiscard]] Places Utf8NonAscii(const Places& from) const {
        if (!has_others_ || Range(from, 0x80, 0xFF).none()) {
            return {};
        }
        const Places two = Tail(Range(from, 0xC2, 0xDF));
        const Places three = Range(Range(from, 0xE0, 0xE0), 0xA0, 0xBF) |
                             Tail(Range(from, 0xE1, 0xEC) | Range(from, 0xEE, 0xEF)) |
                             Range(Range(from, 0xED, 0xED), 0x80, 0x9F);
        const Places four = Range(Range(from, 0xF0, 0xF0), 0x90, 0xBF) |
                            Tail(Range(from, 0xF1, 0xF3)) |
                            Range(Range(from, 0xF4, 0xF4), 0x80, 0x8F);
        return two | Tail(three) | Tail(Tail(four));
    }

 private:
    std::string_view text_;
    bool has_others_;  // letters outside ASCII
};

}  // namespace orvik::book::test

#include "book/lines.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace orvik::book {
namespace {

// Names are short: eight bytes at a time it is found before a call of memchr would begin.
std::size_t FindColon(std::string_view text) {
    constexpr std::size_t kNear = 32;
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    constexpr std::uint64_t kHigh = 0x8080808080808080U;
    std::size_t at = 0;
    for (; at < kNear && at + sizeof kOnes <= text.size(); at += sizeof kOnes) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + at, sizeof eight);
        // A byte that is a colon becomes NUL; the lowest such byte is marked rightly.
        eight ^= kOnes * ':';
        const std::uint64_t found = (eight - kOnes) & ~eight & kHigh;
        if (found != 0) {
            return std::endian::native == std::endian::little
                       ? at + static_cast<std::size_t>(std::countr_zero(found)) / 8
                       : text.find(':', at);
        }
    }
    return text.find(':', at);
}

}  // namespace

LineEnds CountLineEnds(std::string_view text) {
    LineEnds ends;
    // Nearly every text has no CR, or one before each LF, and then it is looked at once.
    ends.Lf = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    for (std::size_t at = text.find('\r'); at != std::string_view::npos;
         at = text.find('\r', at + 1)) {
        if (at + 1 < text.size() && text[at + 1] == '\n') {
            ++ends.CrLf;
            --ends.Lf;
        } else {
            ++ends.Cr;
        }
    }
    return ends;
}

std::string_view NameOf(const LineEnds& ends) {
    if (ends.Lf + ends.CrLf + ends.Cr == 0) {
        return "no line end";
    }
    if (ends.Lf >= ends.CrLf && ends.Lf >= ends.Cr) {
        return "LF";
    }
    return ends.CrLf >= ends.Cr ? "CR LF" : "CR";
}

Lines::Lines(std::string_view text) : Lines(text, text.find('\r') != std::string_view::npos) {}

std::size_t Lines::EndBesideCr() const {
    // Each part is looked at for both, so that a text of many CR and no LF stays linear.
    constexpr std::size_t kPart = 256;
    for (std::size_t from = 0; from < rest_.size(); from += kPart) {
        const std::string_view part = rest_.substr(from, kPart);
        const std::size_t lf = std::min(part.find('\n'), part.size());
        const std::size_t end = std::min(part.substr(0, lf).find('\r'), lf);
        if (end < part.size()) {
            return from + end;
        }
    }
    return rest_.size();
}

void TextRows::Add(std::string_view text, std::uint32_t number, bool folded) {
    const std::size_t colon = FindColon(text);
    const bool is_text = !folded && colon == std::string_view::npos;
    if (is_text && ends_with_text_) {
        std::string_view& whole = rows_.back().Text;
        whole = {whole.data(), static_cast<std::size_t>(text.data() + text.size() - whole.data())};
    } else {
        // Made where it stays: a copy waits for its short halves.
        TextRow& row = rows_.emplace_back();
        row.Text = text;
        row.Number = number;
        row.Colon = static_cast<std::uint32_t>(colon);
    }
    ends_with_text_ = is_text;
}

void TextRows::Clear() {
    // The room stays for the next record, but not that for millions of rows.
    constexpr std::size_t kMostKept = 4096;
    if (rows_.capacity() > kMostKept) {
        rows_ = std::vector<TextRow>();
    }
    rows_.clear();
    ends_with_text_ = false;
}

}  // namespace orvik::book

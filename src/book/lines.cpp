#include "book/lines.h"

#include <algorithm>

namespace orvik::book {

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

Lines::Lines(std::string_view text)
    : rest_(text), has_cr_(text.find('\r') != std::string_view::npos) {}

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
    const std::size_t colon = text.find(':');
    const bool is_text = !folded && colon == std::string_view::npos;
    if (is_text && ends_with_text_) {
        std::string_view& whole = rows_.back().Text;
        whole = {whole.data(), static_cast<std::size_t>(text.data() + text.size() - whole.data())};
    } else {
        rows_.push_back({text, number, static_cast<std::uint32_t>(colon)});
    }
    ends_with_text_ = is_text;
}

void TextRows::Clear() {
    rows_.clear();
    ends_with_text_ = false;
}

}  // namespace orvik::book

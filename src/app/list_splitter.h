// Takes a list of entries apart into their addresses and nicknames.

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "app/byte_finder.h"
#include "app/text.h"

namespace orvik {

// Takes one list in the ASCII form apart: take(address, nickname) gets each entry. Runs of ordinary
// characters are appended as a whole.
template <class Take>
class ListSplitter {
 public:
    ListSplitter(std::string_view text, std::string_view separator, const Take& take)
        : text_(text), separator_(separator.empty() ? '\0' : separator.front()), take_(take) {
        for (const char c : std::string_view("\n\"<>")) {
            Mark(c);
        }
        if (!separator.empty()) {
            Mark(separator_);
            separated_ = true;
        }
    }

    void Run() {
        for (std::size_t i = 1; i <= text_.size();) {
            if (!at_start_ || !(TakeUsualEntry(i) || TakePlainEntry(i))) {
                at_start_ = false;
                i = TakeOrdinary(i);
                TakeSpecial(i);
                ++i;
            }
        }
    }

 private:
    void Mark(char c) { special_.at(static_cast<unsigned char>(c)) = true; }

    [[nodiscard]] bool IsSpecial(char c) const {
        return special_[static_cast<unsigned char>(c)];  // NOLINT: 256 entries, one per char
    }

    // Whether a text holds nothing that parts an entry.
    [[nodiscard]] bool IsOrdinary(std::string_view text) const {
        return std::none_of(text.begin(), text.end(), [this](char c) { return IsSpecial(c); });
    }

    // Takes the entry that begins at i as TakePlainEntry does, if CR ends it and no more than one
    // blank and none of the characters that part entries stands where it need not. Else false, and
    // nothing was taken.
    bool TakeUsualEntry(std::size_t& i) {
        if (separator_ != '\r') {
            return false;
        }
        if (behind_usual_ != i) {
            marks_ = Marks(text_, i - 1);
        }
        behind_usual_ = 0;
        std::size_t start = i - 1;
        std::size_t mark = marks_.Next();
        while (mark == start && text_[mark] == '\n') {
            ++start;
            mark = marks_.Next();
        }
        std::string_view nickname;
        std::size_t end = mark;
        if (mark == start && text_[mark] == '"') {
            const std::size_t quote = marks_.Next();
            const std::size_t bracket = marks_.Next();
            const std::size_t close = marks_.Next();
            end = marks_.Next();
            if (end == std::string_view::npos || bracket - quote != 2 || end - close != 1 ||
                text_[quote] != '"' || text_[quote + 1] != ' ' || text_[bracket] != '<' ||
                text_[close] != '>') {
                return false;
            }
            nickname = text_.substr(start + 1, quote - start - 1);
            start = bracket + 1;
            mark = close;
        }
        if (end == std::string_view::npos || text_[end] != '\r') {
            return false;
        }
        const std::string_view address = text_.substr(start, mark - start);
        if (!address.empty() || !nickname.empty()) {
            take_(address, nickname);
        }
        i = end + 2;
        behind_usual_ = i;
        return true;
    }

    // Takes the entry that begins at i if it is one of the two that books are made of, an address
    // alone or "NICK" <ADDR>, and its separator. Else false, and nothing was taken.
    bool TakePlainEntry(std::size_t& i) {
        const std::size_t start = text_.find_first_not_of('\n', i - 1);
        const std::size_t end = separated_ ? text_.find(separator_, start) : std::string_view::npos;
        if (start == std::string_view::npos || end == std::string_view::npos) {
            return false;
        }
        std::string_view address = text_.substr(start, end - start);
        std::string_view nickname;
        if (address.starts_with('"')) {
            const std::size_t quote = address.find('"', 1);
            const std::size_t bracket = address.find_first_not_of(' ', quote + 1);
            if (quote == std::string_view::npos || bracket == std::string_view::npos ||
                address[bracket] != '<' || !address.ends_with('>')) {
                return false;
            }
            nickname = address.substr(1, quote - 1);
            address = address.substr(bracket + 1, address.size() - bracket - 2);
        }
        if (!IsOrdinary(address) || nickname.find('\n') != std::string_view::npos) {
            return false;
        }
        if (!address.empty() || !nickname.empty()) {
            take_(address, nickname);
        }
        i = end + 2;
        return true;
    }

    // Appends the ordinary characters from i; returns the position behind them, at most the last.
    std::size_t TakeOrdinary(std::size_t i) {
        const std::size_t start = i;
        while (i < text_.size() && !IsSpecial(text_[i - 1])) {
            ++i;
        }
        token_.append(Mid(text_, start, i - start));
        return i;
    }

    // Handles the character at i, which is moved past blanks behind a closing quote.
    void TakeSpecial(std::size_t& i) {
        const char c = text_[i - 1];
        if (i == text_.size() || (separated_ && c == separator_)) {
            EndEntry();
        } else if (c == '\n') {
            return;
        } else if (c == '"') {
            TakeQuote(i);
        } else if (c == '<' && !in_nickname_) {
            MoveToken(nickname_);
        } else if (c == '>' && !in_nickname_) {
            MoveToken(address_);
            in_nickname_ = Mid(text_, i + 1, 2).find('"') == std::string_view::npos;
        } else {
            token_.push_back(c);
        }
    }

    void TakeQuote(std::size_t& i) {
        if (in_nickname_) {
            MoveToken(nickname_);
            while (Mid(text_, i + 1, 1) == " ") {
                ++i;
            }
        } else {
            MoveToken(address_);
        }
        in_nickname_ = !in_nickname_;
    }

    void MoveToken(std::string& to) {
        to += token_;
        token_.clear();
    }

    void EndEntry() {
        MoveToken(in_nickname_ ? nickname_ : address_);
        if (!address_.empty() || !nickname_.empty()) {
            take_(address_, nickname_);
        }
        address_.clear();
        nickname_.clear();
        in_nickname_ = false;
        at_start_ = true;
    }

    std::string_view text_;
    char separator_;
    bool separated_ = false;
    std::array<bool, 256> special_{};
    using Marks = ByteFinder<'\r', '\n', '"', '<', '>'>;
    Marks marks_{{}};
    std::size_t behind_usual_ = 0;  // the position up to which marks_ were found, or 0
    bool in_nickname_ = false;
    bool at_start_ = true;  // of an entry
    std::string token_;
    std::string address_;
    std::string nickname_;
    const Take& take_;
};

}  // namespace orvik

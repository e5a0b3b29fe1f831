#include "app/working_text.h"

#include <array>

#include "app/run_time_error.h"
#include "app/text.h"

namespace orvik {
namespace {

// Takes one list apart. Runs of ordinary characters are appended as a whole.
class Splitter {
 public:
    Splitter(std::string_view text, std::string_view separator, const TakeEntry& take)
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
        for (std::size_t i = 1; i <= text_.size(); ++i) {
            i = TakeOrdinary(i);
            Take(i);
        }
    }

 private:
    void Mark(char c) { special_.at(static_cast<unsigned char>(c)) = true; }

    [[nodiscard]] bool IsSpecial(char c) const {
        return special_[static_cast<unsigned char>(c)];  // NOLINT: 256 entries, one per char
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
    void Take(std::size_t& i) {
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
    }

    std::string_view text_;
    char separator_;
    bool separated_ = false;
    std::array<bool, 256> special_{};
    bool in_nickname_ = false;
    std::string token_;
    std::string address_;
    std::string nickname_;
    const TakeEntry& take_;
};

void AddWithoutLf(std::string_view line, const std::function<void(std::string_view)>& add) {
    while (line.starts_with('\n')) {
        line.remove_prefix(1);
    }
    if (line.find('\n') == std::string_view::npos) {
        add(line);
        return;
    }
    std::string kept;
    AppendWithout(kept, line, '\n');
    add(kept);
}

// Gives each line of text that is ended by CR, less LF, to add; returns what stands behind the
// last.
std::string_view AddLines(std::string_view text, const std::function<void(std::string_view)>& add) {
    for (;;) {
        const std::size_t end = text.find('\r');
        if (end == std::string_view::npos) {
            return text;
        }
        AddWithoutLf(text.substr(0, end), add);
        text.remove_prefix(end + 1);
    }
}

}  // namespace

bool HasNickLine(std::string_view text) {
    for (std::size_t p = text.find(kNick); p != std::string_view::npos;
         p = text.find(kNick, p + 1)) {
        const std::string_view behind = text.substr(p + kNick.size());
        if ((p == 0 || text.substr(0, p).ends_with(kCrLf)) &&
            (behind.empty() || behind.starts_with(kCrLf))) {
            return true;
        }
    }
    return false;
}

bool IsNative(std::string_view text) {
    if (!text.ends_with(kCrLf)) {
        return false;
    }
    std::ptrdiff_t lines_left = 0;  // before the middle line, less those behind it
    bool found = false;
    while (!text.empty()) {
        const std::size_t end = text.find(kCrLf);
        if (text.substr(0, end) == kNick) {
            if (found) {
                return false;
            }
            found = true;
        } else {
            lines_left += found ? -1 : 1;
        }
        text.remove_prefix(end + kCrLf.size());
    }
    return found && lines_left == 0;
}

NativeBlocks SplitBlocks(std::string_view text, std::string_view separator) {
    NativeBlocks blocks;
    blocks.Emails.reserve(text.size() + kCrLf.size());
    ForEachOfList(text, separator, [&](std::string_view address, std::string_view nickname) {
        blocks.Emails.append(address).append(kCrLf);
        blocks.Nicks.append(nickname).append(kCrLf);
    });
    CutEnd(blocks.Nicks, kCrLf.size());
    CutEnd(blocks.Emails, kCrLf.size());
    return blocks;
}

void ForEachOfList(std::string_view text, std::string_view separator, const TakeEntry& take) {
    Splitter(text, separator, take).Run();
}

void ForEachOfNative(std::string_view text, const TakeEntry& take) {
    NativeReader reader(text);
    while (reader.Next()) {
        const std::string_view nickname = reader.TakeNickname();
        AddWithoutLf(reader.RawAddress(),
                     [&](std::string_view address) { take(address, nickname); });
    }
}

std::string JoinBlocks(const NativeBlocks& blocks) {
    std::string text;
    text.reserve(blocks.Emails.size() + blocks.Nicks.size() + kNick.size() + 3 * kCrLf.size());
    text.append(blocks.Emails).append(kCrLf).append(kNick).append(kCrLf);
    text.append(blocks.Nicks).append(kCrLf);
    return text;
}

std::size_t ListNative(std::string_view text,
                       const std::function<void(std::string_view)>& add_email,
                       const std::function<void(std::string_view)>& add_nick) {
    std::string separator(kCrLf);
    separator += kNick;
    const std::size_t found = text.find(separator);
    const std::size_t block_end = found != std::string_view::npos
                                      ? found
                                      : text.size() - std::min<std::size_t>(text.size(), 1);
    std::size_t count = 1;
    const std::string_view last = AddLines(text.substr(0, block_end), [&](std::string_view line) {
        add_email(line);
        ++count;
    });
    AddWithoutLf(last, add_email);
    AddLines(Mid(text, block_end + 1 + separator.size() + 1), add_nick);
    return count;
}

ListedBlocks FindBlocks(std::string_view text) {
    std::size_t middle = 0;
    if (!text.starts_with(kNick)) {
        const std::size_t end = text.find(std::string(kCrLf).append(kNick));
        if (end == std::string_view::npos) {
            return {text, {}};
        }
        middle = end + kCrLf.size();
    }
    std::string_view nicknames = text.substr(middle + kNick.size());
    nicknames.remove_prefix(std::min<std::size_t>(nicknames.size(), 1));
    if (nicknames.starts_with('\n')) {
        nicknames.remove_prefix(1);
    }
    return {text.substr(0, middle), nicknames};
}

std::string EntryEnd(std::string_view separator) {
    std::string end(separator);
    if (separator == "\r") {
        end += '\n';
    }
    return end;
}

NativeText::NativeText(std::string_view text) : text_(text) {
    if (text_.find(kNick) == std::string_view::npos) {
        completed_.reserve(text.size() + kNick.size() + 2 * kCrLf.size());
        completed_.append(text);
        if (!text.empty()) {
            completed_.append(kCrLf);
        }
        completed_.append(kNick).append(kCrLf);
        text_ = completed_;
    }
    separator_ = text_.find(kNick) + 1;
}

NativeReader::NativeReader(std::string_view text, char line_end)
    : native_(text), line_end_(line_end), nickname_(native_.Nicknames()) {}

bool NativeReader::Next() {
    const std::size_t end = FindFrom(native_.Text(), {&line_end_, 1}, address_start_);
    if (end >= Separator()) {
        return false;
    }
    address_ = Mid(native_.Text(), address_start_, end - address_start_);
    address_end_ = end;
    address_start_ = end + 1;
    return true;
}

std::string_view NativeReader::TakeNickname() {
    const std::string_view text = native_.Text();
    const std::size_t start = nickname_;
    std::size_t end = FindFrom(text, kCrLf, start);
    if (end > text.size()) {
        end = std::max(start, text.size());
    }
    nickname_ = end + kCrLf.size();
    return Mid(text, start, end - start);
}

}  // namespace orvik

#include "book/old/encoded_words.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "app/encoding.h"
#include "book/charset_converter.h"
#include "book/field_names.h"
#include "book/transfer.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

struct EncodedWord {
    std::string_view Charset;
    std::string Bytes;
    std::size_t Length = 0;  // of the whole word
};

// The word that a text begins with.
std::optional<EncodedWord> EncodedWordAt(std::string_view text) {
    constexpr std::size_t kLongestCharset = 60;
    constexpr std::string_view kEnd = "?=";
    const std::string_view head = text.substr(0, kLongestCharset + 3);
    const std::size_t mark = head.find('?', 2);
    if (!text.starts_with("=?") || mark == std::string_view::npos || mark == 2 ||
        text.size() < mark + 3 || text[mark + 2] != '?') {
        return std::nullopt;
    }
    EncodedWord word;
    // A language may follow the set.
    word.Charset = head.substr(2, std::min(mark, head.find('*')) - 2);
    const std::size_t begin = mark + 3;
    const std::size_t end = text.find_first_of("? \t", begin);
    if (end == std::string_view::npos || text.substr(end, kEnd.size()) != kEnd) {
        return std::nullopt;
    }
    word.Length = end + kEnd.size();
    const std::string_view encoded = text.substr(begin, end - begin);
    if (SameName(text.substr(mark + 1, 1), "B")) {
        return AppendBase64(encoded, word.Bytes) ? std::optional(std::move(word)) : std::nullopt;
    }
    if (!SameName(text.substr(mark + 1, 1), "Q")) {
        return std::nullopt;
    }
    std::string quoted(encoded);
    std::replace(quoted.begin(), quoted.end(), '_', ' ');
    return AppendQuotedPrintable(quoted, word.Bytes) ? std::nullopt
                                                     : std::optional(std::move(word));
}

class WordDecoder {
 public:
    explicit WordDecoder(std::string_view text) : text_(text) {}

    std::string Run() {
        for (std::size_t at = 0; at < text_.size();) {
            if (auto word = WordFrom(at)) {
                at = TakeRow(at, std::move(*word));
            } else {
                decoded_ += text_[at++];
            }
        }
        return std::move(decoded_);
    }

 private:
    [[nodiscard]] std::optional<EncodedWord> WordFrom(std::size_t at) const {
        return text_[at] == '=' ? EncodedWordAt(text_.substr(at)) : std::nullopt;
    }

    // Takes a word, and those of the same set behind it. Returns where the rest begins.
    std::size_t TakeRow(std::size_t begin, EncodedWord row) {
        std::size_t end = begin + row.Length;
        std::size_t rest = end;
        while (true) {
            const std::size_t next = text_.find_first_not_of(" \t", end);
            auto word = next == std::string_view::npos ? std::nullopt : WordFrom(next);
            if (!word) {
                break;
            }
            rest = next;
            if (!SameName(word->Charset, row.Charset)) {
                break;
            }
            row.Bytes += word->Bytes;
            end = next + word->Length;
            rest = end;
        }
        if (IsLetters(row)) {
            return rest;
        }
        decoded_ += text_.substr(begin, end - begin);
        return end;
    }

    // Appends the letters of a word, if all of it are letters.
    bool IsLetters(const EncodedWord& word) {
        if (!converter_ || named_ != word.Charset) {
            named_ = word.Charset;
            converter_ = CharsetConverter::Named(named_);
        }
        std::string letters;
        if (!converter_ || converter_->Append(word.Bytes, letters) > 0) {
            return false;
        }
        decoded_ += letters;
        return true;
    }

    std::string_view text_;
    std::string decoded_;
    std::string named_;
    std::optional<CharsetConverter> converter_;
};

}  // namespace

std::string DecodedWords(std::string_view text) {
    return HasEncodedWords(text) ? WordDecoder(text).Run() : std::string(text);
}

std::string EncodedWords(std::string_view text) {
    constexpr std::string_view kBegin = "=?UTF-8?Q?";
    constexpr std::string_view kEnd = "?=";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::size_t kLongest = 75;
    if (AsciiLength(text) == text.size() && !HasEncodedWords(text)) {
        return std::string(text);
    }
    std::string words;
    std::string word(kBegin);
    while (!text.empty()) {
        // A letter is in one word.
        const std::size_t length = std::max<std::size_t>(FirstLetter(text).Length, 1);
        std::string letter;
        for (const char c : text.substr(0, length)) {
            const auto byte = static_cast<unsigned char>(c);
            const bool plain =
                (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
            if (plain) {
                letter += c;
            } else if (c == ' ') {
                letter += '_';
            } else {
                letter += '=';
                letter += kDigits[byte / 16];
                letter += kDigits[byte % 16];
            }
        }
        if (word.size() + letter.size() + kEnd.size() > kLongest) {
            words.append(word).append(kEnd).append(" ");
            word = kBegin;
        }
        word += letter;
        text.remove_prefix(length);
    }
    return words.append(word).append(kEnd);
}

}  // namespace orvik::book

#include "book/charset.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include <unicode/uchar.h>

#include "app/encoding.h"
#include "book/charset_guess.h"
#include "book/field_names.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

constexpr std::string_view kWestern = "windows-1252";
constexpr std::size_t kMostExamples = 3;

struct Choice {
    std::string Name;
    CharsetGround Ground = CharsetGround::Assumed;
};

// The set of what is not UTF-8.
Choice ChooseOther(std::string_view text, std::string_view asked) {
    if (!asked.empty()) {
        return {std::string(asked), CharsetGround::Asked};
    }
    const std::string sample = LinesNotUtf8(text);
    std::string guess = GuessCharset(sample);
    if (!guess.empty()) {
        return {std::move(guess), CharsetGround::Guessed};
    }
    return {IsOfOldMacs(text, sample) ? "macintosh" : std::string(kWestern)};
}

CharsetConverter Opened(const std::string& name) {
    auto found = CharsetConverter::Named(name);
    if (!found) {
        found = CharsetConverter::Named(kWestern);
    }
    if (!found) {
        throw std::runtime_error("ICU does not know " + std::string(kWestern));
    }
    return std::move(*found);
}

// Accents and signs that stand alone count as letters elsewhere.
bool IsLetter(UChar32 code) {
    const int8_t type = u_charType(code);
    return type == U_UPPERCASE_LETTER || type == U_LOWERCASE_LETTER || type == U_OTHER_LETTER;
}

// "1 entry", "2 entries".
std::string Counted(std::size_t count, std::string_view noun) {
    std::string text = std::to_string(count) + " " + std::string(noun);
    if (count != 1 && noun.ends_with('y')) {
        text.replace(text.size() - 1, 1, "ies");
    } else if (count != 1) {
        text += noun.ends_with('s') ? "es" : "s";
    }
    return text;
}

// Whether a text is nothing but letters, and what names have between them.
bool IsLettersOnly(std::string_view text) {
    while (!text.empty()) {
        const Utf8Letter letter = FirstLetter(text);
        const auto code = static_cast<UChar32>(letter.Code);
        if (letter.Length == 0 || (code < 0x80 ? code < ' ' : !IsLetter(code))) {
            return false;
        }
        text.remove_prefix(letter.Length);
    }
    return true;
}

std::string Joined(const std::vector<std::string>& examples, CharsetConverter& converter) {
    std::string text;
    for (const std::string& raw : examples) {
        text += text.empty() ? "\"" : ", \"";
        converter.Append(raw, text);
        text += '"';
    }
    return text;
}

}  // namespace

Charset::Charset(const Source& source, std::string_view asked)
    : wide_(NameOf(source.Wide())), other_(Opened(std::string(kWestern))) {
    const std::string_view text = source.Text();
    ascii_ = !source.Signs().NotAscii;
    const bool escapes = source.Signs().Escape && text.find("\x1B$") != std::string_view::npos;
    const bool stated = !wide_.empty();
    utf8_ = stated || (asked.empty() && (ascii_ ? !escapes : CountUtf8(text).Bad == 0));
    if (!utf8_) {
        Choice choice = escapes && ascii_ && asked.empty()
                            ? Choice{"ISO-2022-JP", CharsetGround::Guessed}
                            : ChooseOther(text, asked);
        ground_ = choice.Ground;
        other_ = Opened(choice.Name);
    }
}

PieceCharset Charset::Judge(std::span<const std::string_view> values, std::uint32_t line) {
    return utf8_ ? PieceCharset::Utf8 : JudgeApart(values, line);
}

PieceCharset JudgeBytes(std::span<const std::string_view> values, Utf8Count& count) {
    bool escapes = false;
    for (const std::string_view value : values) {
        const Utf8Count one = CountUtf8(value);
        count.Letters += one.Letters;
        count.Bad += one.Bad;
        escapes = escapes || value.find("\x1B$") != std::string_view::npos;
    }
    if (escapes || count.Bad > 1 || (count.Bad == 1 && count.Letters == 0)) {
        return PieceCharset::Other;
    }
    return count.Bad == 0 ? PieceCharset::Utf8 : PieceCharset::Broken;
}

PieceCharset Charset::JudgeApart(std::span<const std::string_view> values, std::uint32_t line) {
    Utf8Count sum;
    const PieceCharset found = JudgeBytes(values, sum);
    const bool asked = ground_ == CharsetGround::Asked && sum.Letters + sum.Bad > 0;
    if (asked || found == PieceCharset::Other) {
        CountOther(line);
        return PieceCharset::Other;
    }
    utf8_pieces_ += sum.Letters > 0 ? 1U : 0U;
    return found;
}

void Charset::CountOther(std::uint32_t line) {
    ++other_pieces_;
    if (other_lines_.size() < kMostExamples) {
        other_lines_.push_back(line);
    }
}

std::string_view Charset::DecodeAlone(std::string_view value,
                                      std::uint32_t line,
                                      Arena& texts,
                                      std::size_t& bad) {
    if (CountUtf8(value).Bad == 0) {
        return value;
    }
    CountOther(line);
    return Decode(value, PieceCharset::Other, texts, bad);
}

std::string_view Charset::Decode(std::string_view value,
                                 PieceCharset piece,
                                 Arena& texts,
                                 std::size_t& bad) {
    if (piece == PieceCharset::Utf8) {
        // A value that was not judged with its piece, as it named a set that nobody knows.
        if (utf8_ || CountUtf8(value).Bad == 0) {
            return value;
        }
        piece = PieceCharset::Other;
    }
    const bool escapes = value.find('\x1B') != std::string_view::npos;
    if (!escapes && AsciiLength(value) == value.size()) {
        return value;
    }
    std::string decoded;
    bad +=
        piece == PieceCharset::Broken ? AppendUtf8(value, decoded) : other_.Append(value, decoded);
    return texts.Keep(decoded);
}

std::optional<std::string_view> Charset::DecodeAs(std::string_view value,
                                                  std::string_view charset,
                                                  Arena& texts,
                                                  std::size_t& bad) {
    if (named_as_ != charset || !named_) {
        named_ = CharsetConverter::Named(charset);
        named_as_ = charset;
    }
    if (!named_) {
        return std::nullopt;
    }
    std::string decoded;
    bad += named_->Append(value, decoded);
    return decoded == value ? value : texts.Keep(decoded);
}

void Charset::Example(std::string_view raw) {
    constexpr std::size_t kLongest = 60;
    const bool known = std::find(examples_.begin(), examples_.end(), raw) != examples_.end();
    if (examples_.size() < kMostExamples && raw.size() <= kLongest && !known &&
        AsciiLength(raw) < raw.size()) {
        examples_.emplace_back(raw);
    }
}

// Another set that makes only letters of all examples, and others than the one that was taken.
std::string Charset::Alternative() {
    constexpr std::array<const char*, 4> kSets = {
        "macintosh", "IBM850", "windows-1250", "ISO-8859-15"};
    const std::string taken = Joined(examples_, other_);
    for (const char* const name : kSets) {
        auto set = CharsetConverter::Named(name);
        if (!set || set->Name() == other_.Name()) {
            continue;
        }
        std::string shown = Joined(examples_, *set);
        if (shown != taken && IsLettersOnly(shown)) {
            return "; or " + set->Name() + ": " + shown;
        }
    }
    return {};
}

std::string Charset::OtherSentence() {
    std::string text = other_.Name();
    if (ground_ == CharsetGround::Asked) {
        return text;
    }
    text += ground_ == CharsetGround::Guessed ? " (guessed" : " (assumed";
    if (!examples_.empty()) {
        text += "; e.g. " + Joined(examples_, other_);
        text += ground_ == CharsetGround::Assumed ? Alternative() : "";
    }
    return text + ")";
}

std::string Charset::Sentence(std::string_view record) {
    if (!wide_.empty()) {
        return std::string(wide_);
    }
    if (other_pieces_ == 0) {
        return ascii_ ? "ASCII" : "UTF-8";
    }
    if (utf8_pieces_ == 0) {
        return OtherSentence();
    }
    std::string text = "UTF-8 (" + Counted(utf8_pieces_, record) + "), " + OtherSentence() + " (" +
                       Counted(other_pieces_, record) +
                       (other_pieces_ == 1 ? ", line " : ", lines ");
    for (std::size_t i = 0; i < other_lines_.size(); ++i) {
        text += (i == 0 ? "" : ", ") + std::to_string(other_lines_[i]);
    }
    return text + (other_lines_.size() < other_pieces_ ? " ...)" : ")");
}

}  // namespace orvik::book

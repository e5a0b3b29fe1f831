#include "book/source.h"

#include <algorithm>
#include <array>
#include <utility>

#include "book/charset_converter.h"

namespace orvik::book {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

struct Mark {
    std::string_view Bytes;
    WideForm Form;
};

// The longer ones first: UTF-16's mark begins UTF-32's.
constexpr std::array kMarks = {
    Mark{{"\xFF\xFE\0\0", 4}, WideForm::Utf32Le},
    Mark{{"\0\0\xFE\xFF", 4}, WideForm::Utf32Be},
    Mark{"\xFF\xFE", WideForm::Utf16Le},
    Mark{"\xFE\xFF", WideForm::Utf16Be},
    Mark{kMark, WideForm::None},
};

const Mark* MarkOf(std::string_view bytes) {
    const auto* const found = std::find_if(kMarks.begin(), kMarks.end(), [&](const Mark& mark) {
        return bytes.starts_with(mark.Bytes);
    });
    return found == kMarks.end() ? nullptr : found;
}

constexpr std::size_t kSample = 4096;

// In Latin text nearly each other byte is NUL.
WideForm ByNuls(std::string_view sample) {
    std::array<std::size_t, 2> nuls{};
    for (std::size_t i = 0; i < sample.size(); ++i) {
        nuls[i % 2] += sample[i] == '\0' ? 1U : 0U;
    }
    const std::size_t units = sample.size() / 2;
    const auto many = [units](std::size_t count) { return 10 * count > 3 * units; };
    const auto few = [units](std::size_t count) { return 20 * count < units; };
    if (many(nuls[1]) && few(nuls[0])) {
        return WideForm::Utf16Le;
    }
    return many(nuls[0]) && few(nuls[1]) ? WideForm::Utf16Be : WideForm::None;
}

// How many line ends, blanks and separators a sample has in one byte order; none at all if halves
// of letters stand alone in it.
std::size_t Separators(std::string_view sample, std::size_t low) {
    constexpr std::string_view kSeparators = "\n\r ,:\"";
    std::size_t count = 0;
    bool half = false;
    for (std::size_t i = 0; i + 1 < sample.size(); i += 2) {
        const auto high_byte = static_cast<unsigned char>(sample[i + 1 - low]);
        const bool second = (high_byte & 0xFCU) == 0xDC;
        if (half != second) {
            return 0;
        }
        half = (high_byte & 0xFCU) == 0xD8;
        const char letter = sample[i + low];
        count += high_byte == 0 && kSeparators.find(letter) != std::string_view::npos ? 1U : 0U;
    }
    return count;
}

// How many units hold a blank or a line end beside another sign, as text of one byte a letter does
// all the time.
std::size_t PlainBlanks(std::string_view sample) {
    const auto is_blank = [](char c) { return c == ' ' || c == '\n' || c == '\r'; };
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < sample.size(); i += 2) {
        const bool nul = sample[i] == '\0' || sample[i + 1] == '\0';
        count += !nul && (is_blank(sample[i]) || is_blank(sample[i + 1])) ? 1U : 0U;
    }
    return count;
}

// Text without Latin letters has few NULs, and its separators tell.
WideForm BySeparators(std::string_view sample) {
    if (sample.find('\0') == std::string_view::npos) {
        return WideForm::None;
    }
    const std::size_t little = Separators(sample, 0);
    const std::size_t big = Separators(sample, 1);
    const std::size_t plain = PlainBlanks(sample);
    if (little >= 3 && big == 0 && plain < little) {
        return WideForm::Utf16Le;
    }
    return big >= 3 && little == 0 && plain < big ? WideForm::Utf16Be : WideForm::None;
}

// Ends a text of DOS.
constexpr char kEndOfText = '\x1A';

// A text without what stands before the first line of a file or behind its last one, wherever
// files were joined.
std::string WithoutJoints(std::string_view text) {
    std::string joined;
    joined.reserve(text.size());
    while (!text.empty()) {
        if (text.starts_with(kMark) || text.starts_with(kEndOfText)) {
            text.remove_prefix(text.front() == kEndOfText ? 1 : kMark.size());
            continue;
        }
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size() - 1);
        joined.append(text.substr(0, end + 1));
        text.remove_prefix(end + 1);
    }
    joined.erase(joined.find_last_not_of(kEndOfText) + 1);
    return joined;
}

// The text is looked at once, many bytes at a time: the parts are of one length for the compiler.
SignsOfText SignsIn(std::string_view text) {
    constexpr std::size_t kPart = 64;
    std::uint8_t nul = 0;
    std::uint8_t cr = 0;
    std::uint8_t escape = 0;
    std::uint8_t end = 0;
    std::uint8_t all = 0;
    const auto look = [&](char c) {
        const auto byte = static_cast<std::uint8_t>(c);
        nul |= static_cast<std::uint8_t>(byte == 0);
        cr |= static_cast<std::uint8_t>(byte == '\r');
        escape |= static_cast<std::uint8_t>(byte == '\x1B');
        end |= static_cast<std::uint8_t>(c == kEndOfText);
        all |= byte;
    };
    for (; text.size() >= kPart; text.remove_prefix(kPart)) {
        const char* const part = text.data();
        for (std::size_t i = 0; i < kPart; ++i) {
            look(part[i]);
        }
    }
    std::for_each(text.begin(), text.end(), look);
    return {nul != 0, cr != 0, escape != 0, all >= 0x80, end != 0};
}

}  // namespace

WideForm WideFormOf(std::string_view bytes) {
    if (const Mark* const mark = MarkOf(bytes)) {
        return mark->Form;
    }
    const std::string_view sample = bytes.substr(0, std::min(bytes.size(), kSample) & ~1UL);
    const WideForm form = ByNuls(sample);
    return form == WideForm::None ? BySeparators(sample) : form;
}

std::string_view NameOf(WideForm form) {
    constexpr std::array<std::string_view, 5> kNames = {
        "", "UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"};
    return kNames[static_cast<std::size_t>(form)];
}

Source::Source(std::string name, std::string bytes)
    : name_(std::move(name)), bytes_(std::move(bytes)), wide_(WideFormOf(bytes_)) {
    const Mark* const mark = MarkOf(bytes_);
    has_mark_ = mark != nullptr;
    text_ = bytes_;
    if (has_mark_) {
        text_.remove_prefix(mark->Bytes.size());
    }
    if (wide_ != WideForm::None) {
        if (auto converter = CharsetConverter::Named(NameOf(wide_))) {
            bad_letters_ = converter->Append(text_, decoded_);
        }
        text_ = decoded_;
    }
    signs_ = SignsIn(text_);
    if (signs_.EndOfText || (signs_.NotAscii && text_.find(kMark) != std::string_view::npos)) {
        decoded_ = WithoutJoints(text_);
        text_ = decoded_;
        signs_ = SignsIn(text_);
    }
}

}  // namespace orvik::book

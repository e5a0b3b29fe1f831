#include "book/match/folding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf8.h>

#include "book/ascii_domain.h"
#include "book/field_names.h"
#include "book/unicode_form.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

void AppendLetter(UChar32 letter, std::string& to) {
    std::array<char, 4> bytes{};
    std::size_t length = 0;
    char* const place = bytes.data();
    U8_APPEND_UNSAFE(place, length, letter);
    to.append(bytes.data(), length);
}

// Accents go; vowel signs of Indian letters and the voice marks of kana make other letters.
bool IsAccent(UChar32 letter) {
    constexpr UChar32 kVoiced = 0x3099;
    constexpr UChar32 kHalfVoiced = 0x309A;
    if (u_charType(letter) != U_NON_SPACING_MARK || letter == kVoiced || letter == kHalfVoiced) {
        return false;
    }
    UErrorCode error = U_ZERO_ERROR;
    return uscript_getScript(letter, &error) == USCRIPT_INHERITED;
}

// Letters with a stroke are no letter with a mark in Unicode.
void AppendPlain(UChar32 letter, std::string& to) {
    constexpr std::array<std::pair<UChar32, std::string_view>, 8> kStroked = {{{0x00E6, "ae"},
                                                                               {0x00F8, "o"},
                                                                               {0x0111, "d"},
                                                                               {0x0127, "h"},
                                                                               {0x0131, "i"},
                                                                               {0x0142, "l"},
                                                                               {0x0153, "oe"},
                                                                               {0x0167, "t"}}};
    for (const auto& [stroked, plain] : kStroked) {
        if (letter == stroked) {
            to += plain;
            return;
        }
    }
    AppendLetter(letter, to);
}

template <class Take>
void EachLetter(std::string_view text, const Take& take) {
    constexpr UChar32 kLost = 0xFFFD;
    for (std::size_t at = 0; at < text.size();) {
        const UChar32 letter = NextLetter(text, at);
        take(letter < 0 ? kLost : letter);
    }
}

constexpr bool IsAsciiBlank(char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7F';
}

constexpr char Small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool IsAsciiWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

void FoldAscii(std::string_view text, std::string& to) {
    bool blank = false;
    for (const char c : text) {
        if (IsAsciiBlank(c)) {
            blank = !to.empty();
            continue;
        }
        if (blank) {
            to += ' ';
            blank = false;
        }
        to += Small(c);
    }
}

bool IsApostrophe(UChar32 letter) {
    constexpr std::array<UChar32, 7> kSigns = {0x27, 0x60, 0xB4, 0x2018, 0x2019, 0x02BC, 0x2032};
    return std::find(kSigns.begin(), kSigns.end(), letter) != kSigns.end();
}

bool IsWordLetter(UChar32 letter) {
    return u_isalnum(letter) != 0 || (U_GET_GC_MASK(letter) & U_GC_M_MASK) != 0;
}

// The words of a folded text in their order.
std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    bool inside = false;
    const auto take = [&](std::string_view letter, bool word, bool apostrophe) {
        if (word) {
            if (!inside) {
                words.emplace_back();
            }
            words.back() += letter;
        }
        inside = word || (apostrophe && inside);
    };
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t from = at;
        UChar32 letter = static_cast<unsigned char>(text[at]);
        if (letter < 0x80) {
            ++at;
            take(text.substr(from, 1), IsAsciiWord(text[from]), IsApostrophe(letter));
            continue;
        }
        letter = NextLetter(text, at);
        take(text.substr(from, at - from), IsWordLetter(letter), IsApostrophe(letter));
    }
    return words;
}

std::string_view WithoutStart(std::string_view text, std::string_view start) {
    return StartsAsName(text, start) ? text.substr(start.size()) : text;
}

void AppendCaseless(std::string_view text, std::string& to) {
    if (AsciiLength(text) == text.size()) {
        std::transform(text.begin(), text.end(), std::back_inserter(to), Small);
    } else {
        to += InForm(UnicodeForm::Folded, text);
    }
}

// Whether a domain may be looked up, see AsciiDomainOf.
bool IsDomainOfLetters(std::string_view domain) {
    const bool labels = !domain.empty() && domain.size() <= kLongestDomainLookedUp &&
                        !domain.starts_with('.') && !domain.ends_with('.') &&
                        domain.find("..") == std::string_view::npos;
    return labels && CountUtf8(domain).Bad == 0 &&
           std::all_of(domain.begin(), domain.end(), [](char c) {
               return static_cast<unsigned char>(c) >= 0x80 || IsAsciiWord(Small(c)) || c == '-' ||
                      c == '.';
           });
}

}  // namespace

std::int32_t NextLetter(std::string_view text, std::size_t& at) {
    UChar32 letter = 0;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    U8_NEXT(bytes, at, text.size(), letter);
    return letter;
}

void FoldText(std::string_view text, std::string& to) {
    to.clear();
    if (AsciiLength(text) == text.size()) {
        FoldAscii(text, to);
        return;
    }
    bool blank = false;
    const std::string letters = InForm(UnicodeForm::Decomposed, InForm(UnicodeForm::Folded, text));
    EachLetter(letters, [&](UChar32 letter) {
        if (u_isUWhiteSpace(letter) != 0 || u_iscntrl(letter) != 0) {
            blank = !to.empty();
        } else if (!IsAccent(letter)) {
            to.append(blank ? " " : "");
            blank = false;
            AppendPlain(letter, to);
        }
    });
}

FoldedName FoldName(std::string_view text) {
    FoldedName name;
    FoldText(text, name.Glued);
    name.Words = WordsOf(name.Glued);
    // Signs outside of ASCII may be all that somebody is called.
    if (name.Words.empty() && AsciiLength(name.Glued) < name.Glued.size()) {
        name.Words.push_back(name.Glued);
    }
    name.Glued.clear();
    for (const std::string& word : name.Words) {
        name.Glued += word;
    }
    std::sort(name.Words.begin(), name.Words.end());
    for (const std::string& word : name.Words) {
        name.Key.append(name.Key.empty() ? "" : " ").append(word);
    }
    return name;
}

void FoldAddress(std::string_view text, std::string& to) {
    to.clear();
    text = WithoutStart(WithoutBlanksAround(text), "mailto:");
    if (text.starts_with('<') && text.ends_with('>')) {
        text = WithoutBlanksAround(text.substr(1, text.size() - 2));
    }
    const std::size_t at = text.rfind('@');
    const std::string_view domain =
        at == std::string_view::npos ? std::string_view{} : text.substr(at + 1);
    if (AsciiLength(domain) < domain.size() && IsDomainOfLetters(domain)) {
        const AsciiDomain ascii = AsciiDomainOf(domain);
        if (!ascii.IsRefused && !ascii.Text.empty()) {
            AppendCaseless(text.substr(0, at + 1), to);
            AppendCaseless(ascii.Text, to);
            return;
        }
    }
    AppendCaseless(text, to);
}

void FoldPhone(std::string_view text, std::string& to) {
    to.clear();
    text = WithoutStart(WithoutBlanksAround(text), "tel:");
    if (AsciiLength(text) == text.size()) {
        for (const char c : text) {
            if (IsAsciiWord(Small(c))) {
                to += Small(c);
            }
        }
        return;
    }
    std::string folded;
    FoldText(text, folded);
    EachLetter(folded, [&](UChar32 letter) {
        if (const std::int32_t digit = u_charDigitValue(letter); digit >= 0) {
            to += static_cast<char>('0' + digit);
        } else if (u_isalpha(letter) != 0) {
            AppendLetter(letter, to);
        }
    });
}

}  // namespace orvik::book

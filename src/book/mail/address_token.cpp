#include "book/mail/address_token.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/encoding.h"
#include "book/address_check.h"
#include "book/address_letters.h"
#include "book/field_names.h"

namespace orvik::book {
namespace {

constexpr std::size_t kLongestLocalPart = 64;
constexpr std::size_t kLongestHost = 255;

// Letters outside ASCII; marks and spaces of any script are none.
bool IsLetter(char32_t code) {
    struct Range {
        char32_t First;
        char32_t Last;
    };
    constexpr std::array kNone = {Range{0x80, 0xBF},
                                  Range{0xD7, 0xD7},
                                  Range{0xF7, 0xF7},
                                  Range{0x2000, 0x2BFF},
                                  Range{0x3000, 0x3004},
                                  Range{0x3008, 0x3020},
                                  Range{0xD800, 0xF8FF},
                                  Range{0xFE00, 0xFE6F},
                                  Range{0xFEFF, 0xFF0F},
                                  Range{0xFF1A, 0xFF20},
                                  Range{0xFF3B, 0xFF40},
                                  Range{0xFF5B, 0xFF65},
                                  Range{0xFFE0, 0xFFFF},
                                  Range{0x1F000, 0x1FAFF}};
    return std::none_of(kNone.begin(), kNone.end(), [code](const Range& one) {
        return code >= one.First && code <= one.Last;
    });
}

// Scripts without blanks between words.
bool IsWithoutBlanks(char32_t code) {
    return code >= 0x2E80 && code <= 0xFFFF && !(code >= 0xD800 && code <= 0xF8FF);
}

bool IsNameSign(char c) {
    return IsLetterOrDigit(c) ||
           std::string_view("!#$%&'*+-/=?^_`{|}~.").find(c) != std::string_view::npos;
}

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

// The letter of several bytes that ends before a place; Length 0 if none does.
Utf8Letter LetterBefore(std::string_view text, std::size_t end) {
    std::size_t begin = end;
    while (begin > 0 && end - begin < 4) {
        --begin;
        if (!IsContinuation(text[begin])) {
            break;
        }
    }
    const Utf8Letter letter = FirstLetter(text.substr(begin, end - begin));
    return letter.Length == end - begin && IsLetter(letter.Code) ? letter : Utf8Letter{};
}

// Where the name before an @ begins; its own place if there is none.
std::size_t BeginOfName(std::string_view line, std::size_t at) {
    if (at > 0 && line[at - 1] == '"') {
        const std::size_t most = at - std::min(at, kLongestLocalPart);
        const std::size_t open = at >= 2 ? line.rfind('"', at - 2) : std::string_view::npos;
        return open == std::string_view::npos || open < most || open + 2 >= at ? at : open;
    }
    // A name that is too long shows by one more.
    constexpr std::size_t kMost = 4 * kLongestLocalPart;
    std::size_t begin = at;
    while (begin > 0 && at - begin <= kMost) {
        if (IsPlainAscii(line[begin - 1])) {
            if (!IsNameSign(line[begin - 1])) {
                break;
            }
            --begin;
            continue;
        }
        const Utf8Letter letter = LetterBefore(line, begin);
        if (letter.Length == 0) {
            break;
        }
        begin -= letter.Length;
    }
    return begin;
}

std::size_t EndOfDomain(std::string_view line, std::size_t begin) {
    std::size_t end = begin;
    while (end < line.size() && end - begin <= kLongestHost) {
        const char c = line[end];
        if (IsPlainAscii(c)) {
            if (!IsLetterOrDigit(c) && c != '-' && c != '.') {
                break;
            }
            ++end;
            continue;
        }
        const Utf8Letter letter = FirstLetter(line.substr(end));
        if (letter.Length == 0 || !IsLetter(letter.Code)) {
            break;
        }
        end += letter.Length;
    }
    return end;
}

// The words before a = that are the name of a parameter, not of a person.
bool IsParameter(std::string_view word) {
    constexpr std::array<std::string_view, 22> kNames = {
        "email", "e-mail", "mail",  "e",         "to",   "from",    "cc",   "bcc",
        "u",     "user",   "login", "recipient", "rcpt", "sender",  "addr", "address",
        "id",    "name",   "cn",    "emailaddr", "dest", "reply-to"};
    return std::any_of(
        kNames.begin(), kNames.end(), [word](std::string_view one) { return SameName(one, word); });
}

void CutThrough(std::string_view& name, std::string_view signs) {
    if (const std::size_t last = name.find_last_of(signs); last != std::string_view::npos) {
        name.remove_prefix(last + 1);
    }
}

// What is glued to the left of a name; empties a name inside of a place in the web.
void TrimName(std::string_view& name) {
    const bool web = name.starts_with("//");
    if (web && name.find('=') == std::string_view::npos) {
        name = {};
        return;
    }
    CutThrough(name, "/?&|{");
    const std::size_t equals = name.rfind('=');
    if (equals != std::string_view::npos && (web || IsParameter(name.substr(0, equals)))) {
        name.remove_prefix(equals + 1);
    }
    const std::size_t begin = name.find_first_not_of(".'*~`^}-=#");
    name.remove_prefix(std::min(begin, name.size()));
    // Text in a script without blanks goes on with the ASCII of an address.
    for (std::size_t i = name.size(); i > 0 && name.size() > AsciiLength(name); --i) {
        if (IsPlainAscii(name[i - 1])) {
            continue;
        }
        const Utf8Letter letter = LetterBefore(name, i);
        if (IsWithoutBlanks(letter.Code) && i < name.size()) {
            name.remove_prefix(i);
        }
        return;
    }
}

bool IsCommonEnd(std::string_view label) {
    constexpr std::array<std::string_view, 14> kEnds = {"com",
                                                        "org",
                                                        "net",
                                                        "edu",
                                                        "gov",
                                                        "mil",
                                                        "int",
                                                        "info",
                                                        "biz",
                                                        "name",
                                                        "test",
                                                        "coop",
                                                        "example",
                                                        "museum"};
    return label.size() == 2 || std::any_of(kEnds.begin(), kEnds.end(), [label](auto one) {
               return SameName(one, label);
           });
}

std::string_view LastLabel(std::string_view domain) {
    return domain.substr(domain.rfind('.') + 1);
}

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

// The next sentence may begin without a blank: "ada@example.org.Please write".
bool BeginsSentence(std::string_view label) {
    return label.size() >= 2 && IsUpper(label[0]) && !IsUpper(label[1]) && !IsCommonEnd(label);
}

void TrimDomain(std::string_view& domain) {
    while (domain.ends_with('.') || domain.ends_with('-')) {
        domain.remove_suffix(1);
    }
    // A last label is in one script.
    const std::string_view last = LastLabel(domain);
    const std::size_t plain = AsciiLength(last);
    if (plain >= 2 && plain < last.size()) {
        domain.remove_suffix(last.size() - plain);
    }
    if (BeginsSentence(LastLabel(domain))) {
        const std::string_view rest = domain.substr(0, domain.rfind('.'));
        if (rest.find('.') != std::string_view::npos && IsCommonEnd(LastLabel(rest))) {
            domain = rest;
        }
    }
}

bool IsFileEnding(std::string_view label) {
    constexpr std::array<std::string_view, 45> kEndings = {
        "png", "jpg",  "jpeg", "gif",  "bmp", "svg",  "tif", "tiff", "webp", "ico", "heic", "pdf",
        "doc", "docx", "xls",  "xlsx", "ppt", "pptx", "odt", "ods",  "rtf",  "txt", "htm",  "html",
        "xml", "css",  "js",   "json", "zip", "gz",   "tar", "exe",  "dll",  "mp3", "mp4",  "avi",
        "wav", "mov",  "eml",  "msg",  "vcf", "ics",  "csv", "ldif", "mbox"};
    return std::any_of(kEndings.begin(), kEndings.end(), [label](std::string_view one) {
        return SameName(one, label);
    });
}

// Whether mail goes to the domain, as far as its letters tell.
bool IsDomain(std::string_view domain) {
    const std::string_view last = LastLabel(domain);
    if (last.size() == domain.size() || last.size() < 2 || IsFileEnding(last)) {
        return false;
    }
    return StartsAsName(last, "xn--") ||
           std::none_of(last.begin(), last.end(), [](char c) { return IsDigit(c) || c == '-'; });
}

// "cid:" and "mid:" before it, or words for an identifier, with the bracket behind them.
bool IsCalledId(std::string_view before) {
    constexpr std::array<std::string_view, 4> kSchemes = {"cid:", "mid:", "news:", "nntp:"};
    constexpr std::array<std::string_view, 7> kWords = {
        "message-id", "message id", "msgid", "msg-id", "message", "article", "content-id"};
    const auto ends_as = [&before](std::string_view word) {
        if (before.size() < word.size()) {
            return false;
        }
        const std::size_t begin = before.size() - word.size();
        return SameName(before.substr(begin), word) &&
               (begin == 0 || !IsLetterOrDigit(before[begin - 1]));
    };
    if (std::any_of(kSchemes.begin(), kSchemes.end(), ends_as)) {
        return true;
    }
    if (!before.ends_with('<')) {
        return false;
    }
    before.remove_suffix(1);
    while (before.ends_with(' ') || before.ends_with(':') || before.ends_with('=')) {
        before.remove_suffix(1);
    }
    return std::any_of(kWords.begin(), kWords.end(), ends_as);
}

}  // namespace

bool LooksLikeId(std::string_view name, std::string_view domain) {
    constexpr std::size_t kManyDigits = 12;
    constexpr std::size_t kLong = 16;
    constexpr std::size_t kVeryLong = 24;
    constexpr std::size_t kSomeDigits = 6;
    const auto digits = static_cast<std::size_t>(std::count_if(name.begin(), name.end(), IsDigit));
    const auto upper = static_cast<std::size_t>(std::count_if(name.begin(), name.end(), IsUpper));
    const bool dollar = name.find('$') != std::string_view::npos && digits > 0;
    const bool number = digits >= kManyDigits && name.size() >= kLong;
    const bool tag = name.find_first_of("+=") != std::string_view::npos;
    const bool mixed = name.size() >= kVeryLong && digits >= kSomeDigits && (upper > 0 || !tag);
    // These numbers alone have this domain.
    return dollar || number || mixed || SameName(domain, "mail.gmail.com");
}

AddressToken TokenAt(std::string_view line, std::size_t at) {
    const std::size_t begin = BeginOfName(line, at);
    const std::size_t end = EndOfDomain(line, at + 1);
    std::string_view name = line.substr(begin, at - begin);
    std::string_view domain = line.substr(at + 1, end - at - 1);
    const bool quoted = name.starts_with('"');
    // What has two of them is none.
    if (name.empty() || domain.empty() || (begin > 0 && line[begin - 1] == '@') ||
        (end < line.size() && line[end] == '@')) {
        return {};
    }
    if (!quoted) {
        TrimName(name);
    }
    if (end < line.size() && line[end] == '_' && name.starts_with('_')) {
        name.remove_prefix(1);
    }
    const std::size_t first = at - name.size();
    if (!name.empty() && IsCalledId(line.substr(0, first))) {
        return {TokenKind::Id, line.substr(first, end - first), first};
    }
    TrimDomain(domain);
    if (name.empty() || name.size() > kLongestLocalPart || !IsDomain(domain)) {
        return {};
    }
    const std::string_view text = line.substr(first, name.size() + 1 + domain.size());
    const CheckedAddress checked = CheckAddress(text);
    const bool good =
        checked.Class() == AddressClass::Valid || (quoted && checked.Worst.What == Flaw::Quoted);
    if (!good) {
        return {};
    }
    const std::size_t behind = first + text.size();
    const bool alone =
        first > 0 && line[first - 1] == '<' && behind < line.size() && line[behind] == '>';
    return {alone && LooksLikeId(name, domain) ? TokenKind::IdByShape : TokenKind::Address,
            text,
            first};
}

}  // namespace orvik::book

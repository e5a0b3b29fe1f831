#include "book/mail/text_addresses.h"

#include <algorithm>
#include <array>

#include "book/address_letters.h"
#include "book/field_names.h"
#include "book/mail/address_token.h"

namespace orvik::book {
namespace {

constexpr std::string_view kLineBlanks = " \t";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// A line without the marks of a quotation before it.
std::string_view Unquoted(std::string_view line) {
    std::size_t at = 0;
    std::size_t behind = 0;
    while (at < line.size() && (line[at] == '>' || line[at] == '|' || line[at] == ' ')) {
        ++at;
        behind = line[at - 1] == ' ' ? behind : at;
    }
    if (behind == 0) {
        return line;
    }
    line.remove_prefix(behind);
    return line.starts_with(' ') ? line.substr(1) : line;
}

// The name of a header's field that a line begins with; empty for any other line.
std::string_view FieldOf(std::string_view line) {
    constexpr std::size_t kLongestName = 76;
    std::size_t at = 0;
    while (at < line.size() && at <= kLongestName &&
           (IsLetterOrDigit(line[at]) || line[at] == '-')) {
        ++at;
    }
    return at > 0 && at < line.size() && line[at] == ':' ? line.substr(0, at) : std::string_view();
}

bool IsNameWord(std::string_view word) {
    const char first = word.front();
    const bool particle = word == "von" || word == "van" || word == "de" || word == "der" ||
                          word == "da" || word == "di" || word == "la" || word == "den";
    return particle || !IsPlainAscii(first) || (first >= 'A' && first <= 'Z');
}

// A name as it stands before "<address>": "Ada Abbott", without what leads to it.
std::string_view NameBefore(std::string_view before) {
    constexpr std::size_t kLongest = 60;
    constexpr std::size_t kMostWords = 5;
    if (!before.ends_with('<')) {
        return {};
    }
    before.remove_suffix(1);
    before = before.substr(before.size() - std::min(before.size(), 2 * kLongest));
    while (!before.empty() && IsBlank(before.back())) {
        before.remove_suffix(1);
    }
    if (before.ends_with('"')) {
        before.remove_suffix(1);
        const std::size_t open = before.rfind('"');
        return open == std::string_view::npos ? std::string_view() : before.substr(open + 1);
    }
    const std::size_t sign = before.find_last_of(",;:<>\"()[]|=*/!?@0123456789\t");
    std::string_view name = sign == std::string_view::npos ? before : before.substr(sign + 1);
    while (!name.empty() && IsBlank(name.front())) {
        name.remove_prefix(1);
    }
    std::size_t words = 0;
    for (std::string_view rest = name; !rest.empty(); ++words) {
        const std::string_view word = rest.substr(0, rest.find(' '));
        if (word.empty() || !IsNameWord(word)) {
            return {};
        }
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    // One word may be any, "Write <...>".
    return words < 2 || words > kMostWords || name.size() > kLongest ? std::string_view() : name;
}

}  // namespace

bool NamesNobody(std::string_view field) {
    constexpr std::array<std::string_view, 4> kBeginnings = {"X-", "List-", "ARC-", "Received"};
    constexpr std::array<std::string_view, 23> kNames = {"Message-ID",
                                                         "Resent-Message-ID",
                                                         "Original-Message-ID",
                                                         "Original-Envelope-Id",
                                                         "Content-ID",
                                                         "Content-Location",
                                                         "Content-Type",
                                                         "Content-Disposition",
                                                         "In-Reply-To",
                                                         "References",
                                                         "Supersedes",
                                                         "Obsoletes",
                                                         "Return-Path",
                                                         "Delivered-To",
                                                         "Errors-To",
                                                         "Envelope-To",
                                                         "DKIM-Signature",
                                                         "DomainKey-Signature",
                                                         "Authentication-Results",
                                                         "Path",
                                                         "Xref",
                                                         "Thread-Index",
                                                         "UID"};
    const auto begins = [field](std::string_view one) { return StartsAsName(field, one); };
    const auto is = [field](std::string_view one) { return SameName(one, field); };
    return std::any_of(kBeginnings.begin(), kBeginnings.end(), begins) ||
           std::any_of(kNames.begin(), kNames.end(), is);
}

// What uuencode makes of bytes may hold anything.
bool TextAddresses::BeginsOrEndsBlock(std::string_view line) {
    if (is_uuencoded_) {
        is_uuencoded_ = line != "end";
        return true;
    }
    constexpr std::string_view kBegin = "begin ";
    is_uuencoded_ = line.starts_with(kBegin) && line.size() > kBegin.size() + 4 &&
                    IsDigit(line[6]) && IsDigit(line[7]) && IsDigit(line[8]) && line[9] == ' ';
    return is_uuencoded_;
}

void TextAddresses::LookAtLine(std::string_view line) {
    const std::string_view plain = Unquoted(line);
    const std::size_t text = std::min(plain.find_first_not_of(kLineBlanks), plain.size());
    if (text == plain.size()) {
        names_nobody_ = false;
        return;
    }
    // A line that begins with a blank belongs to the field before it, unless it is one itself.
    if (const std::string_view field = FieldOf(plain.substr(text)); !field.empty()) {
        names_nobody_ = NamesNobody(field);
    } else if (text == 0) {
        names_nobody_ = false;
    }
    for (std::size_t at = line.find('@'); at != std::string_view::npos;
         at = line.find('@', at + 1)) {
        const AddressToken token = TokenAt(line, at);
        if (token.Kind == TokenKind::None) {
            continue;
        }
        const std::string_view name = NameBefore(line.substr(0, token.Begin));
        const bool by_shape = token.Kind == TokenKind::IdByShape && name.empty();
        if (names_nobody_ || by_shape || token.Kind == TokenKind::Id) {
            ++ids_;
        } else {
            take_(token.Text, name);
        }
    }
}

void TextAddresses::Look(std::string_view lines) {
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        std::string_view line = lines.substr(0, end);
        lines.remove_prefix(std::min(end + 1, lines.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (!BeginsOrEndsBlock(line)) {
            LookAtLine(line);
        }
    }
}

}  // namespace orvik::book

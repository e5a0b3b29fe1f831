#include "book/old/plain_entry.h"

#include <algorithm>

#include "book/csv_cells.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

std::string_view WithoutQuotes(std::string_view text) {
    text = WithoutBlanksAround(text);
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? WithoutBlanksAround(text.substr(1, text.size() - 2)) : text;
}

std::optional<PlainEntry> Entry(std::string_view name, std::string_view address, bool loose) {
    address = WithoutBlanksAround(address);
    return address.empty() ? std::nullopt
                           : std::optional(PlainEntry{WithoutQuotes(name), address, loose});
}

// "a1@b Al" or "Al a1@b"
std::optional<PlainEntry> LooseEntry(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_of(kBlanks);
    if (first == std::string_view::npos) {
        const bool at = text.find('@') != std::string_view::npos;
        return at ? Entry({}, text, false) : std::nullopt;
    }
    if (IsAddressCell(text.substr(0, first))) {
        return Entry(text.substr(first), text.substr(0, first), true);
    }
    const std::size_t last = text.find_last_of(kBlanks);
    return IsAddressCell(text.substr(last)) ? Entry(text.substr(0, last), text.substr(last), true)
                                            : std::nullopt;
}

}  // namespace

std::optional<PlainEntry> ListedEntryOf(std::string_view line) {
    line = WithoutBlanksAround(line);
    const std::size_t open = line.find('<');
    if (!line.starts_with('"') || open == std::string_view::npos ||
        line.find('<', open + 1) != std::string_view::npos || line.find('>') != line.size() - 1) {
        return std::nullopt;
    }
    const std::string_view name = WithoutBlanksAround(line.substr(0, open));
    const std::string_view address =
        WithoutBlanksAround(line.substr(open + 1, line.size() - open - 2));
    const bool quoted = name.size() >= 2 && name.ends_with('"');
    return quoted ? std::optional(PlainEntry{WithoutQuotes(name), address}) : std::nullopt;
}

std::optional<PlainEntry> PlainEntryOf(std::string_view text) {
    text = WithoutBlanksAround(text);
    if (text.starts_with('<')) {
        const std::size_t close = std::min(text.find('>'), text.size());
        return Entry(
            text.substr(std::min(close + 1, text.size())), text.substr(1, close - 1), false);
    }
    const std::size_t open = text.rfind('<');
    if (open != std::string_view::npos && text.ends_with('>')) {
        return Entry(text.substr(0, open), text.substr(open + 1, text.size() - open - 2), false);
    }
    const std::size_t quote = text.find('"');
    if (quote == 0) {
        const std::size_t close = text.rfind('"');
        return Entry(text.substr(0, close + 1), text.substr(close + 1), false);
    }
    if (quote != std::string_view::npos && text.ends_with('"')) {
        return Entry(text.substr(quote), text.substr(0, quote), false);
    }
    const std::size_t comment = text.find('(');
    if (comment != std::string_view::npos && text.ends_with(')') &&
        IsAddressCell(text.substr(0, comment))) {
        return Entry(
            text.substr(comment + 1, text.size() - comment - 2), text.substr(0, comment), false);
    }
    return LooseEntry(text);
}

std::optional<JoinedEntry> JoinedEntryOf(std::string_view text, std::string_view next) {
    constexpr std::string_view kNobody = "\" <>";
    constexpr std::string_view kBegin = "\" <";
    constexpr std::string_view kBetween = ">\" <";
    text = WithoutBlanksAround(text);
    next = WithoutBlanksAround(next);
    const std::size_t between = next.find(kBetween);
    if (!text.starts_with('"') || !text.ends_with(kNobody) || text.size() <= kNobody.size() + 1 ||
        !next.starts_with(kBegin) || !next.ends_with('>') || between == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view family = text.substr(1, text.size() - kNobody.size() - 1);
    const std::string_view address = next.substr(kBegin.size(), between - kBegin.size());
    std::string_view given = next.substr(between + kBetween.size());
    given = WithoutBlanksAround(given.substr(0, given.size() - 1));
    constexpr std::string_view kOdd = "\"<>";
    if (given.empty() || given.find_first_of(kOdd) != std::string_view::npos ||
        family.find_first_of(kOdd) != std::string_view::npos || !IsAddressCell(address)) {
        return std::nullopt;
    }
    return JoinedEntry{std::string(family) + ", " + std::string(given), address};
}

bool IsQuotedEntry(std::string_view line) {
    line = WithoutBlanksAround(line);
    if (line.starts_with('"')) {
        line.remove_prefix(std::min(line.find('"', 1), line.size() - 1) + 1);
        line = WithoutBlanksAround(line);
    }
    // "<>" has nobody.
    return line.size() > 2 && line.starts_with('<') && line.find('>') == line.size() - 1 &&
           line.find('<', 1) == std::string_view::npos;
}

std::string_view TakePlainEntry(std::string_view& rest) {
    bool quoted = false;
    bool address = false;
    std::size_t end = 0;
    for (; end < rest.size(); ++end) {
        const char c = rest[end];
        quoted = quoted != (c == '"');
        address = address || c == '@' || c == '>';
        if (!quoted && address && (c == ',' || c == ';')) {
            break;
        }
    }
    const std::string_view text = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return text;
}

}  // namespace orvik::book

#include "book/ldif_lines.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "book/detect.h"

namespace orvik::book {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsContinuation(std::string_view line) {
    return line.starts_with(' ') || line.starts_with('\t');
}

bool IsBlank(std::string_view line) {
    return !line.empty() && line.find_first_not_of(kBlanks) == std::string_view::npos;
}

// Which bytes names are made of. A table, as each byte of a name is looked at.
constexpr std::array<bool, 256> kNameLetters = [] {
    std::array<bool, 256> letters{};
    for (const char c :
         std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._")) {
        letters[static_cast<unsigned char>(c)] = true;
    }
    return letters;
}();

std::size_t NameLength(std::string_view line) {
    std::size_t length = 0;
    while (length < line.size() && kNameLetters[static_cast<unsigned char>(line[length])]) {
        ++length;
    }
    return length;
}

void Extend(LdifLine& line, const Line& by) {
    line.Span = {line.Span.data(), line.Span.size() + by.WithEnd.size()};
    line.Last = by.Number;
}

}  // namespace

LdifLines::LdifLines(std::string_view text, Book& book)
    : lines_(text), has_next_(lines_.Next(next_)), book_(book) {}

bool LdifLines::Next(LdifLine& line) {
    while (has_next_) {
        const Line first = next_;
        has_next_ = lines_.Next(next_);
        line = {first.Text, first.WithEnd, first.Number, first.Number, Reason::None};
        if (IsBlank(first.Text)) {
            line.Text = {};
        } else if (has_next_ && !first.Text.empty() && IsContinuation(next_.Text)) {
            TakeContinuations(line);
        }
        // A comment goes on in its continuations, too.
        if (!line.Text.starts_with('#')) {
            return true;
        }
    }
    return false;
}

void LdifLines::TakeContinuations(LdifLine& line) {
    std::string whole(line.Text);
    while (has_next_ && IsContinuation(next_.Text)) {
        if (IsBlank(next_.Text)) {
            if (!TakeBlanks(line, whole)) {
                break;
            }
            continue;
        }
        if (next_.Text.front() == '\t') {
            line.Doubt = Reason::TabFolding;
        }
        whole += next_.Text.substr(1);
        Extend(line, next_);
        has_next_ = lines_.Next(next_);
    }
    line.Text = whole == line.Text ? line.Text : book_.Keep(whole);
}

// Lines of blanks go on with a value. But editors leave them where an empty line was meant: they
// part two records where the next one begins behind them; then false.
bool LdifLines::TakeBlanks(LdifLine& line, std::string& whole) {
    LdifLine more = line;
    std::string blanks;
    while (has_next_ && IsBlank(next_.Text)) {
        blanks += next_.Text.substr(1);
        Extend(more, next_);
        has_next_ = lines_.Next(next_);
    }
    if (has_next_ && BeginsLdifRecord(next_.Text)) {
        line.Doubt = Reason::LineOfBlanks;
        return false;
    }
    whole += blanks;
    line.Span = more.Span;
    line.Last = more.Last;
    return true;
}

std::optional<LdifParts> SplitLdifLine(std::string_view line) {
    LdifParts parts;
    std::size_t colon = NameLength(line);
    parts.Name = line.substr(0, colon);
    if (colon < line.size() && line[colon] == ';') {
        const std::size_t begin = colon + 1;
        colon = std::min(line.find(':', begin), line.size());
        parts.Options = line.substr(begin, colon - begin);
    }
    if (parts.Name.empty() || colon == line.size() || line[colon] != ':') {
        return std::nullopt;
    }
    parts.Value = line.substr(colon + 1);
    if (parts.Value.starts_with(':')) {
        parts.Form = LdifForm::Base64;
    } else if (parts.Value.starts_with('<')) {
        parts.Form = LdifForm::Url;
    }
    parts.Value.remove_prefix(parts.Form == LdifForm::Plain ? 0 : 1);
    parts.Value.remove_prefix(std::min(parts.Value.find_first_not_of(kBlanks), parts.Value.size()));
    return parts;
}

}  // namespace orvik::book

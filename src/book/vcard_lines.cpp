#include "book/vcard_lines.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "book/detect.h"

namespace orvik::book {
namespace {

constexpr std::string_view kSpaces = " \t\f\v";

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kSpaces), text.size()));
    return text.substr(0, text.find_last_not_of(kSpaces) + 1);
}

bool IsFolded(std::string_view line) {
    return line.starts_with(' ') || line.starts_with('\t');
}

// The first of the signs outside of quotes; quotes that are never closed are signs like others.
std::size_t FindOutside(std::string_view text, std::string_view signs) {
    bool quoted = false;
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        if (text[at] == '"') {
            quoted = !quoted;
        } else if (!quoted && signs.find(text[at]) != std::string_view::npos) {
            return at;
        }
    }
    return quoted ? std::min(text.find_first_of(signs), text.size()) : text.size();
}

// Lines of base64 that are not indented: all letters are of base64, so there is no colon.
bool IsBase64Line(std::string_view line) {
    return !line.empty() && std::all_of(line.begin(), line.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '+' || c == '/' || c == '=';
    });
}

// Nothing as long as the line has no head.
std::optional<VCardEncoding> EncodingOfLine(std::string_view line) {
    const auto parts = SplitVCardLine(line);
    return parts ? std::optional(EncodingOf(parts->Params)) : std::nullopt;
}

// The blanks before what goes on behind a soft line end. All of such lines are indented by some
// writers; where one is not, the blanks of the others belong to the value.
class Indents {
 public:
    // text goes on with the value at a position; returns it without its blanks.
    std::string_view Take(std::string_view text, std::size_t at) {
        const std::size_t blanks = std::min(text.find_first_not_of(kSpaces), text.size());
        if (blanks > 0) {
            taken_.emplace_back(at, text.substr(0, blanks));
        }
        all_ = all_ && (blanks > 0 || text.empty());
        return text.substr(blanks);
    }
    // Puts them back where they belong to the value.
    void Restore(std::string& value) const {
        if (all_ || taken_.empty()) {
            return;
        }
        std::string whole;
        std::size_t from = 0;
        for (const auto& [at, blanks] : taken_) {
            whole.append(value, from, at - from).append(blanks);
            from = at;
        }
        value = whole.append(value, from);
    }

 private:
    std::vector<std::pair<std::size_t, std::string_view>> taken_;
    bool all_ = true;
};

bool IsLetterOfName(char c) {
    constexpr std::string_view kOthers = " \t:;\"\\,";
    return static_cast<unsigned char>(c) > ' ' && kOthers.find(c) == std::string_view::npos;
}

}  // namespace

std::optional<VCardParts> SplitVCardLine(std::string_view line) {
    const std::size_t colon = FindOutside(line, ":");
    if (colon == line.size()) {
        return std::nullopt;
    }
    VCardParts parts;
    const std::string_view head = line.substr(0, colon);
    const std::size_t semicolon = std::min(head.find(';'), head.size());
    parts.Name = Trimmed(head.substr(0, semicolon));
    parts.Params = head.substr(std::min(semicolon + 1, head.size()));
    parts.Value = line.substr(colon + 1);
    const std::size_t dot = parts.Name.find('.');
    // Attributes of directories may be numbers with dots.
    if (dot != std::string_view::npos && !StartsAsName(parts.Name, kCarriedFromLdif)) {
        parts.Group = parts.Name.substr(0, dot);
        parts.Name.remove_prefix(dot + 1);
    }
    // Names of their own have blanks in some programs.
    const bool own = SameName(parts.Name.substr(0, 2), "X-");
    if (parts.Name.empty() || !std::all_of(parts.Name.begin(), parts.Name.end(), [own](char c) {
            return IsLetterOfName(c) || (own && c == ' ');
        })) {
        return std::nullopt;
    }
    return parts;
}

std::optional<VCardParam> TakeParam(std::string_view& rest) {
    while (!rest.empty()) {
        const std::size_t length = FindOutside(rest, ";");
        const std::string_view text = Trimmed(rest.substr(0, length));
        rest.remove_prefix(std::min(length + 1, rest.size()));
        if (text.empty()) {
            continue;
        }
        const std::size_t equal = text.find('=');
        if (equal == std::string_view::npos) {
            return VCardParam{{}, text};
        }
        std::string_view value = Trimmed(text.substr(equal + 1));
        const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"' &&
                            value.find('"', 1) == value.size() - 1;
        value = quoted ? value.substr(1, value.size() - 2) : value;
        return VCardParam{Trimmed(text.substr(0, equal)), value};
    }
    return std::nullopt;
}

std::string WithoutCarets(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char next = value[i] == '^' && i + 1 < value.size() ? value[i + 1] : '\0';
        const bool escape = next == 'n' || next == '^' || next == '\'';
        text += !escape ? value[i] : next == 'n' ? '\n' : next == '\'' ? '"' : '^';
        i += escape ? 1 : 0;
    }
    return text;
}

std::optional<VCardEncoding> EncodingNamed(const VCardParam& param) {
    if (!param.Name.empty() && !SameName(param.Name, "ENCODING")) {
        return std::nullopt;
    }
    if (SameName(param.Value, "QUOTED-PRINTABLE")) {
        return VCardEncoding::QuotedPrintable;
    }
    const bool named = !param.Name.empty();
    if (SameName(param.Value, "BASE64") || (named && SameName(param.Value, "B"))) {
        return VCardEncoding::Base64;
    }
    if (SameName(param.Value, "8BIT") || SameName(param.Value, "7BIT")) {
        return VCardEncoding::None;
    }
    return std::nullopt;
}

VCardEncoding EncodingOf(std::string_view params) {
    VCardEncoding encoding = VCardEncoding::None;
    while (const auto param = TakeParam(params)) {
        encoding = EncodingNamed(*param).value_or(encoding);
    }
    return encoding;
}

bool EndsCard(std::string_view line) {
    const std::size_t colon = std::min(line.find(':'), line.size());
    return SameName(Trimmed(line.substr(0, colon)), "END") && colon < line.size() &&
           SameName(Trimmed(line.substr(colon + 1)), "VCARD");
}

Dialect VersionOf(std::string_view value) {
    value = Trimmed(value);
    if (value == "2.1") {
        return Dialect::VCard21;
    }
    if (value == "3.0") {
        return Dialect::VCard30;
    }
    return value == "4.0" ? Dialect::VCard40 : Dialect::None;
}

VCardLines::VCardLines(const Source& source, Book& book)
    : lines_(source.Text(), source.Signs().Cr), has_next_(lines_.Next(next_)), book_(book) {}

bool VCardLines::NextRaw(Line& line) {
    if (!has_next_) {
        return false;
    }
    line = next_;
    has_next_ = lines_.Next(next_);
    return true;
}

bool VCardLines::NextBeginsCard() const {
    return has_next_ && BeginsCard(next_.Text);
}

Dialect VCardLines::PeekForm() const {
    Lines lines = lines_;
    Line line = next_;
    for (bool more = has_next_; more && !BeginsCard(line.Text) && !EndsCard(line.Text);
         more = lines.Next(line)) {
        const auto parts = SplitVCardLine(line.Text.substr(0, 200));
        if (parts && SameName(parts->Name, "VERSION")) {
            return VersionOf(parts->Value);
        }
    }
    return Dialect::None;
}

bool VCardLines::Next(VCardLine& line) {
    Line first;
    while (NextRaw(first)) {
        if (first.Text.find_first_not_of(kSpaces) == std::string_view::npos) {
            continue;
        }
        line = {first.Text, first.WithEnd, first.Number, first.Number};
        if (has_next_ && MayGoOn(line.Text)) {
            Join(line);
        }
        return true;
    }
    return false;
}

// How the next line goes on with what was read so far.
VCardLines::Joint VCardLines::JointTo(std::string_view so_far,
                                      std::optional<VCardEncoding> encoding) const {
    const bool soft = encoding == VCardEncoding::QuotedPrintable && so_far.ends_with('=');
    if (soft && !BeginsCard(next_.Text) && !EndsCard(next_.Text)) {
        return Joint::Soft;
    }
    if (IsFolded(next_.Text)) {
        return Joint::Folded;
    }
    const bool base64 = encoding == VCardEncoding::Base64 && IsBase64Line(next_.Text);
    return base64 ? Joint::Base64 : Joint::None;
}

bool VCardLines::MayGoOn(std::string_view line) const {
    return IsFolded(next_.Text) || line.ends_with('=') || IsBase64Line(next_.Text);
}

void VCardLines::Join(VCardLine& line) {
    std::string whole(line.Text);
    std::optional<VCardEncoding> encoding = EncodingOfLine(whole);
    Indents indents;
    // The head may be folded, too. What has colons in quotes without end is no head.
    int tries = 20;
    while (has_next_) {
        const Joint joint = JointTo(whole, encoding);
        if (joint == Joint::None) {
            break;
        }
        if (joint == Joint::Soft) {
            whole.pop_back();
        }
        const bool keeps_blank = form_ == Dialect::VCard21 && joint == Joint::Folded &&
                                 encoding != VCardEncoding::Base64;
        std::string_view more = next_.Text;
        if (joint == Joint::Soft) {
            more = indents.Take(more, whole.size());
        } else if (joint == Joint::Folded && !keeps_blank) {
            more.remove_prefix(1);
        }
        whole += more;
        line.Span = {line.Span.data(), line.Span.size() + next_.WithEnd.size()};
        line.Last = next_.Number;
        if (!encoding && next_.Text.find(':') != std::string_view::npos && tries-- > 0) {
            encoding = EncodingOfLine(whole);
        }
        has_next_ = lines_.Next(next_);
    }
    indents.Restore(whole);
    line.Text = whole == line.Text ? line.Text : book_.Keep(whole);
}

}  // namespace orvik::book

#include "book/old/html_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "book/html_entities.h"
#include "book/old/html_tags.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

std::optional<unsigned char> ByteOf(std::string_view digits) {
    unsigned char byte = 0;
    const char* const end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, byte, 16);
    return error == std::errc() && behind == end ? std::optional(byte) : std::nullopt;
}

// Lines of a note are indented as the tags beside them.
void EndLine(std::string& to) {
    to.resize(to.find_last_not_of(" \t\r") + 1);
    to += '\n';
}

std::string Trimmed(std::string_view text) {
    std::string lines;
    for (bool more = true; more;) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines += WithoutBlanksAround(text.substr(0, end));
        more = end < text.size();
        if (more) {
            EndLine(lines);
            text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
        }
    }
    return std::string(WithoutBlanksAround(lines));
}

}  // namespace

std::string HtmlText(std::string_view piece) {
    std::string text;
    const char* from = piece.data();
    HtmlTags tags(piece);
    for (HtmlTag tag; tags.Next(tag);) {
        const bool shown = tag.Kind != HtmlTagKind::Break && tag.Kind != HtmlTagKind::Other;
        const char* const end = tag.Span.data() + tag.Span.size();
        text.append(from, shown ? end : tag.Span.data());
        from = end;
        if (tag.Kind == HtmlTagKind::Break) {
            const std::string_view rest = tags.Rest();
            const std::size_t next = std::min(rest.find_first_not_of(" \t"), rest.size());
            const bool ends = next < rest.size() && (rest[next] == '\r' || rest[next] == '\n');
            text += ends ? "" : "\n";
        }
    }
    text.append(from, piece.data() + piece.size());
    return WithoutEntities(Trimmed(text));
}

std::string WithoutPercents(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte =
            text[i] == '%' && i + 2 < text.size() ? ByteOf(text.substr(i + 1, 2)) : std::nullopt;
        if (byte && *byte >= ' ' && *byte != 0x7F) {
            plain += static_cast<char>(*byte);
            i += 2;
        } else {
            plain += text[i];
        }
    }
    const bool twice = std::count(plain.begin(), plain.end(), '@') > 1;
    return twice || CountUtf8(plain).Bad > 0 ? std::string(text) : plain;
}

}  // namespace orvik::book

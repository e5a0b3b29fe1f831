#include "book/mail/page_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "book/address_letters.h"
#include "book/field_names.h"
#include "book/html_entities.h"

namespace orvik::book {
namespace {

// Text between tags: its line breaks are blanks, and none begins a line.
void AppendShown(std::string_view text, bool keeps_lines, std::string& to) {
    const std::size_t before = to.size();
    AppendWithoutEntities(text, to);
    if (keeps_lines) {
        return;
    }
    std::replace(to.begin() + static_cast<std::ptrdiff_t>(before), to.end(), '\n', ' ');
    if (before == 0 || to[before - 1] == '\n') {
        const std::size_t shown = std::min(to.find_first_not_of(" \t\r", before), to.size());
        to.erase(before, shown - before);
    }
}

// The length of a tag that begins a text; quotes may hold a ">", but hardly over lines.
std::size_t LengthOfTag(std::string_view text) {
    char quote = '\0';
    for (std::size_t i = 1; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != '\0') {
            quote = c == quote || c == '\n' ? '\0' : quote;
        } else if (c == '>') {
            return i + 1;
        } else if ((c == '"' || c == '\'') && text[i - 1] == '=') {
            quote = c;
        }
    }
    return text.size();
}

std::string_view NameOfTag(std::string_view tag) {
    std::size_t end = std::min<std::size_t>(tag.size(), tag.starts_with("</") ? 2 : 1);
    const std::size_t begin = end;
    while (end < tag.size() && IsLetterOrDigit(tag[end])) {
        ++end;
    }
    return tag.substr(begin, end - begin);
}

// These stand inside of words.
bool IsInline(std::string_view name) {
    constexpr std::array<std::string_view, 17> kNames = {"a",
                                                         "b",
                                                         "i",
                                                         "u",
                                                         "s",
                                                         "em",
                                                         "strong",
                                                         "span",
                                                         "font",
                                                         "wbr",
                                                         "tt",
                                                         "big",
                                                         "small",
                                                         "code",
                                                         "mark",
                                                         "sub",
                                                         "sup"};
    return std::any_of(
        kNames.begin(), kNames.end(), [name](auto one) { return SameName(one, name); });
}

// The address of a link, behind "mailto:".
void AppendLink(std::string_view tag, std::string& to) {
    constexpr std::string_view kScheme = "mailto:";
    for (std::size_t i = 0; i + kScheme.size() < tag.size(); ++i) {
        if ((tag[i] != 'm' && tag[i] != 'M') || !SameName(tag.substr(i, kScheme.size()), kScheme)) {
            continue;
        }
        const char quote = i > 0 && (tag[i - 1] == '"' || tag[i - 1] == '\'') ? tag[i - 1] : ' ';
        std::string_view link = tag.substr(i + kScheme.size());
        link = link.substr(0, std::min(link.find(quote), link.find('>')));
        AppendMailto(WithoutEntities(link), to);
        return;
    }
}

// Skips to behind an end, if there is one.
void SkipBehind(std::string_view end, std::string_view& rest, std::size_t from) {
    const std::size_t found = rest.find(end, from);
    rest.remove_prefix(found == std::string_view::npos ? rest.size() : found + end.size());
}

// Text of programs, up to the tag that ends it.
void SkipProgram(std::string_view name, std::string_view& rest) {
    while (!rest.empty()) {
        const std::size_t found = std::min(rest.find("</"), rest.size());
        rest.remove_prefix(found);
        if (SameName(NameOfTag(rest), name) || rest.empty()) {
            return;
        }
        rest.remove_prefix(2);
    }
}

void AppendUnescaped(std::string_view text, std::string& to) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            to += static_cast<char>(byte);
            i += 2;
        } else {
            to += text[i];
        }
    }
}

}  // namespace

void AppendMailto(std::string_view link, std::string& to) {
    const auto add = [&to](std::string_view addresses) {
        to += '\n';
        AppendUnescaped(addresses, to);
    };
    const std::size_t mark = std::min(link.find('?'), link.size());
    add(link.substr(0, mark));
    std::string_view rest = link.substr(mark);
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::string_view one = rest.substr(0, rest.find('&'));
        rest.remove_prefix(one.size());
        const std::size_t equals = std::min(one.find('='), one.size());
        const std::string_view name = one.substr(0, equals);
        if (equals < one.size() &&
            (SameName(name, "to") || SameName(name, "cc") || SameName(name, "bcc"))) {
            add(one.substr(equals + 1));
        }
    }
    to += '\n';
}

void AppendHtmlText(std::string_view html, std::string& to) {
    // Behind the last end of a tag there is none that begins.
    const std::size_t last = html.rfind('>');
    const char* const end = html.data() + (last == std::string_view::npos ? 0 : last);
    bool keeps_lines = false;
    while (!html.empty()) {
        const std::size_t text = std::min(html.find('<'), html.size());
        AppendShown(html.substr(0, text), keeps_lines, to);
        html.remove_prefix(text);
        if (html.data() >= end) {
            AppendShown(html, keeps_lines, to);
            return;
        }
        const char next = html[1];
        if (html.starts_with("<!--")) {
            SkipBehind("-->", html, 4);
            continue;
        }
        if (!IsLetterOrDigit(next) && next != '/' && next != '!' && next != '?') {
            to += '<';
            html.remove_prefix(1);
            continue;
        }
        const std::string_view tag = html.substr(0, LengthOfTag(html));
        const std::string_view name = NameOfTag(tag);
        // Pages that were not made with care have "<ada@example.org>".
        const std::size_t at = tag.find('@');
        if (name.size() + 1 < tag.size() && at != std::string_view::npos &&
            tag.find_first_of(" \t\n=") == std::string_view::npos) {
            to.append(tag);
        } else if (!IsInline(name)) {
            to += '\n';
        }
        if (SameName(name, "pre")) {
            keeps_lines = next != '/';
        }
        AppendLink(tag, to);
        html.remove_prefix(tag.size());
        if (next != '/' && (SameName(name, "script") || SameName(name, "style"))) {
            SkipProgram(name, html);
        }
    }
}

}  // namespace orvik::book

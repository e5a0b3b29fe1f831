#include "book/value_form.h"

#include <algorithm>
#include <array>

namespace orvik::book {
namespace {

constexpr std::string_view kEscaped = "\\,;\r\n";

// A table, as each byte of a value is looked at.
constexpr std::array<bool, 256> kIsEscaped = [] {
    std::array<bool, 256> escaped{};
    for (const char c : kEscaped) {
        escaped[static_cast<unsigned char>(c)] = true;
    }
    return escaped;
}();

// How long a text goes on without a byte that needs an escape.
std::size_t PlainLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && !kIsEscaped[static_cast<unsigned char>(text[length])]) {
        ++length;
    }
    return length;
}

}  // namespace

bool NeedsEscapes(std::string_view text) {
    return PlainLength(text) < text.size();
}

void AppendEscaped(std::string_view text, std::string& to) {
    while (!text.empty()) {
        const std::size_t plain = PlainLength(text);
        to.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        const char c = text.front();
        const bool line_end = c == '\r' || c == '\n';
        to += '\\';
        to += line_end ? 'n' : c;
        text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    }
}

void AppendOneLine(std::string_view text, std::string& to) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text.substr(i, 2) == "\r\n";
        const bool end = text[i] == '\r' || text[i] == '\n';
        to += end ? std::string_view("\\n") : text.substr(i, 1);
        i += pair ? 1 : 0;
    }
}

std::string_view WithoutBlanksAround(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string Unescaped(std::string_view value) {
    std::string text;
    text.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const char c = value[i + 1];
        if (c == 'n' || c == 'N') {
            text += '\n';
        } else if (c == '\\' || c == ',' || c == ';' || c == ':') {
            text += c;
        } else {
            text += '\\';
            continue;
        }
        ++i;
    }
    return text;
}

TakenPart TakePart(std::string_view& rest, char separator) {
    const std::array<char, 2> stops = {'\\', separator};
    std::size_t at = 0;
    while ((at = rest.find_first_of({stops.data(), stops.size()}, at)) < rest.size() &&
           rest[at] == '\\') {
        at += 2;
    }
    const TakenPart taken{rest.substr(0, at), at < rest.size()};
    rest.remove_prefix(std::min(rest.size(), taken.Text.size() + 1));
    return taken;
}

std::size_t PartCount(std::string_view value) {
    std::size_t count = 1;
    while (TakePart(value, ';').More) {
        ++count;
    }
    return count;
}

std::string_view PartAt(std::string_view value, std::size_t number) {
    for (;; --number) {
        const TakenPart taken = TakePart(value, ';');
        if (number == 0) {
            return taken.Text;
        }
        if (!taken.More) {
            return {};
        }
    }
}

std::string WithPlainColons(std::string_view address) {
    std::string plain;
    for (std::size_t i = 0; i < address.size(); ++i) {
        i += address.substr(i, 2) == "\\:" ? 1U : 0U;
        plain += address[i];
    }
    return plain;
}

}  // namespace orvik::book

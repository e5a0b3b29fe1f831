#include "book/old/page_writer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "app/encoding.h"
#include "book/old/html_text.h"
#include "book/utf8.h"

namespace orvik::book {

void PageWriter::Append(std::string_view text, std::string& to) const {
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find_first_of("&<>\""), AsciiLength(text));
        to.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        const char c = text.front();
        const Utf8Letter letter = FirstLetter(text);
        const std::size_t length = std::max<std::size_t>(letter.Length, 1);
        const std::string_view one = text.substr(0, length);
        if (c == '&') {
            to += "&amp;";
        } else if (c == '<') {
            to += "&lt;";
        } else if (c == '>') {
            to += "&gt;";
        } else if (c == '"') {
            to += "&quot;";
        } else if (letters_.Has(one)) {
            letters_.Append(one, to);
        } else if (letter.Length == 0) {
            to += '?';
        } else {
            to.append("&#").append(std::to_string(static_cast<std::uint32_t>(letter.Code)));
            to += ';';
        }
        text.remove_prefix(length);
    }
}

void PageWriter::AppendAddress(std::string_view address, std::string& to) const {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    // Escapes stand for themselves where there is any other one.
    const bool percents = address.find_first_of("\" <>") != std::string_view::npos ||
                          WithoutPercents(address) != address;
    std::string link;
    for (const char c : address) {
        const bool escaped = c == '"' || c == ' ' || c == '<' || c == '>' || (c == '%' && percents);
        if (escaped) {
            const auto byte = static_cast<unsigned char>(c);
            link += '%';
            link += kDigits[byte / 16];
            link += kDigits[byte % 16];
        } else {
            link += c;
        }
    }
    Append(link, to);
}

}  // namespace orvik::book

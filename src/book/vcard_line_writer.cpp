#include "book/vcard_line_writer.h"

#include <algorithm>
#include <cstddef>

namespace orvik::book {
namespace {

constexpr std::size_t kLongestLine = 75;

bool IsInsideOfLetter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

// How many bytes fit without cutting a letter; bytes that are no letters are cut anywhere.
std::size_t LengthOfPiece(std::string_view line, std::size_t most) {
    if (line.size() <= most) {
        return line.size();
    }
    constexpr std::size_t kLongestLetter = 4;
    std::size_t length = most;
    while (length > most - kLongestLetter && IsInsideOfLetter(line[length])) {
        --length;
    }
    return IsInsideOfLetter(line[length]) ? most : length;
}

}  // namespace

void AppendFolded(std::string_view line, std::string& to) {
    std::size_t most = kLongestLine;
    for (;;) {
        const std::size_t length = LengthOfPiece(line, most);
        to.append(line.substr(0, length)).append("\r\n");
        line.remove_prefix(length);
        if (line.empty()) {
            return;
        }
        to += ' ';
        most = kLongestLine - 1;
    }
}

bool AppendParam(Dialect version, std::string_view name, std::string_view value, std::string& to) {
    const bool newer = version == Dialect::VCard40;
    bool whole = true;
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (c == '\r' && value.substr(i, 2) == "\r\n") {
            continue;
        }
        const bool line_end = c == '\r' || c == '\n';
        if (newer && (line_end || c == '"' || c == '^')) {
            text += line_end ? "^n" : c == '"' ? "^'" : "^^";
        } else if (line_end || c == '"') {
            text += line_end ? ' ' : '\'';
            whole = false;
        } else {
            text += c;
        }
    }
    const bool quotes = text.empty() || text.find_first_of(":;,= ") != std::string::npos;
    to.append(";")
        .append(name)
        .append(quotes ? "=\"" : "=")
        .append(text)
        .append(quotes ? "\"" : "");
    return whole;
}

}  // namespace orvik::book

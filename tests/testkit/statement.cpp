#include "testkit/statement.h"

#include <charconv>

namespace orvik::testkit {
namespace {

constexpr std::string_view kBlanks = " \t";

int HexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    throw ScenarioError("a hexadecimal digit is expected behind \\x");
}

// Takes the escape that text starts with, behind its backslash.
char TakeEscape(std::string_view& text) {
    if (text.empty()) {
        throw ScenarioError("a word in quotes has no end");
    }
    const char c = text.front();
    text.remove_prefix(1);
    switch (c) {
        case 'r':
            return '\r';
        case 'n':
            return '\n';
        case 't':
            return '\t';
        case '"':
        case '\\':
            return c;
        case 'x': {
            if (text.size() < 2) {
                throw ScenarioError("two digits are expected behind \\x");
            }
            const int value = HexDigit(text[0]) * 16 + HexDigit(text[1]);
            text.remove_prefix(2);
            return static_cast<char>(static_cast<unsigned char>(value));
        }
        default:
            throw ScenarioError(std::string("unknown escape \\") + c);
    }
}

// Takes the quoted word that text starts with.
std::string TakeQuoted(std::string_view& text) {
    text.remove_prefix(1);
    std::string word;
    for (;;) {
        const std::size_t plain = text.find_first_of("\"\\");
        if (plain == std::string_view::npos) {
            throw ScenarioError("a word in quotes has no end");
        }
        word.append(text.substr(0, plain));
        const char c = text[plain];
        text.remove_prefix(plain + 1);
        if (c == '"') {
            break;
        }
        word += TakeEscape(text);
    }
    if (!text.empty() && kBlanks.find(text.front()) == std::string_view::npos) {
        throw ScenarioError("a blank is expected behind a word in quotes");
    }
    return word;
}

std::string TakeWord(std::string_view& text) {
    if (text.front() == '"') {
        return TakeQuoted(text);
    }
    const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
    std::string word(text.substr(0, end));
    if (word.find('"') != std::string::npos) {
        throw ScenarioError("a quote stands inside a word");
    }
    text.remove_prefix(end);
    return word;
}

void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

template <class Number>
Number Parse(std::string_view word) {
    Number number{};
    const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
    if (result.ec != std::errc{} || result.ptr != word.data() + word.size()) {
        throw ScenarioError("not a number: " + std::string(word));
    }
    return number;
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view line) {
    std::vector<std::string> words;
    for (SkipBlanks(line); !line.empty(); SkipBlanks(line)) {
        words.push_back(TakeWord(line));
    }
    return words;
}

std::string_view BehindWords(std::string_view line, std::size_t count) {
    for (SkipBlanks(line); count > 0 && !line.empty(); --count) {
        TakeWord(line);
        SkipBlanks(line);
    }
    return line;
}

std::size_t ParseCount(std::string_view word) {
    return Parse<std::size_t>(word);
}

double ParseNumber(std::string_view word) {
    return Parse<double>(word);
}

}  // namespace orvik::testkit

#include "book/carried_name.h"

#include <array>

#include "book/typed_views.h"

namespace orvik::book {
namespace {

bool IsAsciiLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Signs that no parameter can hold are %XX: "100%" -> "100%25".
std::string EscapedHeader(std::string_view header) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : header) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte == 0x7F || c == '"' || c == '%' || c == '^' || c == '\\') {
            text += '%';
            text += kDigits[byte / 16];
            text += kDigits[byte % 16];
        } else {
            text += c;
        }
    }
    return text;
}

std::string UnescapedHeader(std::string_view header) {
    const auto digit = [](char c) {
        return c >= '0' && c <= '9' ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    };
    std::string text;
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (header[i] == '%' && i + 2 < header.size() && digit(header[i + 1]) >= 0 &&
            digit(header[i + 2]) >= 0) {
            text += static_cast<char>(digit(header[i + 1]) * 16 + digit(header[i + 2]));
            i += 2;
        } else {
            text += header[i];
        }
    }
    return text;
}

}  // namespace

std::string CarriedName(std::string_view start, std::string_view field, std::size_t number) {
    constexpr std::size_t kLongest = 60;
    std::string name;
    for (const char c : field.substr(0, kLongest)) {
        if (IsAsciiLetterOrDigit(c)) {
            name += c;
        } else if (!name.empty() && name.back() != '-') {
            name += '-';
        }
    }
    name.resize(name.find_last_not_of('-') + 1);
    return std::string(start) + (name.empty() ? "column-" + std::to_string(number + 1) : name);
}

std::uint32_t KeepHeader(Book& book, std::string_view own, std::string_view field) {
    if (field.empty() || own == field) {
        return 0;
    }
    const std::array params = {
        Param{book.Names.Intern(kHeaderParam), book.Keep(EscapedHeader(field))}};
    return book.KeepDetails({}, params);
}

std::string CarriedField(const Book& book, const Property& one, std::string_view start) {
    const NameId param = book.Names.Find(kHeaderParam);
    const std::string_view kept =
        param == FieldNames::kNone ? std::string_view{} : ParamOf(book, one, param);
    return kept.empty() ? std::string(book.Names.Text(one.Name).substr(start.size()))
                        : UnescapedHeader(kept);
}

}  // namespace orvik::book

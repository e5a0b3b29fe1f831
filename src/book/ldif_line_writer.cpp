#include "book/ldif_line_writer.h"

#include <algorithm>
#include <cstddef>

#include "book/transfer.h"

namespace orvik::book {
namespace {

void AppendFoldedAscii(std::string_view name,
                       std::string_view sign,
                       std::string_view value,
                       std::string& to) {
    constexpr std::size_t kWidth = 76;
    std::string line(name);
    line.append(sign).append(value);
    std::string_view rest = line;
    to.append(rest.substr(0, kWidth)).append("\n");
    rest.remove_prefix(std::min(kWidth, rest.size()));
    while (!rest.empty()) {
        to.append(" ").append(rest.substr(0, kWidth - 1)).append("\n");
        rest.remove_prefix(std::min(kWidth - 1, rest.size()));
    }
}

}  // namespace

bool IsSafeString(std::string_view value) {
    if (value.empty()) {
        return true;
    }
    // Many readers take a tab for a blank before the value.
    constexpr std::string_view kNotFirst = " \t:<";
    return kNotFirst.find(value.front()) == std::string_view::npos && value.back() != ' ' &&
           std::all_of(value.begin(), value.end(), [](char c) {
               const auto byte = static_cast<unsigned char>(c);
               return byte < 0x80 && c != '\0' && c != '\n' && c != '\r';
           });
}

void AppendLdifLine(std::string_view name, std::string_view value, std::string& to) {
    if (!IsSafeString(value)) {
        AppendLdifBase64(name, ToBase64(value), to);
    } else {
        AppendFoldedAscii(name, value.empty() ? ":" : ": ", value, to);
    }
}

void AppendLdifBase64(std::string_view name, std::string_view base64, std::string& to) {
    AppendFoldedAscii(name, ":: ", base64, to);
}

void AppendLdifUrl(std::string_view name, std::string_view url, std::string& to) {
    AppendFoldedAscii(name, ":< ", url, to);
}

}  // namespace orvik::book

#include "files/netscape3_merge.h"

#include "app/text.h"
#include "formats/netscape3_writer.h"

namespace orvik {
namespace {

// How much of an older book stays: up to the character behind its last "<DD>".
std::optional<std::size_t> CutOf(std::string_view old_book) {
    for (std::size_t end = old_book.rfind('>'); end != std::string_view::npos && end > 0;
         end = old_book.rfind('>', end - 1)) {
        if (end + 1 < old_book.size() && HasEnding(old_book.substr(0, end + 1), "<dd>")) {
            return end + 2;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> MergeNetscape3(std::string_view old_book, std::string_view new_book) {
    const std::optional<std::size_t> cut = CutOf(old_book);
    if (!cut) {
        return std::nullopt;
    }
    std::string merged(old_book.substr(0, *cut));
    return merged.append(kCrLf).append(new_book.substr(kNetscape3HeaderLength));
}

bool MergeDropsText(std::string_view old_book) {
    constexpr std::string_view kEnd = "</dl><p>";
    std::string_view rest = old_book.substr(CutOf(old_book).value_or(old_book.size()));
    while (!rest.empty()) {
        if (ToLower(rest.substr(0, kEnd.size())) == kEnd) {
            rest.remove_prefix(kEnd.size());
        } else if (std::string_view("\r\n \t").find(rest.front()) != std::string_view::npos) {
            rest.remove_prefix(1);
        } else {
            return true;
        }
    }
    return false;
}

}  // namespace orvik

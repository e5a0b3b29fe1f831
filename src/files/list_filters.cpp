#include "files/list_filters.h"

#include "app/text.h"

namespace orvik {
namespace {

constexpr std::string_view kAlias = "alias";

std::size_t SkipBlanks(std::string_view text, std::size_t position) {
    while (Mid(text, position, 1) == " ") {
        ++position;
    }
    return position;
}

// The position of the first of these characters at or behind position, or one past the last
// character.
std::size_t FindAny(std::string_view text, std::string_view wanted, std::size_t position) {
    const std::size_t found = text.find_first_of(wanted, position - 1);
    return found == std::string_view::npos ? text.size() + 1 : found + 1;
}

}  // namespace

std::string FilterPegasus(std::string_view text) {
    constexpr std::string_view kComment = "\r\n\\";
    std::string list;
    std::size_t i = text.starts_with('\\') ? FindFrom(text, "\r", 1) : 1;
    while (i <= text.size()) {
        const std::size_t comment = FindFrom(text, kComment, i);
        list.append(Mid(text, i, comment - i));
        i = comment;
        while (Mid(text, i, kComment.size()) == kComment) {
            i = FindFrom(text, "\r", i + 1);
        }
        if (i > comment) {
            ++i;
        }
    }
    return list;
}

std::string FilterAliases(std::string_view text) {
    std::string list;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        i = FindAny(text, "aA", i);
        if (ToLower(Mid(text, i, kAlias.size())) != kAlias) {
            continue;
        }
        // Behind the word stands one blank.
        i += kAlias.size() + 1;
        list += '"';
        if (Mid(text, i, 1) == "\"") {
            ++i;
            list.append(TakeUntil(text, i, "\""));
            ++i;
        } else {
            i = SkipBlanks(text, i);
            list.append(TakeUntil(text, i, " "));
        }
        list += '"';
        i = SkipBlanks(text, i);
        const std::size_t end = FindAny(text, " ,\r", i);
        list.append(Mid(text, i, end > i ? end - i : 0)).append(kCrLf);
        i = end;
    }
    return list;
}

}  // namespace orvik

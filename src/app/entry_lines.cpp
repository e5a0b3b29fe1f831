#include "app/entry_lines.h"

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// What stands last in a list ends its last entry, and is no part of it.
bool IsEnded(std::string_view list, std::string_view separator) {
    constexpr std::string_view kEnds = ">\"\r\n";
    return list.empty() || list.ends_with(separator) ||
           kEnds.find(list.back()) != std::string_view::npos;
}

}  // namespace

std::string EntryLines(std::string_view text, bool native, std::string_view separator) {
    std::string lines;
    lines.reserve(text.size());
    const auto take = [&lines](std::string_view address, std::string_view nickname) {
        if (!address.empty() || !nickname.empty()) {
            lines.append("\"").append(nickname).append("\" <").append(address).append(">");
            lines.append(kCrLf);
        }
    };
    if (native) {
        ForEachOfNative(text, take);
    } else if (IsEnded(text, separator)) {
        ForEachOfList(text, separator, take);
    } else {
        ForEachOfList(std::string(text).append(separator), separator, take);
    }
    return lines;
}

}  // namespace orvik

#include "book/old/pine_entries.h"

#include <algorithm>

#include "book/field_names.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

void Split(std::string_view text, PineEntry& entry) {
    entry.Tabs = 0;
    for (std::size_t i = 0; i < kPineFields; ++i) {
        // The last one has all that is left.
        const std::size_t tab = i + 1 < kPineFields ? text.find('\t') : std::string_view::npos;
        entry.Fields[i] = WithoutBlanksAround(text.substr(0, tab));
        entry.Tabs += tab != std::string_view::npos ? 1U : 0U;
        text.remove_prefix(tab == std::string_view::npos ? text.size() : tab + 1);
    }
}

}  // namespace

bool PineEntry::IsComment() const {
    return Bytes.starts_with("# ") || Bytes.starts_with("#\n") || Bytes.starts_with("#\r");
}

bool PineEntry::IsDeleted() const {
    return StartsAsName(Nickname(), "#DELETED-");
}

bool PineEntry::IsBroken() const {
    const std::size_t end = std::min(Bytes.find_first_of("\r\n"), Bytes.size());
    return Lines > 1 && Bytes.substr(0, end).ends_with('\t');
}

bool PineEntries::Next(PineEntry& entry) {
    while (has_line_ || lines_.Next(line_)) {
        has_line_ = false;
        // An entry may begin with a tab alone, and go on behind it.
        const bool blank = line_.Text.find('\t') == std::string_view::npos &&
                           WithoutBlanksAround(line_.Text).empty();
        if (!blank && TakeEntry(entry)) {
            return true;
        }
    }
    return false;
}

// Whether it has anything.
bool PineEntries::TakeEntry(PineEntry& entry) {
    entry.Line = line_.Number;
    entry.Lines = 1;
    entry.Joined.clear();
    std::string_view text = line_.Text;
    const char* const begin = text.data();
    const char* end = line_.WithEnd.data() + line_.WithEnd.size();
    while ((has_line_ = lines_.Next(line_)) && line_.Text.starts_with(' ')) {
        // The end of the line and the blanks count as one.
        entry.Joined.append(entry.Lines == 1 ? text : "").append(" ");
        entry.Joined.append(
            line_.Text.substr(std::min(line_.Text.find_first_not_of(' '), line_.Text.size())));
        end = line_.WithEnd.data() + line_.WithEnd.size();
        ++entry.Lines;
    }
    entry.Bytes = {begin, static_cast<std::size_t>(end - begin)};
    Split(entry.Lines == 1 ? text : entry.Joined, entry);
    return std::any_of(entry.Fields.begin(), entry.Fields.end(), [](std::string_view one) {
        return !one.empty();
    });
}

bool IsPineNickname(std::string_view text) {
    return text.find_first_of(" ,@\";:()[]<>\\") == std::string_view::npos;
}

}  // namespace orvik::book

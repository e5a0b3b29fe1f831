#include "app/working_text.h"

#include <algorithm>
#include <utility>

#include "app/byte_finder.h"
#include "app/list_splitter.h"
#include "app/run_time_error.h"
#include "app/text.h"

namespace orvik {
namespace {

// Gives each line of text that is ended by CR, less LF, to add; returns what stands behind the
// last.
template <class AddLine>
std::string_view AddLines(std::string_view text, const AddLine& add) {
    ByteFinder<'\r', '\n'> marks(text);
    std::string kept;
    std::size_t start = 0;
    bool has_lf = false;
    for (;;) {
        const std::size_t mark = marks.Next();
        if (mark == std::string_view::npos) {
            return text.substr(start);
        }
        if (text[mark] == '\r') {
            const std::string_view line = text.substr(start, mark - start);
            add(has_lf ? WithoutLf(line, kept) : line);
            start = mark + 1;
            has_lf = false;
        } else if (mark == start && !has_lf) {
            // The one that belongs to the line end before.
            ++start;
        } else {
            has_lf = true;
        }
    }
}

// Where the next line "-nick-" begins at or behind start, from 0; npos where there is none.
std::size_t FindNickLine(std::string_view text, std::size_t start) {
    std::size_t found = FindText(text, kNick, start);
    while (found != std::string_view::npos) {
        const std::string_view behind = text.substr(found + kNick.size());
        if ((found == 0 || text.substr(0, found).ends_with(kCrLf)) &&
            (behind.empty() || behind.starts_with(kCrLf))) {
            break;
        }
        found = FindText(text, kNick, found + 1);
    }
    return found;
}

// How many lines CR LF ends.
std::size_t CountLines(std::string_view text) {
    const char* const bytes = text.data();
    std::size_t lines = 0;
    for (std::size_t p = 1; p < text.size(); ++p) {
        lines += static_cast<std::size_t>(bytes[p - 1] == '\r' && bytes[p] == '\n');
    }
    return lines;
}

}  // namespace

std::string_view WithoutLf(std::string_view line, std::string& kept) {
    while (line.starts_with('\n')) {
        line.remove_prefix(1);
    }
    if (line.find('\n') == std::string_view::npos) {
        return line;
    }
    kept.clear();
    AppendWithout(kept, line, '\n');
    return kept;
}

bool HasNickLine(std::string_view text) {
    return FindNickLine(text, 0) != std::string_view::npos;
}

bool IsNative(std::string_view text) {
    if (!text.ends_with(kCrLf)) {
        return false;
    }
    const std::size_t middle = FindNickLine(text, 0);
    return middle != std::string_view::npos &&
           FindNickLine(text, middle + 1) == std::string_view::npos &&
           CountLines(text.substr(0, middle)) == CountLines(text.substr(middle)) - 1;
}

NativeBlocks SplitBlocks(std::string_view text, std::string_view separator) {
    const auto ends =
        separator.empty() ? 0 : std::count(text.begin(), text.end(), separator.front());
    const std::size_t most_entries = static_cast<std::size_t>(ends) + 1;
    std::string native;
    native.reserve(text.size() + 2 * most_entries * kCrLf.size() + kNick.size() + kCrLf.size());
    std::string nicks;
    nicks.reserve(text.size() / 2);
    const auto take = [&](std::string_view address, std::string_view nickname) {
        native.append(address).append(kCrLf);
        nicks.append(nickname).append(kCrLf);
    };
    ListSplitter(text, separator, take).Run();
    if (native.empty()) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    const std::size_t emails_length = native.size() - kCrLf.size();
    native.append(kNick).append(kCrLf).append(nicks);
    return {std::move(native), emails_length};
}

std::string NativeOfEntries(std::string_view list,
                            const std::vector<std::uint32_t>& address_lengths) {
    constexpr std::size_t kFrame = std::string_view("\"\" <>").size();
    std::string native;
    std::string nicks;
    native.reserve(list.size());
    for (const std::size_t length : address_lengths) {
        const std::string_view entry = list.substr(0, list.find(kCrLf));
        list.remove_prefix(entry.size() + kCrLf.size());
        native.append(entry.substr(entry.size() - 1 - length, length)).append(kCrLf);
        nicks.append(entry.substr(1, entry.size() - kFrame - length)).append(kCrLf);
    }
    return native.append(kNick).append(kCrLf).append(nicks);
}

void ForEachOfList(std::string_view text, std::string_view separator, const TakeEntry& take) {
    ListSplitter(text, separator, take).Run();
}

void ForEachOfNative(std::string_view text, const TakeEntry& take) {
    NativeReader reader(text);
    std::string kept;
    while (reader.Next()) {
        const std::string_view nickname = reader.TakeNickname();
        take(WithoutLf(reader.RawAddress(), kept), nickname);
    }
}

std::size_t ListNative(std::string_view text,
                       const std::function<void(std::string_view)>& add_email,
                       const std::function<void(std::string_view)>& add_nick) {
    std::string separator(kCrLf);
    separator += kNick;
    const std::size_t found = text.find(separator);
    const std::size_t block_end = found != std::string_view::npos
                                      ? found
                                      : text.size() - std::min<std::size_t>(text.size(), 1);
    std::size_t count = 1;
    const std::string_view last = AddLines(text.substr(0, block_end), [&](std::string_view line) {
        add_email(line);
        ++count;
    });
    std::string kept;
    add_email(WithoutLf(last, kept));
    AddLines(Mid(text, block_end + 1 + separator.size() + 1), add_nick);
    return count;
}

ListedBlocks FindBlocks(std::string_view text) {
    std::size_t middle = 0;
    if (!text.starts_with(kNick)) {
        const std::size_t end = text.find(std::string(kCrLf).append(kNick));
        if (end == std::string_view::npos) {
            return {text, {}};
        }
        middle = end + kCrLf.size();
    }
    std::string_view nicknames = text.substr(middle + kNick.size());
    nicknames.remove_prefix(std::min<std::size_t>(nicknames.size(), 1));
    if (nicknames.starts_with('\n')) {
        nicknames.remove_prefix(1);
    }
    return {text.substr(0, middle), nicknames};
}

std::string EntryEnd(std::string_view separator) {
    std::string end(separator);
    if (separator == "\r") {
        end += '\n';
    }
    return end;
}

NativeText::NativeText(std::string_view text) : text_(text) {
    if (FindText(text_, kNick) == std::string_view::npos) {
        completed_.reserve(text.size() + kNick.size() + 2 * kCrLf.size());
        completed_.append(text);
        if (!text.empty()) {
            completed_.append(kCrLf);
        }
        completed_.append(kNick).append(kCrLf);
        text_ = completed_;
    }
    separator_ = FindText(text_, kNick) + 1;
}

NativeReader::NativeReader(std::string_view text, char line_end)
    : native_(text), line_end_(line_end), nickname_(native_.Nicknames()) {}

bool NativeReader::Next() {
    const std::size_t end = FindFrom(native_.Text(), {&line_end_, 1}, address_start_);
    if (end >= Separator()) {
        return false;
    }
    address_ = Mid(native_.Text(), address_start_, end - address_start_);
    address_end_ = end;
    address_start_ = end + 1;
    return true;
}

std::string_view NativeReader::TakeNickname() {
    const std::string_view text = native_.Text();
    const std::size_t start = nickname_;
    std::size_t end = FindFrom(text, kCrLf, start);
    if (end > text.size()) {
        end = std::max(start, text.size());
    }
    nickname_ = end + kCrLf.size();
    return Mid(text, start, end - start);
}

}  // namespace orvik

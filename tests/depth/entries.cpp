#include "depth/entries.h"

#include <algorithm>

namespace orvik::depth {
namespace {

constexpr std::string_view kMiddle = "-nick-";
constexpr std::string_view kLineEnd = "\r\n";

bool Has(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool HasAny(std::string_view text, std::string_view characters) {
    return text.find_first_of(characters) != std::string_view::npos;
}

// The lines of a text that CR LF ends; what stands behind the last one is a line, too, if it is
// anything.
std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(kLineEnd);
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return lines;
}

// The value of a line that begins with key.
std::optional<std::string> ValueOf(std::string_view line, std::string_view key) {
    return line.starts_with(key) ? std::optional(std::string(line.substr(key.size())))
                                 : std::nullopt;
}

// The entries of a text in which each has a line with its nickname before the one with its address.
Entries EntriesByKeys(std::string_view text, std::string_view name, std::string_view mail) {
    Entries entries;
    Entry next;
    for (const std::string_view line : LinesOf(text)) {
        if (const auto nickname = ValueOf(line, name)) {
            next.Nickname = *nickname;
        } else if (const auto address = ValueOf(line, mail)) {
            next.Address = *address;
            entries.push_back(next);
        }
    }
    return entries;
}

bool IsBlank(char c) {
    return static_cast<unsigned char>(c) <= ' ';
}

}  // namespace

std::optional<Entries> EntriesOf(std::string_view native) {
    if (!native.ends_with(kLineEnd)) {
        return std::nullopt;
    }
    const std::vector<std::string_view> lines = LinesOf(native);
    const auto middle = std::find(lines.begin(), lines.end(), kMiddle);
    const auto count = static_cast<std::size_t>(middle - lines.begin());
    if (count == 0 || lines.size() != 2 * count + 1) {
        return std::nullopt;
    }
    Entries entries;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view address = lines[i];
        const std::string_view nickname = lines[count + 1 + i];
        if (HasAny(address, kLineEnd) || HasAny(nickname, kLineEnd) || Has(address, kMiddle) ||
            nickname == kMiddle) {
            return std::nullopt;
        }
        entries.push_back({std::string(address), std::string(nickname)});
    }
    return entries;
}

std::string NativeOf(const Entries& entries) {
    std::string addresses;
    std::string nicknames;
    for (const Entry& entry : entries) {
        addresses.append(entry.Address).append(kLineEnd);
        nicknames.append(entry.Nickname).append(kLineEnd);
    }
    return addresses.append(kMiddle).append(kLineEnd).append(nicknames);
}

Listing ListingOf(std::string_view native) {
    Listing listing;
    const std::size_t middle = native.find("\r\n-nick-");
    const std::size_t end =
        middle != std::string_view::npos ? middle : native.size() - (native.empty() ? 0 : 1);
    std::string line;
    for (const char c : native.substr(0, end)) {
        if (c == '\r') {
            listing.Addresses.push_back(line);
            line.clear();
        } else if (c != '\n') {
            line += c;
        }
    }
    listing.Addresses.push_back(line);
    line.clear();
    if (middle == std::string_view::npos || middle + 9 >= native.size()) {
        return listing;
    }
    for (const char c : native.substr(middle + 9)) {
        if (c == '\r') {
            listing.Nicknames.push_back(line);
            line.clear();
        } else if (c != '\n') {
            line += c;
        }
    }
    return listing;
}

Entries EntriesOfLdif(std::string_view ldif) {
    return EntriesByKeys(ldif, "xmozillanickname: ", "mail: ");
}

Entries EntriesOfJuno(std::string_view book) {
    return EntriesByKeys(book, "Name:", "Email:");
}

Entries EntriesOfPage(std::string_view page) {
    constexpr std::string_view kLink = "<DT><A HREF=\"mailto:";
    const auto take_until = [&page](std::string_view end) {
        const std::size_t at = std::min(page.find(end), page.size());
        std::string taken(page.substr(0, at));
        page.remove_prefix(std::min(at + end.size(), page.size()));
        return taken;
    };
    Entries entries;
    for (take_until(kLink); !page.empty(); take_until(kLink)) {
        Entry entry;
        entry.Address = take_until("\"");
        take_until("\">");
        entry.Nickname = take_until("</A>");
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::vector<std::string> AddressesIn(std::string_view file) {
    std::vector<std::string> found;
    const auto is_left_end = [](char c) { return IsBlank(c) || c == '<' || c == ','; };
    const auto is_right_end = [](char c) { return IsBlank(c) || c == '>' || c == ','; };
    for (std::size_t mark = 0; mark < file.size(); ++mark) {
        if (file[mark] != '@') {
            continue;
        }
        // The first character of a file never belongs to an address, and neither does the last.
        std::size_t first = mark;
        while (first > 0 && !is_left_end(file[first])) {
            --first;
        }
        ++first;
        std::size_t end = std::max(first, mark);
        while (end + 1 < file.size() && !is_right_end(file[end])) {
            ++end;
        }
        found.emplace_back(end > first ? file.substr(first, end - first) : std::string_view());
        mark = end;
    }
    return found;
}

bool ArePlain(const Entries& entries) {
    return std::all_of(entries.begin(), entries.end(), [](const Entry& entry) {
        const auto is_plain = [](std::string_view text) {
            return !HasAny(text, "\"<>,\\\r\n") && !text.starts_with(' ') && !text.ends_with(' ') &&
                   !Has(text, kMiddle) && !Has(text, std::string_view("\0", 1));
        };
        return !entry.Address.empty() && is_plain(entry.Address) && is_plain(entry.Nickname);
    });
}

}  // namespace orvik::depth

#include "formats/unread.h"

#include <algorithm>
#include <string>

#include "app/text.h"
#include "formats/csv_reader.h"
#include "formats/juno_reader.h"
#include "formats/ldif_reader.h"
#include "formats/unread_entries.h"

namespace orvik {
namespace {

// A link with its attributes and its text, from behind its address key.
void TakeLink(UnreadEntries& entries, std::string_view& rest) {
    constexpr std::string_view kNicknameOfLink = "NICKNAME=\"";
    entries.EndEntry();
    const std::string_view address = rest.substr(0, rest.find('"'));
    entries.Address(address);
    rest.remove_prefix(address.size());
    std::string_view tag = TakePart(rest, "\">");
    entries.Nickname(TakePart(rest, "</A>"));
    if (const std::size_t found = tag.find(kNicknameOfLink); found != std::string_view::npos) {
        tag.remove_prefix(found + kNicknameOfLink.size());
        entries.Other(TakePart(tag, "\""));
    }
}

// Descriptions, the nickname of a link beside its text, and the names of lists and folders. When a
// link was made or visited is the program's own.
Unread CountNetscape3(std::string_view html) {
    constexpr std::string_view kLink = "<A HREF=\"mailto:";
    UnreadEntries entries;
    for (std::size_t tag = html.find('<'); tag != std::string_view::npos; tag = html.find('<')) {
        html.remove_prefix(tag);
        const std::string name = ToLower(html.substr(0, 4));
        if (html.starts_with(kLink)) {
            html.remove_prefix(kLink.size());
            TakeLink(entries, html);
            continue;
        }
        html.remove_prefix(1);
        if (name == "<h3 " || name == "<h3>") {
            entries.EndEntry();
        } else if (name != "<dd>") {
            continue;
        }
        TakePart(html, ">");
        entries.Other(html.substr(0, html.find('<')));
    }
    return entries.Total();
}

// Whether an own line of the mail program is a setting, and no more. Leaves its value.
bool TakePegasusSetting(std::string_view& line) {
    return line.starts_with('\\') && ToLower(TakePart(line, " ")) == "\\nosig";
}

// The mail program's own lines say what the list is called and how it is sent; the list counts as
// one entry. What follows such a line that no CR LF ends is dropped with it.
Unread CountPegasus(std::string_view file) {
    UnreadEntries entries;
    while (!file.empty()) {
        std::string_view dropped = TakePart(file, kCrLf);
        if (!dropped.starts_with('\\')) {
            continue;
        }
        while (!dropped.empty()) {
            std::string_view line = TakePart(dropped, "\n");
            if (!TakePegasusSetting(line)) {
                entries.Other(line);
            }
        }
    }
    return entries.Total();
}

}  // namespace

Unread CountUnread(Format format, std::string_view file) {
    UnreadEntries entries;
    switch (format) {
        case Format::Netscape3:
            return CountNetscape3(file);
        case Format::Netscape4:
            static_cast<void>(ReadLdif(file, {}, &entries));
            break;
        case Format::Juno:
            static_cast<void>(ReadJuno(file, &entries));
            break;
        case Format::Csv:
            return CsvToNative(file, &entries) ? entries.Total() : Unread{};
        case Format::WordPerfect:
            return WordPerfectToNative(file, &entries) ? entries.Total() : Unread{};
        case Format::Pegasus:
            return CountPegasus(file);
        case Format::TextList:
        case Format::AnyFile:
            break;
    }
    return entries.Total();
}

Unread CountUnreadOfAliases(std::string_view file) {
    UnreadEntries entries;
    std::string_view name_before;
    while (!file.empty()) {
        std::string_view line = TakePart(file, "\n");
        const std::string keyword = ToLower(TakePart(line, " "));
        if (keyword != "alias" && keyword != "note") {
            continue;
        }
        const bool quoted = line.starts_with('"');
        line.remove_prefix(quoted ? 1 : 0);
        const std::string_view name = TakePart(line, quoted ? "\"" : " ");
        // The note of an entry stands behind its alias.
        if (keyword == "alias" || name != name_before) {
            entries.EndEntry();
            entries.Nickname(name);
            name_before = name;
        }
        if (keyword == "alias") {
            line.remove_prefix(std::min(line.size(), line.find_first_not_of(' ')));
            const std::size_t end = std::min(line.size(), line.find_first_of(" ,\r"));
            entries.Address(line.substr(0, end));
            line.remove_prefix(std::min(line.size(), end + 1));
        }
        entries.Other(line);
    }
    return entries.Total();
}

}  // namespace orvik

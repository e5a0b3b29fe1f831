#include "formats/unread.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/text.h"
#include "formats/columns.h"
#include "formats/unread_entries.h"

namespace orvik {
namespace {

// How a book of lines, each a key and a value, is read.
struct LineFormat {
    std::string_view NicknameKey;
    std::string_view AddressKey;
    // The reader passes over the line behind an address.
    bool PassesOver;
    // The keys, in lower case, of what a program keeps for itself.
    std::vector<std::string_view> OwnKeys;
};

const LineFormat& Ldif() {
    static const LineFormat kLdif{"xmozillanickname: ",
                                  "mail: ",
                                  true,
                                  {"dn",
                                   "version",
                                   "changetype",
                                   "objectclass",
                                   "modifytimestamp",
                                   "xnavusehtmlmail",
                                   "xnavusecallpointserver",
                                   "xmozillausehtmlmail",
                                   "xmozillauseconferenceserver",
                                   "mozillausehtmlmail"}};
    return kLdif;
}

const LineFormat& Juno() {
    static const LineFormat kJuno{"Name:", "Email:", false, {"type", "version", "deleted", "time"}};
    return kJuno;
}

void TakeUnreadLine(UnreadEntries& entries, std::string_view line, const LineFormat& format) {
    const std::size_t colon = line.find(':');
    // A line that begins with a blank goes on with the one before it.
    if (colon == std::string_view::npos || line.starts_with(' ') || line.starts_with('#')) {
        return;
    }
    const std::string key = ToLower(line.substr(0, std::min(colon, line.find(';'))));
    if (std::find(format.OwnKeys.begin(), format.OwnKeys.end(), key) == format.OwnKeys.end()) {
        entries.Other(line.substr(colon + 1));
    }
}

// In a line that is not read LF ends an attribute too: a file without CR LF is one such line.
void TakeUnreadLines(UnreadEntries& entries, std::string_view lines, const LineFormat& format) {
    do {
        const std::string_view line = TakePart(lines, "\n");
        if (line.empty()) {
            entries.EndEntry();
        }
        TakeUnreadLine(entries, line, format);
    } while (!lines.empty());
}

// The readers know a key only behind CR LF, and so not on the first line.
Unread CountLines(std::string_view file, const LineFormat& format) {
    UnreadEntries entries;
    bool knows_keys = false;
    while (!file.empty()) {
        const std::string_view line = TakePart(file, kCrLf);
        if (knows_keys && line.starts_with(format.NicknameKey)) {
            entries.Nickname(line.substr(format.NicknameKey.size()));
        } else if (knows_keys && line.starts_with(format.AddressKey)) {
            entries.Address(line.substr(format.AddressKey.size()));
            knows_keys = !format.PassesOver;
            continue;
        } else {
            TakeUnreadLines(entries, line, format);
        }
        knows_keys = true;
    }
    return entries.Total();
}

// The rest of a line, column by column.
void TakeUnreadColumns(UnreadEntries& entries, std::string_view rest) {
    while (!rest.empty()) {
        entries.Other(TakePart(rest, ","));
    }
}

bool TakeUnreadColumns(UnreadEntries& entries, Columns& columns, int count) {
    std::string_view column;
    for (; count > 0; --count) {
        if (!columns.TakeAndPass(column)) {
            return false;
        }
        entries.Other(column);
    }
    return true;
}

bool TakeCsvLine(UnreadEntries& entries, Columns& columns) {
    std::string_view nick;
    std::string_view email;
    if (!columns.TakeAndPass(nick) || !columns.TakeAndPass(email) ||
        !TakeUnreadColumns(entries, columns, 13)) {
        return false;
    }
    entries.Nickname(nick);
    entries.Address(email);
    return true;
}

// Column 1 says what kind of entry it is.
bool TakeWordPerfectLine(UnreadEntries& entries, Columns& columns) {
    std::string_view kind;
    std::string_view nick;
    std::string_view email;
    if (!columns.TakeAndPass(kind) || !columns.TakeAndPass(nick) ||
        !TakeUnreadColumns(entries, columns, 3) || !columns.Take(email)) {
        return false;
    }
    entries.Nickname(nick);
    entries.Address(email);
    return true;
}

Unread CountColumns(std::string_view file, bool (*take_line)(UnreadEntries&, Columns&)) {
    UnreadEntries entries;
    for (Columns columns(file); !columns.AtEnd(); entries.EndEntry()) {
        if (!take_line(entries, columns)) {
            return {};
        }
        TakeUnreadColumns(entries, columns.EndLine());
    }
    return entries.Total();
}

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
    switch (format) {
        case Format::Netscape3:
            return CountNetscape3(file);
        case Format::Netscape4:
            return CountLines(file, Ldif());
        case Format::Csv:
            return CountColumns(file, &TakeCsvLine);
        case Format::WordPerfect:
            return CountColumns(file, &TakeWordPerfectLine);
        case Format::Juno:
            return CountLines(file, Juno());
        case Format::Pegasus:
            return CountPegasus(file);
        case Format::TextList:
        case Format::AnyFile:
            break;
    }
    return {};
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

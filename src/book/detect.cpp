#include "book/detect.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "app/text.h"
#include "book/csv_form.h"
#include "book/field_names.h"
#include "book/lines.h"
#include "book/old/old_formats.h"
#include "book/old/read_netscape3.h"
#include "book/old/read_pegasus_text.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

struct Kind {
    std::string_view Start;
    std::string_view Name;
    std::size_t At = 0;
};

constexpr std::array kOthers = {
    Kind{"\x89PNG\r\n\x1A\n", "a PNG image"},
    Kind{"\xFF\xD8\xFF", "a JPEG image"},
    Kind{"GIF8", "a GIF image"},
    Kind{"BM", "a BMP image"},
    Kind{"%PDF-", "a PDF document"},
    Kind{"PK\x03\x04", "a ZIP archive"},
    Kind{"PK\x05\x06", "a ZIP archive"},
    Kind{"\x1F\x8B\x08", "a gzip archive"},
    Kind{"BZh", "a bzip2 archive"},
    Kind{"\xFD"
         "7zXZ",
         "an xz archive"},
    Kind{"7z\xBC\xAF\x27\x1C", "a 7-Zip archive"},
    Kind{"Rar!\x1A\x07", "a RAR archive"},
    Kind{"ustar", "a tar archive", 257},
    Kind{"\x7F"
         "ELF",
         "a program"},
    Kind{"MZ", "a Windows program"},
    Kind{"SQLite format 3", "an SQLite database"},
    Kind{"!BDN", "an Outlook data file"},
    Kind{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "an old Office document"},
    Kind{"RIFF", "a sound or a video"},
    Kind{"ID3", "a sound"},
    Kind{"OggS", "a sound"},
    Kind{"{\\rtf", "an RTF document"},
};

constexpr std::array kPages = {
    Kind{"<!DOCTYPE", "an HTML or XML page"},
    Kind{"<HTML", "an HTML page"},
    Kind{"<?XML", "an XML document"},
    Kind{"BEGIN:VCALENDAR", "a calendar"},
};

constexpr std::string_view kText = "a text";

// Attributes of which each record of a person or a list has one at least.
constexpr std::array<std::string_view, 12> kLdifNames = {"objectclass",
                                                         "cn",
                                                         "commonname",
                                                         "sn",
                                                         "surname",
                                                         "givenname",
                                                         "displayname",
                                                         "mail",
                                                         "o",
                                                         "uid",
                                                         "member",
                                                         "changetype"};

std::string_view WithoutBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\f\v";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Letters that no text has; a few may be in a book that was damaged.
bool IsBinary(std::string_view text) {
    const std::string_view sample = text.substr(0, 4096);
    const auto odd = std::count_if(sample.begin(), sample.end(), [](char c) {
        constexpr std::string_view kOfText = "\t\n\v\f\r\x1A\x1B";
        return static_cast<unsigned char>(c) < ' ' && kOfText.find(c) == std::string_view::npos;
    });
    return 20 * static_cast<std::size_t>(odd) > sample.size();
}

// Directories may name attributes by number.
bool IsDottedNumber(std::string_view name) {
    return name.find('.') != std::string_view::npos &&
           name.find_first_not_of("0123456789.") == std::string_view::npos;
}

bool NamesLdifAttribute(std::string_view line) {
    const std::string_view name = line.substr(0, line.find_first_of(":;"));
    return name.size() < line.size() &&
           (IsDottedNumber(name) ||
            std::any_of(kLdifNames.begin(), kLdifNames.end(), [name](std::string_view known) {
                return SameName(known, name);
            }));
}

// The record that begins in this line: it has an attribute that address books have.
bool IsLdifRecord(Lines lines) {
    constexpr std::size_t kMostLines = 100;
    Line line;
    for (std::size_t i = 0; i < kMostLines && lines.Next(line) && !line.Text.empty(); ++i) {
        if (BeginsLdifRecord(line.Text)) {
            return false;
        }
        if (NamesLdifAttribute(line.Text)) {
            return true;
        }
    }
    return false;
}

// Other files begin with the version of something, too: behind that of LDIF stands a record, or
// nothing at all.
bool IsLdifVersion(const Line& line, Lines rest) {
    constexpr std::string_view kVersion = "version:";
    if (!StartsAsName(line.Text, kVersion) ||
        WithoutBlanks(line.Text.substr(kVersion.size())) != "1") {
        return false;
    }
    Line next;
    while (rest.Next(next)) {
        // Comments, with what goes on with them.
        if (!next.Text.empty() &&
            std::string_view("# \t").find(next.Text.front()) == std::string_view::npos) {
            return BeginsLdifRecord(next.Text) || StartsAsName(next.Text, "objectclass:");
        }
    }
    return true;
}

Detected Begun(Format form, const Line& line, std::string_view what) {
    return {form, "line " + std::to_string(line.Number) + " " + std::string(what)};
}

// Words may begin as the shortest of them do.
const Kind* OtherKind(const Source& source) {
    const std::string_view bytes = source.Bytes();
    const auto* const found = std::find_if(kOthers.begin(), kOthers.end(), [&](const Kind& kind) {
        const bool word = kind.Start.size() <= 3 && AsciiLength(kind.Start) == kind.Start.size();
        return bytes.substr(std::min(kind.At, bytes.size())).starts_with(kind.Start) &&
               (!word || IsBinary(bytes));
    });
    return source.Wide() != WideForm::None || found == kOthers.end() ? nullptr : found;
}

Detected DetectOld(const Source& source, bool is_signed) {
    for (const OldFormat& one : OldFormats()) {
        auto evidence = one.Signed == is_signed ? one.Evidence(source) : std::nullopt;
        if (evidence) {
            return {one.Form, std::move(*evidence)};
        }
    }
    return {};
}

Detected Something(const Source& source) {
    const std::string_view text = source.Text();
    if (text.empty()) {
        return {Format::None, "an empty file"};
    }
    const std::string_view begin =
        text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (begin.starts_with('<') && IsBookmarkPage(source)) {
        return {Format::None, "a file of bookmarks"};
    }
    for (const Kind& kind : kPages) {
        if (StartsAsName(begin, kind.Start)) {
            return {Format::None, std::string(kind.Name)};
        }
    }
    return {Format::None, IsBinary(text) ? "a binary file" : std::string(kText)};
}

}  // namespace

bool BeginsCard(std::string_view line) {
    constexpr std::string_view kBegin = "BEGIN";
    line = WithoutBlanks(line);
    const std::size_t colon = line.find(':');
    return colon != std::string_view::npos &&
           SameName(WithoutBlanks(line.substr(0, colon)), kBegin) &&
           SameName(WithoutBlanks(line.substr(colon + 1)), "VCARD");
}

Detected Detect(const Source& source) {
    if (IsPegasusBinary(source)) {
        return {Format::None,
                "a binary book of Pegasus Mail",
                "Pegasus Mail exports it as tagged text"};
    }
    if (const Kind* const other = OtherKind(source)) {
        return {Format::None, std::string(other->Name)};
    }
    if (Detected old = DetectOld(source, true); old.Form != Format::None) {
        return old;
    }
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        if (line.Text.empty()) {
            continue;
        }
        if (BeginsCard(line.Text)) {
            return Begun(Format::VCard, line, "begins a card");
        }
        const bool version = IsLdifVersion(line, lines);
        if (version || (BeginsLdifRecord(line.Text) && IsLdifRecord(lines))) {
            return Begun(
                Format::Ldif, line, version ? "has the version of LDIF" : "begins a record");
        }
    }
    if (Detected old = DetectOld(source, false); old.Form != Format::None) {
        return old;
    }
    Detected other = Something(source);
    // Pages and bytes have rows and addresses by chance.
    const bool table = HasEnding(source.Name(), ".csv") || HasEnding(source.Name(), ".tsv");
    if (const auto form =
            other.Evidence == kText ? CsvFormOf(source.Text(), table) : std::nullopt) {
        return {Format::Csv, form->Evidence};
    }
    return other;
}

}  // namespace orvik::book

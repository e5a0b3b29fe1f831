// Reads the file that a command has opened.

#include <optional>
#include <string>
#include <utility>

#include "app/module1.h"
#include "files/form3.h"
#include "files/something_else.h"
#include "formats/csv_pieces.h"
#include "formats/endings.h"
#include "formats/ldif_reader.h"
#include "formats/unread_entries.h"

namespace orvik {
namespace {

// The format that the loader of a large book will read, if the book can be read as it comes.
std::optional<Format> FormatOfLarge(const Module1& module, const std::string& name) {
    constexpr std::size_t kLarge = std::size_t{4} << 20U;
    const Ending* const ending = FindEnding(name);
    if (ending == nullptr || module.OpenMode == kAskAlways || module.File1.Length() < kLarge ||
        module.textSep != "\r") {
        return std::nullopt;
    }
    return ending->What;
}

// Whether a book of commas is nothing else for certain: its first line tells.
bool BeginsWithColumns(std::string_view start) {
    const std::string_view line = start.substr(0, start.find('\n'));
    return line.size() < start.size() && line.find(',') != std::string_view::npos &&
           !line.starts_with("From ") && PlainlySomethingElse(start).empty();
}

}  // namespace

void Module1::ReadFile(const std::string& name) {
    read_ahead_ = {};
    const std::optional<Format> large = FormatOfLarge(*this, name);
    if ((large == Format::Netscape4 && ReadLargeLdif()) ||
        (large == Format::Csv && ReadLargeCsv())) {
        return;
    }
    if (large) {
        File1.Rewind();
    }
    WorkText = File1.Read(File1.Length());
}

bool Module1::ReadLargeLdif() {
    // How the books begin that are nothing else for certain.
    constexpr std::string_view kStart = "dn:";
    UnreadEntries left_out;
    LdifReading reading(textSep, &left_out);
    bool is_first = true;
    const bool is_read = File1.ReadPieces([&](std::string_view piece) {
        if (std::exchange(is_first, false) && !piece.starts_with(kStart)) {
            return false;
        }
        reading.Take(piece);
        return true;
    });
    if (is_read) {
        WorkText = std::move(reading).List();
        read_ahead_ = {WorkText.Revision(), left_out.Total(), {}};
    }
    return is_read;
}

bool Module1::ReadLargeCsv() {
    UnreadEntries left_out;
    CsvReading reading(left_out, File1.Length());
    bool is_first = true;
    const bool is_taken = File1.ReadPieces([&](std::string_view piece) {
        const bool begins = !std::exchange(is_first, false) || BeginsWithColumns(piece);
        return begins && reading.Take(piece);
    });
    std::optional<ListedEntries> entries;
    if (is_taken) {
        entries = std::move(reading).Entries();
    }
    if (entries) {
        WorkText = std::move(entries->List);
        read_ahead_ = {WorkText.Revision(), left_out.Total(), std::move(entries->AddressLengths)};
    }
    return entries.has_value();
}

}  // namespace orvik

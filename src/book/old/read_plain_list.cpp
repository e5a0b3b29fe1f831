#include "book/old/read_plain_list.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "book/csv_cells.h"
#include "book/csv_form.h"
#include "book/field_names.h"
#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/old/plain_entry.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Names have no such signs, lines of programs and heads of mail do.
bool IsLikelyName(std::string_view name) {
    constexpr std::size_t kLongest = 100;
    constexpr std::string_view kOdd = ":;=<>{}[]|\\@#$%*+~^`";
    return name.size() <= kLongest && name.find_first_of(kOdd) == std::string_view::npos;
}

// Sentences may end with an address; names are few words, without small ones.
bool IsNoSentence(std::string_view name) {
    constexpr std::ptrdiff_t kMostBlanks = 2;
    char before = ' ';
    for (const char c : name) {
        if (before == ' ' && c >= 'a' && c <= 'z') {
            return false;
        }
        before = c;
    }
    return std::count(name.begin(), name.end(), ' ') <= kMostBlanks;
}

bool IsListedEntry(std::string_view text, const PlainEntry& entry) {
    const auto is_plain = [](std::string_view address) {
        return IsAddressCell(address) && address.find('<') == std::string_view::npos;
    };
    // As the window writes it, whatever the name is; of a page the address is the name.
    if (text.starts_with('"') && text.ends_with('>')) {
        return is_plain(entry.Address) || is_plain(entry.Name);
    }
    return is_plain(entry.Address) && IsLikelyName(entry.Name) &&
           (!entry.Loose || IsNoSentence(entry.Name));
}

// The entry that an entry makes with the one behind it, which rest then moves behind.
std::optional<JoinedEntry> TakeJoined(std::string_view text, std::string_view& rest) {
    // The half of a name has nobody.
    if (!text.ends_with("<>")) {
        return std::nullopt;
    }
    std::string_view behind = rest;
    auto joined = JoinedEntryOf(text, TakePlainEntry(behind));
    rest = joined ? behind : rest;
    return joined;
}

bool IsListed(std::string_view line) {
    if (const auto entry = ListedEntryOf(line)) {
        return IsListedEntry(line, *entry);
    }
    while (!line.empty()) {
        const std::string_view text = WithoutBlanksAround(TakePlainEntry(line));
        if (TakeJoined(text, line)) {
            continue;
        }
        const auto entry = PlainEntryOf(text);
        if (text.empty() && !line.empty()) {
            return false;
        }
        if (!text.empty() && (!entry || !IsListedEntry(text, *entry))) {
            return false;
        }
    }
    return true;
}

class PlainListReader {
 public:
    PlainListReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        const Source& source = book_.SourceAt(file_);
        Line line;
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            std::string_view rest = line.Text;
            if (WithoutBlanksAround(rest).starts_with('#')) {
                entry_.Skip(rest, line.Number, Reason::NotBegun);
                continue;
            }
            if (const auto entry = ListedEntryOf(rest)) {
                rest = WithoutBlanksAround(rest);
                Push(*entry, rest, line.Number);
                continue;
            }
            while (!rest.empty()) {
                const std::string_view text = WithoutBlanksAround(TakePlainEntry(rest));
                if (const auto joined = TakeJoined(text, rest)) {
                    const char* const end =
                        rest.empty() ? line.Text.data() + line.Text.size() : rest.data() - 1;
                    Push(*joined,
                         {text.data(), static_cast<std::size_t>(end - text.data())},
                         line.Number);
                } else {
                    Take(text, line.Number);
                }
            }
        }
    }

 private:
    void Push(const JoinedEntry& joined, std::string_view bytes, std::uint32_t line) {
        const std::string_view name = book_.Keep(joined.Name);
        entry_.Begin(bytes, line, 1, ContactKind::Person, {&bytes, 1});
        const std::string_view letters = entry_.LettersOfName(name, "name");
        entry_.Doubt("name", letters, Reason::PutTogether);
        entry_.PushName(letters, line);
        entry_.Push(field::kEmail, entry_.Letters(joined.Address, "address"), line);
        entry_.End();
    }

    void Take(std::string_view text, std::uint32_t line) {
        constexpr std::string_view kBetween = " \t,;";
        text.remove_prefix(std::min(text.find_first_not_of(kBetween), text.size()));
        if (text.empty()) {
            return;
        }
        const auto entry = PlainEntryOf(text);
        // A word may be an address of one's own host; anything longer is no entry.
        const bool word =
            text.find_first_of(" \t\"<>") == std::string_view::npos && !text.ends_with(':');
        if (!entry && !word) {
            return entry_.Skip(text, line, Reason::NotBegun);
        }
        Push(entry.value_or(PlainEntry{{}, text}), text, line);
    }

    void Push(const PlainEntry& entry, std::string_view text, std::uint32_t line) {
        if (entry.Name.empty() && entry.Address.empty()) {
            return entry_.Skip(text, line, Reason::NotBegun);
        }
        entry_.Begin(text, line, 1, ContactKind::Person, {&text, 1});
        const std::string_view name = entry_.LettersOfName(entry.Name, "name");
        const std::string_view address = entry_.Letters(entry.Address, "address");
        const bool exchanged = entry_.AreExchanged(name, address);
        entry_.PushName(exchanged ? address : name, line);
        if (!address.empty()) {
            entry_.Push(field::kEmail, exchanged ? name : address, line);
        }
        entry_.End();
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
};

}  // namespace

bool IsTable(const Source& source) {
    bool all = true;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); all && lines.Next(line);) {
        const std::string_view text = WithoutBlanksAround(line.Text);
        all = text.empty() || text.starts_with('#') || IsQuotedEntry(text);
    }
    // Names with commas make columns of a list.
    return !all && CsvFormOf(source.Text()).has_value();
}

std::optional<std::string> PlainListEvidence(const Source& source) {
    // What a table is, it is for better reasons.
    if (IsTable(source)) {
        return std::nullopt;
    }
    std::uint32_t first = 0;
    std::size_t listed = 0;
    std::size_t filled = 0;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        const std::string_view text = WithoutBlanksAround(line.Text);
        if (text.empty() || text.starts_with('#')) {
            continue;
        }
        ++filled;
        if ((text.starts_with('"') && IsQuotedEntry(text)) || IsListed(text)) {
            first = listed == 0 ? line.Number : first;
            ++listed;
        }
    }
    if (listed == 0 || 4 * listed < 3 * filled) {
        return std::nullopt;
    }
    return "line " + std::to_string(first) + " begins a list of addresses";
}

void ReadPlainList(Book& book, std::uint32_t file, Charset& charset) {
    PlainListReader(book, file, charset).Read();
}

}  // namespace orvik::book

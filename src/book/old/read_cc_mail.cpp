#include "book/old/read_cc_mail.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/old/keyed_line.h"

namespace orvik::book {
namespace {

constexpr std::string_view kCcMail = "CCMAIL";
constexpr std::array<std::string_view, 4> kCcMailKeys = {"Name", "Locn", "Addr", "Cmts"};

bool IsCcMailKey(std::string_view key) {
    return std::any_of(kCcMailKeys.begin(), kCcMailKeys.end(), [key](std::string_view one) {
        return SameName(one, key);
    });
}

// The last word with an at, without what stands around addresses; empty for none.
//   'Mail01 "Al" <al@example.org> at Internet-Mail' -> "al@example.org"
std::string_view AddressIn(std::string_view text) {
    constexpr std::string_view kAround = " \t\"<>,;()";
    const std::size_t at = text.rfind('@');
    if (at == std::string_view::npos) {
        return {};
    }
    const std::size_t before = text.find_last_of(kAround, at);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(text.find_first_of(kAround, at), text.size());
    return end - begin > 1 ? text.substr(begin, end - begin) : std::string_view{};
}

class CcMailReader {
 public:
    CcMailReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        const Source& source = book_.SourceAt(file_);
        Line line;
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            if (WithoutBlanksAround(line.Text).empty()) {
                continue;
            }
            const auto keyed = KeyedLineOf(line.Text);
            if (keyed && SameName(keyed->Key, "Name")) {
                End();
                begin_ = line.Text.data();
            } else if (rows_.empty()) {
                entry_.Skip(line.Text, line.Number, Reason::NotBegun);
                continue;
            }
            rows_.push_back({line.Text, line.Number, TextRow::kNoColon});
        }
        End();
    }

 private:
    void End() {
        if (rows_.empty()) {
            return;
        }
        std::vector<std::string_view> values;
        values.reserve(rows_.size());
        for (const TextRow& row : rows_) {
            values.push_back(row.Text);
        }
        const std::string_view last = rows_.back().Text;
        const auto length = static_cast<std::size_t>(last.data() + last.size() - begin_);
        entry_.Begin({begin_, length},
                     rows_.front().Number,
                     rows_.back().Number - rows_.front().Number + 1,
                     ContactKind::Person,
                     values);
        has_address_ = std::any_of(rows_.begin(), rows_.end(), [](const TextRow& row) {
            const auto keyed = KeyedLineOf(row.Text);
            return keyed && SameName(keyed->Key, "Addr") && !AddressIn(keyed->Value).empty();
        });
        std::string note;
        std::uint32_t note_line = 0;
        for (const TextRow& row : rows_) {
            const auto keyed = KeyedLineOf(row.Text);
            const bool comment = keyed && SameName(keyed->Key, "Cmts");
            // A comment may go on in lines of its own.
            if (comment || (note_line > 0 && (!keyed || !IsCcMailKey(keyed->Key)))) {
                const std::string_view text =
                    entry_.Letters(comment ? keyed->Value : WithoutBlanksAround(row.Text), "Cmts");
                note += note_line > 0 && !note.empty() ? "\n" : "";
                note += text;
                note_line = note_line > 0 ? note_line : row.Number;
            } else {
                TakeRow(row);
            }
        }
        if (!note.empty()) {
            entry_.PushKept(field::kNote, note, note_line);
        }
        entry_.End();
        rows_.clear();
    }

    void TakeRow(const TextRow& row) {
        const auto keyed = KeyedLineOf(row.Text);
        if (!keyed) {
            const std::string_view text = entry_.Letters(row.Text, {});
            entry_.Doubt({}, text, Reason::NoField);
            return entry_.PushCarried(kCcMail, "no-field", text, row.Number);
        }
        if (keyed->Value.empty()) {
            return;
        }
        if (SameName(keyed->Key, "Name")) {
            return TakeName(keyed->Value, row.Number);
        }
        const std::string_view value = entry_.Letters(keyed->Value, keyed->Key);
        const bool address = SameName(keyed->Key, "Addr");
        const std::string_view found = address ? AddressIn(value) : std::string_view{};
        if (!found.empty()) {
            entry_.Push(field::kEmail, found, row.Number);
        }
        // The post office beside it, and the way there.
        if (found != value) {
            entry_.PushCarried(kCcMail, entry_.Letters(keyed->Key, {}), value, row.Number);
        }
    }

    // Some have nothing but their address, in the place of the name.
    void TakeName(std::string_view bytes, std::uint32_t line) {
        const std::string_view name = entry_.LettersOfName(bytes, "Name");
        const std::string_view found = has_address_ ? std::string_view{} : AddressIn(name);
        if (found != name) {
            entry_.PushName(name, line);
        }
        if (!found.empty()) {
            entry_.Push(field::kEmail, found, line);
        }
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    std::vector<TextRow> rows_;
    const char* begin_ = nullptr;
    bool has_address_ = false;
};

}  // namespace

// Letters may have lines with some of these words, so most lines have to be of them.
std::optional<std::string> CcMailEvidence(const Source& source) {
    std::uint32_t first = 0;
    std::size_t filled = 0;
    std::size_t known = 0;
    bool follows = false;  // a place or an address, right behind a name
    bool named = false;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        if (WithoutBlanksAround(line.Text).empty()) {
            continue;
        }
        ++filled;
        const auto keyed = KeyedLineOf(line.Text);
        const bool name = keyed && SameName(keyed->Key, "Name");
        if (!keyed || !IsCcMailKey(keyed->Key)) {
            named = false;
            continue;
        }
        ++known;
        follows = follows || (named && !name && !SameName(keyed->Key, "Cmts"));
        named = name;
        first = first == 0 && name ? line.Number : first;
    }
    if (!follows || 2 * known <= filled) {
        return std::nullopt;
    }
    return "line " + std::to_string(first) + " begins an entry";
}

void ReadCcMail(Book& book, std::uint32_t file, Charset& charset) {
    CcMailReader(book, file, charset).Read();
}

}  // namespace orvik::book

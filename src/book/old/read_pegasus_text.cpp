#include "book/old/read_pegasus_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/old/mailboxes.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

enum class PegasusField { Name, Firm, Key, Street, Postal, Address, Phone, Fax, Notes, Picture };

// Tagged text first, then what it is called in the text of DOS.
struct PegasusLabel {
    std::string_view Text;
    PegasusField Of;
    bool Own = false;  // nobody else calls it so
};
constexpr std::array kPegasusLabels = {
    PegasusLabel{"Name", PegasusField::Name},
    PegasusLabel{"Of", PegasusField::Firm, true},
    PegasusLabel{"Key", PegasusField::Key, true},
    PegasusLabel{"Street address", PegasusField::Street, true},
    PegasusLabel{"Postal address", PegasusField::Postal, true},
    PegasusLabel{"E-mail address", PegasusField::Address},
    PegasusLabel{"Phone number", PegasusField::Phone},
    PegasusLabel{"Fax number", PegasusField::Fax},
    PegasusLabel{"Notes", PegasusField::Notes},
    PegasusLabel{"Picture", PegasusField::Picture},
    PegasusLabel{"Dept", PegasusField::Firm, true},
    PegasusLabel{"Email", PegasusField::Address},
    PegasusLabel{"Postal", PegasusField::Postal},
    PegasusLabel{"Street", PegasusField::Street},
    PegasusLabel{"Phone", PegasusField::Phone},
    PegasusLabel{"Fax", PegasusField::Fax},
};

struct PegasusRow {
    std::string_view Label;
    std::string_view Value;  // both without blanks around them
    std::uint32_t Number = 0;
    const struct PegasusLabel* Known = nullptr;
};

// Without a label for a line that has none.
PegasusRow PegasusRowOf(const Line& line) {
    const std::size_t colon = line.Text.find(':');
    if (colon == std::string_view::npos) {
        return {{}, WithoutBlanksAround(line.Text), line.Number};
    }
    PegasusRow row{WithoutBlanksAround(line.Text.substr(0, colon)),
                   WithoutBlanksAround(line.Text.substr(colon + 1)),
                   line.Number};
    const auto* const found =
        std::find_if(kPegasusLabels.begin(), kPegasusLabels.end(), [&](const PegasusLabel& one) {
            return one.Text == row.Label;
        });
    row.Known = found == kPegasusLabels.end() ? nullptr : found;
    return row;
}

bool BeginsPegasusEntry(const PegasusRow& row) {
    return row.Known != nullptr && row.Known->Of == PegasusField::Name;
}

bool EndsPegasusEntry(std::string_view line) {
    const std::string_view text = WithoutBlanksAround(line);
    return text.empty() || text == "--";
}

class PegasusReader {
 public:
    PegasusReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        const Source& source = book_.SourceAt(file_);
        Line line;
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            if (EndsPegasusEntry(line.Text)) {
                Finish();
                continue;
            }
            const PegasusRow row = PegasusRowOf(line);
            if (BeginsPegasusEntry(row)) {
                Finish();
                begin_ = line.Text.data();
            } else if (rows_.empty()) {
                entry_.Skip(line.Text, line.Number, Reason::NotBegun);
                continue;
            }
            rows_.push_back(row);
            end_ = line.WithEnd.data() + line.WithEnd.size();
        }
        Finish();
    }

 private:
    void Finish() {
        if (rows_.empty()) {
            return;
        }
        std::vector<std::string_view> values;
        values.reserve(rows_.size());
        for (const PegasusRow& row : rows_) {
            values.push_back(row.Value);
        }
        entry_.Begin({begin_, static_cast<std::size_t>(end_ - begin_)},
                     rows_.front().Number,
                     rows_.back().Number - rows_.front().Number + 1,
                     ContactKind::Person,
                     values);
        for (const PegasusRow& row : rows_) {
            if (row.Known != nullptr && !row.Value.empty()) {
                Take(row);
            } else if (row.Known == nullptr) {
                TakeUnknown(row);
            }
        }
        entry_.End();
        rows_.clear();
    }

    void TakeUnknown(const PegasusRow& row) {
        const std::string_view value = entry_.Letters(row.Value, row.Label);
        if (row.Label.empty()) {
            entry_.Doubt({}, value, Reason::NoField);
        }
        entry_.PushCarried(
            "PEGASUS", row.Label.empty() ? "no-field" : row.Label, value, row.Number);
    }

    void Take(const PegasusRow& row) {
        const bool name = BeginsPegasusEntry(row);
        const std::string_view value = name ? entry_.LettersOfName(row.Value, row.Label)
                                            : entry_.Letters(row.Value, row.Label);
        switch (row.Known->Of) {
            case PegasusField::Name:
                return entry_.PushName(value, row.Number);
            case PegasusField::Firm:
                return entry_.PushWords(field::kOrg, value, row.Number);
            case PegasusField::Key:
                return entry_.PushWords(field::kNickname, value, row.Number);
            case PegasusField::Street:
                return PushPost(value, "work", row.Number);
            case PegasusField::Postal:
                return PushPost(value, "postal", row.Number);
            case PegasusField::Address:
                return PushAddresses(value, row.Number);
            case PegasusField::Phone:
                return entry_.Push(field::kTel, value, row.Number, entry_.Types("voice"));
            case PegasusField::Fax:
                return entry_.Push(field::kTel, value, row.Number, entry_.Types("fax"));
            case PegasusField::Notes:
                return entry_.Push(field::kNote, value, row.Number);
            case PegasusField::Picture:
                // The name of a file, which is never opened.
                return entry_.PushCarried("PEGASUS", row.Label, value, row.Number);
        }
    }

    void PushPost(std::string_view street, std::string_view types, std::uint32_t line) {
        std::string value = ";;";
        AppendEscaped(street, value);
        entry_.PushKept(field::kAdr, value + ";;;;", line, entry_.Types(types));
    }

    // Several by commas; a text that is no row of addresses stays in one piece.
    void PushAddresses(std::string_view value, std::uint32_t line) {
        const std::vector<Mailbox> boxes = MailboxesOf(value);
        const bool all = std::all_of(boxes.begin(), boxes.end(), [](const Mailbox& box) {
            return !box.Address.empty() && box.Name.empty();
        });
        if (boxes.size() < 2 || !all) {
            return entry_.Push(field::kEmail, value, line);
        }
        for (const Mailbox& box : boxes) {
            entry_.PushKept(field::kEmail, box.Address, line);
        }
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    std::vector<PegasusRow> rows_;
    const char* begin_ = nullptr;
    const char* end_ = nullptr;
};

// A text of NULs behind it, in a field of fixed length that is not filled up.
bool IsPaddedText(std::string_view piece) {
    const std::size_t end = piece.find('\0');
    return end != std::string_view::npos && end > 0 &&
           std::none_of(piece.begin(),
                        piece.begin() + static_cast<std::ptrdiff_t>(end),
                        [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

}  // namespace

// An entry that has a name, an address, and three labels in all of which one is Pegasus' own.
std::optional<std::string> PegasusTextEvidence(const Source& source) {
    std::uint32_t begins = 0;
    std::vector<const PegasusLabel*> seen;
    Line line;
    const auto is_entry = [&] {
        return begins > 0 && seen.size() >= 3 &&
               std::any_of(
                   seen.begin(), seen.end(), [](const PegasusLabel* one) { return one->Own; }) &&
               std::any_of(seen.begin(), seen.end(), [](const PegasusLabel* one) {
                   return one->Of == PegasusField::Address;
               });
    };
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        const PegasusRow row = PegasusRowOf(line);
        if (BeginsPegasusEntry(row) || EndsPegasusEntry(line.Text)) {
            if (is_entry()) {
                break;
            }
            begins = BeginsPegasusEntry(row) ? line.Number : 0;
            seen.clear();
        }
        const bool again = std::find(seen.begin(), seen.end(), row.Known) != seen.end();
        if (begins > 0 && row.Known != nullptr && !again) {
            seen.push_back(row.Known);
        }
    }
    return is_entry() ? std::optional("line " + std::to_string(begins) + " begins an entry")
                      : std::nullopt;
}

bool IsPegasusLabel(std::string_view label) {
    return std::any_of(kPegasusLabels.begin(),
                       kPegasusLabels.end(),
                       [label](const PegasusLabel& one) { return one.Text == label; });
}

void ReadPegasusText(Book& book, std::uint32_t file, Charset& charset) {
    PegasusReader(book, file, charset).Read();
}

bool IsPegasusBinary(const Source& source) {
    constexpr std::size_t kHeader = 128;
    constexpr std::size_t kRecord = 458;
    constexpr std::size_t kTitle = 40;
    constexpr std::size_t kFlag = 2;
    constexpr std::size_t kName = 40;
    const std::string_view bytes = source.Bytes();
    const bool padded = bytes.size() >= kHeader && IsPaddedText(bytes.substr(0, kTitle));
    const bool fits = bytes.size() >= kHeader + kRecord &&
                      (bytes.size() - kHeader) % kRecord == 0 &&
                      IsPaddedText(bytes.substr(kHeader + kFlag, kName));
    return padded && (fits || HasEnding(source.Name(), ".pmr"));
}

}  // namespace orvik::book

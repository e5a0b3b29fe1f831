#include "book/old/read_juno.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/text.h"
#include "book/csv_cells.h"
#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/old/keyed_line.h"

namespace orvik::book {
namespace {

constexpr std::string_view kJuno = "JUNO";

bool HasKey(std::string_view line, std::string_view key) {
    const auto keyed = KeyedLineOf(line);
    return keyed && SameName(keyed->Key, key);
}

struct JunoBlock {
    std::vector<TextRow> Rows;
    std::string_view Bytes;
    bool IsList = false;
    bool Deleted = false;
};

// Telephones: the key, and what vCard calls it.
struct JunoPhone {
    std::string_view Key;
    std::string_view Types;
};
constexpr std::array kPhones = {JunoPhone{"Primary Phone", "home"},
                                JunoPhone{"Mobile Phone", "cell"}};

class JunoReader {
 public:
    JunoReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        Line line;
        const Source& source = book_.SourceAt(file_);
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            const bool empty = WithoutBlanksAround(line.Text).empty();
            if (empty || HasKey(line.Text, "Type")) {
                EndBlock();
            }
            if (!empty) {
                const char* const begin =
                    block_.Rows.empty() ? line.WithEnd.data() : block_.Bytes.data();
                const char* const end = line.WithEnd.data() + line.WithEnd.size();
                block_.Bytes = {begin, static_cast<std::size_t>(end - begin)};
                block_.Rows.push_back({line.Text, line.Number, TextRow::kNoColon});
            }
        }
        EndBlock();
        Index();
        for (const JunoBlock& one : blocks_) {
            Take(one);
        }
    }

 private:
    using Places = std::unordered_map<std::string, std::uint32_t>;

    void EndBlock() {
        std::string_view type;
        std::string_view first;
        bool person = false;
        for (const TextRow& row : block_.Rows) {
            const auto keyed = KeyedLineOf(row.Text);
            if (!keyed) {
                continue;
            }
            if (SameName(keyed->Key, "Type")) {
                type = keyed->Value;
            }
            first = SameName(keyed->Key, "Name") ? keyed->Value : first;
            person = person || SameName(keyed->Key, "Email") || SameName(keyed->Key, "Name") ||
                     SameName(keyed->Key, "Alias");
            block_.Deleted =
                block_.Deleted || (SameName(keyed->Key, "Deleted") && keyed->Value == "1");
        }
        block_.IsList = SameName(type, "MList");
        // The version of the book is a block of its own, and no record.
        const bool record = person || block_.IsList || SameName(type, "Entry");
        if (block_.Rows.empty() || (!record && SameName(type, "Version"))) {
            block_ = {};
        } else if (!record || block_.Deleted) {
            entry_.Skip(record ? first : block_.Rows.front().Text,
                        block_.Rows.front().Number,
                        record ? Reason::Deleted : Reason::NotBegun);
            block_ = {};
        } else {
            blocks_.push_back(std::move(block_));
            block_ = {};
        }
    }

    // Lists name their members by alias, address or name; the first one is meant.
    void Index() {
        for (const JunoBlock& one : blocks_) {
            const std::uint32_t line = one.Rows.front().Number;
            for (const TextRow& row : one.Rows) {
                const auto keyed = KeyedLineOf(row.Text);
                if (!keyed || keyed->Value.empty()) {
                    continue;
                }
                Places* const places = SameName(keyed->Key, "Alias")   ? &by_alias_
                                       : SameName(keyed->Key, "Email") ? &by_address_
                                       : SameName(keyed->Key, "Name")  ? &by_name_
                                                                       : nullptr;
                if (places != nullptr) {
                    places->emplace(ToLower(keyed->Value), line);
                }
            }
        }
    }

    void Take(const JunoBlock& block) {
        std::vector<std::string_view> values;
        values.reserve(block.Rows.size());
        for (const TextRow& row : block.Rows) {
            values.push_back(row.Text);
        }
        const std::uint32_t first = block.Rows.front().Number;
        entry_.Begin(block.Bytes,
                     first,
                     block.Rows.back().Number - first + 1,
                     block.IsList ? ContactKind::List : ContactKind::Person,
                     values);
        named_ = false;
        exchanged_ = AreExchanged(block);
        street_.clear();
        street_line_ = 0;
        for (const TextRow& row : block.Rows) {
            if (const auto keyed = KeyedLineOf(row.Text)) {
                TakeField(block, *keyed, row.Number);
            } else {
                const std::string_view text = entry_.Letters(row.Text, {});
                entry_.Doubt({}, text, Reason::NoField);
                entry_.PushCarried(kJuno, "no-field", text, row.Number);
            }
        }
        if (street_line_ > 0) {
            entry_.PushKept(
                field::kAdr, ";;" + street_ + ";;;;", street_line_, entry_.Types("home"));
        }
        entry_.End();
    }

    bool AreExchanged(const JunoBlock& block) {
        std::string_view name;
        std::string_view address;
        for (const TextRow& row : block.Rows) {
            if (const auto keyed = KeyedLineOf(row.Text)) {
                name = SameName(keyed->Key, "Name") && name.empty() ? keyed->Value : name;
                address = SameName(keyed->Key, "Email") && address.empty() ? keyed->Value : address;
            }
        }
        return !block.IsList && entry_.AreExchanged(name, address);
    }

    void TakeField(const JunoBlock& block, const KeyedLine& keyed, std::uint32_t line) {
        const auto is = [&keyed](std::string_view key) { return SameName(keyed.Key, key); };
        if (keyed.Value.empty() || is("Type") || (is("Deleted") && keyed.Value == "0")) {
            return TakeType(keyed, line);
        }
        if (is(exchanged_ ? "Email" : "Name") && !named_) {
            return TakeName(block, entry_.LettersOfName(keyed.Value, keyed.Key), line);
        }
        const std::string_view value = entry_.Letters(keyed.Value, keyed.Key);
        const auto* const phone = std::find_if(
            kPhones.begin(), kPhones.end(), [&is](const JunoPhone& one) { return is(one.Key); });
        if (is("Email") || (exchanged_ && is("Name"))) {
            entry_.Push(field::kEmail, value, line);
        } else if (is("Alias")) {
            entry_.PushWords(field::kNickname, value, line);
        } else if (phone != kPhones.end()) {
            entry_.Push(field::kTel, value, line, entry_.Types(phone->Types));
        } else if (is("Birth")) {
            TakeBirthday(value, line);
        } else if (is("Address")) {
            street_ += street_line_ > 0 ? "," : "";
            AppendEscaped(value, street_);
            street_line_ = street_line_ > 0 ? street_line_ : line;
        } else if (is("Member") && block.IsList) {
            TakeMember(keyed.Value, value, line);
        } else {
            entry_.PushCarried(kJuno, entry_.Letters(keyed.Key, {}), value, line);
        }
    }

    // Those that Juno is not known to write tell something.
    void TakeType(const KeyedLine& keyed, std::uint32_t line) {
        constexpr std::array<std::string_view, 3> kKnown = {"Entry", "MList", "Version"};
        if (SameName(keyed.Key, "Type") && !keyed.Value.empty() &&
            std::none_of(kKnown.begin(), kKnown.end(), [&keyed](std::string_view one) {
                return SameName(one, keyed.Value);
            })) {
            entry_.PushCarried(kJuno, "Type", entry_.Letters(keyed.Value, "Type"), line);
        }
    }

    void TakeName(const JunoBlock& block, std::string_view name, std::uint32_t line) {
        named_ = true;
        if (block.IsList) {
            entry_.Push(field::kFn, name, line);
        } else {
            entry_.PushName(name, line);
        }
    }

    // People type it as they like, so only what can mean one date is one.
    void TakeBirthday(std::string_view value, std::uint32_t line) {
        const FoundOrder order = OrderOf({&value, 1}, DateOrder::MonthFirst);
        const std::string date = order.Certain ? IsoDate(value, order.Order) : std::string();
        if (!date.empty()) {
            return entry_.PushKept(field::kBday, date, line);
        }
        const std::array params = {Param{field::kValue, "text"}};
        entry_.Push(field::kBday, value, line, book_.KeepDetails({}, params));
    }

    void TakeMember(std::string_view bytes, std::string_view value, std::uint32_t line) {
        const std::string key = ToLower(bytes);
        for (const Places* const places : {&by_alias_, &by_address_, &by_name_}) {
            const auto found = places->find(key);
            if (found != places->end()) {
                return entry_.PushMemberAt(found->second, line);
            }
        }
        const bool address = value.find('@') != std::string_view::npos;
        entry_.PushMember(address ? value : std::string_view{}, value, line);
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    JunoBlock block_;
    std::vector<JunoBlock> blocks_;
    Places by_alias_;
    Places by_address_;
    Places by_name_;
    // Of the entry that is being read.
    bool named_ = false;
    bool exchanged_ = false;  // the name and the address
    std::string street_;
    std::uint32_t street_line_ = 0;
};

}  // namespace

std::optional<std::string> JunoEvidence(const Source& source) {
    constexpr std::array<std::string_view, 3> kTypes = {"Entry", "MList", "Version"};
    constexpr std::array<std::string_view, 6> kKeys = {
        "Name", "Email", "Alias", "Member", "Version", "Deleted"};
    // Without a type the ending has to say it.
    constexpr std::array<std::string_view, 2> kOwnKeys = {"Email", "Alias"};
    const bool named = ToLower(source.Name()).ends_with(".nv");
    bool typed = false;
    std::uint32_t type_line = 0;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        const auto keyed = KeyedLineOf(line.Text);
        const auto is_of = [&keyed](const auto& names, std::string_view text) {
            return keyed && std::any_of(names.begin(), names.end(), [text](std::string_view one) {
                       return SameName(one, text);
                   });
        };
        if (keyed && SameName(keyed->Key, "Type")) {
            typed = is_of(kTypes, keyed->Value);
            type_line = line.Number;
        } else if (keyed &&
                   (typed ? is_of(kKeys, keyed->Key) : named && is_of(kOwnKeys, keyed->Key))) {
            return "line " + std::to_string(typed ? type_line : line.Number) + " begins an entry";
        } else if (WithoutBlanksAround(line.Text).empty()) {
            typed = false;
        }
    }
    return std::nullopt;
}

void ReadJuno(Book& book, std::uint32_t file, Charset& charset) {
    JunoReader(book, file, charset).Read();
}

}  // namespace orvik::book

#include "book/old/read_pine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "app/text.h"
#include "book/lines.h"
#include "book/member_names.h"
#include "book/old/encoded_words.h"
#include "book/old/entry_builder.h"
#include "book/old/mailboxes.h"
#include "book/old/nicknames.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kPineDeleted = "#DELETED-";
constexpr std::size_t kPineFields = 5;

// A line, and those that begin with a blank behind it.
struct PineEntry {
    std::string_view Bytes;
    std::uint32_t Line = 0;
    std::uint32_t Lines = 0;
    std::array<std::string_view, kPineFields> Fields;  // without blanks around them
    std::size_t Tabs = 0;
    std::string Joined;  // what the fields stand in where there are several lines

    [[nodiscard]] std::string_view Nickname() const { return Fields[0]; }
    [[nodiscard]] std::string_view Name() const { return Fields[1]; }
    [[nodiscard]] std::string_view Address() const { return Fields[2]; }
    [[nodiscard]] bool IsComment() const {
        return Bytes.starts_with("# ") || Bytes.starts_with("#\n") || Bytes.starts_with("#\r");
    }
    [[nodiscard]] bool IsDeleted() const { return StartsAsName(Nickname(), kPineDeleted); }
    [[nodiscard]] bool HasParentheses() const { return Address().starts_with('('); }
    // Whether it goes on behind a tab, as entries of nothing else do.
    [[nodiscard]] bool IsBroken() const {
        const std::size_t end = std::min(Bytes.find_first_of("\r\n"), Bytes.size());
        return Lines > 1 && Bytes.substr(0, end).ends_with('\t');
    }
};

class PineEntries {
 public:
    explicit PineEntries(const Source& source) : lines_(source.Text(), source.Signs().Cr) {}

    bool Next(PineEntry& entry) {
        while (has_line_ || lines_.Next(line_)) {
            has_line_ = false;
            // An entry may begin with a tab alone, and go on behind it.
            const bool blank = line_.Text.find('\t') == std::string_view::npos &&
                               WithoutBlanksAround(line_.Text).empty();
            if (!blank && TakeEntry(entry)) {
                return true;
            }
        }
        return false;
    }

 private:
    // Whether it has anything.
    bool TakeEntry(PineEntry& entry) {
        entry.Line = line_.Number;
        entry.Lines = 1;
        entry.Joined.clear();
        std::string_view text = line_.Text;
        const char* const begin = text.data();
        const char* end = line_.WithEnd.data() + line_.WithEnd.size();
        while ((has_line_ = lines_.Next(line_)) && line_.Text.starts_with(' ')) {
            // The end of the line and the blanks count as one.
            entry.Joined.append(entry.Lines == 1 ? text : "").append(" ");
            entry.Joined.append(
                line_.Text.substr(std::min(line_.Text.find_first_not_of(' '), line_.Text.size())));
            end = line_.WithEnd.data() + line_.WithEnd.size();
            ++entry.Lines;
        }
        entry.Bytes = {begin, static_cast<std::size_t>(end - begin)};
        Split(entry.Lines == 1 ? text : entry.Joined, entry);
        return std::any_of(entry.Fields.begin(), entry.Fields.end(), [](std::string_view one) {
            return !one.empty();
        });
    }

    static void Split(std::string_view text, PineEntry& entry) {
        entry.Tabs = 0;
        for (std::size_t i = 0; i < kPineFields; ++i) {
            // The last one has all that is left.
            const std::size_t tab = i + 1 < kPineFields ? text.find('\t') : std::string_view::npos;
            entry.Fields[i] = WithoutBlanksAround(text.substr(0, tab));
            entry.Tabs += tab != std::string_view::npos ? 1U : 0U;
            text.remove_prefix(tab == std::string_view::npos ? text.size() : tab + 1);
        }
    }

    Lines lines_;
    Line line_;
    bool has_line_ = false;
};

std::vector<Mailbox> MailboxesIn(std::string_view address) {
    if (address.starts_with('(')) {
        address.remove_prefix(1);
        address.remove_suffix(address.ends_with(')') ? 1 : 0);
    }
    return MailboxesOf(address);
}

// Some programs write several addresses of a person as a list.
bool IsOnePerson(const std::vector<Mailbox>& boxes, std::string_view name) {
    return !boxes.empty() && !name.empty() &&
           std::all_of(boxes.begin(), boxes.end(), [name](const Mailbox& box) {
               return box.Name == name && !box.Address.empty();
           });
}

class PineReader {
 public:
    PineReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        PineEntry entry;
        for (PineEntries entries(book_.SourceAt(file_)); entries.Next(entry);) {
            if (!entry.IsComment() && !entry.IsDeleted() && entry.Tabs > 0) {
                Index(entry);
            }
        }
        for (PineEntries entries(book_.SourceAt(file_)); entries.Next(entry);) {
            if (entry.IsComment()) {
                continue;
            }
            if (entry.IsDeleted() || entry.Tabs == 0) {
                Skip(entry, entry.IsDeleted() ? Reason::Deleted : Reason::NotBegun);
            } else if (!further_.contains(entry.Line)) {
                Take(entry);
            }
        }
    }

 private:
    // A person of one address, and the further addresses.
    struct Single {
        std::uint32_t Line = 0;
        std::string Name;
        std::vector<std::string> More;
    };

    // "gus-2" behind "gus" is a second address of gus, if all else is equal: an entry has one.
    void Index(const PineEntry& entry) {
        const std::vector<Mailbox> boxes = MailboxesIn(entry.Address());
        const bool single = boxes.size() == 1 && !entry.HasParentheses() &&
                            !boxes[0].Address.empty() && !entry.Name().empty();
        const auto found = single ? singles_.find(BaseOf(entry)) : singles_.end();
        if (found != singles_.end() && found->second.Name == entry.Name() &&
            boxes[0].Name.empty()) {
            found->second.More.push_back(boxes[0].Address);
            further_.insert(entry.Line);
            nicknames_.Add(entry.Nickname(), found->second.Line);
            return;
        }
        nicknames_.Add(entry.Nickname(), entry.Line);
        if (single && !entry.Nickname().empty()) {
            singles_.try_emplace(NicknameKey(entry.Nickname()),
                                 Single{entry.Line, std::string(entry.Name()), {}});
        }
    }

    // Empty for a nickname that ends with no number, and for an entry that says more.
    static std::string BaseOf(const PineEntry& entry) {
        const std::string_view nickname = entry.Nickname();
        const std::size_t hyphen = nickname.rfind('-');
        const bool numbered =
            hyphen != std::string_view::npos && hyphen + 1 < nickname.size() &&
            nickname.find_first_not_of("0123456789", hyphen + 1) == std::string_view::npos;
        return numbered && entry.Fields[3].empty() && entry.Fields[4].empty()
                   ? NicknameKey(nickname.substr(0, hyphen))
                   : std::string();
    }

    void PushFurther(const PineEntry& entry) {
        const auto found = singles_.find(NicknameKey(entry.Nickname()));
        if (found != singles_.end() && found->second.Line == entry.Line) {
            for (const std::string& one : found->second.More) {
                entry_.PushKept(field::kEmail, one, entry.Line);
            }
        }
    }

    void Skip(const PineEntry& entry, Reason why) {
        const std::string_view line =
            entry.Bytes.substr(0, entry.Bytes.find_last_not_of("\r\n") + 1);
        entry_.Skip(line, entry.Line, why);
    }

    // A field as letters. Those of an entry of several lines stand in no source.
    std::string_view Letters(const PineEntry& entry, std::size_t number, std::string_view name) {
        std::string_view raw = entry.Fields[number];
        raw = entry.Lines > 1 ? book_.Keep(raw) : raw;
        return number == 1 ? entry_.LettersOfName(raw, name) : entry_.Letters(raw, name);
    }

    std::string_view Field(const PineEntry& entry, std::size_t number, std::string_view name) {
        const std::string_view text = Letters(entry, number, name);
        return HasEncodedWords(text) ? book_.Keep(DecodedWords(text)) : text;
    }

    // What is encoded parts no addresses, as the comma of a name would.
    std::vector<Mailbox> Boxes(const PineEntry& entry) {
        std::vector<Mailbox> boxes = MailboxesIn(Letters(entry, 2, "address"));
        for (Mailbox& box : boxes) {
            box.Name = DecodedWords(box.Name);
            box.Address = DecodedWords(box.Address);
        }
        return boxes;
    }

    void Take(const PineEntry& entry) {
        const std::vector<Mailbox> raw = MailboxesIn(entry.Address());
        const bool nickname =
            raw.size() == 1 && raw[0].Address.empty() && nicknames_.Has(raw[0].Name);
        const bool list = (entry.HasParentheses() || raw.size() > 1 || nickname) &&
                          !IsOnePerson(raw, entry.Name());
        entry_.Begin(entry.Bytes,
                     entry.Line,
                     entry.Lines,
                     list ? ContactKind::List : ContactKind::Person,
                     {&entry.Bytes, 1});
        if (!entry.Nickname().empty()) {
            entry_.PushWords(field::kNickname, Field(entry, 0, "nickname"), entry.Line);
        }
        const std::vector<Mailbox> boxes = Boxes(entry);
        PushName(entry, boxes, list);
        if (list) {
            nicknames_.PushMembers(entry_, boxes, entry.Line);
        } else {
            for (const Mailbox& box : boxes) {
                // Without an at it is somebody of the same machine.
                entry_.PushKept(
                    field::kEmail, box.Address.empty() ? box.Name : box.Address, entry.Line);
            }
            PushFurther(entry);
        }
        if (!entry.Fields[3].empty()) {
            entry_.PushCarried("PINE", "fcc", Field(entry, 3, "fcc"), entry.Line);
        }
        if (!entry.Fields[4].empty()) {
            entry_.Push(field::kNote, Field(entry, 4, "comment"), entry.Line);
        }
        entry_.End();
    }

    // In quotes the comma of a name does not part it.
    void PushName(const PineEntry& entry, const std::vector<Mailbox>& boxes, bool list) {
        std::string_view name = Field(entry, 1, "fullname");
        if (name.empty() && !list && boxes.size() == 1 && !boxes[0].Address.empty()) {
            name = book_.Keep(boxes[0].Name);
        }
        const bool quoted = name.size() > 2 && name.starts_with('"') && name.ends_with('"');
        name = quoted ? name.substr(1, name.size() - 2) : name;
        if (name.empty()) {
            return;
        }
        if (list || quoted) {
            return entry_.Push(field::kFn, name, entry.Line);
        }
        entry_.PushName(name, entry.Line);
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    Nicknames nicknames_;
    std::unordered_map<std::string, Single> singles_;
    std::unordered_set<std::uint32_t> further_;  // by line
};

// What a nickname of pine never has.
bool IsPineNickname(std::string_view text) {
    return text.find_first_of(" ,@\";:()[]<>\\") == std::string_view::npos;
}

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// What other tables with tabs do not have.
bool IsOfPine(const PineEntry& entry) {
    return entry.HasParentheses() || entry.Lines > 1 || HasEncodedWords(entry.Name()) ||
           entry.Name().find(',') != std::string_view::npos;
}

bool IsCalledPine(const std::string& file) {
    const std::string name = ToLower(file.substr(file.find_last_of("/\\") + 1));
    return name.find("addressbook") != std::string::npos ||
           name.find("addrbook") != std::string::npos || name.find("pine") != std::string::npos;
}

}  // namespace

std::optional<std::string> PineEvidence(const Source& source) {
    std::uint32_t first = 0;
    std::size_t count = 0;
    std::size_t names = 0;
    std::size_t addresses = 0;
    bool signs = IsCalledPine(source.Name());
    bool certain = false;
    bool odd = false;
    PineEntry entry;
    for (PineEntries entries(source); entries.Next(entry);) {
        if (entry.IsComment() || entry.IsDeleted()) {
            signs = signs || entry.IsDeleted();
            continue;
        }
        const bool address =
            entry.HasParentheses() || entry.Address().find('@') != std::string_view::npos;
        if (entry.Tabs < 2 || !IsPineNickname(entry.Nickname())) {
            return std::nullopt;
        }
        certain = certain || entry.IsBroken();
        const bool number = IsNumber(entry.Nickname());
        const bool words = !address && entry.Address().find(' ') != std::string_view::npos;
        // The header of a table has no address.
        const bool header = first == 0 && !address && !IsCalledPine(source.Name());
        odd = odd || number || words || header;
        first = first == 0 ? entry.Line : first;
        signs = signs || IsOfPine(entry);
        ++count;
        addresses += address ? 1U : 0U;
        names += entry.Name().find(' ') != std::string_view::npos ? 1U : 0U;
    }
    const bool likely = 2 * addresses >= count && (signs || 2 * names >= count);
    if (count == 0 || (!certain && (odd || !likely))) {
        return std::nullopt;
    }
    return "line " + std::to_string(first) + " begins an entry";
}

void ReadPine(Book& book, std::uint32_t file, Charset& charset) {
    PineReader(book, file, charset).Read();
}

}  // namespace orvik::book

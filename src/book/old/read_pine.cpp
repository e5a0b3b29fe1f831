#include "book/old/read_pine.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "app/text.h"
#include "book/member_names.h"
#include "book/old/encoded_words.h"
#include "book/old/entry_builder.h"
#include "book/old/mailboxes.h"
#include "book/old/nicknames.h"
#include "book/old/pine_entries.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

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

    void DoubtOdd(const PineEntry& entry) {
        if (!IsPineNickname(entry.Nickname())) {
            entry_.Doubt("nickname", Field(entry, 0, "nickname"), Reason::OddSigns);
        }
        if (entry.Tabs == 1) {
            entry_.Doubt({}, Field(entry, 1, "fullname"), Reason::FewParts);
        }
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
        DoubtOdd(entry);
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

// Whether a file has the name that the program gives it.
bool IsNamedByPine(const std::string& file) {
    const std::string name = ToLower(file.substr(file.find_last_of("/\\") + 1));
    return name == ".addressbook" || name == "addressbook" || name == "addrbook";
}

// Looks for what entries of pine have, and for what they never have.
class PineJudge {
 public:
    explicit PineJudge(const Source& source)
        : source_(source), called_(IsCalledPine(source.Name())), signs_(called_) {}

    std::optional<std::string> Run() {
        PineEntry entry;
        for (PineEntries entries(source_); entries.Next(entry);) {
            if (entry.IsComment() || entry.IsDeleted()) {
                signs_ = signs_ || entry.IsDeleted();
                continue;
            }
            first_ = first_ == 0 && entry.Tabs > 0 ? entry.Line : first_;
            if (entry.Tabs >= 2 && IsPineNickname(entry.Nickname())) {
                Take(entry);
            } else {
                TakeOdd(entry);
            }
        }
        const bool found = IsNamedByPine(source_.Name()) ? IsLikelyByName() : IsLikely();
        return found ? std::optional("line " + std::to_string(first_) + " begins an entry")
                     : std::nullopt;
    }

 private:
    static bool HasAddress(const PineEntry& entry) {
        return entry.HasParentheses() || entry.Address().find('@') != std::string_view::npos;
    }

    void Take(const PineEntry& entry) {
        const bool address = HasAddress(entry);
        certain_ = certain_ || entry.IsBroken();
        continued_ = continued_ || (entry.HasParentheses() && entry.Lines > 1);
        const bool words = !address && entry.Address().find(' ') != std::string_view::npos;
        // The header of a table has no address.
        const bool header = count_ == 0 && !address && !called_;
        other_ = other_ || IsNumber(entry.Nickname()) || words || header;
        signs_ = signs_ || IsOfPine(entry);
        ++count_;
        addresses_ += address ? 1U : 0U;
        names_ += entry.Name().find(' ') != std::string_view::npos ? 1U : 0U;
    }

    // What the program would not write.
    void TakeOdd(const PineEntry& entry) {
        const bool address = entry.Tabs >= 2 && HasAddress(entry);
        odd_addresses_ += address ? 1U : 0U;
        ++(entry.Tabs > 0 ? odd_ : strange_);
    }

    [[nodiscard]] bool IsLikelyByName() const {
        return addresses_ + odd_addresses_ > 0 && strange_ <= count_ + odd_;
    }

    // A few lines may be odd where the others can be nothing else.
    [[nodiscard]] bool IsLikely() const {
        const std::size_t odd = odd_ + strange_;
        const bool clear = certain_ || continued_;
        const bool few =
            odd == 0 || (clear ? 2 * odd <= count_ : 10 * odd <= count_ && 2 * names_ >= count_);
        const bool likely = 2 * addresses_ >= count_ && (signs_ || 2 * names_ >= count_);
        return count_ > 0 && few && (certain_ || (!other_ && likely));
    }

    const Source& source_;
    bool called_;
    bool signs_;
    bool certain_ = false;    // no other program writes such entries
    bool continued_ = false;  // a list goes on in another line
    bool other_ = false;      // there is what another program would write
    std::uint32_t first_ = 0;
    std::size_t count_ = 0;      // of entries without fault
    std::size_t addresses_ = 0;  // in these
    std::size_t names_ = 0;      // of several words, in these
    std::size_t odd_ = 0;        // other lines with a tab
    std::size_t odd_addresses_ = 0;
    std::size_t strange_ = 0;  // lines without a tab
};

}  // namespace

std::optional<std::string> PineEvidence(const Source& source) {
    return PineJudge(source).Run();
}

void ReadPine(Book& book, std::uint32_t file, Charset& charset) {
    PineReader(book, file, charset).Read();
}

}  // namespace orvik::book

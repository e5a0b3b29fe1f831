#include "book/old/read_eudora.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/text.h"
#include "book/lines.h"
#include "book/old/alias_lines.h"
#include "book/old/entry_builder.h"
#include "book/old/eudora_note.h"
#include "book/old/mailboxes.h"
#include "book/old/nicknames.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr char kEudoraLineEnd = '\x03';

struct EudoraKnown {
    std::string_view Name;
    NameId Field;
    std::string_view Types = {};
};
constexpr std::array kEudoraFields = {
    EudoraKnown{"title", field::kTitle},
    EudoraKnown{"phone", field::kTel, "home"},
    EudoraKnown{"fax", field::kTel, "home fax"},
    EudoraKnown{"mobile", field::kTel, "home cell"},
    EudoraKnown{"web", field::kUrl, "home"},
    EudoraKnown{"phone2", field::kTel, "work"},
    EudoraKnown{"fax2", field::kTel, "work fax"},
    EudoraKnown{"mobile2", field::kTel, "work cell"},
    EudoraKnown{"web2", field::kUrl, "work"},
    EudoraKnown{"otheremail", field::kEmail},
    EudoraKnown{"otherphone", field::kTel},
    EudoraKnown{"otherweb", field::kUrl},
    EudoraKnown{"email", field::kEmail},
};
// Those of the second address end in 2.
constexpr std::array<std::string_view, 5> kEudoraPost = {
    "address", "city", "state", "zip", "country"};

struct EudoraPart {
    std::string_view Text;
    std::uint32_t Line = 0;
};

// All lines about a nickname.
struct EudoraEntry {
    std::string_view Nickname;
    std::string_view Bytes;  // its first line
    std::uint32_t Line = 0;
    std::uint32_t Lines = 0;
    std::vector<EudoraPart> Addresses;
    std::vector<EudoraPart> Notes;
};

class EudoraEntries {
 public:
    // The lines about a nickname, which may be there already. Without one, each line is for itself.
    EudoraEntry& Of(std::string_view nickname, std::string_view bytes, std::uint32_t line) {
        if (!nickname.empty()) {
            const auto [place, is_new] = places_.try_emplace(ToLower(nickname), all_.size());
            if (!is_new) {
                return all_[place->second];
            }
        }
        all_.push_back({nickname, bytes, line, 1, {}, {}});
        return all_.back();
    }
    [[nodiscard]] const std::deque<EudoraEntry>& All() const { return all_; }

 private:
    std::deque<EudoraEntry> all_;
    std::unordered_map<std::string, std::size_t> places_;
};

// "<ada>" as a whole line.
std::string_view OldTag(std::string_view line) {
    line = WithoutBlanksAround(line);
    return line.size() > 2 && line.front() == '<' && line.back() == '>'
               ? line.substr(1, line.size() - 2)
               : std::string_view{};
}

// The line that begins the oldest form, and the one behind it; 0 for any other file.
std::uint32_t OldFormBegins(const Source& source) {
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        if (!line.Text.empty()) {
            const std::uint32_t number = line.Number;
            return !OldTag(line.Text).empty() && lines.Next(line) && line.Text.starts_with('>')
                       ? number
                       : 0;
        }
    }
    return 0;
}

std::string WithLineFeeds(std::string_view text) {
    std::string lines(text);
    std::replace(lines.begin(), lines.end(), kEudoraLineEnd, '\n');
    return lines;
}

class EudoraReader {
 public:
    EudoraReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        const Source& source = book_.SourceAt(file_);
        if (OldFormBegins(source) > 0) {
            CollectOld(source);
        } else {
            Collect(source);
        }
        for (const EudoraEntry& one : entries_.All()) {
            nicknames_.Add(one.Nickname, one.Line);
        }
        for (const EudoraEntry& one : entries_.All()) {
            Take(one);
        }
    }

 private:
    void Collect(const Source& source) {
        Line line;
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            std::string_view rest = WithoutBlanksAround(line.Text);
            const std::string_view word = TakeWord(rest, false);
            const bool note = SameName(word, "note");
            if (word.empty()) {
                continue;
            }
            const bool known = note || SameName(word, "alias");
            const bool quoted = rest.starts_with('"');
            const std::string_view nickname = known ? TakeWord(rest, true) : std::string_view{};
            if (!known || (nickname.empty() && (!quoted || rest.empty()))) {
                entry_.Skip(line.Text, line.Number, Reason::NotBegun);
                continue;
            }
            EudoraEntry& entry = entries_.Of(nickname, line.WithEnd, line.Number);
            (note ? entry.Notes : entry.Addresses).push_back({rest, line.Number});
        }
    }

    // A second block of the same nickname is its note.
    void CollectOld(const Source& source) {
        EudoraEntry* entry = nullptr;
        bool note = false;
        Line line;
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            if (const auto tag = OldTag(line.Text); !tag.empty()) {
                entry = &entries_.Of(tag, line.WithEnd, line.Number);
                note = entry->Line != line.Number;
            } else if (line.Text.empty()) {
                continue;
            } else if (entry == nullptr) {
                entry_.Skip(line.Text, line.Number, Reason::NotBegun);
            } else {
                const std::string_view text = line.Text.substr(line.Text.starts_with('>') ? 1 : 0);
                (note ? entry->Notes : entry->Addresses).push_back({text, line.Number});
            }
        }
    }

    void Take(const EudoraEntry& entry) {
        std::vector<std::string_view> values = {entry.Nickname};
        std::size_t count = 0;
        bool word = false;
        for (const EudoraPart& part : entry.Addresses) {
            values.push_back(part.Text);
            for (const Mailbox& box : MailboxesOf(part.Text)) {
                ++count;
                word = word || box.Address.empty();
            }
        }
        for (const EudoraPart& part : entry.Notes) {
            values.push_back(part.Text);
        }
        list_ = count > 1 || word;
        entry_.Begin(entry.Bytes,
                     entry.Line,
                     entry.Lines,
                     list_ ? ContactKind::List : ContactKind::Person,
                     values);
        if (!entry.Nickname.empty()) {
            entry_.PushWords(
                field::kNickname, entry_.Letters(entry.Nickname, "nickname"), entry.Line);
        }
        first_ = last_ = name_ = beside_ = {};
        post_ = {};
        TakeAddresses(entry);
        TakeNotes(entry);
        entry_.End();
    }

    void TakeAddresses(const EudoraEntry& entry) {
        for (const EudoraPart& part : entry.Addresses) {
            const auto boxes = MailboxesOf(entry_.LettersOfName(part.Text, "alias"));
            if (list_) {
                nicknames_.PushMembers(entry_, boxes, part.Line);
                continue;
            }
            for (const Mailbox& box : boxes) {
                entry_.PushKept(
                    field::kEmail, box.Address.empty() ? box.Name : box.Address, part.Line);
                beside_ = {book_.Keep(box.Name), part.Line};
            }
        }
    }

    void TakeNotes(const EudoraEntry& entry) {
        std::string text;
        for (const EudoraPart& part : entry.Notes) {
            const std::string_view letters = entry_.Letters(part.Text, "note");
            const EudoraNote note = EudoraNoteOf(letters);
            for (const EudoraField& field : note.Fields) {
                TakeField(field, part.Line);
            }
            text.append(text.empty() || note.Text.empty() ? "" : "\n")
                .append(WithLineFeeds(note.Text));
        }
        PushNames(entry.Line);
        PushPost("home", 0);
        PushPost("work", kEudoraPost.size());
        if (!text.empty()) {
            entry_.PushKept(field::kNote, text, entry.Notes.front().Line);
        }
    }

    void TakeField(const EudoraField& field, std::uint32_t line) {
        const std::string name = ToLower(field.Name);
        const std::string value(WithoutBlanksAround(WithLineFeeds(field.Value)));
        if (value.empty()) {
            return;
        }
        EudoraPart* const part = PartOf(name);
        if (part != nullptr && part->Text.empty()) {
            *part = {book_.Keep(value), line};
        } else if (name == "company") {
            entry_.PushWords(field::kOrg, book_.Keep(value), line);
        } else if (const auto* const known =
                       std::find_if(kEudoraFields.begin(),
                                    kEudoraFields.end(),
                                    [&name](const EudoraKnown& one) { return one.Name == name; });
                   known != kEudoraFields.end()) {
            PushKnown(*known, value, line);
        } else {
            entry_.PushCarried("EUDORA", field.Name, book_.Keep(value), line);
        }
    }

    // More of a kind stand in one field.
    void PushKnown(const EudoraKnown& known, std::string_view value, std::uint32_t line) {
        const bool several = known.Name.starts_with("other");
        while (!value.empty()) {
            const std::size_t end =
                several ? std::min(value.find_first_of(",\n"), value.size()) : value.size();
            const std::string_view one = WithoutBlanksAround(value.substr(0, end));
            if (!one.empty()) {
                std::string text(one);
                if (known.Field == field::kUrl) {
                    // It is kept on one line.
                    text.clear();
                    AppendOneLine(one, text);
                }
                entry_.PushKept(known.Field, text, line, entry_.Types(known.Types));
            }
            value.remove_prefix(std::min(end + 1, value.size()));
        }
    }

    // What is put together when all fields are known; null for a field of its own.
    EudoraPart* PartOf(std::string_view name) {
        if (name == "name" || name == "first" || name == "last") {
            return name == "name" ? &name_ : name == "first" ? &first_ : &last_;
        }
        const bool second = name.ends_with('2');
        const auto* const found = std::find(kEudoraPost.begin(),
                                            kEudoraPost.end(),
                                            second ? name.substr(0, name.size() - 1) : name);
        if (found == kEudoraPost.end()) {
            return nullptr;
        }
        const auto place = static_cast<std::size_t>(found - kEudoraPost.begin());
        return &post_[place + (second ? kEudoraPost.size() : 0)];
    }

    // What the user says counts more than the name beside the address.
    void PushNames(std::uint32_t line) {
        const bool named = !name_.Text.empty() || !first_.Text.empty() || !last_.Text.empty();
        if (!named) {
            name_ = beside_;
        } else if (!beside_.Text.empty() && beside_.Text != name_.Text) {
            entry_.PushCarried("EUDORA", "alias-name", beside_.Text, beside_.Line);
        }
        if (first_.Text.empty() && last_.Text.empty()) {
            if (!name_.Text.empty() && !list_) {
                entry_.PushName(name_.Text, name_.Line);
            } else if (!name_.Text.empty()) {
                entry_.Push(field::kFn, name_.Text, name_.Line);
            }
            return;
        }
        std::string parts;
        AppendEscaped(last_.Text, parts);
        parts += ';';
        AppendEscaped(first_.Text, parts);
        std::string both(first_.Text);
        both.append(first_.Text.empty() || last_.Text.empty() ? "" : " ").append(last_.Text);
        entry_.PushKept(field::kFn, std::string(name_.Text.empty() ? both : name_.Text), line);
        entry_.PushKept(field::kN, parts + ";;;", line);
    }

    void PushPost(std::string_view types, std::size_t from) {
        std::string value = ";";
        std::uint32_t line = 0;
        for (std::size_t i = from; i < from + kEudoraPost.size(); ++i) {
            value += ';';
            AppendEscaped(post_[i].Text, value);
            line = line == 0 ? post_[i].Line : line;
        }
        if (line > 0) {
            entry_.PushKept(field::kAdr, value, line, entry_.Types(types));
        }
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    EudoraEntries entries_;
    Nicknames nicknames_;

    // Of the entry that is being read.
    bool list_ = false;
    EudoraPart name_;
    EudoraPart beside_;  // beside the address
    EudoraPart first_;
    EudoraPart last_;
    std::array<EudoraPart, 2 * kEudoraPost.size()> post_{};
};

}  // namespace

std::optional<std::string> EudoraEvidence(const Source& source) {
    if (const std::uint32_t line = OldFormBegins(source); line > 0) {
        return "line " + std::to_string(line) + " begins a nickname";
    }
    return AliasEvidence(source, AliasBook::Eudora);
}

void ReadEudora(Book& book, std::uint32_t file, Charset& charset) {
    EudoraReader(book, file, charset).Read();
}

}  // namespace orvik::book

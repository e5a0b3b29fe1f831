#include "book/old/write_mutt.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "book/identity.h"
#include "book/members.h"
#include "book/old/encoded_words.h"
#include "book/old/entry_keys.h"
#include "book/old/fitting.h"
#include "book/old/mailboxes.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Signs that no short name may have: they mean something in settings or in addresses.
constexpr std::string_view kNoKey = " ,\"'#;`$\\<>()@:=/|";
// Those that settings take for themselves.
constexpr std::string_view kEscaped = "\\`'\"$#;";

void AppendEscapedSetting(std::string_view text, std::string& to) {
    for (const char c : text) {
        to += kEscaped.find(c) != std::string_view::npos ? "\\" : "";
        to += c;
    }
}

// Whether an address may stand without brackets, and in a short name.
bool IsPlainAddress(std::string_view address) {
    constexpr std::string_view kOdd = " ,\"'#;`$\\<>():[]";
    return address.find('@') != std::string_view::npos &&
           address.find_first_of(kOdd) == std::string_view::npos;
}

void AppendAddress(std::string_view name, std::string_view address, std::string& to) {
    if (name.empty() && IsPlainAddress(address)) {
        return AppendEscapedSetting(address, to);
    }
    if (!name.empty()) {
        // What looks encoded would be decoded.
        AppendEscapedSetting(
            QuotedPhrase(HasEncodedWords(name) ? EncodedWords(name) : std::string(name)), to);
        to += ' ';
    }
    to += '<';
    AppendEscapedSetting(address, to);
    to += '>';
}

// One word of the letters of short names.
bool IsWord(std::string_view word) {
    return !word.empty() && word.find_first_of(kNoKey) == std::string_view::npos;
}

// A comment that is read as it is: words parted by one blank each, without tags and without a
// backslash at the end, which would go on with the next line.
std::string Comment(std::string_view note) {
    std::string comment;
    while (!note.empty()) {
        const std::size_t end = std::min(note.find(' '), note.size());
        std::string word(note.substr(0, end));
        note.remove_prefix(std::min(end + 1, note.size()));
        if (word.starts_with("tags:")) {
            word.insert(4, " ");
        }
        comment.append(comment.empty() || word.empty() ? "" : " ").append(word);
    }
    while (comment.ends_with('\\')) {
        comment.back() = '/';
    }
    return comment;
}

class MuttWriter {
 public:
    explicit MuttWriter(Book& book)
        : book_(book),
          identities_(book),
          directory_(book, identities_),
          entry_(book, {.Own = "MUTT"}),
          keys_(book, kNoKey) {}

    std::string Write() {
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            keys_.Make(i);
        }
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            entry_.Begin(book_.Contacts[i]);
            if (book_.Contacts[i].Kind == ContactKind::List) {
                WriteList(i);
            } else {
                WritePerson(i);
            }
            static_cast<void>(entry_.Rest({}));
            book_.CountWritten(i + 1);
        }
        return std::move(text_);
    }

 private:
    void Begin(std::string_view key) {
        text_ += "alias ";
        for (const std::string& group : groups_) {
            text_.append("-group ").append(group).append(" ");
        }
        text_.append(key).append(" ");
    }

    void EndWithNote() {
        // The notes of all lines are one.
        const Property* const note = entry_.Next(field::kNote);
        const std::string line = note == nullptr ? "" : OneLine(note->Value);
        const std::string comment = Comment(line);
        if (note != nullptr && comment != line) {
            entry_.Doubt(*note, Reason::ChangedSigns);
        } else if (note != nullptr) {
            static_cast<void>(entry_.Take(*note));
        }
        text_.append(comment.empty() ? "" : " # ").append(comment).append("\n");
    }

    void WritePerson(std::size_t record) {
        const auto addresses = entry_.Addresses();
        if (addresses.empty()) {
            return entry_.LoseAll(Reason::NoAddress);
        }
        groups_ = entry_.TakeWords(field::kCategories, Fitting::kAny, IsWord);
        const std::string name = entry_.TakeName();
        const std::string& key = keys_.Of(record);
        TakeNicknames(entry_, keys_.WhyOther(record));
        for (const Property* const one : addresses) {
            const std::string address = OneLine(one->Value);
            if (one == addresses.front()) {
                Begin(key);
                AppendAddress(name, address, text_);
                TakeAddress(*one, address);
                EndWithNote();
                groups_.clear();
                continue;
            }
            // As other programs write them for mutt.
            const bool joined =
                !name.empty() && IsPlainAddress(address) && key.find("__") == std::string::npos;
            Begin(joined ? std::string(key).append("__").append(address) : keys_.Next(record));
            AppendAddress(name, address, text_);
            text_ += '\n';
            entry_.Carry(*one);
        }
    }

    // Brackets in an address would end it.
    void TakeAddress(const Property& one, std::string_view address) {
        if (MailboxOf("<" + std::string(address) + ">").Address == address) {
            entry_.Keep(one, address);
        } else {
            entry_.Doubt(one, Reason::ChangedSigns);
        }
    }

    // What an alias of several calls a member; empty for one who has no place there.
    std::string Named(const ListMember& member) const {
        std::string text;
        if (member.Record != ListMember::kNobody) {
            const bool list = book_.Contacts[member.Record].Kind == ContactKind::List;
            return list || HasAddress(member) ? keys_.Of(member.Record) : text;
        }
        if (!member.Address.empty()) {
            AppendAddress(OneLine(member.Name), OneLine(member.Address), text);
        } else if (IsWord(member.Name)) {
            text = member.Name;
        }
        return text;
    }

    static bool HasAddress(const ListMember& member) { return !member.Address.empty(); }

    void WriteList(std::size_t record) {
        const Contact& list = book_.Contacts[record];
        std::string members;
        std::size_t count = 0;
        for (const ListMember& member : directory_.MembersOf(list)) {
            const std::string named = Named(member);
            if (named.empty()) {
                TellLostMember(book_, list, member);
                continue;
            }
            members.append(members.empty() ? "" : ", ").append(named);
            TellMember(book_, list, *member.Field, member);
            book_.Told.CountMore(What::Kept);
            ++count;
        }
        if (members.empty()) {
            return entry_.LoseAll(Reason::Empty);
        }
        const bool alone = count == 1 && members.find('@') != std::string::npos;
        groups_ = entry_.TakeWords(field::kCategories, Fitting::kAny, IsWord);
        TellName(record, alone);
        TakeNicknames(entry_, keys_.WhyOther(record));
        Begin(keys_.Of(record));
        text_ += members;
        EndWithNote();
    }

    // A list is called by its short name alone.
    void TellName(std::size_t record, bool alone) {
        const Property* const name = entry_.Next(field::kFn);
        if (name == nullptr) {
            return;
        }
        if (alone) {
            // One address is a person to whoever reads it.
            entry_.Doubt(*name, Reason::NoLists);
        } else if (WithoutBlanksAround(name->Value) == keys_.Of(record)) {
            entry_.Keep(*name, name->Value);
        } else {
            entry_.Lose(*name, Reason::NotInTarget);
        }
    }

    Book& book_;
    Identities identities_;
    Directory directory_;
    Fitting entry_;
    EntryKeys keys_;
    std::vector<std::string> groups_;
    std::string text_;
};

}  // namespace

std::string WriteMutt(Book& book) {
    return MuttWriter(book).Write();
}

}  // namespace orvik::book

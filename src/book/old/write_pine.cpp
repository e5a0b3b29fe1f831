#include "book/old/write_pine.h"

#include <array>
#include <string_view>
#include <vector>

#include "book/identity.h"
#include "book/members.h"
#include "book/old/encoded_words.h"
#include "book/old/entry_keys.h"
#include "book/old/fitting.h"
#include "book/old/mailboxes.h"

namespace orvik::book {
namespace {

constexpr std::string_view kNoNickname = " ,@\";:()[]<>\\";

// A name before an address.
std::string Phrase(std::string_view name) {
    std::string encoded = EncodedWords(name);
    const bool plain = encoded == name;
    constexpr std::string_view kSpecial = ",;:@()[]<>\\\".";
    if (!plain || name.find_first_of(kSpecial) == std::string_view::npos) {
        return encoded;
    }
    return QuotedPhrase(name);
}

std::string Box(std::string_view name, std::string_view address) {
    std::string box = name.empty() ? std::string() : Phrase(name) + " <";
    box += address;
    return box + (name.empty() ? "" : ">");
}

class PineWriter {
 public:
    explicit PineWriter(Book& book)
        : book_(book),
          identities_(book),
          directory_(book, identities_),
          entry_(book, {.Own = "PINE"}),
          keys_(book, kNoNickname) {}

    std::string Write() {
        NameInnerLists();
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
    // What stands between tabs, in pieces between which a line may end.
    using Fields = std::array<std::vector<std::string>, 5>;

    // Lists are members by their nicknames alone.
    void NameInnerLists() {
        for (const Contact& contact : book_.Contacts) {
            for (const ListMember& member : directory_.MembersOf(contact)) {
                const std::size_t record = member.Record;
                if (record != ListMember::kNobody &&
                    (book_.Contacts[record].Kind == ContactKind::List || member.Address.empty())) {
                    keys_.Make(record);
                }
            }
        }
    }

    // A line of a hundred letters ends behind a tab or a member.
    void Append(const Fields& fields) {
        constexpr std::size_t kLongest = 100;
        std::size_t length = 0;
        std::size_t last = 0;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            last = fields[i].empty() ? last : i;
        }
        // An entry without an address has its tab, too.
        last = last < 2 ? 2 : last;
        const auto add = [&](const std::string& piece) {
            if (length > 0 && length + piece.size() > kLongest && !piece.empty()) {
                text_ += "\n   ";
                length = 3;
            }
            text_ += piece;
            length += piece.size();
        };
        for (std::size_t i = 0; i <= last; ++i) {
            for (const std::string& piece : fields[i]) {
                add(piece);
            }
            if (i < last) {
                text_ += '\t';
                ++length;
            }
        }
        text_ += '\n';
    }

    // A long text ends lines between its words.
    static std::vector<std::string> Words(std::string_view text) {
        constexpr std::size_t kLongest = 500;
        std::vector<std::string> pieces;
        std::string encoded = EncodedWords(text);
        std::string_view rest = encoded;
        while (rest.size() > kLongest) {
            const std::size_t blank = rest.rfind(' ', kLongest);
            if (blank == std::string_view::npos || blank == 0) {
                break;
            }
            pieces.emplace_back(rest.substr(0, blank));
            rest.remove_prefix(blank + 1);
        }
        if (!rest.empty()) {
            pieces.emplace_back(rest);
        }
        return pieces;
    }

    void TakeOthers(std::size_t record, Fields& fields) {
        TakeNicknames(entry_, keys_.IsOwn(record));
        fields[0] = {keys_.Of(record)};
        for (const Property* const one : entry_.OwnFields()) {
            if (entry_.OwnFieldOf(*one) == "fcc" && fields[3].empty()) {
                fields[3] = {EncodedWords(entry_.Take(*one))};
            }
        }
        fields[4] = Words(entry_.TakeNotes(" "));
    }

    void WritePerson(std::size_t record) {
        Fields fields;
        const auto addresses = entry_.Addresses();
        const bool no_parts = entry_.Next(field::kN) == nullptr;
        const std::string name = entry_.TakeName();
        if (addresses.size() > 1) {
            keys_.Make(record);
        }
        TakeOthers(record, fields);
        // In quotes the comma of a name does not part it.
        const bool quoted = no_parts && name.find(',') != std::string::npos;
        fields[1] = {EncodedWords(quoted ? "\"" + name + "\"" : name)};
        if (!addresses.empty()) {
            fields[2] = {entry_.Take(*addresses.front())};
        }
        Append(fields);
        for (std::size_t i = 1; i < addresses.size(); ++i) {
            Fields more;
            more[0] = {keys_.Next(record)};
            more[1] = fields[1];
            more[2] = {OneLine(addresses[i]->Value)};
            entry_.Carry(*addresses[i]);
            Append(more);
        }
    }

    void WriteList(std::size_t record) {
        const Contact& list = book_.Contacts[record];
        Fields fields;
        const std::string name = entry_.TakeListName();
        TakeOthers(record, fields);
        fields[1] = {EncodedWords(name)};
        std::vector<std::string>& members = fields[2];
        for (const ListMember& member : directory_.MembersOf(list)) {
            std::string named = Named(member, name);
            if (named.empty()) {
                TellLostMember(book_, list, member);
                continue;
            }
            if (!members.empty()) {
                members.back() += ',';
            }
            members.push_back(std::move(named));
            TellMember(book_, list, *member.Field, member);
            book_.Told.CountMore(What::Kept);
        }
        if (members.empty()) {
            members.emplace_back();
        }
        members.front().insert(0, "(");
        members.back() += ')';
        Append(fields);
    }

    // A member by its nickname, else by its address, without the name that would make a person of
    // the list.
    std::string Named(const ListMember& member, std::string_view list) {
        if (member.Record != ListMember::kNobody && !keys_.Of(member.Record).empty()) {
            return keys_.Of(member.Record);
        }
        const std::string name = OneLine(member.Name);
        if (!member.Address.empty()) {
            return Box(name == list ? std::string_view{} : name, OneLine(member.Address));
        }
        return member.Record == ListMember::kNobody ? Phrase(name) : std::string();
    }

    Book& book_;
    Identities identities_;
    Directory directory_;
    Fitting entry_;
    EntryKeys keys_;
    std::string text_;
};

}  // namespace

std::string WritePine(Book& book) {
    return PineWriter(book).Write();
}

}  // namespace orvik::book

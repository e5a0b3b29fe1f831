#include "book/old/write_pine.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "book/identity.h"
#include "book/members.h"
#include "book/old/encoded_words.h"
#include "book/old/entry_keys.h"
#include "book/old/fitting.h"
#include "book/old/mailboxes.h"
#include "book/old/read_pine.h"
#include "book/typed_views.h"
#include "book/value_form.h"

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
        if (!PineEvidence(Source({}, text_))) {
            BreakEntry();
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

    // An entry that goes on behind a tab tells the book from a table. What it begins with must not
    // be an empty line.
    void BreakEntry() {
        for (std::size_t at = 0; at < text_.size();) {
            const std::size_t name = text_.find('\t', at);
            const std::size_t address = text_.find('\t', name + 1);
            const std::string_view begin = std::string_view(text_).substr(at, address - at);
            if (!WithoutBlanksAround(begin).empty()) {
                text_.insert(address + 1, "\n   ");
                return;
            }
            at = std::min(text_.find('\n', at), text_.size() - 1) + 1;
        }
    }

    // A line of a hundred letters ends behind a tab or a member.
    void Append(const Contact& contact, const Fields& fields) {
        constexpr std::size_t kLongest = 100;
        constexpr std::size_t kMost = 990;  // of a line, for the program
        bool long_line = false;
        std::size_t length = 0;
        bool filled = false;  // no line is of blanks alone, which begins and ends entries
        std::size_t last = 0;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            last = fields[i].empty() ? last : i;
        }
        // An entry without an address has its tab, too.
        last = last < 2 ? 2 : last;
        const auto add = [&](const std::string& piece) {
            if (filled && length + piece.size() > kLongest && !piece.empty()) {
                text_ += "\n   ";
                length = 3;
            }
            text_ += piece;
            length += piece.size();
            filled = filled || !piece.empty();
            long_line = long_line || length > kMost;
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
        if (long_line) {
            book_.Told.Add({book_.Names.Text(field::kFn),
                            book_.Keep(NameOf(book_, contact).Shown),
                            contact.From.File,
                            contact.From.Line,
                            FieldNames::kNone,
                            What::Doubtful,
                            Reason::TooLarge});
        }
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
        TakeNicknames(entry_, keys_.WhyOther(record));
        fields[0] = {keys_.Of(record)};
        const auto folder = [](std::string_view field, std::string_view /*line*/) {
            return field == "fcc";
        };
        if (const auto folders = entry_.OwnFields(folder); !folders.empty()) {
            fields[3] = {EncodedWords(entry_.Take(*folders.front()))};
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
        // In quotes the comma of a name does not part it, and its own quotes stay.
        const bool own_quotes = name.size() > 2 && name.starts_with('"') && name.ends_with('"');
        const bool quoted = own_quotes || (no_parts && name.find(',') != std::string::npos);
        fields[1] = Words(quoted ? "\"" + name + "\"" : name);
        if (!addresses.empty()) {
            fields[2] = {OneLine(addresses.front()->Value)};
            TakeAddress(*addresses.front());
        }
        Append(book_.Contacts[record], fields);
        for (std::size_t i = 1; i < addresses.size(); ++i) {
            Fields more;
            more[0] = {keys_.Next(record)};
            more[1] = fields[1];
            more[2] = {OneLine(addresses[i]->Value)};
            entry_.Carry(*addresses[i]);
            Append(book_.Contacts[record], more);
        }
    }

    // Commas and brackets would make others of an address.
    void TakeAddress(const Property& one) {
        const std::string address = OneLine(one.Value);
        const std::vector<Mailbox> boxes = MailboxesOf(address);
        const bool host = boxes.size() == 1 && boxes[0].Name == address;
        if (IsAddressAlone(address) || (host && !address.starts_with('('))) {
            static_cast<void>(entry_.Take(one));
        } else {
            entry_.Doubt(one, Reason::ChangedSigns);
        }
    }

    void WriteList(std::size_t record) {
        const Contact& list = book_.Contacts[record];
        Fields fields;
        const std::string name = entry_.TakeListName();
        TakeOthers(record, fields);
        fields[1] = Words(name);
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
        Append(book_.Contacts[record], fields);
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

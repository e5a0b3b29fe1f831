#include "book/old/write_netscape3.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "book/identity.h"
#include "book/members.h"
#include "book/old/fitting.h"
#include "book/old/page_writer.h"

namespace orvik::book {
namespace {

constexpr std::string_view kPageHead =
    "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n"
    "<!-- This is an automatically generated file.\r\n"
    "It will be read and overwritten.\r\n"
    "Do Not Edit! -->\r\n"
    "<TITLE>Address Book</TITLE>\r\n"
    "<H1>Address Book</H1>\r\n"
    "\r\n"
    "<DL><p>\r\n";
constexpr std::string_view kPageIndent = "    ";
constexpr std::string_view kMailLink = "mailto:";

// The program takes no other letters.
bool IsPlainNickname(std::string_view word) {
    return std::all_of(word.begin(), word.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    });
}

// Whether an attribute is read as what it is. What a copy of an entry says otherwise than the entry
// is none; numbers are other ones here.
bool IsAttribute(std::string_view field, std::string_view /*line*/) {
    constexpr std::array<std::string_view, 5> kKnown = {
        "HREF", "NICKNAME", "ALIASID", "ALIASOF", "FOLDED"};
    return !field.empty() && !StartsAsName(field, "copy-") &&
           field.find_first_of(" \t\"'=<>&/") == std::string_view::npos &&
           std::none_of(kKnown.begin(), kKnown.end(), [field](std::string_view one) {
               return SameName(one, field);
           });
}

class Netscape3Writer {
 public:
    explicit Netscape3Writer(Book& book)
        : book_(book),
          identities_(book),
          directory_(book, identities_),
          entry_(book, {.Own = "NETSCAPE3", .Notes = true}),
          numbers_(book.Contacts.size()) {}

    std::string Write() {
        text_ = kPageHead;
        Number();
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == ContactKind::Person) {
                WritePerson(i);
            }
        }
        // Readers that know no folders have read all people by then.
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == ContactKind::List) {
                WriteList(i);
            }
            book_.CountWritten(i + 1);
        }
        text_ += "</DL><p>\r\n";
        return std::move(text_);
    }

 private:
    struct Inner {
        std::string Name;
        std::string Address;
    };

    // Numbers count in the order in which entries stand; who is in a list is noted down.
    void Number() {
        std::size_t next = 0;
        for (const ContactKind kind : {ContactKind::Person, ContactKind::List}) {
            for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
                if (book_.Contacts[i].Kind == kind) {
                    numbers_[i] = std::to_string(next++);
                }
            }
        }
        for (const Contact& contact : book_.Contacts) {
            for (const ListMember& member : directory_.MembersOf(contact)) {
                if (member.Record != ListMember::kNobody) {
                    inner_.try_emplace(member.Record);
                }
            }
        }
    }

    void AppendAttribute(std::string_view name, std::string_view value) {
        text_.append(" ").append(name).append("=\"");
        page_.Append(value, text_);
        text_ += '"';
    }

    void AppendLink(std::string_view address) {
        text_.append("<DT><A HREF=\"").append(kMailLink);
        page_.AppendAddress(address, text_);
        text_ += '"';
    }

    // Attributes behind the number: the nickname, and what the format does not know.
    void AppendOthers() {
        const auto nicknames = entry_.TakeWords(field::kNickname, 1, IsPlainNickname);
        if (!nicknames.empty()) {
            AppendAttribute("NICKNAME", nicknames.front());
        }
        for (const Property* const one : entry_.OwnFields(IsAttribute)) {
            AppendAttribute(entry_.OwnFieldOf(*one), entry_.Take(*one));
        }
    }

    void WritePerson(std::size_t record) {
        const Contact& contact = book_.Contacts[record];
        entry_.Begin(contact);
        const std::vector<const Property*> addresses = entry_.Addresses();
        const std::string name = entry_.TakeNameOrNickname();
        const std::string address = addresses.empty() ? "" : entry_.Take(*addresses.front());
        if (inner_.contains(record)) {
            inner_[record] = {name, address};
        }
        text_ += kPageIndent;
        AppendLink(address);
        AppendAttribute("ALIASID", numbers_[record]);
        AppendOthers();
        text_ += '>';
        page_.Append(name, text_);
        text_ += "</A>\r\n";
        AppendNotes();
    }

    // Readers of old keep a book up to its last note, so each entry has one.
    void AppendNotes() {
        std::string notes = entry_.TakeNotes("\n");
        const std::string rest = entry_.Rest("\n");
        notes.append(notes.empty() || rest.empty() ? "" : "\n").append(rest);
        text_.append(kPageIndent).append("<DD>");
        std::string_view lines = notes;
        while (!lines.empty()) {
            const std::size_t end = std::min(lines.find('\n'), lines.size());
            page_.Append(lines.substr(0, end), text_);
            lines.remove_prefix(std::min(end + 1, lines.size()));
            text_ += lines.empty() ? "" : "<BR>\r\n";
        }
        text_ += "\r\n";
    }

    void WriteList(std::size_t record) {
        const Contact& contact = book_.Contacts[record];
        entry_.Begin(contact);
        const std::string name = entry_.TakeListName();
        text_.append(kPageIndent).append("<DT><H3");
        // Whoever is in no other folder needs no number.
        if (inner_.contains(record)) {
            AppendAttribute("ALIASID", numbers_[record]);
        }
        AppendOthers();
        text_ += '>';
        page_.Append(name, text_);
        text_ += "</H3>\r\n";
        AppendNotes();
        text_.append(kPageIndent).append("<DL><p>\r\n");
        for (const ListMember& member : directory_.MembersOf(contact)) {
            WriteMember(contact, member);
        }
        text_.append(kPageIndent).append("</DL><p>\r\n");
    }

    void WriteMember(const Contact& list, const ListMember& member) {
        const bool found = member.Record != ListMember::kNobody;
        const bool inner = found && book_.Contacts[member.Record].Kind == ContactKind::List;
        text_.append(kPageIndent).append(kPageIndent);
        if (inner) {
            text_ += "<DT><H3";
        } else {
            AppendLink(found ? inner_[member.Record].Address : OneLine(member.Address));
        }
        if (found) {
            AppendAttribute("ALIASOF", numbers_[member.Record]);
        }
        text_ += '>';
        page_.Append(found && !inner ? inner_[member.Record].Name : OneLine(member.Name), text_);
        text_ += inner ? "</H3>\r\n" : "</A>\r\n";
        TellMember(book_, list, *member.Field, member);
        book_.Told.CountMore(What::Kept);
    }

    Book& book_;
    Identities identities_;
    Directory directory_;
    Fitting entry_;
    PageWriter page_;
    // Who is in a list, by number, as the own entry has it.
    std::unordered_map<std::size_t, Inner> inner_;
    std::vector<std::string> numbers_;  // by record
    std::string text_;
};

}  // namespace

std::string WriteNetscape3(Book& book) {
    return Netscape3Writer(book).Write();
}

}  // namespace orvik::book

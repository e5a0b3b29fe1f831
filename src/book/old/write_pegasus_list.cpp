#include "book/old/write_pegasus_list.h"

#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "book/csv_lists.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/old/quoted_box.h"
#include "book/old/read_pegasus_list.h"
#include "book/typed_views.h"

namespace orvik::book {
namespace {

bool IsSetting(std::string_view field, std::string_view /*line*/) {
    return !field.empty() && IsListKeyword(field);
}

class PegasusListWriter {
 public:
    explicit PegasusListWriter(Book& book)
        : book_(book),
          identities_(book),
          directory_(book, identities_),
          entry_(book, {.Own = "PML", .Windows = true}) {}

    std::string Write() {
        if (const Contact* const list = TheList(); list != nullptr) {
            WriteList(*list);
        } else {
            // Tells that they are lost.
            const CsvLists lists(book_, directory_, Reason::NotAlone);
            for (const Contact& contact : book_.Contacts) {
                WritePerson(contact);
            }
        }
        book_.CountWritten(book_.Contacts.size());
        std::string bytes;
        Windows1252().Append(text_, bytes);
        return bytes;
    }

 private:
    // The only list, if everybody is in it: nobody else can be in the file.
    const Contact* TheList() const {
        const Contact* list = nullptr;
        std::size_t lists = 0;
        for (const Contact& contact : book_.Contacts) {
            if (contact.Kind == ContactKind::List) {
                list = &contact;
                ++lists;
            }
        }
        if (lists != 1 || OneLine(NameOf(book_, *list).Shown).empty()) {
            return nullptr;
        }
        std::unordered_set<std::size_t> members;
        for (const ListMember& member : directory_.MembersOf(*list)) {
            if (member.Record != ListMember::kNobody && &book_.Contacts[member.Record] != list) {
                members.insert(member.Record);
            }
        }
        // The list itself counts as no member of it, also where it says so.
        return members.size() + 1 == book_.Contacts.size() ? list : nullptr;
    }

    void WriteList(const Contact& list) {
        entry_.Begin(list);
        text_.append("\\TITLE ").append(entry_.TakeListName()).append("\r\n");
        for (const Property* const one : entry_.OwnFields(IsSetting)) {
            const std::string value = entry_.Take(*one);
            text_.append("\\").append(entry_.OwnFieldOf(*one));
            text_.append(value.empty() ? "" : " ").append(value).append("\r\n");
        }
        static_cast<void>(entry_.Rest({}));
        std::unordered_set<std::size_t> written;
        for (const ListMember& member : directory_.MembersOf(list)) {
            if (member.Record == ListMember::kNobody) {
                // A name, or a list in another file.
                std::string line = OneLine(member.Name);
                if (!member.Address.empty()) {
                    const std::string name = std::exchange(line, {});
                    AppendBox(name, OneLine(member.Address), line);
                }
                line = OneLine(line);
                const bool fits = member.Address.empty() || FitsBox(OneLine(member.Address));
                if (!fits || line.starts_with('\\') || !IsListMember(line)) {
                    TellLostMember(book_, list, member);
                    continue;
                }
                text_.append(line).append("\r\n");
                TellMember(book_, list, *member.Field, member);
            } else if (written.insert(member.Record).second) {
                WritePerson(book_.Contacts[member.Record]);
            }
            book_.Told.CountMore(What::Kept);
        }
    }

    void WritePerson(const Contact& contact) {
        if (contact.Kind == ContactKind::Person) {
            entry_.Begin(contact);
            // Backslashes are taken for signs that make the next one a letter.
            AppendBoxes(entry_, "\"\\", text_);
            static_cast<void>(entry_.Rest({}));
        }
    }

    Book& book_;
    Identities identities_;
    Directory directory_;
    Fitting entry_;
    std::string text_;
};

}  // namespace

std::string WritePegasusList(Book& book) {
    return PegasusListWriter(book).Write();
}

}  // namespace orvik::book

#include "book/csv_lists.h"

#include <unordered_set>

#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Lists in lists can name one member very often; time and length have to stay linear.
constexpr std::size_t kMostInner = 1'000'000;

bool IsMember(NameId name) {
    return name == field::kMember || name == field::kServerMember;
}

// What makes a list one, and what is written as its label.
bool IsOfListItself(const Book& book, const Property& one) {
    switch (one.Name) {
        case field::kFn:
        case field::kN:
        case field::kUid:
        case field::kRev:
        case field::kProdId:
        case field::kVersion:
        case field::kKind:
        case field::kServerKind:
        case field::kEvolutionList:
            return true;
        default:
            break;
    }
    const std::string_view name = book.Names.Text(one.Name);
    return SameName(name, "X-ORVIK-LDIF-dn") || SameName(name, "X-ORVIK-LDIF-objectclass") ||
           WithoutBlanksAround(one.Value).empty();
}

}  // namespace

CsvLists::CsvLists(Book& book, const Directory& directory, Reason lost)
    : book_(book), left_(kMostInner) {
    for (std::size_t i = 0; i < book.Contacts.size(); ++i) {
        const Contact& contact = book.Contacts[i];
        if (contact.Kind != ContactKind::List) {
            continue;
        }
        book.TellLosses(contact);
        const std::string_view name = book.Keep(NameOf(book, contact).Shown);
        if (lost != Reason::None || WithoutBlanksAround(name).empty()) {
            const Reason why = lost == Reason::None ? Reason::NoName : lost;
            Tell(contact, field::kFn, name, What::Lost, why);
            continue;
        }
        list_of_.emplace(i, lists_.size());
        lists_.push_back({i, name, {}});
        names_.push_back(name);
    }
    for (const auto& list : lists_) {
        Read(list.Record, directory);
    }
    for (const List& list : lists_) {
        Label(list);
    }
}

void CsvLists::Tell(
    const Contact& list, NameId name, std::string_view value, What what, Reason why) {
    book_.Told.Add({book_.Names.Text(name),
                    value,
                    list.From.File,
                    list.From.Line,
                    FieldNames::kNone,
                    what,
                    why});
}

void CsvLists::Read(std::size_t record, const Directory& directory) {
    const Contact& contact = book_.Contacts[record];
    List& list = lists_[list_of_.at(record)];
    std::unordered_set<const Property*> members;
    for (const ListMember& member : directory.MembersOf(contact)) {
        members.insert(member.Field);
        const Property& one = *member.Field;
        if (member.Record == ListMember::kNobody) {
            Tell(contact, one.Name, one.Value, What::Lost, Reason::NotFound);
            continue;
        }
        list.Members.push_back(member.Record);
        if (book_.Contacts[member.Record].Kind == ContactKind::List) {
            Tell(contact, one.Name, one.Value, What::Carried, Reason::ListInList);
        } else {
            book_.Told.CountMore(What::Kept);
        }
    }
    for (const Property& one : contact.Properties) {
        if (!members.contains(&one) && !IsOfListItself(book_, one) && !IsMember(one.Name)) {
            Tell(contact, one.Name, one.Value, What::Lost, Reason::NotInTarget);
        }
    }
}

// Each person is given the label once, however many ways lead there.
void CsvLists::Label(const List& list) {
    std::vector<std::size_t> open = {list.Record};
    std::unordered_set<std::size_t> seen = {list.Record};
    bool any = false;
    while (!open.empty()) {
        const std::size_t record = open.back();
        open.pop_back();
        const auto inner = list_of_.find(record);
        if (inner == list_of_.end()) {
            continue;
        }
        for (const std::size_t member : lists_[inner->second].Members) {
            if (!seen.insert(member).second) {
                continue;
            }
            const bool own = record == list.Record;
            if (!own && left_ == 0) {
                Tell(book_.Contacts[list.Record],
                     field::kFn,
                     list.Name,
                     What::Lost,
                     Reason::ListInList);
                return;
            }
            left_ -= own ? 0 : 1;
            if (book_.Contacts[member].Kind == ContactKind::List) {
                open.push_back(member);
            } else {
                labels_[member].push_back(list.Name);
                any = true;
            }
        }
    }
    if (!any) {
        Tell(book_.Contacts[list.Record], field::kFn, list.Name, What::Lost, Reason::Empty);
    }
}

std::span<const std::string_view> CsvLists::Of(std::size_t record) const {
    const auto found = labels_.find(record);
    return found == labels_.end() ? std::span<const std::string_view>{} : found->second;
}

}  // namespace orvik::book

#include "book/members.h"

#include <algorithm>
#include <utility>

#include "app/text.h"
#include "book/ldif_dn.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kMailto = "mailto:";

}  // namespace

// Names of records in LDIF begin with an attribute.
bool IsDn(std::string_view reference) {
    const std::size_t equal = reference.find('=');
    return equal != std::string_view::npos && equal > 0 && reference.find_first_of(" ,@:") > equal;
}

bool IsNamedMember(const Book& book, const Property& member) {
    return SameName(ParamOf(book, member, field::kValue), "text");
}

void TellMember(Book& book, const Contact& list, const Property& field, const ListMember& member) {
    const bool found = member.Record != ListMember::kNobody;
    if (found ? !member.Shared : book.IsLeftOut(field)) {
        return;
    }
    book.Told.Add({book.Names.Text(field.Name),
                   IsNamedMember(book, field) ? book.Keep(Unescaped(field.Value)) : field.Value,
                   list.From.File,
                   list.From.Line,
                   FieldNames::kNone,
                   found ? What::Doubtful : What::Skipped,
                   found ? Reason::SharedName : Reason::NotFound});
}

std::string DnOfContact(const Book& book, const Contact& contact) {
    const NameId dn = book.Names.Find("X-ORVIK-LDIF-dn");
    const std::string_view own = dn == FieldNames::kNone ? "" : FirstOf(book, contact, dn);
    if (!own.empty()) {
        return std::string(own);
    }
    return DnOf(NameOf(book, contact).Shown, FirstOf(book, contact, field::kEmail));
}

const Directory::Index& Directory::IndexOf(By what) const {
    std::optional<Index>& index = indexes_[static_cast<std::size_t>(what)];
    if (!index) {
        index = MakeIndex(what);
    }
    return *index;
}

Directory::Index Directory::MakeIndex(By what) const {
    Index index;
    // Nobody is looked for where there is no list.
    if (std::none_of(book_.Contacts.begin(), book_.Contacts.end(), [](const Contact& contact) {
            return contact.Kind == ContactKind::List;
        })) {
        return index;
    }
    for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
        const Contact& contact = book_.Contacts[i];
        const std::uint32_t file = contact.From.File;
        if (what == By::Uid) {
            index.Add(PlainUid(identities_.UidAt(i)), i, file);
        } else if (what == By::OwnUid) {
            index.Add(PlainUid(identities_.OwnUidAt(i)), i, file);
        } else if (what == By::Dn) {
            index.Add(DnOfContact(book_, contact), i, file);
        } else if (contact.Kind == ContactKind::Person) {
            for (const std::string& address : AddressesOf(contact)) {
                index.Add(ToLower(address), i, file);
            }
        }
    }
    return index;
}

void Directory::Index::Add(std::string key, std::size_t record, std::uint32_t file) {
    const auto [place, is_new] = First.try_emplace(key, record);
    if (!is_new) {
        Others.try_emplace({std::move(key), file}, record);
    }
}

// Of several the first in the file of the list is meant, else the first of all: files that know
// nothing of each other may give two people one name.
void Directory::Find(ListMember& member, By what, std::string_view key, std::uint32_t file) const {
    if (member.Record != ListMember::kNobody || key.empty()) {
        return;
    }
    const Index& index = IndexOf(what);
    const auto found = index.First.find(std::string(key));
    if (found == index.First.end()) {
        return;
    }
    member.Record = found->second;
    if (book_.Contacts[member.Record].From.File != file) {
        const auto own = index.Others.find({std::string(key), file});
        member.Record = own == index.Others.end() ? member.Record : own->second;
    }
}

// What is no UUID is none that was made, and to make them takes long.
void Directory::FindUid(ListMember& member, std::string_view uid, std::uint32_t file) const {
    const std::string plain = PlainUid(uid);
    Find(member, IsUuid(plain) ? By::Uid : By::OwnUid, plain, file);
}

void Directory::Fill(ListMember& member) const {
    if (member.Record == ListMember::kNobody) {
        return;
    }
    const Known& known = KnownAt(member.Record);
    member.Name = known.Name;
    if (member.Address.empty()) {
        member.Address = known.Address;
    }
}

// Many may name one record, which may have many fields.
const Directory::Known& Directory::KnownAt(std::size_t record) const {
    const auto [place, is_new] = known_.try_emplace(record);
    if (is_new) {
        const Contact& contact = book_.Contacts[record];
        place->second = {NameOf(book_, contact).Shown,
                         std::string(FirstOf(book_, contact, field::kEmail)),
                         DnOfContact(book_, contact)};
    }
    return place->second;
}

ListMember Directory::Referred(std::string_view reference, std::uint32_t file) const {
    ListMember member;
    if (StartsAsName(reference, kMailto)) {
        member.Address = reference.substr(kMailto.size());
    } else if (IsDn(reference)) {
        DnParts parts = PartsOfDn(reference);
        member.Name = std::move(parts.Name);
        member.Address = std::move(parts.Address);
        Find(member, By::Dn, reference, file);
        // UIDs that end as base64 does look like one, too.
        FindUid(member, reference, file);
    } else {
        FindUid(member, reference, file);
        // Other schemes than mailto have an at, too.
        const bool address = reference.find('@') != std::string_view::npos &&
                             reference.find(':') == std::string_view::npos;
        member.Address = address ? reference : std::string_view{};
    }
    Find(member, By::Address, ToLower(member.Address), file);
    Fill(member);
    return member;
}

ListMember Directory::Named(std::string_view name) const {
    ListMember member;
    member.Name = name;
    const MemberNames::Found found = names_.Find(name);
    member.Record = found.Record;
    member.Shared = found.Shared;
    Fill(member);
    return member;
}

ListMember Directory::OfEvolution(const Property& property) const {
    const auto param = [&](std::string_view name) {
        const NameId id = book_.Names.Find(name);
        return id == FieldNames::kNone ? std::string_view{} : ParamOf(book_, property, id);
    };
    ListMember member;
    member.Name = param("X-EVOLUTION-DEST-NAME");
    const std::string_view address = param("X-EVOLUTION-DEST-EMAIL");
    member.Address = address.empty() ? property.Value : address;
    FindUid(member, param("X-EVOLUTION-DEST-CONTACT-UID"), property.File);
    Find(member, By::Address, ToLower(member.Address), property.File);
    Fill(member);
    return member;
}

ListMember Directory::MemberOf(const Property& property) const {
    const NameId id = book_.Names.Find(kDnParam);
    const auto dn = id == FieldNames::kNone ? "" : ParamOf(book_, property, id);
    if (dn.empty() && IsNamedMember(book_, property)) {
        return Named(Unescaped(property.Value));
    }
    if (const auto record = identities_.RecordOf(property)) {
        ListMember member;
        member.Record = *record;
        Fill(member);
        return member;
    }
    return Referred(dn.empty() ? property.Value : dn, property.File);
}

std::vector<ListMember> Directory::MembersOf(const Contact& list) const {
    std::vector<ListMember> members;
    if (list.Kind != ContactKind::List) {
        return members;
    }
    // Evolution keeps the members of a list as its addresses.
    const bool evolution = !FirstOf(book_, list, field::kEvolutionList).empty() &&
                           !FirstOf(book_, list, field::kEmail).empty();
    for (const Property& one : list.Properties) {
        if (!evolution && (one.Name == field::kMember || one.Name == field::kServerMember)) {
            members.push_back(MemberOf(one));
        } else if (evolution && one.Name == field::kEmail) {
            members.push_back(OfEvolution(one));
        } else {
            continue;
        }
        members.back().Field = &one;
    }
    return members;
}

}  // namespace orvik::book

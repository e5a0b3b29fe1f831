#include "book/match/merged_lists.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "book/match/folding.h"
#include "book/members.h"
#include "book/typed_views.h"

namespace orvik::book {
namespace {

constexpr std::string_view kEvolutionUid = "X-EVOLUTION-DEST-CONTACT-UID";

}  // namespace

MergedLists::MergedLists(Book& book, const std::vector<std::uint32_t>& into)
    : book_(book), into_(into), identities_(book) {
    const bool has_lists =
        std::any_of(book.Contacts.begin(), book.Contacts.end(), [](const Contact& contact) {
            return contact.Kind == ContactKind::List;
        });
    if (!has_lists) {
        return;
    }
    identities_.MakeNow();
    const Directory directory(book, identities_);
    for (std::uint32_t i = 0; i < book.Contacts.size(); ++i) {
        book.TellFar(0, book.Contacts.size());
        const Contact& list = book.Contacts[i];
        for (const ListMember& member : directory.MembersOf(list)) {
            const auto property = static_cast<std::uint32_t>(member.Field - list.Properties.data());
            Member found{i, property, kNobody, {}};
            if (member.Record != ListMember::kNobody) {
                found.Record = static_cast<std::uint32_t>(member.Record);
            } else {
                FoldAddress(member.Address.empty() ? std::string_view(member.Field->Value)
                                                   : std::string_view(member.Address),
                            found.Key);
            }
            members_.push_back(std::move(found));
        }
    }
}

void MergedLists::Rename() {
    std::map<std::uint32_t, std::vector<const Member*>> lists;
    for (const Member& member : members_) {
        lists[into_[member.List]].push_back(&member);
    }
    for (const auto& [list, members] : lists) {
        book_.TellFar(1, 1);
        RenameIn(list, members);
    }
}

// The members of a list, and behind them those of lists that became part of it.
void MergedLists::RenameIn(std::uint32_t list, const std::vector<const Member*>& members) {
    Contact& contact = book_.Contacts[list];
    const bool evolution = !FirstOf(book_, contact, field::kEvolutionList).empty() &&
                           !FirstOf(book_, contact, field::kEmail).empty();
    std::unordered_map<std::uint32_t, std::uint32_t> there;
    std::unordered_set<std::string> addresses;
    std::unordered_map<std::uint32_t, Property> replaced;
    std::unordered_set<std::uint32_t> removed;
    std::vector<Property> added;
    for (const Member* const member : members) {
        const bool own = member->List == list;
        const bool known = member->Record != kNobody;
        const std::uint32_t to = known ? into_[member->Record] : kNobody;
        const auto [place, first] =
            known ? there.try_emplace(to, member->Record)
                  : std::pair(there.end(), addresses.insert(member->Key).second);
        // Whom a list named twice before, it names twice.
        const bool twice =
            known ? !first && (!own || place->second != member->Record) : !first && !own;
        Property one = book_.Contacts[member->List].Properties[member->Property];
        if (twice) {
            if (own) {
                removed.insert(member->Property);
            }
            continue;
        }
        if (known && to != member->Record) {
            one = Renamed(one, to);
        }
        if (!own) {
            const bool address = one.Name == field::kEmail;
            if (address != evolution) {
                one.Name = evolution ? field::kEmail : field::kMember;
                one.Value = evolution && known ? FirstOf(book_, book_.Contacts[to], field::kEmail)
                            : address          ? book_.Keep("mailto:" + std::string(one.Value))
                                               : one.Value;
                one.Details = 0;
            }
            added.push_back(one);
        } else if (known && to != member->Record) {
            replaced.emplace(member->Property, one);
        }
    }
    if (replaced.empty() && removed.empty() && added.empty()) {
        return;
    }
    std::vector<Property> properties;
    for (std::uint32_t i = 0; i < contact.Properties.size(); ++i) {
        const auto found = replaced.find(i);
        if (!removed.contains(i)) {
            properties.push_back(found == replaced.end() ? contact.Properties[i] : found->second);
        }
    }
    properties.insert(properties.end(), added.begin(), added.end());
    book_.Replace(contact, properties);
}

Property MergedLists::Renamed(const Property& one, std::uint32_t to) {
    Property renamed = one;
    const Details& details = book_.DetailsOf(one);
    std::vector<Param> params;
    bool changed = false;
    for (const Param& param : details.Params) {
        const std::string_view name = book_.Names.Text(param.Name);
        const bool uid = SameName(name, kEvolutionUid);
        // What said how the old name is to be read does not hold for the new one.
        const bool gone =
            SameName(name, kDnParam) || (param.Name == field::kValue && one.Name != field::kEmail);
        changed = changed || uid || gone;
        if (uid) {
            params.push_back({param.Name, book_.Keep(ReferenceTo(to))});
        } else if (!gone) {
            params.push_back(param);
        }
    }
    if (changed) {
        renamed.Details = book_.KeepDetails(details.Group, params);
    }
    // A list of Evolution has the address itself.
    if (one.Name != field::kEmail) {
        const std::string_view reference = ReferenceTo(to);
        renamed.Value = IsDn(reference) ? reference : book_.Keep(AsUrn(reference));
    }
    return renamed;
}

// Many lists may name a record that has very many fields.
std::string_view MergedLists::ReferenceTo(std::uint32_t record) {
    const auto [place, is_new] = references_.try_emplace(record);
    if (is_new) {
        place->second = FindReference(record);
    }
    return place->second;
}

// By its UID, or by what LDIF calls it; one that has neither gets the UID that it had so far
// without telling.
std::string_view MergedLists::FindReference(std::uint32_t record) {
    Contact& contact = book_.Contacts[record];
    if (const auto uid = FirstOf(book_, contact, field::kUid); !uid.empty()) {
        return uid;
    }
    const NameId dn = book_.Names.Find("X-ORVIK-LDIF-dn");
    if (dn != FieldNames::kNone) {
        if (const auto own = FirstOf(book_, contact, dn); !own.empty()) {
            return own;
        }
    }
    book_.Add(contact, field::kUid, identities_.UidAt(record));
    return FirstOf(book_, contact, field::kUid);
}

}  // namespace orvik::book

#include "book/list_changes.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "app/text.h"
#include "book/members.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kMailScheme = "mailto:";

bool IsReachedBy(const Contact& contact, std::string_view address) {
    const std::string wanted = ToLower(address);
    const std::vector<std::string> all = AddressesOf(contact);
    return std::any_of(all.begin(), all.end(), [&wanted](const std::string& one) {
        return ToLower(one) == wanted;
    });
}

bool IsOfMembers(const Property& one) {
    return one.Name == field::kMember || one.Name == field::kServerMember ||
           one.Name == field::kEmail;
}

// A list whose properties are still those that the memberships were found in.
bool IsKnown(const Contact& list, std::span<const Memberships::Member> members) {
    return std::all_of(members.begin(), members.end(), [&list](const Memberships::Member& one) {
        return one.Field < list.Properties.size() && IsOfMembers(list.Properties[one.Field]);
    });
}

// The lists of a record, each once.
std::vector<std::uint32_t> ListsOfMember(const Memberships& memberships, std::uint32_t record) {
    const std::span<const std::uint32_t> all = memberships.ListsOf(record);
    std::vector<std::uint32_t> lists(all.begin(), all.end());
    std::sort(lists.begin(), lists.end());
    lists.erase(std::unique(lists.begin(), lists.end()), lists.end());
    return lists;
}

}  // namespace

std::optional<std::string> NewReference(const Book& book,
                                        const Property& member,
                                        const Contact& before,
                                        const Contact& after) {
    if (IsNamedMember(book, member)) {
        const std::string name = ShownNameOf(book, after);
        if (Unescaped(member.Value) != ShownNameOf(book, before) || name.empty()) {
            return std::nullopt;
        }
        std::string value;
        AppendEscaped(name, value);
        return value == member.Value ? std::nullopt : std::optional(std::move(value));
    }
    if (IsDn(member.Value)) {
        std::string dn = DnOfContact(book, after);
        return member.Value != DnOfContact(book, before) || dn == member.Value
                   ? std::nullopt
                   : std::optional(std::move(dn));
    }
    const bool has_scheme = StartsAsName(member.Value, kMailScheme);
    const std::string_view address =
        member.Value.substr(has_scheme ? kMailScheme.size() : std::size_t{0});
    const std::string_view now = FirstOf(book, after, field::kEmail);
    if (now.empty() || !IsReachedBy(before, address) || IsReachedBy(after, address)) {
        return std::nullopt;
    }
    return std::string(has_scheme ? kMailScheme : "").append(now);
}

std::vector<ListChange> ListsAfterChange(Book& book,
                                         const Memberships& memberships,
                                         std::uint32_t record,
                                         const Contact& after) {
    std::vector<ListChange> changes;
    for (const std::uint32_t number : ListsOfMember(memberships, record)) {
        const Contact& list = book.Contacts[number];
        const auto members = memberships.MembersOf(number);
        if (!IsKnown(list, members)) {
            continue;
        }
        std::vector<Property> fields(list.Properties.begin(), list.Properties.end());
        bool is_other = false;
        for (const Memberships::Member& one : members) {
            if (one.Record != record) {
                continue;
            }
            Property& field = fields[one.Field];
            if (const auto now = NewReference(book, field, book.Contacts[record], after)) {
                field.Value = book.Keep(*now);
                is_other = true;
            }
        }
        if (is_other) {
            changes.push_back({number, book.WithFields(list, fields)});
        }
    }
    return changes;
}

std::vector<ListChange> ListsAfterRemoval(Book& book,
                                          const Memberships& memberships,
                                          std::span<const std::uint32_t> records) {
    const std::unordered_set<std::uint32_t> gone(records.begin(), records.end());
    std::unordered_set<std::uint32_t> lists;
    for (const std::uint32_t record : records) {
        for (const std::uint32_t list : memberships.ListsOf(record)) {
            if (!gone.contains(list)) {
                lists.insert(list);
            }
        }
    }
    std::vector<std::uint32_t> sorted(lists.begin(), lists.end());
    std::sort(sorted.begin(), sorted.end());
    std::vector<ListChange> changes;
    for (const std::uint32_t number : sorted) {
        const Contact& list = book.Contacts[number];
        const auto members = memberships.MembersOf(number);
        if (!IsKnown(list, members)) {
            continue;
        }
        std::vector<bool> goes(list.Properties.size());
        for (const Memberships::Member& one : members) {
            goes[one.Field] = one.Record != Memberships::kNobody && gone.contains(one.Record);
        }
        std::vector<Property> fields;
        for (std::size_t i = 0; i < goes.size(); ++i) {
            if (!goes[i]) {
                fields.push_back(list.Properties[i]);
            }
        }
        changes.push_back({number, book.WithFields(list, fields)});
    }
    return changes;
}

}  // namespace orvik::book

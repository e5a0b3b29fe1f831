#include "book/memberships.h"

#include <algorithm>
#include <utility>

#include "book/identity.h"
#include "book/members.h"
#include "book/table_columns.h"
#include "book/typed_views.h"

namespace orvik::book {
namespace {

template <class Entry>
std::span<const Entry> EntriesOf(const std::vector<std::uint32_t>& from,
                                 const std::vector<Entry>& entries,
                                 std::uint32_t number) {
    if (number + std::size_t{1} >= from.size()) {
        return {};
    }
    return std::span(entries).subspan(from[number], from[number + 1] - from[number]);
}

// How often each comes becomes where its entries begin.
void AddUp(std::vector<std::uint32_t>& counts) {
    std::uint32_t sum = 0;
    for (std::uint32_t& one : counts) {
        const std::uint32_t count = one;
        one = sum;
        sum += count;
    }
}

}  // namespace

Memberships::Memberships(const Book& book,
                         std::span<const std::uint32_t> numbers,
                         const Book::Progress& how_far) {
    const Identities identities(book);
    const Directory directory(book, identities);
    const std::size_t all = book.Contacts.size();
    const std::size_t count =
        numbers.empty() ? 0 : *std::max_element(numbers.begin(), numbers.end()) + std::size_t{1};
    std::vector<std::vector<Member>> of_lists;
    std::vector<std::uint32_t> lists;
    members_from_.assign(count + 1, 0);
    lists_from_.assign(count + 1, 0);
    for (std::size_t i = 0; i < all; ++i) {
        const Contact& contact = book.Contacts[i];
        if (how_far) {
            how_far(i + 1, all);
        }
        if (contact.Kind != ContactKind::List) {
            continue;
        }
        std::vector<Member>& members = of_lists.emplace_back();
        lists.push_back(numbers[i]);
        for (const ListMember& one : directory.MembersOf(contact)) {
            const auto field = static_cast<std::uint32_t>(one.Field - contact.Properties.data());
            if (one.Record == ListMember::kNobody) {
                const std::string& words = one.Name.empty() ? one.Address : one.Name;
                members.push_back(
                    {kNobody, field, words_.Keep(words.empty() ? one.Field->Value : words)});
                continue;
            }
            members.push_back({numbers[one.Record], field});
            ++lists_from_[numbers[one.Record]];
        }
        members_from_[numbers[i]] = static_cast<std::uint32_t>(members.size());
    }
    AddUp(members_from_);
    AddUp(lists_from_);
    members_.resize(members_from_.back());
    lists_.resize(lists_from_.back());
    Begins next = lists_from_;
    for (std::size_t i = 0; i < lists.size(); ++i) {
        std::copy(
            of_lists[i].begin(), of_lists[i].end(), members_.begin() + members_from_[lists[i]]);
        for (const Member& one : of_lists[i]) {
            if (one.Record != kNobody) {
                lists_[next[one.Record]++] = lists[i];
            }
        }
    }
}

std::span<const Memberships::Member> Memberships::MembersOf(std::uint32_t list) const {
    return EntriesOf(members_from_, members_, list);
}

std::span<const std::uint32_t> Memberships::ListsOf(std::uint32_t record) const {
    return EntriesOf(lists_from_, lists_, record);
}

std::string Memberships::TextOf(const Book& book, std::uint32_t number, std::size_t most) const {
    std::string text;
    const auto add = [&](std::string_view name) {
        text += text.empty() ? "" : ", ";
        return AppendOnLine(name, most, text);
    };
    std::uint32_t last = kNobody;
    for (const std::uint32_t list : ListsOf(number)) {
        // A list may name somebody twice.
        if (std::exchange(last, list) != list && !add(ShownNameOf(book, book.Contacts[list]))) {
            return text;
        }
    }
    for (const Member& one : MembersOf(number)) {
        const bool more = one.Record == kNobody ? add(one.Words)
                                                : add(ShownNameOf(book, book.Contacts[one.Record]));
        if (!more) {
            break;
        }
    }
    return text;
}

}  // namespace orvik::book

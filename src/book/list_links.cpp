#include "book/list_links.h"

#include <algorithm>
#include <cstddef>

#include "book/identity.h"
#include "book/members.h"

namespace orvik::book {

bool HasLists(const Book& book) {
    return std::any_of(book.Contacts.begin(), book.Contacts.end(), [](const Contact& one) {
        return one.Kind == ContactKind::List;
    });
}

std::vector<ListLink> LinksOf(const Book& book, const Book::Progress& how_far) {
    std::vector<ListLink> links;
    if (!HasLists(book)) {
        return links;
    }
    const Identities identities(book);
    const Directory directory(book, identities);
    for (std::size_t i = 0; i < book.Contacts.size(); ++i) {
        if (how_far) {
            how_far(i, book.Contacts.size());
        }
        for (const ListMember& one : directory.MembersOf(book.Contacts[i])) {
            if (one.Field->Value.empty() ||
                (one.Record == ListMember::kNobody && book.IsLeftOut(*one.Field))) {
                continue;
            }
            // Nobody has the largest number in both.
            links.push_back({static_cast<std::uint32_t>(i),
                             static_cast<std::uint32_t>(one.Record),
                             one.Field->Value.data()});
        }
    }
    return links;
}

}  // namespace orvik::book

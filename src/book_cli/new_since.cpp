#include "book_cli/new_since.h"

#include <cstddef>
#include <deque>
#include <utility>

#include "book/differences.h"
#include "book/ldif_dn.h"
#include "book/members.h"
#include "book_cli/json_lines.h"

namespace orvik::book_cli {
namespace {

// A member that will be no record any more: one that is named otherwise than by its address could
// not be found by anybody.
void KeepByAddress(book::Book& book, book::Contact& list, const book::ListMember& member) {
    const auto number = static_cast<std::size_t>(member.Field - list.Properties.data());
    const bool of_evolution = member.Field->Name == book::field::kEmail;
    const bool told =
        book::IsDn(member.Field->Value) && !book::PartsOfDn(member.Field->Value).Address.empty();
    if (!of_evolution && !told && !member.Address.empty()) {
        book.SetValue(list, number, "mailto:" + member.Address);
    }
    book.LeaveOut(list.Properties[number]);
}

}  // namespace

std::vector<book::Contact> LeaveOutKnown(const book::Book& older, book::Book& book) {
    const Catalogue there(older);
    const Catalogue here(book);
    const std::vector<bool> known = book::KnownIn(older, there.Uids(), book, here.Uids());
    std::vector<book::Contact> left_out;
    std::deque<book::Contact> rest;
    for (std::size_t i = 0; i < known.size(); ++i) {
        book::Contact& contact = book.Contacts[i];
        if (known[i]) {
            left_out.push_back(contact);
            continue;
        }
        for (const book::ListMember& member : here.Members().MembersOf(contact)) {
            if (member.Record != book::ListMember::kNobody && known[member.Record]) {
                KeepByAddress(book, contact, member);
            }
        }
        rest.push_back(contact);
    }
    book.Contacts = std::move(rest);
    return left_out;
}

}  // namespace orvik::book_cli

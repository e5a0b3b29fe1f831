// The people of mail as an address book.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/mail/people.h"

namespace orvik::book {

// AddPeople: a contact for each person, in this order: FN, N where the name has several words,
// EMAIL, a NOTE that says where and when if notes are wanted, and a UID that is the same for the
// same address.
void AddPeople(const People& people,
               const std::vector<std::uint32_t>& which,
               bool notes,
               Book& book);

// "2001-03-04T10:00:00Z"; empty for no time.
[[nodiscard]] std::string TimeText(MailTime time);
// The fields of a place: "From", "body".
[[nodiscard]] std::vector<std::string_view> FieldsOf(const Person::Place& place);

}  // namespace orvik::book

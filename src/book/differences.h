// What two books hold alike, whatever formats they were read from.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/identity.h"
#include "book/members.h"

namespace orvik::book {

enum class Difference : std::uint8_t { Same, OnlyLeft, OnlyRight, Changed };

struct Compared {
    static constexpr std::size_t kNobody = ~std::size_t{0};

    Difference What = Difference::Same;
    std::size_t Left = kNobody;  // the number of the contact
    std::size_t Right = kNobody;
    std::vector<std::string> Fields;  // of a changed one: those that differ
};

// FieldLines: what a contact holds, as "NAME VALUE", sorted, each once, under the names and in the
// form that vCard 4.0 has for it. Parameters do not count but for types; what names the record
// (UID, dn), and what each saving changes, does not either.
[[nodiscard]] std::vector<std::string> FieldLines(const Book& book,
                                                  const Directory& directory,
                                                  std::size_t contact);

// Compare: the contacts of the left book in their order, then those that only the right one has.
// Two are the same person if their UIDs are equal, or all that they hold, or name and first
// address, if any. Time is linear but for sorting.
[[nodiscard]] std::vector<Compared> Compare(const Book& left,
                                            const Identities& left_uids,
                                            const Book& right,
                                            const Identities& right_uids);

// KnownIn: for each contact of a book whether an older one has it: of the same kind, and the same
// person as Compare has it, however often.
[[nodiscard]] std::vector<bool> KnownIn(const Book& older,
                                        const Identities& older_uids,
                                        const Book& book,
                                        const Identities& uids);

}  // namespace orvik::book

// Who is in which list, from both sides, kept small.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

class Memberships {
 public:
    static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

    // A member of a list: a record, or what the list calls somebody who is none.
    struct Member {
        std::uint32_t Record = kNobody;
        std::uint32_t Field = 0;  // which of the list's properties names it
        std::string_view Words = {};
    };

    Memberships() = default;
    // Of the lists of a book, whose contacts have these numbers elsewhere. Errors: std::bad_alloc,
    // and what how_far throws.
    Memberships(const Book& book,
                std::span<const std::uint32_t> numbers,
                const Book::Progress& how_far = {});

    // All by the numbers elsewhere, in their order; none for a record that is not known.
    [[nodiscard]] std::span<const Member> MembersOf(std::uint32_t list) const;
    [[nodiscard]] std::span<const std::uint32_t> ListsOf(std::uint32_t record) const;
    // TextOf: the names of a person's lists, or of a list's members, joined by ", "; not much more
    // than most bytes of it. The numbers are those of the contacts of this book.
    [[nodiscard]] std::string TextOf(const Book& book,
                                     std::uint32_t number,
                                     std::size_t most) const;

 private:
    // From where the entries of a number begin; its successor's are where they end.
    using Begins = std::vector<std::uint32_t>;

    Begins members_from_;
    std::vector<Member> members_;
    Begins lists_from_;
    std::vector<std::uint32_t> lists_;
    Arena words_;
};

}  // namespace orvik::book

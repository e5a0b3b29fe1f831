// What tells one record from any other, also in the next run and in another format.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/record_lines.h"

namespace orvik::book {

// A UUID as RFC 9562 numbers it: millions of them fit into memory, their texts do not.
using Uuid = std::array<std::uint8_t, 16>;

// The UID of each contact of a book: its own, else a version 5 UUID of what it holds. Of several
// equal records the second and the next have their number in the name.
class Identities {
 public:
    // The book must outlive this. Its records are gone through when the first UID is asked for.
    explicit Identities(const Book& book) : book_(book), lines_(book) {}

    // Makes them of the records as they are now, which may be changed then.
    void MakeNow() const;
    // By the number of the contact.
    [[nodiscard]] std::string UidAt(std::size_t contact) const;
    // The UID that it came with; empty for none.
    [[nodiscard]] std::string_view OwnUidAt(std::size_t contact) const {
        FindOwn();
        return own_[contact];
    }
    // The record that a member names by its line.
    [[nodiscard]] std::optional<std::size_t> RecordOf(const Property& member) const {
        return lines_.RecordOf(member);
    }

 private:
    void FindOwn() const;
    void MakeAll() const;

    const Book& book_;
    RecordLines lines_;
    mutable std::vector<std::string_view> own_;  // empty for a contact that came without one
    mutable std::vector<Uuid> made_;             // zeros for a contact that has its own
};

// Version5Uuid: the UUID that RFC 9562 makes of a name in Orvik's own name space.
[[nodiscard]] Uuid Version5Uuid(std::string_view name);

// TextOf: a UUID as it is written down, "3b5e0c8a-6d41-4f27-9ce4-1572a0bd3896".
[[nodiscard]] std::string TextOf(const Uuid& uuid);

// PlainUid: a UID without "urn:uuid:", in lower case, as records are compared.
[[nodiscard]] std::string PlainUid(std::string_view uid);

// IsUuid: whether a UID is written as a UUID, as those are that are made.
[[nodiscard]] bool IsUuid(std::string_view uid);

// AsUrn: a UID as an address of RFC 9562, if it is a UUID; any other one stays.
[[nodiscard]] std::string AsUrn(std::string_view uid);

}  // namespace orvik::book

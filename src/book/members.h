// Who is in a list. Lists name their members by address, by UID, by the names of LDIF, by what
// people call them, or by the line of their record; each is looked for among the records of the
// same book.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "book/address_book.h"
#include "book/identity.h"
#include "book/member_names.h"

namespace orvik::book {

struct ListMember {
    std::string Name;
    std::string Address;
    std::size_t Record = kNobody;     // its number; kNobody for one that is no record of the book
    bool Shared = false;              // another record has the name that the list says, too
    const Property* Field = nullptr;  // of the list; set by MembersOf

    static constexpr std::size_t kNobody = ~std::size_t{0};
};

class Directory {
 public:
    // Both must outlive the directory. Records are gone through when somebody is looked for.
    Directory(const Book& book, const Identities& identities)
        : book_(book), identities_(identities), names_(book) {}

    // The members of a list in its order; none for a person.
    [[nodiscard]] std::vector<ListMember> MembersOf(const Contact& list) const;
    // The member that a property of a list names.
    [[nodiscard]] ListMember MemberOf(const Property& property) const;
    // The member that an address of a list of Evolution is.
    [[nodiscard]] ListMember OfEvolution(const Property& property) const;
    // Empty for one that is no record of the book.
    [[nodiscard]] std::string UidOf(const ListMember& member) const {
        return member.Record == ListMember::kNobody ? "" : identities_.UidAt(member.Record);
    }
    // DnOfContact of a record, found once.
    [[nodiscard]] const std::string& DnAt(std::size_t record) const { return KnownAt(record).Dn; }

 private:
    struct Known {
        std::string Name;
        std::string Address;
        std::string Dn;
    };
    // The first record of a key, and those of other files that have the same key.
    struct Index {
        void Add(std::string key, std::size_t record, std::uint32_t file);

        std::unordered_map<std::string, std::size_t> First;
        std::map<std::pair<std::string, std::uint32_t>, std::size_t> Others;
    };

    enum class By : std::uint8_t { Uid, OwnUid, Dn, Address, kCount };

    [[nodiscard]] const Index& IndexOf(By what) const;
    [[nodiscard]] Index MakeIndex(By what) const;
    // Unless the member is found already. FindUid: whatever case the UID has.
    void FindUid(ListMember& member, std::string_view uid, std::uint32_t file) const;
    void Find(ListMember& member, By what, std::string_view key, std::uint32_t file) const;
    [[nodiscard]] ListMember Referred(std::string_view reference, std::uint32_t file) const;
    [[nodiscard]] ListMember Named(std::string_view name) const;
    void Fill(ListMember& member) const;
    [[nodiscard]] const Known& KnownAt(std::size_t record) const;

    const Book& book_;
    const Identities& identities_;
    // Most lists name their members in one way, and UIDs take long to be made.
    mutable std::array<std::optional<Index>, static_cast<std::size_t>(By::kCount)> indexes_;
    MemberNames names_;
    mutable std::unordered_map<std::size_t, Known> known_;
};

// Whether a list names a member as LDIF does; a card that cannot keeps it in this parameter.
[[nodiscard]] bool IsDn(std::string_view reference);
inline constexpr std::string_view kDnParam = "X-ORVIK-DN";

// Whether a list names a member by what people call it: MEMBER;VALUE=text. The value is written as
// in vCard, with escapes.
[[nodiscard]] bool IsNamedMember(const Book& book, const Property& member);

// Tells what is wrong with a member of a list: no record here, or more than one of that name.
void TellMember(Book& book, const Contact& list, const Property& field, const ListMember& member);

// The name by which LDIF knows a record: the one it came with, else that of its name and address.
[[nodiscard]] std::string DnOfContact(const Book& book, const Contact& contact);

}  // namespace orvik::book

// Lists whose members became part of other records.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/address_book.h"
#include "book/identity.h"

namespace orvik::book {

class MergedLists {
 public:
    // Finds out whom the lists name, before anything is merged. into says by record which one it
    // becomes part of, itself for one that stays. All must outlive this.
    MergedLists(Book& book, const std::vector<std::uint32_t>& into);

    // Afterwards: lists name the records that took others, each once, and those that took other
    // lists their members.
    void Rename();

 private:
    struct Member {
        std::uint32_t List = 0;
        std::uint32_t Property = 0;
        std::uint32_t Record = 0;  // kNobody for none of the book
        std::string Key;           // of one that is no record
    };
    static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

    void RenameIn(std::uint32_t list, const std::vector<const Member*>& members);
    [[nodiscard]] Property Renamed(const Property& one, std::uint32_t to);
    [[nodiscard]] std::string_view ReferenceTo(std::uint32_t record);
    [[nodiscard]] std::string_view FindReference(std::uint32_t record);

    Book& book_;
    const std::vector<std::uint32_t>& into_;
    Identities identities_;
    std::vector<Member> members_;
    std::unordered_map<std::uint32_t, std::string_view> references_;
};

}  // namespace orvik::book

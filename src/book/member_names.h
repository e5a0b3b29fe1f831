// Records by what people call them, for lists that name their members so.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "book/address_book.h"

namespace orvik::book {

// NicknameKey: a nickname as it is compared: without case, _ as a blank.
[[nodiscard]] std::string NicknameKey(std::string_view nickname);

class MemberNames {
 public:
    struct Found {
        std::size_t Record = kNobody;
        bool Shared = false;  // another record is called so, too

        static constexpr std::size_t kNobody = ~std::size_t{0};
    };

    // The book must outlive this. Its records are gone through when the first name is asked for.
    explicit MemberNames(const Book& book) : book_(book) {}

    // The record of a name: people before lists, the first of several. It is looked for among the
    // names as they are, then without case and with single blanks, then with "Last, First" turned,
    // then among the nicknames, where _ is a blank. "@TEAM.PML" is the first list of the file of
    // that name, in any case and folder, else a list called "TEAM.PML".
    [[nodiscard]] Found Find(std::string_view name) const;

 private:
    using Index = std::unordered_map<std::string, Found>;

    void MakeAll() const;
    void AddRecord(std::size_t record) const;
    static void Add(Index& index, std::string key, std::size_t record);

    const Book& book_;
    mutable bool made_ = false;
    mutable Index exact_;
    mutable Index folded_;
    mutable Index turned_;
    mutable Index nicknames_;
    mutable Index files_;
};

}  // namespace orvik::book

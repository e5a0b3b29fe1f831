// The lists of a book as labels of their members, for programs that know no other lists.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/address_book.h"
#include "book/members.h"

namespace orvik::book {

class CsvLists {
 public:
    // Tells what became of each list and of its fields; with a reason all lists are lost for it.
    // The book must outlive this.
    CsvLists(Book& book, const Directory& directory, Reason lost = Reason::None);

    // The lists that a person is in, by the number of the record.
    [[nodiscard]] std::span<const std::string_view> Of(std::size_t record) const;
    [[nodiscard]] const std::vector<std::string_view>& Names() const { return names_; }

 private:
    // A list of its own members only: of persons and of lists.
    struct List {
        std::size_t Record = 0;
        std::string_view Name;
        std::vector<std::size_t> Members;
    };

    void Read(std::size_t record, const Directory& directory);
    void Label(const List& list);
    void Tell(const Contact& list, NameId name, std::string_view value, What what, Reason why);

    Book& book_;
    std::vector<List> lists_;
    std::unordered_map<std::size_t, std::size_t> list_of_;  // by record
    std::unordered_map<std::size_t, std::vector<std::string_view>> labels_;
    std::vector<std::string_view> names_;
    std::size_t left_ = 0;  // members of lists in lists that may still be given a label
};

}  // namespace orvik::book

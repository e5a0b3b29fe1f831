// Short names for records, for formats in which an entry or a list is known by one.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "book/address_book.h"
#include "book/old/fitting.h"
#include "book/report.h"

namespace orvik::book {

class EntryKeys {
 public:
    // Takes the first nickname of each record, less the signs that no short name may have, which
    // become _; of equal ones the second and the next have a number: "ada_2", since "ada-2" is
    // another entry of ada. The book must outlive this.
    EntryKeys(const Book& book, std::string_view forbidden);

    // Empty for a record that has none yet.
    [[nodiscard]] const std::string& Of(std::size_t record) const { return keys_[record]; }
    // Why it is not what the record calls itself; None if it is.
    [[nodiscard]] Reason WhyOther(std::size_t record) const { return why_other_[record]; }
    // A short name for a record without one: its name if that is a word, which lists alone have
    // as it is; else made of its name or its address.
    //   "Abbott, Ada" -> "abbott-ada"
    const std::string& Make(std::size_t record);
    // A name for another entry of the same record: "ada-2".
    [[nodiscard]] std::string Next(std::size_t record);

 private:
    [[nodiscard]] std::string Plain(std::string_view word) const;
    [[nodiscard]] std::string Unique(const std::string& key, char before_number = '_');

    const Book& book_;
    std::string_view forbidden_;
    std::vector<std::string> keys_;
    std::vector<Reason> why_other_;
    std::unordered_set<std::string> used_;
    // How many have begun so.
    std::unordered_map<std::string, std::size_t> counts_;
};

// Takes the nicknames of a record whose first one is its short name, or became another one.
void TakeNicknames(Fitting& entry, Reason why_other);

}  // namespace orvik::book

// Finding the records whose values hold some words, as fast as one types.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/arena.h"

namespace orvik::book {

// The words of what is typed, folded as the values are; none for blanks.
//   " M\xC3\xBCller 555" -> {"muller", "555"}
[[nodiscard]] std::vector<std::string> FilterWords(std::string_view typed);

// IsNarrower: whether all that has these words has those, too.
//   {"mulle", "555"}, {"mul"} -> true
[[nodiscard]] bool IsNarrower(const std::vector<std::string>& words,
                              const std::vector<std::string>& those);

class ValueFilter {
 public:
    // Whether a record is found, by its number.
    using Found = std::vector<bool>;

    // Of the contacts of a book. Errors: std::bad_alloc, and what how_far throws.
    ValueFilter() = default;
    explicit ValueFilter(const Book& book, const Book::Progress& how_far = {});

    // Takes a record that is another one now, or the next one that is new.
    void Set(const Book& book, std::uint32_t record, const Contact& contact);
    // How many records are known.
    [[nodiscard]] std::size_t Count() const { return texts_.size(); }

    // Find: the records that have each word in a value, whatever case and accents; keys, pictures,
    // sounds and what only programs read are no values. Time: linear in the texts.
    [[nodiscard]] Found Find(const std::vector<std::string>& words) const;
    // Narrow: takes those out that have not.
    void Narrow(const std::vector<std::string>& words, Found& found) const;

    // How many bytes the texts take.
    [[nodiscard]] std::size_t Held() const { return kept_.Held(); }

 private:
    void Take(std::string_view& place, const Book& book, const Contact& contact);
    void Append(const Book& book, const Property& one);
    void DropOld();

    // The values of each record, each ended by a line feed, which stands in no folded text.
    std::vector<std::string_view> texts_;
    // What a record had before stays until that is more than what all records have.
    Arena kept_;
    std::size_t used_ = 0;
    std::size_t old_ = 0;
    std::string text_;
    std::string folded_;
};

}  // namespace orvik::book

// What a program does not take of a book that is written for it.

#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book_cli/book_arguments.h"
#include "book_cli/written.h"

namespace orvik::book_cli {

// More records than a file may have.
struct TooMany {
    std::size_t Records = 0;
    std::size_t Most = 0;
    std::size_t Files = 0;  // that would hold all
    // What the same program takes any number of records from; null for nothing.
    const ImportForm* Unlimited = nullptr;
};
// TooManyRecords: nothing where a file would hold no more than the program takes.
[[nodiscard]] std::optional<TooMany> TooManyRecords(const Arguments& arguments,
                                                    std::size_t records);

// TooManyFor: why a file would hold more records than the program takes, and what to type instead;
// empty if it does not.
[[nodiscard]] std::string TooManyFor(const Arguments& arguments, std::size_t records);

// TooMuchInAll: what the program does not keep for one user, whatever files it comes in; empty for
// nothing.
[[nodiscard]] std::string TooMuchInAll(const ImportForm& form,
                                       const book::Book& book,
                                       const Written& written);

// Tells of the records and values that the program does not take, or not as what they are.
void DoubtWhatIsTooMuch(const ImportForm& form, book::Book& book, const Written& written);

}  // namespace orvik::book_cli

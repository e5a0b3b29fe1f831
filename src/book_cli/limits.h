// What a program does not take of a book that is written for it.

#pragma once

#include <cstddef>
#include <string>

#include "book/address_book.h"
#include "book_cli/book_arguments.h"
#include "book_cli/written.h"

namespace orvik::book_cli {

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

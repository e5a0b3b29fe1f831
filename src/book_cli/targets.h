// What a book can be written as that is for no program in particular, and how its files are called.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book_cli/book_arguments.h"

namespace orvik::book_cli {

// A format with the ending of its files.
struct AnyForm {
    std::string_view Ending;
    book::Dialect Form = book::Dialect::VCard30;
    // Of LDIF alone; without one records that nobody changed keep the attributes that they have.
    std::optional<book::LdifAttributes> Set = {};
};

// All that can be written for any program, the usual ones first.
[[nodiscard]] std::span<const AnyForm> AnyForms();

// EndedAs: a file's name with the ending, where it has none of the same format; none asks for none.
//   ".csv", "book.vcf" -> "book.vcf.csv"
[[nodiscard]] std::string EndedAs(std::string_view ending, std::string name);

// NameFor: what a file is called that files of these names were written to, without a folder. It is
// the name of none of them. whom is a word for the program, or empty.
//   "old/book.ldif" and one more, "google", ".csv" -> "book-and-1-more-google.csv"
[[nodiscard]] std::string NameFor(std::span<const std::string> sources,
                                  std::string_view whom,
                                  std::string_view ending);

}  // namespace orvik::book_cli

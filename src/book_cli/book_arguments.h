// The arguments of orvik-book.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "book/csv_columns.h"
#include "book/ldif_sets.h"
#include "book/order.h"
#include "book/record.h"
#include "book_cli/find_arguments.h"
#include "book_cli/programs.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

enum class Verb : std::uint8_t { Show, Convert, Check, Diff, Find, Dupes, Clean };

// What stands for standard input, and for standard output.
inline constexpr const char* kStandardStream = "-";

struct Arguments {
    Verb What = Verb::Show;
    // At least one; for Diff two, for Find folders, too, for Clean with a plan none.
    std::vector<std::string> Files;
    std::string Output = kStandardStream;
    // What Convert, Clean and Find write: vCard 3.0, 4.0, LDIF or CSV, and the attributes that were
    // asked for.
    book::Dialect Target = book::Dialect::VCard30;
    std::optional<book::LdifAttributes> Set;
    // The program that it is for, and what that imports; null for any program, and for a form that
    // follows from the book.
    const Program* For = nullptr;
    const ImportForm* Form = nullptr;
    // How many records a file may have; 0 for one file.
    std::size_t Split = 0;
    // The plan that Dupes writes or Clean reads; empty for none.
    std::string Plan;
    // Those who agree are merged, too.
    bool MergesAgreeing = false;
    book::SortBy Sort = book::SortBy::None;
    std::string Locale;
    // Older books, whose people are left out.
    std::vector<std::string> NewSince;
    // Empty for none.
    std::string Report;
    std::string Charset;
    // What --map says of columns; each has its field.
    std::vector<book::CsvMapping> Columns;
    bool Json = false;
    bool Force = false;
    bool AllowLoss = false;
    FindArguments Find;

    // Writes what a program imports.
    void Choose(const ImportForm& form);
};

// ParseArguments: the arguments, or the exit status where there is nothing to run: after help and
// version, which go to out, and after a mistake, which goes to err. Errors: std::bad_alloc.
[[nodiscard]] std::variant<Arguments, cli::ExitStatus> ParseArguments(int argc,
                                                                      const char* const* argv,
                                                                      std::ostream& out,
                                                                      std::ostream& err);

}  // namespace orvik::book_cli

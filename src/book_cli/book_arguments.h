// The arguments of orvik-book.

#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "book/csv_columns.h"
#include "book/ldif_sets.h"
#include "book/record.h"
#include "book_cli/find_arguments.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

enum class Verb : std::uint8_t { Show, Convert, Check, Diff, Find };

// What stands for standard input, and for standard output.
inline constexpr const char* kStandardStream = "-";

struct Arguments {
    Verb What = Verb::Show;
    // At least one; for Diff two, for Find folders, too.
    std::vector<std::string> Files;
    std::string Output = kStandardStream;
    // What Convert and Find write: vCard 3.0, 4.0 or LDIF, and the attributes that were asked for.
    book::Dialect Target = book::Dialect::VCard30;
    std::optional<book::LdifAttributes> Set;
    // Empty for none.
    std::string Report;
    std::string Charset;
    // What --map says of columns; each has its field.
    std::vector<book::CsvMapping> Columns;
    bool Json = false;
    bool Force = false;
    bool AllowLoss = false;
    FindArguments Find;
};

// ParseArguments: the arguments, or the exit status where there is nothing to run: after help and
// version, which go to out, and after a mistake, which goes to err. Errors: std::bad_alloc.
[[nodiscard]] std::variant<Arguments, cli::ExitStatus> ParseArguments(int argc,
                                                                      const char* const* argv,
                                                                      std::ostream& out,
                                                                      std::ostream& err);

}  // namespace orvik::book_cli

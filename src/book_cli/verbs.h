// What orvik-book does.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "book/facts.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/inputs.h"
#include "book_cli/outputs.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

// Runs what the arguments ask for, and returns the exit status. Errors: std::bad_alloc.
[[nodiscard]] cli::ExitStatus Run(const Arguments& arguments, Console& console);

[[nodiscard]] cli::ExitStatus Show(const Arguments& arguments, Console& console, Outputs& outputs);
[[nodiscard]] cli::ExitStatus Convert(const Arguments& arguments,
                                      Console& console,
                                      Outputs& outputs);
[[nodiscard]] cli::ExitStatus Check(const Arguments& arguments, Console& console, Outputs& outputs);
[[nodiscard]] cli::ExitStatus Diff(const Arguments& arguments, Console& console, Outputs& outputs);

[[nodiscard]] cli::ExitStatus Find(const Arguments& arguments, Console& console, Outputs& outputs);

// What is written, "vCard 3.0, UTF-8"; unchanged says that it is what was read.
[[nodiscard]] std::string TargetName(const Arguments& arguments, bool unchanged);
// The book in the format that is asked for.
[[nodiscard]] std::string Written(const Arguments& arguments, book::Book& book, Console& console);
// Text for a person goes where the book does not go.
void PrintForPerson(const std::string& text, const Arguments& arguments, Console& console);

// FactsText: what a source is and holds, in two lines.
//   "a.ldif: LDIF, ASCII, LF, 1 person, 0 lists" and the counts
[[nodiscard]] std::string FactsText(const Console& console,
                                    const std::string& name,
                                    const Input& input,
                                    const book::Facts& facts);

// ConvertedText: what became of the values, and of the UIDs, in two lines. unchanged says whether
// what is written are the bytes of what was read.
[[nodiscard]] std::string ConvertedText(const Console& console,
                                        const Arguments& arguments,
                                        const book::Book& book,
                                        bool unchanged);

}  // namespace orvik::book_cli

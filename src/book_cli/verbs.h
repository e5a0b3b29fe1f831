// What orvik-book does.

#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "book/facts.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/inputs.h"
#include "book_cli/outputs.h"
#include "book_cli/written.h"
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
[[nodiscard]] cli::ExitStatus Dupes(const Arguments& arguments, Console& console, Outputs& outputs);
[[nodiscard]] cli::ExitStatus Clean(const Arguments& arguments, Console& console);

// What is said of a book that is written, besides what becomes of its values.
struct Extra {
    // In place of what Convert prints of numbers and files; empty for that.
    std::function<std::string(std::size_t written)> Summary;
    // Lines of the report.
    std::string Report = {};
};
// WriteLoaded: puts a book that was read into its order, writes it as the arguments ask, and tells
// what became of it.
[[nodiscard]] cli::ExitStatus WriteLoaded(
    const Arguments& asked, Console& console, Outputs& outputs, Loaded& loaded, const Extra& extra);

// FactsText: what a source is and holds, in two lines.
//   "a.ldif: LDIF, ASCII, LF, 1 person, 0 lists" and the counts
[[nodiscard]] std::string FactsText(const Console& console,
                                    const std::string& name,
                                    const Input& input,
                                    const book::Facts& facts);

// ConvertedText: what became of the values, and of the UIDs, in two lines; then how many records
// are in which file, if there are several, and how a program imports them.
[[nodiscard]] std::string ConvertedText(const Console& console,
                                        const Arguments& arguments,
                                        const Loaded& loaded,
                                        const Written& written,
                                        std::span<const FilePart> parts);

// PartsText: the end of it: the files, if there are several, and the import.
[[nodiscard]] std::string PartsText(const Arguments& arguments,
                                    const Loaded& loaded,
                                    std::span<const FilePart> parts);

}  // namespace orvik::book_cli

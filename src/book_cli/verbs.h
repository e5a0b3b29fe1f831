// What orvik-book does.

#pragma once

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
[[nodiscard]] cli::ExitStatus Find(const Arguments& arguments, Console& console, Outputs& outputs);

// What is said of a book that is written, besides what becomes of its values.
struct Extra {
    // In place of what Convert tells of numbers and files; empty for that. What was asked for has
    // its form by then.
    std::function<std::string(
        const Arguments& chosen, const Written& written, std::span<const FilePart> parts)>
        Summary = {};
    // Prints objects in place of the records; the summary is told beside them.
    std::function<void()> PrintJson = {};
    // Lines of the report.
    std::string Report = {};
    // The records were never in a book, and a report does not say that they were read.
    bool IsOfMail = false;
};
// WriteLoaded: puts a book into its order, writes it as the arguments ask, and tells what became of
// it.
[[nodiscard]] cli::ExitStatus WriteLoaded(
    const Arguments& asked, Console& console, Outputs& outputs, Loaded& loaded, const Extra& extra);

// FactsText: what a source is and holds, in two lines.
//   "a.ldif: LDIF, ASCII, LF, 1 person, 0 lists" and the counts
[[nodiscard]] std::string FactsText(const Console& console,
                                    const std::string& name,
                                    const Input& input,
                                    const book::Facts& facts);

// What is written, "vCard 3.0, UTF-8"; unchanged says that it is what was read.
[[nodiscard]] std::string TargetName(const Arguments& arguments, bool unchanged);

// Where it is: "book.vcf", "book-1.vcf to book-3.vcf", "standard output".
[[nodiscard]] std::string WherePut(const Console& console,
                                   const Arguments& arguments,
                                   std::span<const FilePart> parts);

// ConvertedText: what became of the values, and of the UIDs, in two lines; then how many records
// are in which file, if there are several, and how a program imports them.
[[nodiscard]] std::string ConvertedText(const Console& console,
                                        const Arguments& arguments,
                                        const Loaded& loaded,
                                        const Written& written,
                                        std::span<const FilePart> parts);

// CountsText: the numbers of it: "read 5   written 5   carried 0   lost 0".
[[nodiscard]] std::string CountsText(const Console& console,
                                     const Arguments& arguments,
                                     const Loaded& loaded,
                                     const Written& written);

// ImportText: how a program imports what is written for it in so many files.
//   "Import in Thunderbird: Address Book > Import, then vCard and the file"
[[nodiscard]] std::string ImportText(const ImportForm& form, std::size_t files);

// PartsText: the end of it: the files, if there are several, and the import.
[[nodiscard]] std::string PartsText(const Arguments& arguments,
                                    const book::Book& book,
                                    std::span<const FilePart> parts);

}  // namespace orvik::book_cli

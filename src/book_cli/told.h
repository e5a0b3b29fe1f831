// What orvik-book tells of a book: to a person in lines of text, and in a report.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "book/utf8.h"
#include "book_cli/console.h"
#include "book_cli/inputs.h"
#include "book_cli/json_lines.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

// "1 person", "2 people".
[[nodiscard]] std::string Counted(std::size_t count,
                                  const std::string& one,
                                  const std::string& many);

using book::Shortened;

// RemarkText: "line 3: lost: TEL "5": has no place in the target", with a long value cut.
[[nodiscard]] std::string RemarkText(const book::Book& book, const book::Remark& remark);

// Names the character sets that are only assumed or guessed.
void TellCharsets(Console& console, const Loaded& loaded);

// Tells what was decided about the columns of CSV.
void TellColumns(Console& console, const Loaded& loaded);

// TellRemarks: names what was lost, skipped and doubtful, each up to a number of them.
void TellRemarks(Console& console, const Loaded& loaded);

// SummaryTail: "   doubtful 2   skipped 1", empty for none.
[[nodiscard]] std::string SummaryTail(const book::Book& book);

// Adds the members of lists that are no record of the book to what was skipped.
void AddMissingMembers(book::Book& book, const Catalogue& catalogue);

// The lines of a report: the contacts that were read, each value with a remark, and how many were
// kept.
[[nodiscard]] std::string ReportOf(const Loaded& loaded);

// Refusal: why a book is not written, since values of it would be lost; empty if it may be.
[[nodiscard]] std::string Refusal(const book::Book& book, bool allow_loss);

// Problem if something was skipped or lost.
[[nodiscard]] cli::ExitStatus StatusOf(const book::Book& book);

// Problem, unless there is a status that says more.
[[nodiscard]] cli::ExitStatus Worse(cli::ExitStatus one, cli::ExitStatus other);

}  // namespace orvik::book_cli

// What orvik-book tells of a book: to a person in lines of text, and in a report.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book/list_links.h"
#include "book/readable_value.h"
#include "book/utf8.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/inputs.h"
#include "book_cli/json_lines.h"
#include "book_cli/written.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

// "1 person", "2 people".
[[nodiscard]] std::string Counted(std::size_t count,
                                  const std::string& one,
                                  const std::string& many);

using book::Grouped;

// "1 person", "1 204 people".
[[nodiscard]] std::string GroupedCount(std::size_t count,
                                       const std::string& one,
                                       const std::string& many);

// RangeOf: "a-1.vcf", "a-3.vcf" -> "a-1.vcf to a-3.vcf"; one of both if they are the same.
[[nodiscard]] std::string RangeOf(const std::string& first, const std::string& last);

using book::Shortened;

// RemarkWords: "TEL "5": has no place in the target", with a long value cut.
[[nodiscard]] std::string RemarkWords(const book::Book& book, const book::Remark& remark);

// RemarkText: "line 3: lost: TEL "5": has no place in the target".
[[nodiscard]] std::string RemarkText(const book::Book& book, const book::Remark& remark);

// Names the character sets that are only assumed or guessed.
void TellCharsets(Console& console, const Loaded& loaded);

// Tells what was decided about the columns of CSV.
void TellColumns(Console& console, const Loaded& loaded);

// TellFoundMembers: tells of each list whose members are named in words, and are in other files,
// how many were found and where.
void TellFoundMembers(Console& console, const Loaded& loaded);

// Tells what was not compared, as too many share it.
void TellNotCompared(Console& console, const std::vector<std::string>& notes);

// TellRemarks: names what was lost, skipped and doubtful, each up to a number of them.
void TellRemarks(Console& console, const Loaded& loaded);

// SummaryTail: "   doubtful 2   skipped 1", empty for none.
[[nodiscard]] std::string SummaryTail(const book::Book& book);

// Adds the members of lists that are no record of the book to what was skipped.
void AddMissingMembers(book::Book& book, const Catalogue& catalogue);

// The lines of a report for what was decided about each file: its letters and its columns.
[[nodiscard]] std::string InputsReport(const Loaded& loaded);

// The lines of a report: the contacts that were read, each value with a remark, and how many were
// kept.
[[nodiscard]] std::string ReportOf(const Loaded& loaded);

// The lines of a report for each value with a remark alone.
[[nodiscard]] std::string RemarksReport(const book::Book& book);

// The lines of a report for the files of a book that was split: how many records each has.
[[nodiscard]] std::string ReportOf(std::span<const FilePart> parts);

using book::HasLists;

// ListHint: in which file the program would take the lists of a book that it does not take from
// this one; empty for no list, and where there is none.
[[nodiscard]] std::string ListHint(const Arguments& arguments, const book::Book& book);

// Refusal: why a book is not written, since values of it would be lost; empty if it may be.
[[nodiscard]] std::string Refusal(const book::Book& book, bool allow_loss);

// Problem if something was skipped or lost.
[[nodiscard]] cli::ExitStatus StatusOf(const book::Book& book);

// Problem, unless there is a status that says more.
[[nodiscard]] cli::ExitStatus Worse(cli::ExitStatus one, cli::ExitStatus other);

}  // namespace orvik::book_cli

// What a book would be for another program: the file in memory, with what becomes of each value.
// These functions run in the worker.

#pragma once

#include <QStringList>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/shared_text.h"
#include "book/remark_groups.h"
#include "book_cli/book_arguments.h"
#include "book_cli/inputs.h"
#include "book_cli/limits.h"
#include "book_cli/written.h"
#include "cli/exit_status.h"
#include "desktop/book/book_worker.h"
#include "platform/file_system.h"

namespace orvik {

// Nobody changes it once it is made.
struct MovePreview {
    // The records, and what was told of reading and of writing them.
    std::shared_ptr<const book_cli::Loaded> Book;
    book_cli::Arguments Chosen;
    // Its text is in Contents, or in the files of a book that is split.
    book_cli::Written Whole;
    SharedText Contents;
    std::vector<book_cli::FilePart> Parts;
    // Then there are no parts.
    std::optional<book_cli::TooMany> TooMany;
    // How many were read, written, carried and lost, in a line.
    std::string Counts;
    // What the program does not keep, or takes from another file; empty for nothing.
    std::vector<std::string> Hints;
    std::vector<book::RemarkGroup> Groups;

    [[nodiscard]] std::size_t lost() const { return Book->Book.Told.Count(book::What::Lost); }
};

// PrepareMove: writes the records as the arguments ask, whose form is chosen; losses are allowed.
// Errors: Cancelled of book::WorkThread, std::bad_alloc.
[[nodiscard]] std::shared_ptr<const MovePreview> PrepareMove(FileSystem& files,
                                                             const book_cli::Loaded& records,
                                                             const book_cli::Arguments& chosen,
                                                             const BookWorker::Watch& watch);

// How a save has ended.
struct MoveEnd {
    cli::ExitStatus Status = cli::ExitStatus::Done;
    // It was cancelled before it was done.
    bool IsCancelled = false;
    // What the user is to be asked before it can be done; then nothing is.
    std::string Question;
    QStringList Told;
    // The files, as bytes.
    std::vector<std::string> Files;
    // Of the saved book alone.
    std::string Summary;
};

// SaveMove: writes what was prepared into a file of this name, or into files that are called after
// it, each as a whole or not at all. may_replace is the question that the user has said yes to.
// Errors: std::bad_alloc.
[[nodiscard]] MoveEnd SaveMove(FileSystem& files,
                               const MovePreview& preview,
                               const std::string& name,
                               const std::string& may_replace,
                               const BookWorker::Watch& watch);

// KeepSummary: writes the summary of what was saved into these files, and behind it what became of
// each value, into another file. The same errors.
[[nodiscard]] MoveEnd KeepSummary(FileSystem& files,
                                  const MovePreview& preview,
                                  const MoveEnd& saved,
                                  const std::string& name,
                                  const std::string& may_replace,
                                  const BookWorker::Watch& watch);

}  // namespace orvik

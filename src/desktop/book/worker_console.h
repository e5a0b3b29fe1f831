// What the tools of the command line have around them, for the worker of a Book window: what they
// tell is kept for the window.

#pragma once

#include <QStringList>
#include <functional>
#include <sstream>
#include <string>

#include "book_cli/console.h"
#include "cli/messenger.h"
#include "desktop/book/book_worker.h"

namespace orvik {

class WorkerConsole {
 public:
    // Both must outlive this. ask answers for the user; without it nothing is answered with yes.
    using Ask = std::function<bool(const std::string& question)>;
    WorkerConsole(FileSystem& files, const BookWorker::Watch& watch, Ask ask = {});

    [[nodiscard]] book_cli::Console& console() { return console_; }
    // What was told and what was printed, as lines: "book.ldif: line 3: ...".
    [[nodiscard]] QStringList told() const;
    [[nodiscard]] QStringList printed() const;

 private:
    std::ostringstream out_;
    std::ostringstream err_;
    cli::Messenger messages_;
    book_cli::Surroundings around_;
    book_cli::Console console_;
};

}  // namespace orvik

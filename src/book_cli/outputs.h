// The files that orvik-book writes.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "app/shared_text.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/written.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

class Outputs {
 public:
    // Both must outlive this.
    Outputs(Console& console, const Arguments& arguments)
        : console_(console), arguments_(arguments) {}

    // Tells what forbids to write the files that are asked for, before anything is read: one is
    // read, under whatever name, or is there and nobody says that it may be replaced. The files of
    // a book that is split are known only when it is written.
    [[nodiscard]] cli::ExitStatus Check();

    // Writes the book, or the report; a file as a whole or not at all. Without a name for it
    // nothing is done.
    [[nodiscard]] cli::ExitStatus WriteBook(const SharedText& contents);
    [[nodiscard]] cli::ExitStatus WriteReport(const SharedText& contents);
    // Writes the files of a book, each as a whole or not at all. None is begun before all of them
    // may be written; if one fails nevertheless, those that were written are told.
    [[nodiscard]] cli::ExitStatus WriteParts(const std::vector<FilePart>& parts);
    // What was printed has to have arrived.
    [[nodiscard]] cli::ExitStatus FinishPrinting();

 private:
    // What may be done to a file.
    struct Target {
        std::string Name;
        bool MayReplace = false;
    };

    [[nodiscard]] cli::ExitStatus CheckFile(Target& target);
    // Sets whether there is a file that may not be replaced unasked.
    [[nodiscard]] cli::ExitStatus Probe(Target& target, bool& needs_leave);
    [[nodiscard]] cli::ExitStatus CheckParts(const std::vector<FilePart>& parts,
                                             std::vector<Target>& targets);
    // What is the same for all names of a file.
    [[nodiscard]] std::string KeyOf(const std::string& name) const;
    [[nodiscard]] bool IsRead(const std::string& name) const;
    [[nodiscard]] bool AreOneFile(const std::string& book) const;
    [[nodiscard]] cli::ExitStatus WriteFile(const Target& target, const SharedText& contents);
    cli::ExitStatus Refuse(const std::string& text, const std::string& name);

    Console& console_;
    const Arguments& arguments_;
    Target book_;
    Target report_;
};

}  // namespace orvik::book_cli

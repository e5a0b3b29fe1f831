// A book as the text of one file or of several.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/shared_text.h"
#include "book/record_places.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/inputs.h"

namespace orvik::book_cli {

struct Written {
    std::string Text = {};
    // Of the rows of a table, or of the contacts; none where nothing asks for them.
    book::RecordPlaces Places = {};
    std::size_t Records = 0;
    // The bytes are those that were read.
    bool Unchanged = false;
};

// Write: the book in the form that the arguments ask for. What became of each value goes to its
// report.
[[nodiscard]] Written Write(const Arguments& arguments, Loaded& loaded, Console& console);

// A file of several.
struct FilePart {
    std::string Name;
    SharedText Contents;
    std::size_t Records = 0;
};

// MaySplit: whether a book of this format can be several files.
[[nodiscard]] bool MaySplit(book::Dialect target);

// Cut: the book as files of so many records as the arguments ask for. Lists whose members are in
// other files are told.
[[nodiscard]] std::vector<FilePart> Cut(const Arguments& arguments,
                                        book::Book& book,
                                        const Written& written);

// NameParts: calls the files of a book after its name.
void NameParts(const std::string& name, std::vector<FilePart>& parts);

}  // namespace orvik::book_cli

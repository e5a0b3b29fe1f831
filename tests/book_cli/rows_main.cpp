// Reads a table from standard input, and writes each cell as its length, a colon and its bytes; a
// row ends with a line end:
//
//   orvik-book-rows SEPARATOR
//
// A test compares them with what others read.

#include <iostream>
#include <iterator>
#include <string>

#include "book/csv_rows.h"

int main(int argc, char** argv) {
    using namespace orvik::book;
    if (argc != 2 || argv[1][0] == '\0') {
        return 2;
    }
    const std::string text{std::istreambuf_iterator<char>(std::cin), {}};
    Arena texts;
    CsvRows rows(text, argv[1][0], texts);
    for (CsvRow row; rows.Next(row);) {
        for (const std::string_view cell : row.Cells) {
            std::cout << cell.size() << ':' << cell;
        }
        std::cout << '\n';
    }
    std::cout.flush();
    return std::cout ? 0 : 1;
}

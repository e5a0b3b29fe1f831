// Address books to measure with: as people have them, and the same ones each time.

#pragma once

#include <cstddef>
#include <string>

namespace orvik::bench {

// The same book of so many entries in each form. Made once for each size.
struct Book {
    std::string ascii;  // "Mary Miller" <mary.miller17@mail.example> and so on, a line each
    std::string native;
    std::string ldif;
    std::string html;
    std::string juno;
    std::string csv;          // sixteen columns
    std::string wordperfect;  // seven columns
    std::string pegasus;      // a comment behind every eighth entry
    std::string aliases;
};
const Book& BookOf(std::size_t entries);

}  // namespace orvik::bench

// Which records go into which of several files.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace orvik::book_cli {

// A list with the members that are records, by their numbers.
struct ListGroup {
    std::size_t List = 0;
    std::vector<std::size_t> Members;
};

struct Layout {
    // The records of each file, in their order.
    std::vector<std::vector<std::size_t>> Files;
    // The lists whose members are not all in their own file.
    std::vector<std::size_t> Torn;
};

// LayOut: puts records into files of at most so many. A list stays with all its members where the
// file holds so many, short lists first; all others stand at the end. Without lists the order
// stays. Linear but for sorting the lists.
[[nodiscard]] Layout LayOut(std::size_t records,
                            std::size_t most,
                            std::span<const ListGroup> lists);

// PartNames: "a.vcf", 12 -> "a-01.vcf" to "a-12.vcf".
[[nodiscard]] std::vector<std::string> PartNames(const std::string& name, std::size_t count);

}  // namespace orvik::book_cli

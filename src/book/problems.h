// What looks wrong in a book, as numbers: a book of a million records may have a million problems.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

enum class ProblemKind : std::uint8_t {
    Assumed,  // of a file as a whole
    // What was said about reading it.
    Lost,
    Skipped,
    Doubtful,
    // Of a value: addresses by their letters, members of lists who are no record.
    BadAddress,
    OddAddress,
    NoRecord,
    kCount
};

struct Problem {
    static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

    std::uint32_t Record = kNobody;  // kNobody where it is about none
    // Of the file, of the remark in the report, or of the property in the record.
    std::uint32_t Number = 0;
    ProblemKind Kind = ProblemKind::Assumed;
};

// ProblemKindOf: what a remark is as a problem; nothing for one that tells of none.
[[nodiscard]] std::optional<ProblemKind> ProblemKindOf(What what);

// AddAddressProblems: appends those of the addresses of a record that are bad or odd.
void AddAddressProblems(const Contact& contact, std::uint32_t record, std::vector<Problem>& to);

// FlawWords: what is to be said of the property of such a problem, and of a member who is no
// record. Control letters are escaped, and a long value is cut.
//   BadAddress, "al@@example.org" -> "\"al@@example.org\": two @"
[[nodiscard]] std::string FlawWords(const Book& book, const Property& one, ProblemKind kind);

}  // namespace orvik::book

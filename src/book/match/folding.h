// Texts as they are compared: what people and programs write in several ways becomes one.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

// FoldText: without capitals, accents and letters that nobody sees, in compatible forms (NFKC),
// with one blank between words. The text is UTF-8; to is overwritten. Errors: std::bad_alloc.
//   " J\xC3\x96RG  M\xC3\xBCller " -> "jorg muller"
void FoldText(std::string_view text, std::string& to);

// A name as it is compared.
struct FoldedName {
    std::vector<std::string> Words;  // sorted, without punctuation; none for a name without letters
    std::string Glued;               // all of them in the order of the name, without blanks
    std::string Key;                 // all of them sorted, with blanks

    [[nodiscard]] bool IsEmpty() const { return Words.empty(); }
};
// FoldName: apostrophes join, all other punctuation parts words.
//   "Berg, Ben" -> {"ben", "berg"}, "bergben", "ben berg";  "O'Brien" -> {"obrien"}
[[nodiscard]] FoldedName FoldName(std::string_view text);

// FoldAddress: an e-mail address in small letters, with its domain in ASCII; accents in its name
// count.
//   "mailto:Al@B\xC3\xBC" "cher.example" -> "al@xn--bcher-kva.example"
void FoldAddress(std::string_view text, std::string& to);

// FoldPhone: digits and letters alone.
//   "+1 (555) 0100-x2" -> "15550100x2";  "tel:+1-555" -> "1555"
void FoldPhone(std::string_view text, std::string& to);

// NextLetter: the letter of a text of UTF-8 at a place, which moves behind it; less than 0 for
// bytes that are none.
[[nodiscard]] std::int32_t NextLetter(std::string_view text, std::size_t& at);

}  // namespace orvik::book

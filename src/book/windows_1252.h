// Text in the set that programs of Windows take CSV for. ICU knows its letters.

#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

namespace orvik::book {

class Windows1252 {
 public:
    Windows1252();

    // Whether a text can be written whole. Letters and the marks above them may be apart.
    [[nodiscard]] bool Has(std::string_view text) const;
    // Appends the bytes of a UTF-8 text; a letter that the set has not becomes a question mark.
    void Append(std::string_view text, std::string& to) const;

 private:
    [[nodiscard]] char ByteOf(char32_t letter) const;

    std::unordered_map<char32_t, char> bytes_;
};

}  // namespace orvik::book

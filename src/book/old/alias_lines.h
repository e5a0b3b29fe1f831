// Lines that begin with "alias": books of mailx, mutt and Eudora, which share little else.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "book/lines.h"
#include "book/source.h"

namespace orvik::book {

enum class AliasBook : std::uint8_t { Mailrc, Mutt, Eudora };

// A line, with those that go on behind a backslash at the end of one.
struct LongLine {
    std::string_view Bytes;  // in the source, with the end of the last line
    std::uint32_t Number = 0;
    std::uint32_t Lines = 0;
    // Without backslashes and ends of lines; in the source, or in Joined where there are several.
    std::string_view Text;
    std::string Joined;
};

class LongLines {
 public:
    explicit LongLines(const Source& source) : lines_(source.Text(), source.Signs().Cr) {}

    // The next one; line is the same object each time, and must not be copied.
    bool Next(LongLine& line);

 private:
    Lines lines_;
};

// TakeWord: the text up to the next blank, or what is in quotes where it begins so and quotes are
// told to count; rest moves behind the blanks.
//   rest "ada  ada@x" -> "ada", rest "ada@x"
[[nodiscard]] std::string_view TakeWord(std::string_view& rest, bool quotes);

struct AliasSigns {
    AliasBook Of = AliasBook::Mailrc;
    std::uint32_t Line = 0;  // of the first alias
};

// AliasSignsOf: whose book of aliases a source is; nothing for scripts, letters and settings
// without an address. The name of the file decides only what its lines leave open.
[[nodiscard]] std::optional<AliasSigns> AliasSignsOf(const Source& source);

// The same as the evidence for one of the books.
[[nodiscard]] std::optional<std::string> AliasEvidence(const Source& source, AliasBook of);

}  // namespace orvik::book

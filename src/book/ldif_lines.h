// The lines of an LDIF file, put together where they are folded, and their parts. Comments are left
// out. Format: docs/formats/ldif.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "book/address_book.h"
#include "book/lines.h"

namespace orvik::book {

struct LdifLine {
    std::string_view Text;     // empty for the end of a record
    std::string_view Span;     // all of it in the source, with the last line end
    std::uint32_t Number = 0;  // of its first line
    std::uint32_t Last = 0;    // of its last one
    Reason Doubt = Reason::None;
};

class LdifLines {
 public:
    // What is folded is kept in the book.
    LdifLines(const Source& source, Book& book)
        : lines_(source.Text(), source.Signs().Cr), book_(book) {}

    // The next line, or the end of a record; false at the end of the text.
    bool Next(LdifLine& line);

 private:
    void TakeContinuations(LdifLine& line);
    bool TakeBlanks(LdifLine& line, std::string& whole);
    // The next line, if it goes on with the one before it.
    bool NextContinuation(Line& line);

    Lines lines_;
    Book& book_;
};

enum class LdifForm : std::uint8_t { Plain, Base64, Url };

struct LdifParts {
    std::string_view Name;
    std::string_view Options;  // behind the first semicolon
    std::string_view Value;    // as written, without the blanks before it
    LdifForm Form = LdifForm::Plain;

    // What stands behind the first colon. Here, as it is asked of each line.
    void TakeValue(std::string_view behind) {
        if (behind.starts_with(':') || behind.starts_with('<')) {
            Form = behind.front() == ':' ? LdifForm::Base64 : LdifForm::Url;
            behind.remove_prefix(1);
        }
        while (behind.starts_with(' ') || behind.starts_with('\t')) {
            behind.remove_prefix(1);
        }
        Value = behind;
    }
};

// SplitLdifLine: name, options and value of a line; nothing if it is no attribute.
//   "cn;lang-de: Al" -> cn, lang-de, Al, Plain;  "jpegphoto:< file:///x" -> Url;  "no colon" ->
//   none
[[nodiscard]] std::optional<LdifParts> SplitLdifLine(std::string_view line);

// PartsAtColon: the same of a line whose name is known to be one and ends at its first colon.
[[nodiscard]] inline LdifParts PartsAtColon(std::string_view line, std::size_t colon) {
    LdifParts parts;
    parts.Name = line.substr(0, colon);
    parts.TakeValue(line.substr(colon + 1));
    return parts;
}

}  // namespace orvik::book

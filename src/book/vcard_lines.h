// The lines of a vCard file, put together where they are folded, and their parts.
// Format: docs/formats/vcard.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "book/address_book.h"
#include "book/lines.h"

namespace orvik::book {

enum class VCardEncoding : std::uint8_t { None, QuotedPrintable, Base64 };

// Tells the group of a line that is written without it, for readers who pass over groups.
inline constexpr std::string_view kGroupParam = "X-ORVIK-GROUP";

struct VCardParts {
    std::string_view Group;  // before the dot; empty for none
    std::string_view Name;
    std::string_view Params;  // as written, behind the first semicolon
    std::string_view Value;   // as written
};

// SplitVCardLine: the parts of a line; nothing if it is no property.
//   "item1.TEL;HOME:1" -> item1, TEL, HOME, 1;  "no colon" -> none
[[nodiscard]] std::optional<VCardParts> SplitVCardLine(std::string_view line);

// One parameter as written; a bare word has no name.
struct VCardParam {
    std::string_view Name;
    std::string_view Value;  // without the quotes around it
};

// TakeParam: the next of the parameters; rest moves behind it. Nothing at the end.
//   rest "TYPE=\"a;b\";PREF" -> TYPE, a;b
[[nodiscard]] std::optional<VCardParam> TakeParam(std::string_view& rest);

// WithoutCarets: the value of a parameter of 4.0 (RFC 6868): ^n is a line break, ^' a quote and ^^
// the sign itself.
[[nodiscard]] std::string WithoutCarets(std::string_view value);

// The encoding that a parameter names, with or without ENCODING before it.
[[nodiscard]] std::optional<VCardEncoding> EncodingNamed(const VCardParam& param);
[[nodiscard]] VCardEncoding EncodingOf(std::string_view params);

// Whether a line ends a card; blanks do not matter.
[[nodiscard]] bool EndsCard(std::string_view line);

struct VCardLine {
    std::string_view Text;
    std::string_view Span;     // all of it in the source, with the last line end
    std::uint32_t Number = 0;  // of its first line
    std::uint32_t Last = 0;
};

class VCardLines {
 public:
    // What is folded is kept in the book.
    VCardLines(const Source& source, Book& book);

    // In vCard 2.1 lines are folded before a blank that stays.
    void SetForm(Dialect form) { form_ = form; }
    // The next line that is not empty; false at the end of the text.
    bool Next(VCardLine& line);
    // Whether the next line begins a card.
    [[nodiscard]] bool NextBeginsCard() const;
    // The version of the card whose lines are next; None where the card does not say.
    [[nodiscard]] Dialect PeekForm() const;
    // A line as it is, for a card inside of a value.
    bool NextRaw(Line& line);

 private:
    enum class Joint : std::uint8_t { None, Folded, Soft, Base64 };

    [[nodiscard]] bool MayGoOn(std::string_view line) const;
    [[nodiscard]] Joint JointTo(std::string_view so_far,
                                std::optional<VCardEncoding> encoding) const;
    void Join(VCardLine& line);

    Lines lines_;
    Line next_;
    bool has_next_;
    Book& book_;
    Dialect form_ = Dialect::VCard30;
};

// "3.0" -> VCard30; None for versions that are not known.
[[nodiscard]] Dialect VersionOf(std::string_view value);

}  // namespace orvik::book

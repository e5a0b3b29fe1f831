// The tags of a page that is an address book. Anything else between brackets is text: people are
// called "Al <al@example.org>", too.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "book/field_names.h"
#include "book/lines.h"

namespace orvik::book {

enum class HtmlTagKind : std::uint8_t {
    Term,        // <DT>, before each entry
    Note,        // <DD>
    Link,        // <A>
    LinkEnd,     // </A>
    Folder,      // <H3>
    FolderEnd,   // </H3>
    Block,       // <DL>, around what is in a folder
    BlockEnd,    // </DL>
    Break,       // <BR>
    Heading,     // <H1>, <TITLE>
    HeadingEnd,  // </H1>, </TITLE>
    Other        // <p> and what nobody needs; a comment
};

struct HtmlAttribute {
    std::string_view Name;
    std::string_view Value;  // as it stands, without its quotes
};

// The value of an attribute, empty for none.
[[nodiscard]] std::string_view ValueOf(std::span<const HtmlAttribute> attributes,
                                       std::string_view name);

struct HtmlTag {
    HtmlTagKind Kind = HtmlTagKind::Other;
    std::string_view Span;
    std::vector<HtmlAttribute> Attributes;
    std::uint32_t Line = 0;
};

class HtmlTags {
 public:
    explicit HtmlTags(std::string_view text);

    // The next tag; false at the end of the text. Quotes around values may be missing, all or one,
    // and so may the bracket at the end of a tag.
    bool Next(HtmlTag& tag);
    // The text behind the tags that were read.
    [[nodiscard]] std::string_view Rest() const { return text_.substr(at_); }

 private:
    bool TakeTag(HtmlTag& tag);
    bool TakeComment(HtmlTag& tag);
    void TakeAttributes(HtmlTag& tag);
    [[nodiscard]] std::string_view TakeValue();
    [[nodiscard]] std::string_view Word();
    void SkipBlanks();
    [[nodiscard]] std::uint32_t LineAt(std::size_t place);

    std::string_view text_;
    std::size_t at_ = 0;
    Lines lines_;
    std::uint32_t line_ = 1;
    bool no_comment_ends_ = false;  // from here on
};

}  // namespace orvik::book

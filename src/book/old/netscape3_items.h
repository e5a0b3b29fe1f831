// The entries and folders of an address book of Netscape 2 or 3, as they stand in the page.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "book/old/html_tags.h"

namespace orvik::book {

struct Netscape3Item {
    bool IsFolder = false;
    bool NotEnded = false;  // a folder whose block has no end
    std::uint32_t Line = 0;
    std::size_t Offset = 0;  // in the page, and where what follows begins
    std::size_t End = 0;
    std::size_t Folder = kNone;  // the one that it is in
    std::size_t Children = 0;    // how many are in it
    std::vector<HtmlAttribute> Attributes;
    std::string_view Name;  // a piece of the page
    std::vector<std::string_view> Notes;

    static constexpr std::size_t kNone = ~std::size_t{0};
};

// A text that belongs to no item.
struct StrayText {
    std::uint32_t Line = 0;
    std::string_view Text;  // empty for none
};

struct Netscape3Page {
    std::vector<Netscape3Item> Items;
    StrayText Stray;  // the first one
};

// ItemsOf: in linear time.
[[nodiscard]] Netscape3Page ItemsOf(std::string_view page);

// Whether a link leads to an address of mail; blanks before it and its case do not matter.
[[nodiscard]] bool IsMailLink(std::string_view href);

}  // namespace orvik::book

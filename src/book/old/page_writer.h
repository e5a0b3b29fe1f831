// Text of a page: signs that a page has for itself become entities.

#pragma once

#include <string>
#include <string_view>

#include "book/windows_1252.h"

namespace orvik::book {

class PageWriter {
 public:
    // Appends a UTF-8 text in windows-1252; letters that are not in it become numbers.
    //   "R&D \u0416" -> "R&amp;D &#1046;"
    void Append(std::string_view text, std::string& to) const;
    // Appends an address of a link, so that it is read as it is: signs that a link cannot hold
    // become percent escapes.
    //   "al b%40@x" -> "al%20b%2540@x"
    void AppendAddress(std::string_view address, std::string& to) const;

 private:
    Windows1252 letters_;
};

}  // namespace orvik::book

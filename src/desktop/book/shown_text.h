// Values of records as text that a widget shows: letters that could lie are escapes, and what is
// long is cut before anybody measures it.

#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "book/address_book.h"
#include "desktop/book/book_document.h"

namespace orvik {

// As much of a value as is looked at for one line.
inline constexpr std::size_t kMostOfLine = 1000;

// ShownLine: a text in UTF-8 as one line; line breaks are blanks.
[[nodiscard]] QString ShownLine(std::string_view text);
// ShownLines: the same as several lines, with its line breaks and tabs.
[[nodiscard]] QString ShownLines(std::string_view text);

// RecordName: what a record is called; "(no name)" for none.
[[nodiscard]] QString RecordName(const BookDocument& document, BookDocument::Number record);

// PlaceWords: "/a/book.ldif, line 12"; the file alone for line 0.
// NearPlace: "book.ldif, line 12" where there is room for no folder.
// ShortPlace: "line 12" where everybody knows the file.
[[nodiscard]] QString PlaceWords(const book::Book& book, std::uint32_t file, std::uint32_t line);
[[nodiscard]] QString NearPlace(const book::Book& book, std::uint32_t file, std::uint32_t line);
[[nodiscard]] QString ShortPlace(std::uint32_t line);

}  // namespace orvik

// Cards in short, for the tests of what is one person.

#pragma once

#include <string>
#include <string_view>

#include "book/match/matches.h"
#include "unit/book/shown_book.h"

namespace orvik::book::test {

// "FN:Al|EMAIL:a@b" as a card of 3.0; nine lines at most, so that the first one begins on line 1,
// the second one on line 11 and so on.
inline std::string CardOf(std::string_view fields) {
    std::string text = "BEGIN:VCARD\nVERSION:3.0\n";
    std::size_t lines = 3;
    for (std::size_t at = 0; at < fields.size(); ++lines) {
        const std::size_t end = std::min(fields.find('|', at), fields.size());
        text.append(fields.substr(at, end - at)).append("\n");
        at = end + 1;
    }
    text += "END:VCARD\n";
    return text.append(10 - lines, '\n');
}

template <class... Fields>
std::string CardsOf(const Fields&... fields) {
    std::string text;
    (text.append(CardOf(fields)), ...);
    return text;
}

// "merge same 0 1; ask agree 0 2".
inline std::string Shown(const Matches& found) {
    std::string text;
    for (const MatchLine& line : found.Lines) {
        text.append(text.empty() ? "" : "; ").append(NameOf(line.Do)).append(" ");
        text.append(NameOf(line.Why));
        for (const std::uint32_t record : line.Records) {
            text += " " + std::to_string(record);
        }
    }
    return text;
}

inline std::string Found(const std::string& cards, bool merges_agreeing = false) {
    const ReadBook read(ReadVCard, cards);
    return Shown(FindMatches(read.book, merges_agreeing));
}

}  // namespace orvik::book::test

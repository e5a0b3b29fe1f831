// An entry that the user has typed, as bytes of the working text.

#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "app/module1.h"

namespace orvik {

struct ChangedEntry {
    std::string Address;
    std::string Nickname;
    // Where letters were typed that Windows-1252 lacks: the whole text in UTF-8, into which the
    // entry goes; else empty.
    std::string WholeText;
    // A letter was typed that only the text box has, for a line break: with it the whole text would
    // no longer count as UTF-8.
    bool HasBoxLetter = false;
};

// ToEntry: the bytes of what was typed in place of an entry, in the encoding of the working text.
// What was not changed keeps its bytes, whatever they are.
[[nodiscard]] ChangedEntry ToEntry(const QString& address,
                                   const QString& nickname,
                                   std::string_view address_before,
                                   std::string_view nickname_before,
                                   std::string_view working_text);

// Why an entry cannot be kept in the working text, empty if it can.
[[nodiscard]] QString WhyNotKept(const ChangedEntry& entry, std::string_view separator);

}  // namespace orvik

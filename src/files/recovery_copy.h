// What is kept of a book that nobody has saved, as the bytes of a file.
//
// The file begins with the line "orvik-recovery 1". Each field is a line of its name and the number
// of its bytes, and then the bytes and LF:
//   mode 6 LF Native LF
// A reader leaves out fields that it does not know, so that a later program may add some. Of a
// field that stands twice it takes the first.

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "app/late_text.h"
#include "app/shared_text.h"

namespace orvik {

// How many entries there are where nobody knows.
inline constexpr std::size_t kUnknownEntries = std::numeric_limits<std::size_t>::max();

struct RecoveryCopy {
    SharedText Text = {};      // the working text
    std::string Mode = {};     // TextMode
    std::string Caption = {};  // of the main window
    SharedText Box = {};       // what the text box holds
    bool EditMode = false;
    std::string File = {};     // the book's name, empty for a new one
    std::size_t Entries = 0;   // in the lists
    std::int64_t Seconds = 0;  // when it was kept, since 1970; 0 if nobody knows
};

// What each such file of this version begins with.
inline constexpr std::string_view kRecoveryBeginning = "orvik-recovery 1\n";

// GiveRecoveryCopy: the file's bytes, in pieces: nothing of the texts is copied.
void GiveRecoveryCopy(const RecoveryCopy& copy, const TakePiece& take);
// WriteRecoveryCopy: the file's bytes.
[[nodiscard]] std::string WriteRecoveryCopy(const RecoveryCopy& copy);

// ReadRecoveryCopy: what a file holds; nothing if it is no such file, of a later version, cut off
// or without a text. A number that cannot be is one that nobody knows.
[[nodiscard]] std::optional<RecoveryCopy> ReadRecoveryCopy(std::string_view bytes);

}  // namespace orvik

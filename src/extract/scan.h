// Finds e-mail addresses in any text.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvik {

// Follows a scan.
class ScanProgress {
 public:
    ScanProgress() = default;
    ScanProgress(const ScanProgress&) = delete;
    ScanProgress& operator=(const ScanProgress&) = delete;
    ScanProgress(ScanProgress&&) = delete;
    ScanProgress& operator=(ScanProgress&&) = delete;
    virtual ~ScanProgress() = default;
    // The scan has come to another whole percentage of the file (0 to 100).
    virtual void Percent(int percent) = 0;
};

// A chunk of a file: its text, its 1-based position in the file, and the file's length in bytes.
struct Chunk {
    std::string_view Text;
    std::size_t Start = 1;
    std::size_t Total = 0;
};

// ScanChunk: appends every address of a chunk to found, each with CR LF, and counts it.
//   "x <a@b>, c@d e"  ->  "a@b\r\nc@d\r\n"
// An address ends at a blank or a control character, at "<" and "," on its left and ">" and "," on
// its right. It never has the chunk's first character, nor the one at the position of the file's
// length. The walk begins at the chunk's position in the file, counted from the chunk's own start:
// of a later chunk only what lies behind that is scanned. Errors: RunTimeError 6 at the 32768th
// address.
void ScanChunk(const Chunk& chunk, std::string& found, std::int16_t& count, ScanProgress& progress);

}  // namespace orvik

// Parts a mail folder of the mbox family into its messages.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orvik::book {

// The line before and behind each message of an MMDF folder.
inline constexpr std::string_view kMmdfLine = "\1\1\1\1";

// Appends some more bytes of a file; false at its end.
using NextPiece = std::function<bool(std::string& to)>;

// A longer message is read in pieces: memory is not to grow with it.
inline constexpr std::size_t kLongestMessage = 32UL * 1024 * 1024;

struct MboxMessage {
    std::string_view Marker;  // the line "From ..." before it, without its end
    std::string_view Text;    // header and body
    std::size_t Line = 0;     // of the marker, from 1
    // More of the message before, which was too long.
    bool IsRest = false;
};

// IsMailHeader: whether a line can be a field of a header.
//   "Subject: x" -> true;  "From the start" -> false
[[nodiscard]] bool IsMailHeader(std::string_view line);

// IsMarker: whether a line "From ..." begins a message: by its date, an empty line before it, or
// that it says nothing, and by the header behind it. Lengths that a header states are not looked
// at: programs that change a folder do not keep them right.
[[nodiscard]] bool IsMarker(bool behind_empty, std::string_view line, std::string_view next);

// A folder that begins with kMmdfLine is parted by these lines alone.
class MboxReader {
 public:
    explicit MboxReader(NextPiece next, std::size_t longest = kLongestMessage)
        : next_(std::move(next)), longest_(longest) {}

    // The next message; false at the end. Its texts stand until the next call.
    bool Next(MboxMessage& message);

 private:
    bool Fill();
    [[nodiscard]] std::size_t FindEnd();
    // Whether the line there begins a message.
    bool Parts(std::size_t place);
    [[nodiscard]] std::string_view LineAt(std::size_t at) const;
    bool HasLines(std::size_t at, std::size_t count);

    NextPiece next_;
    std::size_t longest_;
    std::string buffer_;
    std::size_t at_ = 0;  // of what was not handed out
    std::size_t line_ = 1;
    bool at_end_ = false;
    bool is_mmdf_ = false;
    bool is_rest_ = false;
};

}  // namespace orvik::book

// The working text: the one document that every command works on, in one of two forms.
//
// The ASCII form is a list of entries, each ended by the separator (CR or ","); the Native form is
// all addresses, the line "-nick-" and all nicknames, paired by position. docs/formats/
// working-text.md shows both. This file is the one place that knows what "-nick-" means.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orvik {

inline constexpr std::string_view kNick = "-nick-";

// The most characters (bytes) that the text box takes.
inline constexpr std::size_t kTextLimit = 32000;

// The two blocks of a Native text: lines joined by CR LF, none behind the last.
struct NativeBlocks {
    std::string Emails;
    std::string Nicks;
};

// SplitBlocks: takes a list in the ASCII form apart, with separator CR or ",".
//   "\"Al\" <A1>\rA2\r"  ->  Emails "A1\r\nA2", Nicks "Al\r\n"
// The character at the text's last position ends the last entry and is dropped, whatever it is.
// Errors: RunTimeError 5 if the list holds no entry.
[[nodiscard]] NativeBlocks SplitBlocks(std::string_view text, std::string_view separator);

// JoinBlocks: the Native form of two blocks.
//   Emails "A1\r\nA2", Nicks "Al\r\n"  ->  "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n"
[[nodiscard]] std::string JoinBlocks(const NativeBlocks& blocks);

// ListNative: gives each address line and each nickname line of a Native text, less LF, to its
// list. Returns the number of address lines. A text without CR LF "-nick-" is one address block
// whose last character is not listed.
//   "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n"  ->  "A1", "A2" and "Al", ""; 2
std::size_t ListNative(std::string_view text,
                       const std::function<void(std::string_view)>& add_email,
                       const std::function<void(std::string_view)>& add_nick);

// EntryEnd: what the readers write behind an entry: the separator, and LF behind a CR.
[[nodiscard]] std::string EntryEnd(std::string_view separator);

// Reads a Native text entry by entry: each line of the address block with its nickname line.
//
// A text without the line "-nick-" is read as if CR LF "-nick-" CR LF stood at its end, an empty
// text as "-nick-" CR LF. Positions are those of the text read.
class NativeReader {
 public:
    // text must outlive the reader.
    explicit NativeReader(std::string_view text);
    NativeReader(const NativeReader&) = delete;
    NativeReader& operator=(const NativeReader&) = delete;
    NativeReader(NativeReader&&) = delete;
    NativeReader& operator=(NativeReader&&) = delete;
    ~NativeReader() = default;

    // The position of "-nick-".
    [[nodiscard]] std::size_t Separator() const { return separator_; }

    // Goes to the next address line, one that is ended by CR. False when there is none left.
    bool Next();

    // The address line of this entry as it stands, LF characters included, without its CR.
    [[nodiscard]] std::string_view RawAddress() const { return address_; }
    // The position of the CR that ends it.
    [[nodiscard]] std::size_t AddressEnd() const { return address_end_; }

    // The next nickname line. The last character of a text that does not end with CR LF is not
    // taken.
    std::string_view TakeNickname();

 private:
    std::string completed_;  // used only for a text without "-nick-"
    std::string_view text_;
    std::size_t separator_;
    std::size_t address_start_ = 1;
    std::size_t address_end_ = 0;
    std::size_t nickname_;
    std::string_view address_;
};

}  // namespace orvik

// The working text: the one document that every command works on, in one of two forms.
//
// The ASCII form is a list of entries, each ended by the separator (CR or ","); the Native form is
// all addresses, the line "-nick-" and all nicknames, paired by position. docs/formats/
// working-text.md shows both. This file is the one place that knows what "-nick-" means.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvik {

inline constexpr std::string_view kNick = "-nick-";

// HasNickLine: whether a text has the line "-nick-", as a Native text has; a nickname may hold the
// same letters.
[[nodiscard]] bool HasNickLine(std::string_view text);

// IsNative: whether a text is in the Native form, whatever a command says of it: exactly one line
// "-nick-", as many lines behind it as before it, and CR LF at its end.
//   "A1\r\n-nick-\r\nAl\r\n" -> true,  "x\r\nA1\r\n-nick-\r\nAl\r\n" -> false
[[nodiscard]] bool IsNative(std::string_view text);

// The most characters (bytes) that the text box takes.
inline constexpr std::size_t kTextLimit = 32000;

// A Native text and its two blocks: lines joined by CR LF, none behind the last.
struct NativeBlocks {
    std::string Native;
    std::size_t EmailsLength = 0;

    [[nodiscard]] std::string_view Emails() const {
        return std::string_view(Native).substr(0, EmailsLength);
    }
    // Where the block of nicknames stands in the text, from 0.
    [[nodiscard]] std::size_t NicksStart() const { return EmailsLength + kNick.size() + 4; }
    [[nodiscard]] std::size_t NicksLength() const { return Native.size() - NicksStart() - 2; }
    [[nodiscard]] std::string_view Nicks() const {
        return std::string_view(Native).substr(NicksStart(), NicksLength());
    }
};

// SplitBlocks: takes a list in the ASCII form apart, with separator CR or ",".
//   "\"Al\" <A1>\rA2\r"  ->  "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n": Emails "A1\r\nA2", Nicks "Al\r\n"
// The character at the text's last position ends the last entry and is dropped, whatever it is.
// Errors: RunTimeError 5 if the list holds no entry.
[[nodiscard]] NativeBlocks SplitBlocks(std::string_view text, std::string_view separator);

// NativeOfEntries: a list of entries "NICK" <ADDR>, each ended by CR LF and without CR and LF
// inside, in the Native form. address_lengths says which quotes and brackets are part of a value.
//   "\"Al\" <A1>\r\n", {2}  ->  "A1\r\n-nick-\r\nAl\r\n"
[[nodiscard]] std::string NativeOfEntries(std::string_view list,
                                          const std::vector<std::uint32_t>& address_lengths);

// Is given an entry's address and its nickname.
using TakeEntry = std::function<void(std::string_view address, std::string_view nickname)>;

// ForEachOfList, ForEachOfNative: give each entry of a list, as SplitBlocks takes it apart, or of a
// Native text. A list of a text without entries gives none.
void ForEachOfList(std::string_view text, std::string_view separator, const TakeEntry& take);
void ForEachOfNative(std::string_view text, const TakeEntry& take);

// WithoutLf: a line less LF; kept holds it where one stands inside.
[[nodiscard]] std::string_view WithoutLf(std::string_view line, std::string& kept);

// ListNative: gives each address line and each nickname line of a Native text, less LF, to its
// list. Returns the number of address lines. A text without CR LF "-nick-" is one address block
// whose last character is not listed.
//   "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n"  ->  "A1", "A2" and "Al", ""; 2
std::size_t ListNative(std::string_view text,
                       const std::function<void(std::string_view)>& add_email,
                       const std::function<void(std::string_view)>& add_nick);

// The lines of a Native text, each with its end: its addresses and its nicknames.
struct ListedBlocks {
    std::string_view Addresses;
    std::string_view Nicknames;
};

// FindBlocks: where the lists find addresses and nicknames, at the first line that begins with
// "-nick-". A text without one is addresses alone. The last line of a block need not be ended.
//   "A1\r\n-nick-\r\nAl\r\n" -> "A1\r\n" and "Al\r\n"
[[nodiscard]] ListedBlocks FindBlocks(std::string_view text);

// EntryEnd: what the readers write behind an entry: the separator, and LF behind a CR.
[[nodiscard]] std::string EntryEnd(std::string_view separator);

// A Native text with the place of its middle line. A text without the line "-nick-" is read as if
// CR LF "-nick-" CR LF stood at its end, an empty text as "-nick-" CR LF.
class NativeText {
 public:
    // text must outlive this.
    explicit NativeText(std::string_view text);
    NativeText(const NativeText&) = delete;
    NativeText& operator=(const NativeText&) = delete;
    NativeText(NativeText&&) = delete;
    NativeText& operator=(NativeText&&) = delete;
    ~NativeText() = default;

    [[nodiscard]] std::string_view Text() const { return text_; }
    // The position of "-nick-", and that of the first nickname line.
    [[nodiscard]] std::size_t Separator() const { return separator_; }
    [[nodiscard]] std::size_t Nicknames() const { return separator_ + kNick.size() + 2; }

 private:
    std::string completed_;  // used only for a text without "-nick-"
    std::string_view text_;
    std::size_t separator_;
};

// Reads a Native text entry by entry: each line of the address block with its nickname line.
class NativeReader {
 public:
    // text must outlive the reader. line_end is what ends an address line.
    explicit NativeReader(std::string_view text, char line_end = '\r');

    // The position of "-nick-".
    [[nodiscard]] std::size_t Separator() const { return native_.Separator(); }

    // Goes to the next address line that is ended. False when there is none left.
    bool Next();

    // The address line of this entry as it stands, LF characters included, without its end.
    [[nodiscard]] std::string_view RawAddress() const { return address_; }
    // The position of the character that ends it.
    [[nodiscard]] std::size_t AddressEnd() const { return address_end_; }

    // The next nickname line. The last character of a text that does not end with CR LF is not
    // taken.
    std::string_view TakeNickname();

 private:
    NativeText native_;
    char line_end_;
    std::size_t address_start_ = 1;
    std::size_t address_end_ = 0;
    std::size_t nickname_;
    std::string_view address_;
};

}  // namespace orvik

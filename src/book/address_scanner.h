// The pieces that an e-mail address is made of, by RFC 5322 with the letters of RFC 6531.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "book/address_flaw.h"

namespace orvik::book {

// What stands between two pieces.
enum class Gap : std::uint8_t { None, Blanks, Comment };

// Reads a text from its start, and keeps the gravest flaw. Whatever takes a piece returns false for
// a flaw that makes the address bad; nothing is to be read from then on.
class AddressScanner {
 public:
    // Valid UTF-8, which must outlive the scanner.
    explicit AddressScanner(std::string_view text) : text_(text) {}

    [[nodiscard]] const Finding& Worst() const { return worst_; }
    // Keeps a flaw if it is the gravest by now.
    void Note(Flaw flaw, char letter = '\0');
    // The same for one that makes the address bad; returns false.
    bool Fail(Flaw flaw, char letter = '\0');
    // The flaw is on this side of the @ from now on.
    void Enter(Side side) { side_ = side; }

    [[nodiscard]] bool IsAtEnd() const { return at_ == text_.size(); }
    [[nodiscard]] bool IsAt(char c) const { return !IsAtEnd() && text_[at_] == c; }
    [[nodiscard]] bool IsAtAtom() const;
    // Takes a letter that is there.
    void Skip() { ++at_; }

    // Blanks, line breaks between them, and comments, if any.
    bool SkipGap(Gap& gap);
    // Appends letters up to the next one that belongs to no atom; at least one is there.
    void TakeAtom(std::string& to);
    // Appends a quoted text that begins here, with its marks, but without line breaks.
    bool TakeQuoted(std::string& to);
    // Appends what stands in brackets that begin here, without them and without line breaks.
    bool TakeLiteral(std::string& to);
    // Fails for the letter that is here, which can be no part of an address.
    bool FailHere();

 private:
    [[nodiscard]] unsigned char Here() const { return static_cast<unsigned char>(text_[at_]); }
    bool SkipBlanks(std::string* to);
    bool SkipComment();
    bool TakePair(std::string* to);
    bool TakeInside(std::string* to);
    bool TakeEnclosed(char end, Flaw open, std::string& to);

    std::string_view text_;
    std::size_t at_ = 0;
    Finding worst_;
    Side side_ = Side::Name;
};

}  // namespace orvik::book

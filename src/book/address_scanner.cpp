#include "book/address_scanner.h"

#include "book/address_letters.h"

namespace orvik::book {
namespace {

bool IsBlank(unsigned char c) {
    return c == ' ' || c == '\t';
}

bool IsBlankOrBreak(unsigned char c) {
    return IsBlank(c) || c == '\r' || c == '\n';
}

bool IsControl(unsigned char c) {
    return c < ' ' || c == 0x7F;
}

bool IsAtomLetter(char c) {
    constexpr std::string_view kOthers = "!#$%&'*+-/=?^_`{|}~";
    return IsLetterOrDigit(c) || !IsPlainAscii(c) || kOthers.find(c) != std::string_view::npos;
}

}  // namespace

void AddressScanner::Note(Flaw flaw, char letter) {
    if (flaw > worst_.What) {
        worst_ = {flaw, side_, letter};
    }
}

bool AddressScanner::Fail(Flaw flaw, char letter) {
    Note(flaw, letter);
    return false;
}

bool AddressScanner::FailHere() {
    const unsigned char c = Here();
    if (c == '\r' || c == '\n') {
        return Fail(Flaw::LineBreak);
    }
    return IsControl(c) ? Fail(Flaw::Control) : Fail(Flaw::Sign, static_cast<char>(c));
}

bool AddressScanner::IsAtAtom() const {
    return !IsAtEnd() && IsAtomLetter(text_[at_]);
}

bool AddressScanner::SkipGap(Gap& gap) {
    gap = Gap::None;
    while (!IsAtEnd()) {
        if (IsAt('(')) {
            gap = Gap::Comment;
            Note(Flaw::Comment);
            if (!SkipComment()) {
                return false;
            }
        } else if (IsBlankOrBreak(Here())) {
            gap = gap == Gap::None ? Gap::Blanks : gap;
            Note(Flaw::Blanks);
            if (!SkipBlanks(nullptr)) {
                return false;
            }
        } else {
            break;
        }
    }
    return true;
}

// A line break belongs to the blank behind it; a second one leaves a line of nothing but blanks.
bool AddressScanner::SkipBlanks(std::string* to) {
    std::size_t breaks = 0;
    for (; !IsAtEnd() && IsBlankOrBreak(Here()); ++at_) {
        if (!IsBlank(Here())) {
            const std::string_view rest = text_.substr(at_, 3);
            if (rest != "\r\n " && rest != "\r\n\t") {
                return Fail(Flaw::LineBreak);
            }
            at_ += 2;
            ++breaks;
        }
        if (to != nullptr) {
            *to += text_[at_];
        }
    }
    if (breaks > 1) {
        Note(Flaw::FoldedTwice);
    }
    return true;
}

// The letter behind a backslash.
bool AddressScanner::TakePair(std::string* to) {
    const std::string_view pair = text_.substr(at_, 2);
    if (pair.size() < 2) {
        return Fail(Flaw::BackslashAtEnd);
    }
    if (!IsPlainAscii(pair[1])) {
        return Fail(Flaw::BackslashBefore);
    }
    const auto second = static_cast<unsigned char>(pair[1]);
    if (IsControl(second) && !IsBlank(second)) {
        Note(Flaw::EscapedControl);
    }
    at_ += pair.size();
    if (to != nullptr) {
        *to += pair;
    }
    return true;
}

// A letter of a quoted text, a comment or a literal, or blanks there.
bool AddressScanner::TakeInside(std::string* to) {
    const unsigned char c = Here();
    if (c == '\\') {
        return TakePair(to);
    }
    if (IsBlankOrBreak(c)) {
        return SkipBlanks(to);
    }
    if (c == '\0') {
        return Fail(Flaw::Control);
    }
    if (IsControl(c)) {
        Note(Flaw::ControlInside);
    }
    if (to != nullptr) {
        *to += text_[at_];
    }
    ++at_;
    return true;
}

// Comments stand in comments, to any depth.
bool AddressScanner::SkipComment() {
    std::size_t depth = 0;
    do {
        if (IsAtEnd()) {
            return Fail(Flaw::CommentOpen);
        }
        if (IsAt('(') || IsAt(')')) {
            depth = IsAt('(') ? depth + 1 : depth - 1;
            ++at_;
        } else if (!TakeInside(nullptr)) {
            return false;
        }
    } while (depth > 0);
    return true;
}

void AddressScanner::TakeAtom(std::string& to) {
    const std::size_t begin = at_;
    while (IsAtAtom()) {
        ++at_;
    }
    to += text_.substr(begin, at_ - begin);
}

bool AddressScanner::TakeEnclosed(char end, Flaw open, std::string& to) {
    for (++at_; !IsAt(end);) {
        if (IsAtEnd()) {
            return Fail(open);
        }
        if (end == ']' && IsAt('[')) {
            return FailHere();
        }
        if (!TakeInside(&to)) {
            return false;
        }
    }
    ++at_;
    return true;
}

bool AddressScanner::TakeQuoted(std::string& to) {
    to += '"';
    const bool taken = TakeEnclosed('"', Flaw::QuoteOpen, to);
    to += '"';
    return taken;
}

bool AddressScanner::TakeLiteral(std::string& to) {
    return TakeEnclosed(']', Flaw::BracketOpen, to);
}

}  // namespace orvik::book

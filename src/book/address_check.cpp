#include "book/address_check.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "book/address_letters.h"
#include "book/address_literal.h"
#include "book/address_scanner.h"
#include "book/ascii_domain.h"
#include "book/field_names.h"
#include "book/unseen_letters.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// In bytes, by RFC 5321; the path of 256 has brackets around the address.
constexpr std::size_t kLongestName = 64;
constexpr std::size_t kLongestLabel = 63;
constexpr std::size_t kLongestDomain = 255;
constexpr std::size_t kLongestAddress = 254;

bool IsHostLetter(char c) {
    return IsLetterOrDigit(c) || c == '-' || c == '.' || !IsPlainAscii(c);
}

class Checker {
 public:
    explicit Checker(std::string_view address) : scanner_(address) {}

    CheckedAddress Check() {
        CheckedAddress checked;
        if (CheckName() && CheckDomain()) {
            // RFC 6531 allows them, and nobody can type them.
            scanner_.Note(UnseenLetters(name_));
            std::string form = is_literal_ ? std::string() : AsciiForm();
            // What is asked for is the domain that is looked up, where there is one.
            const bool has_form = !form.empty() && form != domain_;
            domain_ = has_form ? std::move(form) : domain_;
            CheckLengths();
            if (has_form && IsPlainAscii(name_)) {
                checked.Ascii = name_ + "@" + domain_;
            }
        }
        checked.Worst = scanner_.Worst();
        return checked;
    }

 private:
    bool CheckName() {
        std::size_t words = 0;
        bool has_quotes = false;
        bool has_gap_inside = false;
        for (;; ++words) {
            Gap before = Gap::None;
            Gap behind = Gap::None;
            bool is_quoted = false;
            if (!scanner_.SkipGap(before) || !TakeWord(words, is_quoted) ||
                !scanner_.SkipGap(behind)) {
                return false;
            }
            has_quotes = has_quotes || is_quoted;
            has_gap_inside = has_gap_inside || (words > 0 && before != Gap::None);
            if (scanner_.IsAt('@')) {
                NoteGapBesideAt(behind);
                break;
            }
            if (!TakeDot(behind, is_quoted ? Flaw::BehindQuote : Flaw::None, name_)) {
                return false;
            }
            has_gap_inside = has_gap_inside || behind != Gap::None;
        }
        if (has_quotes) {
            scanner_.Note(Flaw::Quoted);
        }
        if (has_gap_inside || (has_quotes && words > 0)) {
            scanner_.Note(Flaw::OldName);
        }
        scanner_.Skip();
        return true;
    }

    bool TakeWord(std::size_t words, bool& is_quoted) {
        if (scanner_.IsAt('"')) {
            is_quoted = true;
            return scanner_.TakeQuoted(name_);
        }
        if (scanner_.IsAtAtom()) {
            scanner_.TakeAtom(name_);
            return true;
        }
        if (scanner_.IsAtEnd()) {
            return scanner_.Fail(Flaw::NoAt);
        }
        if (scanner_.IsAt('@')) {
            return scanner_.Fail(words == 0 ? Flaw::NoName : Flaw::DotAtEnd);
        }
        return FailAtPiece(words);
    }

    // Where a word or a label should begin.
    bool FailAtPiece(std::size_t before) {
        if (scanner_.IsAt('.')) {
            return scanner_.Fail(before == 0 ? Flaw::DotAtStart : Flaw::TwoDots);
        }
        return scanner_.FailHere();
    }

    // The dot behind a word or a label, which has a gap behind it. behind is what may be said of
    // letters there.
    bool TakeDot(Gap gap, Flaw behind, std::string& to) {
        if (scanner_.IsAt('.')) {
            scanner_.Skip();
            to += '.';
            return true;
        }
        if (scanner_.IsAtEnd()) {
            return scanner_.Fail(Flaw::NoAt);
        }
        if (scanner_.IsAt('@')) {
            return scanner_.Fail(Flaw::TwoAt);
        }
        if (scanner_.IsAtAtom() || scanner_.IsAt('"')) {
            if (gap != Gap::None) {
                return scanner_.Fail(gap == Gap::Blanks ? Flaw::BlankInside : Flaw::CommentInside);
            }
            if (behind != Flaw::None) {
                return scanner_.Fail(behind);
            }
        }
        return scanner_.FailHere();
    }

    bool CheckDomain() {
        scanner_.Enter(Side::Domain);
        Gap gap = Gap::None;
        if (!scanner_.SkipGap(gap)) {
            return false;
        }
        NoteGapBesideAt(gap);
        return scanner_.IsAt('[') ? CheckLiteral() : CheckLabels();
    }

    bool CheckLiteral() {
        is_literal_ = true;
        Gap gap = Gap::None;
        if (!scanner_.TakeLiteral(domain_) || !scanner_.SkipGap(gap)) {
            return false;
        }
        if (!scanner_.IsAtEnd()) {
            return scanner_.Fail(scanner_.IsAt('@') ? Flaw::TwoAt : Flaw::BehindBracket);
        }
        scanner_.Note(LiteralFlaw(domain_));
        domain_ = "[" + domain_ + "]";
        return true;
    }

    bool CheckLabels() {
        bool has_gap = false;
        for (std::size_t labels = 0;; ++labels) {
            Gap gap = Gap::None;
            if (!scanner_.SkipGap(gap) || !TakeLabel(labels)) {
                return false;
            }
            has_gap = has_gap || gap != Gap::None;
            if (!scanner_.SkipGap(gap)) {
                return false;
            }
            if (scanner_.IsAtEnd()) {
                break;
            }
            if (!TakeDot(gap, Flaw::None, domain_)) {
                return false;
            }
            has_gap = has_gap || gap != Gap::None;
        }
        if (has_gap) {
            scanner_.Note(Flaw::GapInDomain);
        }
        return true;
    }

    bool TakeLabel(std::size_t labels) {
        if (scanner_.IsAtEnd()) {
            return scanner_.Fail(labels == 0 ? Flaw::NoDomain : Flaw::DotAtEnd);
        }
        if (scanner_.IsAt('@')) {
            return scanner_.Fail(Flaw::TwoAt);
        }
        if (!scanner_.IsAtAtom()) {
            return FailAtPiece(labels);
        }
        const std::size_t begin = domain_.size();
        scanner_.TakeAtom(domain_);
        if (domain_[begin] == '-') {
            return scanner_.Fail(Flaw::HyphenAtStart);
        }
        return domain_.back() != '-' || scanner_.Fail(Flaw::HyphenAtEnd);
    }

    void NoteGapBesideAt(Gap gap) {
        if (gap != Gap::None) {
            scanner_.Note(Flaw::GapBesideAt);
        }
    }

    // The domain in ASCII; empty for none.
    std::string AsciiForm() {
        if (!std::all_of(domain_.begin(), domain_.end(), IsHostLetter)) {
            scanner_.Note(Flaw::NoHost);
            return {};
        }
        if (domain_.size() > kLongestDomainLookedUp) {
            return {};
        }
        AsciiDomain ascii = AsciiDomainOf(domain_);
        if (ascii.IsRefused) {
            scanner_.Note(Flaw::RefusedDomain);
        }
        if (ascii.HasNoLetters) {
            scanner_.Note(Flaw::NoLetters);
        }
        if (ascii.IsMapped) {
            scanner_.Note(Flaw::MappedDomain);
        }
        return std::move(ascii.Text);
    }

    void CheckLengths() {
        if (!is_literal_) {
            CheckLabelLengths();
        }
        if (name_.size() + 1 + domain_.size() > kLongestAddress) {
            scanner_.Note(Flaw::AddressLong);
        }
        if (domain_.size() > kLongestDomain) {
            scanner_.Note(Flaw::DomainLong);
        }
        if (name_.size() > kLongestName) {
            scanner_.Note(Flaw::NameLong);
        }
    }

    void CheckLabelLengths() {
        std::string_view rest = domain_;
        for (std::size_t dot = rest.find('.'); dot != std::string_view::npos;
             dot = rest.find('.')) {
            NoteLabelLength(dot);
            rest.remove_prefix(dot + 1);
        }
        NoteLabelLength(rest.size());
        if (rest.size() == domain_.size()) {
            scanner_.Note(Flaw::OneLabel);
        }
        if (std::all_of(rest.begin(), rest.end(), IsDigit)) {
            scanner_.Note(Flaw::NumberAtEnd);
        }
    }

    void NoteLabelLength(std::size_t length) {
        if (length > kLongestLabel) {
            scanner_.Note(Flaw::LabelLong);
        }
    }

    AddressScanner scanner_;
    std::string name_;
    std::string domain_;
    bool is_literal_ = false;
};

// What is the matter with all of a text, before it is read letter by letter.
Flaw FlawOfAll(std::string_view address) {
    if (CountUtf8(address).Bad > 0) {
        return Flaw::NotUtf8;
    }
    if (WithoutBlanksAround(address).empty()) {
        return Flaw::Empty;
    }
    return address.find('@') == std::string_view::npos ? Flaw::NoAt : Flaw::None;
}

}  // namespace

CheckedAddress CheckAddress(std::string_view address) {
    CheckedAddress checked;
    checked.Worst.What = FlawOfAll(address);
    if (checked.Worst.What == Flaw::None) {
        checked = Checker(address).Check();
    }
    // How Outlook calls people of its own server; some of these names could be addresses.
    if (checked.Class() == AddressClass::Bad && StartsAsName(address, "/O=") &&
        checked.Worst.What != Flaw::NotUtf8) {
        checked.Worst = {Flaw::Exchange};
    }
    return checked;
}

}  // namespace orvik::book

#include "book/address_flaw.h"

#include <array>
#include <cstddef>

namespace orvik::book {
namespace {

using enum AddressClass;

struct Row {
    Flaw What;
    AddressClass Class;
    // % stands for the side of the @, $ for the sign.
    std::string_view Words;
};

constexpr auto kRows = std::to_array<Row>({
    {Flaw::None, Valid, ""},
    {Flaw::OneLabel, Odd, "a domain without a dot"},
    {Flaw::NumberAtEnd, Odd, "a domain that ends in a number"},
    {Flaw::Quoted, Odd, "a name in quotation marks"},
    {Flaw::Machine, Odd, "the number of a machine instead of a domain"},
    {Flaw::Blanks, Odd, "blanks or line breaks around it"},
    {Flaw::Comment, Odd, "a comment"},
    {Flaw::MappedDomain, Odd, "a domain in letters that stand for others"},
    {Flaw::HiddenLetter, Odd, "a letter in the name that nobody sees"},
    {Flaw::LostLetter, Odd, "a letter of the name was lost"},
    {Flaw::OneGroup, Deprecated, "an IPv6 address with :: for one group"},
    {Flaw::FoldedTwice, Deprecated, "a line of nothing but blanks"},
    {Flaw::ControlInside, Deprecated, "a control letter in quotation marks or a comment"},
    {Flaw::EscapedControl, Deprecated, "a control letter behind a backslash"},
    {Flaw::GapBesideAt, Deprecated, "blanks or comments beside the @"},
    {Flaw::GapInDomain, Deprecated, "blanks or comments beside a dot of the domain"},
    {Flaw::OldName, Deprecated, "quotes, blanks or comments beside a dot of the name"},
    {Flaw::NoHost, Odd, "a sign in the domain that no host has"},
    {Flaw::NoLetters, Odd, "a label of the domain that begins with xn-- and stands for no letters"},
    {Flaw::UnknownLiteral, Odd, "brackets around what is no IP address"},
    {Flaw::NoIpAddress, Odd, "an IPv6 address that is none"},
    {Flaw::AddressLong, Odd, "longer than 254 bytes"},
    {Flaw::DomainLong, Odd, "a domain longer than 255 bytes"},
    {Flaw::LabelLong, Odd, "a label of the domain is longer than 63 bytes"},
    {Flaw::NameLong, Odd, "a name longer than 64 bytes"},
    {Flaw::Exchange, Odd, "an Exchange name, no internet address"},
    {Flaw::NotUtf8, Bad, "bytes that are no text"},
    {Flaw::Empty, Bad, "nothing but blanks"},
    {Flaw::NoAt, Bad, "no @"},
    {Flaw::NoName, Bad, "nothing before the @"},
    {Flaw::NoDomain, Bad, "nothing behind the @"},
    {Flaw::TwoAt, Bad, "two @"},
    {Flaw::DotAtStart, Bad, "a dot at the start of the %"},
    {Flaw::DotAtEnd, Bad, "a dot at the end of the %"},
    {Flaw::TwoDots, Bad, "two dots in a row in the %"},
    {Flaw::HyphenAtStart, Bad, "a hyphen at the start of a label of the domain"},
    {Flaw::HyphenAtEnd, Bad, "a hyphen at the end of a label of the domain"},
    {Flaw::BlankInside, Bad, "a blank in the %"},
    {Flaw::CommentInside, Bad, "a comment in the middle of the %"},
    {Flaw::LineBreak, Bad, "a line break in the %"},
    {Flaw::Control, Bad, "a control letter in the %"},
    {Flaw::Sign, Bad, "the sign $ in the %"},
    {Flaw::QuoteOpen, Bad, "a quotation that is never closed"},
    {Flaw::CommentOpen, Bad, "a comment that is never closed"},
    {Flaw::BracketOpen, Bad, "a bracket that is never closed"},
    {Flaw::BackslashAtEnd, Bad, "a backslash at the end"},
    {Flaw::BackslashBefore, Bad, "a backslash before a letter that is not ASCII"},
    {Flaw::BehindQuote, Bad, "letters behind the closing quotation mark"},
    {Flaw::BehindBracket, Bad, "letters behind the closing bracket"},
    {Flaw::RefusedDomain, Bad, "letters that no domain may have, or not in this order"},
});

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].What != static_cast<Flaw>(i)) {
            return false;
        }
    }
    return kRows.size() == static_cast<std::size_t>(Flaw::kCount);
}
static_assert(IsInOrder());

const Row& RowOf(Flaw flaw) {
    return kRows[static_cast<std::size_t>(flaw)];
}

}  // namespace

AddressClass ClassOf(Flaw flaw) {
    return RowOf(flaw).Class;
}

std::string_view NameOf(AddressClass which) {
    constexpr std::array<std::string_view, 4> kNames = {"valid", "odd", "deprecated", "bad"};
    return kNames[static_cast<std::size_t>(which)];
}

std::string WordsFor(const Finding& finding) {
    std::string words;
    for (const char c : RowOf(finding.What).Words) {
        if (c == '%') {
            words += finding.Where == Side::Name ? "name" : "domain";
        } else {
            words += c == '$' ? finding.Letter : c;
        }
    }
    return words;
}

}  // namespace orvik::book

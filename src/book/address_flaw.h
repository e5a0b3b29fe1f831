// What can be said against an e-mail address, and how grave it is.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvik::book {

enum class AddressClass : std::uint8_t { Valid, Odd, Deprecated, Bad };

// From the lightest to the gravest; an address is called after its gravest one.
enum class Flaw : std::uint8_t {
    None,
    // Odd: mail goes there, but few addresses look so.
    OneLabel,
    NumberAtEnd,
    Quoted,
    Machine,
    Blanks,
    Comment,
    MappedDomain,
    HiddenLetter,
    LostLetter,
    // Deprecated: forms that programs still have to read, and must not write.
    OneGroup,
    FoldedTwice,
    ControlInside,
    EscapedControl,
    GapBesideAt,
    GapInDomain,
    OldName,
    // Odd: a message may hold it, but no mail goes there.
    NoHost,
    NoLetters,
    UnknownLiteral,
    NoIpAddress,
    AddressLong,
    DomainLong,
    LabelLong,
    NameLong,
    Exchange,
    // Bad: no address by any of the rules.
    NotUtf8,
    Empty,
    NoAt,
    NoName,
    NoDomain,
    TwoAt,
    DotAtStart,
    DotAtEnd,
    TwoDots,
    HyphenAtStart,
    HyphenAtEnd,
    BlankInside,
    CommentInside,
    LineBreak,
    Control,
    Sign,
    QuoteOpen,
    CommentOpen,
    BracketOpen,
    BackslashAtEnd,
    BackslashBefore,
    BehindQuote,
    BehindBracket,
    RefusedDomain,
    kCount
};

// The sides of the @.
enum class Side : std::uint8_t { Name, Domain };

// One flaw, where it is, and the sign that it is about.
struct Finding {
    Flaw What = Flaw::None;
    Side Where = Side::Name;
    char Letter = '\0';
};

[[nodiscard]] AddressClass ClassOf(Flaw flaw);
// "valid", "odd", "deprecated", "bad"
[[nodiscard]] std::string_view NameOf(AddressClass which);
// WordsFor: for a person; empty for None.
//   {DotAtEnd, Name} -> "a dot at the end of the name";  {Sign, Domain, ','} -> "the sign , in the
//   domain"
[[nodiscard]] std::string WordsFor(const Finding& finding);

}  // namespace orvik::book

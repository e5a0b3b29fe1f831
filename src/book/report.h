// What became of the records and their values, told to the user.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>

#include "book/field_names.h"

namespace orvik::book {

enum class What : std::uint8_t { Read, Kept, Carried, Lost, Doubtful, Skipped };

enum class Reason : std::uint8_t {
    None,
    NotBegun,      // a line outside of all records
    NoField,       // a line that is no field
    ChangeRecord,  // a record that deletes or changes another one
    Control,       // a control of a change record
    Added,         // a record that a change record adds
    NamedFile,     // the value is in a file or on the network
    NoBase64,      // a value that should be base64
    NoLetter,      // bytes that are no text
    LineOfBlanks,  // taken for the empty line between two records
    TabFolding,    // a continuation that begins with a tab
    TwoLines,      // a field that can be there only once
    NotEnded,      // a record without its end
    NotNested,     // an end without its begin
    NoVersion,     // a card without its version
    OtherVersion,  // a version that nobody has defined
    CutOff,        // a file that ends inside of a value
    NoName,        // a list without a name
    NotFound,      // a member that is no record here
    NoQuotedPrintable,
    UnknownCharset,  // a character set that nobody knows
    Blanks,          // blanks around a line that should have none
    FewParts,        // a value with fewer components than it should have
    Empty,           // a record without a field
    ChangedSigns,    // signs that the target cannot hold became others
    NotInTarget,     // the target has no such field
    EncodedTwice,    // UTF-8 that was taken for another set, and became UTF-8 again
    NotClosed,       // a quote that nothing closes
    OddQuote,        // a quote inside of a cell that is not doubled
    ManyRows,        // a cell that holds what looks like rows
    NoColumn,        // a cell behind the last column
    HeaderAgain,     // the header of a table inside of it
    GuessedName,     // a name in one piece that was parted
    NoKind,          // a phone or an address whose kind the target cannot tell
    NoSuchLetter,    // letters that are not in the target's set
    NoLists,         // a list, of which the target knows none
    ListInList,      // a list in a list, where the target knows members only
    TooMany,         // one more than the program takes
    NotRead,         // a value that the program finds in the file and passes over
    TooLarge,        // more bytes than the program takes
    Elsewhere,       // a list whose members are in several files
    SharedName,      // a member whose name more than one record has
    Setting,         // something of the program that is no address
    Exchanged,       // a name in the place of the address, and the other way round
    Deleted,         // a record that its program would not show
    PartedElse,      // a value whose parts the target does not tell apart
    TakenNickname,   // a nickname that stands for another record in the target
    NotAlone,        // a list beside others, where a file of the target is one list
    PutTogether,     // one record made of two that a comma had parted
    OddSigns,        // signs that the format does not allow
    NoAddress,       // a record without an address, where the target knows nobody else
    kCount
};

[[nodiscard]] std::string_view NameOf(What what);
// In words, for a person.
[[nodiscard]] std::string_view WordsFor(Reason reason);

// The texts stand in a source or in the book's arena. Line is the first one of the record.
struct Remark {
    std::string_view Field;
    std::string_view Value;
    std::uint32_t File = 0;
    std::uint32_t Line = 0;
    NameId Target = FieldNames::kNone;
    What Kind = What::Kept;
    Reason Why = Reason::None;
};
static_assert(sizeof(Remark) <= 48);

class Report {
 public:
    // Consecutive lines that were skipped for one reason are one remark; each counts.
    void Add(const Remark& remark);
    // Counts what needs no remark of its own.
    void CountMore(What what, std::size_t count = 1) {
        counts_[static_cast<std::size_t>(what)] += count;
    }
    [[nodiscard]] std::size_t Count(What what) const {
        return counts_[static_cast<std::size_t>(what)];
    }
    [[nodiscard]] const std::deque<Remark>& Remarks() const { return remarks_; }

 private:
    std::deque<Remark> remarks_;
    std::array<std::size_t, 6> counts_{};
    std::uint32_t last_skipped_ = 0;
};

}  // namespace orvik::book

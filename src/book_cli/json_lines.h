// Records, and what became of them, as JSON: one object a line.

#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/differences.h"
#include "book/identity.h"
#include "book/match/match_line.h"
#include "book/members.h"

namespace orvik::book_cli {

// A book with the UIDs of its contacts, and its members.
class Catalogue {
 public:
    // The book must outlive it.
    explicit Catalogue(const book::Book& book) : book_(book) {}

    [[nodiscard]] const book::Book& Book() const { return book_; }
    [[nodiscard]] const book::Identities& Uids() const { return uids_; }
    [[nodiscard]] const book::Directory& Members() const { return directory_; }

 private:
    const book::Book& book_;
    book::Identities uids_{book_};
    book::Directory directory_{book_, uids_};
};

// PrintRecord: a line {"kind":"person","uid":...,"origin":{"file":...,"line":...}}. Bytes that are
// no text become U+FFFD.
void PrintRecord(std::ostream& out, const Catalogue& from, std::size_t contact);

// What is told of a person who was found in mail, besides the record.
struct FoundEntry {
    std::size_t Count = 0;
    // Times as "2001-03-04T10:00:00Z"; empty for none.
    std::string First;
    std::string Last;
    struct Place {
        std::string_view File;
        std::vector<std::string_view> Fields;
        std::size_t Count = 0;
    };
    std::vector<Place> Seen;
    bool SeenElsewhere = false;
};
// PrintFound: a record as PrintRecord does, with "count", "first", "last", "seen" and
// "seen_elsewhere" behind it; a time that nobody knows is null.
void PrintFound(std::ostream& out,
                const Catalogue& from,
                std::size_t contact,
                const FoundEntry& found);

// PrintDifference: the same of a contact that is only in one book, or changed, with what that is
// and the names of the fields that differ.
void PrintDifference(std::ostream& out,
                     const Catalogue& left,
                     const Catalogue& right,
                     const book::Compared& found);

// MatchJson: {"action":"ask","tier":"agree","reason":...,"records":[{"file":"a.vcf","line":3,
// "name":"Al"},...]} of records that may be one person.
[[nodiscard]] std::string MatchJson(const book::Book& book, const book::MatchLine& line);

// What a line of a report says.
struct ReportEntry {
    std::string_view What;
    std::string_view File;
    std::size_t Line = 0;
    std::string_view Field;
    std::string_view Value;
    std::string_view Target;
    std::string_view Reason;
};
// {"what":"carried","file":"a.ldif","line":1,"field":...,"value":...,"target":...,"reason":...}
[[nodiscard]] std::string ReportLine(const ReportEntry& entry);

// What a line about an address says.
struct AddressEntry {
    std::string_view File;
    std::size_t Line = 0;
    std::string_view Address;
    std::string_view Class;
    std::string_view Reason;
    // Empty where there is no other form.
    std::string_view Ascii;
};
// {"file":"a.vcf","line":3,"address":...,"class":"odd","reason":...}, and "ascii" where there is
// one
[[nodiscard]] std::string AddressLine(const AddressEntry& entry);

}  // namespace orvik::book_cli

// One person as a row of a program's CSV.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "book/address_book.h"
#include "book/csv_kinds.h"
#include "book/csv_layout.h"
#include "book/csv_row_writer.h"
#include "book/readable_value.h"
#include "book/windows_1252.h"

namespace orvik::book {

// The column that a field of CSV came from, as the target calls it.
struct CsvTarget {
    std::string Header;     // as it was read
    std::string_view Name;  // of the field; empty for one that the target has not
    std::uint32_t Number = 0;
};

// CarriedTarget: where a value goes that was kept under its header.
//   "X-ORVIK-CSV-Konto" for Outlook -> "Konto", account;  "X-ORVIK-CSV-Foo" -> "Foo", none
[[nodiscard]] CsvTarget CarriedTarget(const Book& book, const Property& one, CsvProgram program);

// Whether a value can have numbered columns of Google: it holds something that is not taken for
// several values, and a relation is no reference to another record.
[[nodiscard]] bool MayBeNumbered(const Book& book, const Property& one);

class CsvPersonWriter {
 public:
    // All must outlive this.
    CsvPersonWriter(Book& book,
                    CsvProgram program,
                    const CsvLayout& layout,
                    const Windows1252& letters,
                    CsvRowWriter& row);

    // lists are the names of those that the person is in.
    void Write(const Contact& contact, std::span<const std::string_view> lists);

 private:
    // A value with its kind, to be placed when all of them are known.
    struct Reach {
        const Property* One = nullptr;
        KindOfProperty Kind;
        bool Placed = false;
        std::size_t Post = 0;  // the columns of a postal address that is placed
    };
    // A label that was printed, and how many postal addresses stand before it.
    struct PostLabel {
        const Property* One = nullptr;
        std::size_t Behind = 0;
    };
    struct PhoneColumn {
        std::size_t Column = 0;
        KindBits Bits = 0;
    };
    // The columns of a postal address: a kind of it, or a number.
    struct PostColumns {
        std::array<std::size_t, 7> Parts{};
        std::size_t MoreStreet = CsvLayout::kNone;
        std::size_t Whole = CsvLayout::kNone;
        std::size_t Label = CsvLayout::kNone;
        KindBits Bits = 0;
        bool Used = false;
    };
    // The columns of a numbered value.
    struct Numbered {
        std::size_t Value = CsvLayout::kNone;
        std::size_t Label = CsvLayout::kNone;
    };

    void Prepare();
    void PreparePosts();
    [[nodiscard]] std::vector<Numbered> NumberedOf(std::string_view name) const;

    void Take(const Property& one);
    void TakeNickname(const Property& one);
    void TakeDate(const Property& one);
    void TakeMedia(const Property& one);
    void TakeGender(const Property& one);
    void TakeOther(const Property& one);
    void TakeOwnField(const Property& one, std::string_view name);

    void WriteEmails();
    void WritePhones();
    bool WritePhone(Reach& phone, bool exact);
    void WritePosts();
    bool WritePost(Reach& post, PostColumns& columns);
    void WritePostLabels();
    bool WritePostLabel(const PostLabel& label);
    void WriteUrls();
    void WriteNumbered(std::vector<Reach>& all, std::span<const Numbered> columns);
    bool WriteKindLabel(const Reach& reach, std::size_t column);

    void WriteName();
    [[nodiscard]] bool FollowsFromRest(std::string_view shown);
    void WriteOrganisation();
    void WriteGroups(std::span<const std::string_view> lists);
    void WriteRelations();
    void WriteCarried();
    void WriteBirthParts();
    void WriteShownAddresses();
    void WriteNote();

    // Whether a cell can hold a value and does; a program may part it at its own sign.
    bool Put(std::size_t column, std::string_view value);
    [[nodiscard]] bool Fits(std::string_view value) const;
    void AddNote(std::string_view label, std::string_view value);

    // What became of a property.
    void Kept(const Property& one);
    void WithoutKind(const Property& one);
    void Carry(const Property& one, std::string_view label, std::string_view value);
    void CarryReach(const Reach& reach);
    void Lose(const Property& one, Reason why);
    void Tell(const Property& one, What what, Reason why, NameId target = FieldNames::kNone);

    [[nodiscard]] bool IsBytes(const Property& one) const;
    [[nodiscard]] bool IsText(const Property& one) const;
    const CsvTarget& TargetOf(const Property& one);

    Book& book_;
    CsvProgram program_;
    const CsvLayout& layout_;
    const Windows1252& letters_;
    CsvRowWriter& row_;
    bool google_;

    // What is prepared once.
    std::array<std::size_t, field::kKnown> simple_{};
    std::vector<PhoneColumn> phone_columns_;
    std::vector<PostColumns> post_columns_;
    std::vector<Numbered> numbered_emails_;
    std::vector<Numbered> numbered_phones_;
    std::vector<Numbered> numbered_urls_;
    std::vector<Numbered> numbered_relations_;
    std::array<std::size_t, 5> name_columns_{};
    std::array<std::size_t, 3> birth_columns_{};
    std::size_t full_name_ = 0;
    std::size_t note_column_ = 0;
    std::size_t groups_column_ = 0;
    std::size_t filed_column_ = 0;
    std::array<std::size_t, 2> firm_columns_{};
    // Of each address: the address, its sort, how it is shown.
    std::vector<std::array<std::size_t, 3>> shown_addresses_;
    NameId note_name_ = 0;
    std::map<std::pair<NameId, std::uint32_t>, CsvTarget> targets_;

    // Of the person who is being written.
    const Contact* contact_ = nullptr;
    GroupLabels labels_;
    std::vector<Reach> emails_;
    std::vector<Reach> phones_;
    std::vector<Reach> posts_;
    std::vector<Reach> urls_;
    std::vector<PostLabel> post_labels_;
    std::vector<const Property*> relations_;
    std::vector<const Property*> carried_;
    std::vector<const Property*> groups_;
    const Property* name_ = nullptr;
    const Property* shown_ = nullptr;
    const Property* firm_ = nullptr;
    std::string notes_;
    std::string lines_;
    std::unordered_set<std::string> seen_groups_;
};

}  // namespace orvik::book

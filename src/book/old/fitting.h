// What of a record has a place in an old format, and what becomes of the rest. Each value is taken
// once; what nobody took becomes lines of the notes where the format has notes, and is lost
// elsewhere. All of it is told.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "book/address_book.h"
#include "book/csv_kinds.h"
#include "book/members.h"
#include "book/windows_1252.h"

namespace orvik::book {

struct OldForm {
    // Fields called X-ORVIK-<Own>-... are its own.
    std::string_view Own = {};
    // Whether its letters are those of windows-1252.
    bool Windows = false;
    bool Notes = false;
};

// Tells that a member of a list has no place in it.
void TellLostMember(Book& book, const Contact& list, const ListMember& member);

// OneLine: a text with a sign in place of each line break, and blanks for other control letters.
[[nodiscard]] std::string OneLine(std::string_view text, std::string_view line_break = " ");

class Fitting {
 public:
    // Which words a format can hold.
    using Fits = bool (*)(std::string_view word);

    static bool IsAny(std::string_view /*word*/) { return true; }

    // The book must outlive this.
    Fitting(Book& book, const OldForm& form);

    // Begins a record. What makes a list one, and housekeeping, is nobody's.
    void Begin(const Contact& contact);

    // The name of a person in one piece; that of the firm where there is no other.
    [[nodiscard]] std::string TakeName();
    // The same, else the first nickname, which nobody takes by that: programs list people by name.
    [[nodiscard]] std::string TakeNameOrNickname();
    // The name of a list.
    [[nodiscard]] std::string TakeListName();
    // All addresses that hold something, the preferred ones first.
    [[nodiscard]] std::vector<const Property*> Addresses() const;
    // The first value of a name that nobody took; null for none.
    [[nodiscard]] const Property* Next(NameId name) const;
    // The same of one of these kinds.
    [[nodiscard]] const Property* NextOf(NameId name, std::span<const KindBits> kinds) const;
    [[nodiscard]] KindBits KindBitsOf(const Property& one) const;
    // Whether a field of a format's own, and its text in one line, is read as that field and no
    // other one.
    using OwnFits = bool (*)(std::string_view field, std::string_view line);
    // The fields of the format's own that nobody took and that fit, and what the format calls each.
    [[nodiscard]] std::vector<const Property*> OwnFields(OwnFits fits) const;
    [[nodiscard]] std::string OwnFieldOf(const Property& one) const;

    // Takes a value: its text in one line.
    [[nodiscard]] std::string Take(const Property& one);
    // Takes the words of a field that holds several, up to so many.
    [[nodiscard]] std::vector<std::string> TakeWords(NameId name, std::size_t most, Fits fits);
    // The first word of such a field.
    [[nodiscard]] static std::string FirstWordOf(const Property& one);
    // Takes the notes.
    [[nodiscard]] std::string TakeNotes(std::string_view line_break);
    // Takes a value that the writer wrote itself as this text.
    void Keep(const Property& one, std::string_view text);
    void Carry(const Property& one);
    void Doubt(const Property& one, Reason why);
    void Lose(const Property& one, Reason why);
    // A remark about the whole record, which is not written.
    void LoseAll(Reason why);

    // Ends the record: "Label: value" for each value that nobody took, if the format has notes;
    // at most so many bytes.
    [[nodiscard]] std::string Rest(std::string_view line_break, std::size_t most = kAny);

    static constexpr std::size_t kAny = ~std::size_t{0};

 private:
    [[nodiscard]] std::size_t NumberOf(const Property& one) const {
        return static_cast<std::size_t>(&one - contact_->Properties.data());
    }
    [[nodiscard]] bool IsOpen(const Property& one) const { return !taken_[NumberOf(one)]; }
    [[nodiscard]] bool IsOfListItself(const Property& one) const;
    [[nodiscard]] std::string RestOf(const Property& one) const;
    void TakeParts(const Property& parts, std::string_view shown);
    void Tell(const Property& one, What what, Reason why);

    Book& book_;
    OldForm form_;
    std::string own_;
    Windows1252 letters_;
    const Contact* contact_ = nullptr;
    std::vector<bool> taken_;
    GroupLabels labels_;
    // Words that had no place, by the number of their field.
    std::vector<std::pair<std::size_t, std::string>> words_;
};

}  // namespace orvik::book

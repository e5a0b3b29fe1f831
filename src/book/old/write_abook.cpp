#include "book/old/write_abook.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "book/csv_kinds.h"
#include "book/csv_lists.h"
#include "book/csv_values.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/old/fitting.h"
#include "book/old/post_lines.h"
#include "book/old/read_abook.h"
#include "book/readable_value.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kAbookHead =
    "# abook addressbook file\n"
    "\n"
    "[format]\n"
    "program=abook\n"
    "version=0.6.1\n"
    "\n";
constexpr std::size_t kMostOfAbook = 9;
constexpr std::size_t kLongestOfAbook = 80;
constexpr std::string_view kNoteBreak = " / ";

struct AbookPhone {
    std::string_view Key;
    std::array<KindBits, 3> Kinds;
};
constexpr std::array kAbookPhones = {
    AbookPhone{"phone", {kind::kHome, 0, kind::kOther}},
    AbookPhone{"workphone", {kind::kWork, kind::kWork | kind::kMain, kind::kMain}},
    AbookPhone{"fax", {kind::kFax, kind::kFax | kind::kWork, kind::kFax | kind::kHome}},
    AbookPhone{"mobile", {kind::kCell, kind::kCell | kind::kHome, kind::kCell | kind::kWork}},
};

bool IsGroup(std::string_view word) {
    return word.find(',') == std::string_view::npos;
}

// Whether a row of an entry is read as what it is.
bool IsAbookRow(std::string_view field, std::string_view line) {
    const bool named = field != "no-field";
    const std::string_view row = named ? field : line;
    return !row.empty() && !row.starts_with('#') && !IsAbookSection(row) &&
           row.find_first_of(named ? "=[" : "=") == std::string_view::npos &&
           !(named && IsAbookKeyword(field));
}

class AbookWriter {
 public:
    explicit AbookWriter(Book& book) : book_(book), entry_(book, {.Own = "ABOOK", .Notes = true}) {}

    std::string Write() {
        const Identities identities(book_);
        const Directory directory(book_, identities);
        const CsvLists lists(book_, directory);
        text_ = kAbookHead;
        std::size_t number = 0;
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == ContactKind::Person) {
                text_.append("\n[").append(std::to_string(number++)).append("]\n");
                WritePerson(book_.Contacts[i], lists.Of(i));
            }
            book_.CountWritten(i + 1);
        }
        return std::move(text_);
    }

 private:
    void Append(std::string_view key, std::string_view value) {
        if (!value.empty()) {
            text_.append(key).append("=").append(value).append("\n");
        }
    }

    void WritePerson(const Contact& contact, std::span<const std::string_view> lists) {
        entry_.Begin(contact);
        const std::string name = entry_.TakeName();
        // An entry without a name would be dropped.
        const std::string shown = OneLine(NameOf(book_, contact).Shown);
        Append("name", name.empty() ? (shown.empty() ? "?" : shown) : name);
        WriteAddresses();
        WritePost();
        WritePhones();
        const auto nicknames = entry_.TakeWords(field::kNickname, 1, Fitting::IsAny);
        Append("nick", nicknames.empty() ? std::string() : nicknames.front());
        if (const Property* const url = entry_.Next(field::kUrl); url != nullptr) {
            Append("url", entry_.Take(*url));
        }
        if (const Property* const day = entry_.Next(field::kAnniversary); day != nullptr) {
            const std::string text = entry_.Take(*day);
            const std::string date = PlainDate(text);
            Append("anniversary", date.empty() ? text : date);
        }
        WriteGroups(contact, lists);
        for (const Property* const one : entry_.OwnFields(IsAbookRow)) {
            const std::string field = entry_.OwnFieldOf(*one);
            const std::string value = entry_.Take(*one);
            if (field == "no-field") {
                text_.append(value).append("\n");
            } else {
                Append(field, value);
            }
        }
        std::string notes = entry_.TakeNotes(kNoteBreak);
        const std::string rest = entry_.Rest(kNoteBreak);
        notes.append(notes.empty() || rest.empty() ? "" : kNoteBreak).append(rest);
        Append("notes", notes);
    }

    void WriteAddresses() {
        std::string all;
        std::size_t count = 0;
        for (const Property* const one : entry_.Addresses()) {
            const std::string address = OneLine(one->Value);
            const bool fits = address.size() <= kLongestOfAbook && IsGroup(address);
            if (!fits || count == kMostOfAbook) {
                entry_.Lose(*one, fits ? Reason::TooMany : Reason::TooLarge);
                continue;
            }
            all.append(all.empty() ? "" : ",").append(entry_.Take(*one));
            ++count;
        }
        Append("email", all);
    }

    void WritePost() {
        const Property* const post = entry_.Next(field::kAdr);
        if (post == nullptr) {
            return;
        }
        // What stands beside the street goes below it.
        constexpr std::array<std::size_t, 3> kStreets = {2, 1, 0};
        std::vector<std::string> lines;
        for (const std::size_t part : kStreets) {
            AppendTextLines(Unescaped(PartAt(post->Value, part)), lines);
        }
        std::string below;
        for (std::size_t i = 1; i < lines.size(); ++i) {
            below.append(below.empty() ? "" : ", ").append(lines[i]);
        }
        Append("address", lines.empty() ? std::string() : lines.front());
        Append("address2", below);
        constexpr std::array<std::string_view, 4> kTowns = {"city", "state", "zip", "country"};
        for (std::size_t i = 0; i < kTowns.size(); ++i) {
            Append(kTowns[i], OneLine(Unescaped(PartAt(post->Value, i + 3)), ", "));
        }
        constexpr std::size_t kMostLines = 2;
        const bool beside = HoldsSomething(PartAt(post->Value, 0)) ||
                            HoldsSomething(PartAt(post->Value, 1)) || lines.size() > kMostLines;
        if (beside) {
            entry_.Doubt(*post, Reason::PartedElse);
        } else if (entry_.KindBitsOf(*post) != 0) {
            entry_.Doubt(*post, Reason::NoKind);
        } else {
            entry_.Keep(*post, post->Value);
        }
    }

    void WritePhones() {
        for (const AbookPhone& one : kAbookPhones) {
            const Property* const phone = entry_.NextOf(field::kTel, one.Kinds);
            if (phone == nullptr) {
                continue;
            }
            Append(one.Key, OneLine(phone->Value));
            if (entry_.KindBitsOf(*phone) == one.Kinds.front()) {
                static_cast<void>(entry_.Take(*phone));
            } else {
                entry_.Doubt(*phone, Reason::NoKind);
            }
        }
    }

    void WriteGroups(const Contact& contact, std::span<const std::string_view> lists) {
        std::vector<std::string> groups =
            entry_.TakeWords(field::kCategories, Fitting::kAny, IsGroup);
        std::unordered_set<std::string> seen(groups.begin(), groups.end());
        for (const std::string_view list : lists) {
            std::string group = OneLine(list);
            if (!IsGroup(group)) {
                // A comma parts groups.
                std::replace(group.begin(), group.end(), ',', ' ');
                book_.Told.Add({book_.Names.Text(field::kFn),
                                list,
                                contact.From.File,
                                contact.From.Line,
                                FieldNames::kNone,
                                What::Doubtful,
                                Reason::ChangedSigns});
            }
            if (seen.insert(group).second) {
                groups.push_back(std::move(group));
            }
        }
        std::string all;
        for (const std::string& group : groups) {
            all.append(all.empty() ? "" : ",").append(group);
        }
        Append("groups", all);
    }

    Book& book_;
    Fitting entry_;
    std::string text_;
};

}  // namespace

std::string WriteAbook(Book& book) {
    return AbookWriter(book).Write();
}

}  // namespace orvik::book

#include "book/old/write_pegasus_text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "book/csv_kinds.h"
#include "book/csv_lists.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/old/fitting.h"
#include "book/old/mailboxes.h"
#include "book/old/post_lines.h"
#include "book/old/read_pegasus_text.h"
#include "book/readable_value.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// A field of the binary book has one byte more.
constexpr std::size_t kNameLength = 39;
constexpr std::size_t kKeyLength = 11;
constexpr std::size_t kStreetLength = 59;
constexpr std::size_t kPhoneLength = 23;
constexpr std::size_t kNotesLength = 79;
constexpr std::size_t kAddressLength = 99;

constexpr std::array<KindBits, 4> kPhones = {0, kind::kWork, kind::kHome, kind::kCell};
constexpr std::array<KindBits, 3> kFaxes = {
    kind::kFax, kind::kFax | kind::kWork, kind::kFax | kind::kHome};
constexpr std::array<KindBits, 1> kWork = {kind::kWork};
constexpr std::array<KindBits, 3> kPostal = {0, kind::kHome, kind::kOther};

// Whether a row of an entry is read as what it is.
bool IsPegasusRow(std::string_view field, std::string_view line) {
    if (field == "no-field") {
        return !line.empty() && line != "--" && line.find(':') == std::string_view::npos;
    }
    return field == "Picture" ||
           (!field.empty() && !IsPegasusLabel(field) && field.find(':') == std::string_view::npos);
}

class PegasusTextWriter {
 public:
    explicit PegasusTextWriter(Book& book)
        : book_(book), entry_(book, {.Own = "PEGASUS", .Windows = true, .Notes = true}) {}

    std::string Write() {
        const Identities identities(book_);
        const Directory directory(book_, identities);
        // Tells that they are lost.
        const CsvLists lists(book_, directory, Reason::NoLists);
        std::size_t done = 0;
        for (const Contact& contact : book_.Contacts) {
            if (contact.Kind == ContactKind::Person) {
                WritePerson(contact);
            }
            book_.CountWritten(++done);
        }
        std::string bytes;
        Windows1252().Append(text_, bytes);
        return bytes;
    }

 private:
    void Append(std::string_view label, std::string_view value) {
        constexpr std::size_t kColumn = 17;
        std::string start = std::string(label) + ":";
        start.resize(std::max(start.size() + 1, kColumn), ' ');
        text_.append(start).append(value).append("\r\n");
    }

    // A value with its label; what is too long is cut by the program.
    void AppendShort(std::string_view label, std::string_view value, std::size_t most) {
        Append(label, value);
        if (value.size() > most) {
            book_.Told.Add({book_.Keep(label),
                            book_.Keep(value),
                            from_.File,
                            from_.Line,
                            FieldNames::kNone,
                            What::Doubtful,
                            Reason::TooLarge});
        }
    }

    void WritePerson(const Contact& contact) {
        from_ = contact.From;
        entry_.Begin(contact);
        AppendShort("Name", entry_.TakeNameOrNickname(), kNameLength);
        AppendShort("Of", Firm(), kNameLength);
        const auto keys = entry_.TakeWords(field::kNickname, 1, Fitting::IsAny);
        AppendShort("Key", keys.empty() ? std::string() : keys.front(), kKeyLength);
        AppendShort("Street address", Post(entry_.NextOf(field::kAdr, kWork)), kStreetLength);
        AppendShort("Postal address", Post(entry_.NextOf(field::kAdr, kPostal)), kStreetLength);
        AppendShort("E-mail address", Addresses(), kAddressLength);
        AppendShort("Phone number", Phone(kPhones), kPhoneLength);
        AppendShort("Fax number", Phone(kFaxes), kPhoneLength);
        std::string picture;
        std::string others;
        OwnRows(picture, others);
        std::string notes = entry_.TakeNotes(" ");
        const std::size_t room = kNotesLength - std::min(kNotesLength, notes.size() + 2);
        const std::string rest = entry_.Rest("; ", room);
        notes.append(notes.empty() || rest.empty() ? "" : "; ").append(rest);
        AppendShort("Notes", notes, kNotesLength);
        Append("Picture", picture);
        text_.append(others).append("-- \r\n\r\n");
    }

    std::string Firm() {
        const Property* const firm = entry_.Next(field::kOrg);
        if (firm == nullptr) {
            return {};
        }
        if (PartCount(firm->Value) > 1) {
            entry_.Doubt(*firm, Reason::PartedElse);
            return OneLine(ReadableValue(book_, *firm));
        }
        return entry_.Take(*firm);
    }

    std::string Post(const Property* post) {
        std::string text;
        if (post != nullptr) {
            for (const std::string& line : TakePostLines(entry_, *post)) {
                text.append(text.empty() ? "" : ", ").append(line);
            }
        }
        return text;
    }

    std::string Addresses() {
        std::string all;
        bool row = true;
        for (const Property* const one : entry_.Addresses()) {
            const std::string address = OneLine(one->Value);
            const bool first = all.empty();
            const bool alone = IsAddressAlone(address);
            if (!first && (!row || !alone || all.size() + address.size() + 2 > kAddressLength)) {
                continue;
            }
            all.append(first ? "" : ", ").append(address);
            // What is no row of addresses is read in one piece.
            row = row && alone;
            if (alone || MailboxesOf(address).size() < 2) {
                static_cast<void>(entry_.Take(*one));
            } else {
                entry_.Doubt(*one, Reason::ChangedSigns);
            }
        }
        return all;
    }

    std::string Phone(std::span<const KindBits> kinds) {
        const Property* const phone = entry_.NextOf(field::kTel, kinds);
        if (phone == nullptr) {
            return {};
        }
        if (const KindBits bits = entry_.KindBitsOf(*phone); bits != kinds.front()) {
            entry_.Doubt(*phone, Reason::NoKind);
            return OneLine(phone->Value);
        }
        return entry_.Take(*phone);
    }

    void OwnRows(std::string& picture, std::string& others) {
        for (const Property* const one : entry_.OwnFields(IsPegasusRow)) {
            const std::string field = entry_.OwnFieldOf(*one);
            const std::string value = entry_.Take(*one);
            if (field == "Picture") {
                picture = value;
            } else if (field == "no-field") {
                others.append(value).append("\r\n");
            } else {
                others.append(field).append(": ").append(value).append("\r\n");
            }
        }
    }

    Book& book_;
    Fitting entry_;
    Origin from_;
    std::string text_;
};

}  // namespace

std::string WritePegasusText(Book& book) {
    return PegasusTextWriter(book).Write();
}

}  // namespace orvik::book

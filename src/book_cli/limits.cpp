#include "book_cli/limits.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

#include "book/ldif_sets.h"
#include "book/picture_bytes.h"
#include "book/typed_views.h"
#include "book/value_form.h"
#include "book/vcard_fields.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"

namespace orvik::book_cli {
namespace {

using book::Dialect;
using book::Reason;

// The bytes of a picture; 0 for one that is somewhere else.
std::size_t BytesOfPhoto(const book::Book& book, const book::Property& photo) {
    const auto base64 = book::EmbeddedBase64(book, photo);
    return base64 ? book::BytesOfBase64(*base64) : 0;
}

class Doubts {
 public:
    Doubts(const ImportForm& form, book::Book& book, const Written& written)
        : form_(form), book_(book), written_(written) {}

    void AddAll() {
        const bool asks = form_.MembersByAddress || !form_.ListsInLists;
        const std::optional<Catalogue> catalogue =
            asks && HasLists(book_) ? std::optional<Catalogue>(std::in_place, book_) : std::nullopt;
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            const book::Contact& contact = book_.Contacts[i];
            if (contact.Kind == book::ContactKind::List) {
                AddOfList(contact);
                if (catalogue) {
                    AddOfMembers(*catalogue, contact);
                }
            } else {
                AddOfPerson(contact);
            }
            if (IsOver(LengthOf(contact, i), form_.Most.RecordBytes)) {
                Add(contact, {}, NameOf(contact), Reason::TooLarge);
            }
        }
    }

 private:
    void AddOfList(const book::Contact& list) {
        // The other writers tell of lists themselves.
        const bool cards = form_.Form == Dialect::VCard30 || form_.Form == Dialect::VCard40;
        if (!form_.TakesLists && (cards || form_.Form == Dialect::Ldif)) {
            Add(list, {}, NameOf(list), Reason::NoLists);
        }
    }

    // What the program does not find of a list, although the file has it.
    void AddOfMembers(const Catalogue& catalogue, const book::Contact& list) {
        for (const book::ListMember& one : catalogue.Members().MembersOf(list)) {
            if (one.Record == book::ListMember::kNobody) {
                continue;
            }
            const bool inner = book_.Contacts[one.Record].Kind == book::ContactKind::List;
            const bool bare = form_.MembersByAddress && !inner && one.Address.empty();
            if (bare || (inner && !form_.ListsInLists)) {
                Add(list,
                    book_.Names.Text(one.Field->Name),
                    book_.Keep(one.Name),
                    inner ? Reason::ListInList : Reason::NoAddress);
            }
        }
    }

    void AddOfPerson(const book::Contact& person) {
        std::size_t addresses = 0;
        std::map<std::string_view, std::size_t> phones;
        for (const book::Property& one : person.Properties) {
            if (one.Value.empty()) {
                continue;
            }
            if (one.Name == book::field::kPhoto) {
                AddOfPhoto(person, one);
            }
            const bool address = one.Name == book::field::kEmail;
            const bool phone = one.Name == book::field::kTel && form_.Most.PhonesOfKind > 0;
            if ((address && IsOver(++addresses, form_.Most.Addresses)) ||
                (phone && IsOver(++phones[book::PhoneNamesOf(book_, one).Names.Mozilla],
                                 form_.Most.PhonesOfKind))) {
                Add(person, book_.Names.Text(one.Name), one.Value, Reason::TooMany);
            }
        }
    }

    void AddOfPhoto(const book::Contact& person, const book::Property& photo) {
        const std::string_view field = book_.Names.Text(photo.Name);
        const std::size_t bytes = BytesOfPhoto(book_, photo);
        // The address of a picture is one in cards.
        const bool address = bytes == 0 && form_.Form != Dialect::Ldif;
        const bool unread = !form_.TakesPhotos || (form_.UsualPhotosOnly && !IsUsual(photo));
        if (unread && !address) {
            Add(person, field, {}, Reason::NotRead);
        } else if (IsOver(bytes, form_.Most.PhotoBytes)) {
            Add(person, field, {}, Reason::TooLarge);
        }
    }

    // Whether all programs know this kind of picture.
    [[nodiscard]] bool IsUsual(const book::Property& photo) const {
        constexpr std::array<std::string_view, 7> kUsual = {"image/jpeg",
                                                            "image/jpg",
                                                            "image/png",
                                                            "image/gif",
                                                            "image/bmp",
                                                            "image/x-bmp",
                                                            "image/x-ms-bmp"};
        const auto uri = book::SplitDataUri(photo.Value);
        std::string_view type = uri ? uri->Type : std::string_view{};
        for (const book::Param& param : book_.DetailsOf(photo).Params) {
            const bool media =
                param.Name == book::field::kType && book::IsMediaType(param.Value) && !uri;
            type = media ? param.Value : type;
        }
        const std::string found =
            book::MediaTypeOf(photo.Name, type, uri ? uri->Base64 : std::string_view(photo.Value));
        return std::find(kUsual.begin(), kUsual.end(), found) != kUsual.end();
    }

    static bool IsOver(std::size_t count, std::size_t most) { return most > 0 && count > most; }

    [[nodiscard]] std::size_t LengthOf(const book::Contact& contact, std::size_t number) const {
        return number + 1 < written_.Places.size()
                   ? written_.Places[number + 1] - written_.Places[number]
                   : book_.BytesOf(contact).size();
    }

    std::string_view NameOf(const book::Contact& contact) {
        return book_.Keep(book::NameOf(book_, contact).Shown);
    }

    void Add(const book::Contact& contact,
             std::string_view field,
             std::string_view value,
             Reason why) {
        book_.Told.Add({field,
                        value,
                        contact.From.File,
                        contact.From.Line,
                        book::FieldNames::kNone,
                        book::What::Doubtful,
                        why});
    }

    const ImportForm& form_;
    book::Book& book_;
    const Written& written_;
};

// Another file for the same program that may hold any number of records; null for none.
const ImportForm* Unlimited(const Program& program) {
    const auto found = std::find_if(program.Forms.begin(),
                                    program.Forms.end(),
                                    [](const ImportForm& one) { return one.Most.Records == 0; });
    return found == program.Forms.end() ? nullptr : &*found;
}

}  // namespace

std::optional<TooMany> TooManyRecords(const Arguments& arguments, std::size_t records) {
    const std::size_t most = arguments.Form == nullptr ? 0 : arguments.Form->Most.Records;
    const std::size_t asked = arguments.Split == 0 ? records : std::min(arguments.Split, records);
    if (most == 0 || asked <= most) {
        return std::nullopt;
    }
    return TooMany{records, most, (records + most - 1) / most, Unlimited(*arguments.For)};
}

std::string TooManyFor(const Arguments& arguments, std::size_t records) {
    const auto found = TooManyRecords(arguments, records);
    if (!found) {
        return {};
    }
    std::string text(arguments.Form->Why);
    text += ", and there are " + std::to_string(records) + ". So nothing is written; --split " +
            std::to_string(found->Most);
    if (arguments.Output == kStandardStream) {
        text.append(" -o NAME").append(arguments.Form->Ending);
    }
    text += " writes " + Counted(found->Files, "file", "files");
    if (found->Unlimited != nullptr) {
        text.append(", and a ").append(found->Unlimited->Ending).append(" file may hold all");
    }
    return text;
}

std::string TooMuchInAll(const ImportForm& form, const book::Book& book, const Written& written) {
    constexpr std::size_t kMegabyte = 1024UL * 1024;
    const std::string keeper(form.Keeper);
    std::string text;
    if (form.Most.AllRecords > 0 && written.Records > form.Most.AllRecords) {
        text = keeper + " at most " + std::to_string(form.Most.AllRecords) +
               " contacts of one user, and there are " + std::to_string(written.Records);
    }
    const auto add = [&](std::size_t bytes, std::size_t most, std::string_view what) {
        if (most > 0 && bytes > most) {
            text += (text.empty() ? "" : "; ") + keeper + " at most " +
                    std::to_string(most / kMegabyte) + " MB of one user" + std::string(what) +
                    ", and there are " + std::to_string((bytes + kMegabyte - 1) / kMegabyte);
        }
    };
    std::size_t photos = 0;
    std::size_t photo_bytes = 0;
    for (const book::Contact& contact : book.Contacts) {
        for (const book::Property& one : contact.Properties) {
            if (one.Name == book::field::kPhoto) {
                photos += one.Value.size();
                photo_bytes += BytesOfPhoto(book, one);
            }
        }
    }
    add(written.Text.size() - std::min(written.Text.size(), photos),
        form.Most.AllBytes,
        " without pictures");
    add(photo_bytes, form.Most.AllPhotoBytes, " in pictures");
    return text;
}

void DoubtWhatIsTooMuch(const ImportForm& form, book::Book& book, const Written& written) {
    Doubts(form, book, written).AddAll();
}

}  // namespace orvik::book_cli

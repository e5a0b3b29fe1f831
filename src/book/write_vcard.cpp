#include "book/write_vcard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "book/ldif_dn.h"
#include "book/line_breaks.h"
#include "book/members.h"
#include "book/typed_views.h"
#include "book/unchanged.h"
#include "book/value_form.h"
#include "book/vcard_fields.h"
#include "book/vcard_line_writer.h"
#include "book/vcard_lines.h"

namespace orvik::book {
namespace {

class CardWriter {
 public:
    CardWriter(Book& book, Dialect version, GroupForm groups)
        : book_(book),
          version_(version),
          groups_(groups),
          identities_(book),
          directory_(book, identities_) {}

    std::string WriteAll(RecordPlaces* places) {
        const bool whole = places == nullptr &&
                           std::none_of(book_.Contacts.begin(),
                                        book_.Contacts.end(),
                                        [this](const Contact& one) { return HidesLines(one); });
        if (const auto bytes = whole ? UnchangedFile(book_, version_) : std::nullopt) {
            CountAllKept(book_);
            return std::string(*bytes);
        }
        FindNamed();
        text_.reserve(book_.LikelyLength());
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            const Contact& contact = book_.Contacts[i];
            if (places != nullptr) {
                places->push_back(text_.size());
            }
            if (const auto bytes = named_.contains(i) ? std::nullopt : AsItIs(contact)) {
                text_.append(*bytes);
                text_.append(text_.ends_with('\n') || text_.ends_with('\r') ? "" : "\r\n");
                book_.Told.CountMore(What::Kept, contact.Properties.size());
            } else {
                Write(contact, i);
            }
            book_.CountWritten(i + 1);
        }
        if (places != nullptr) {
            places->push_back(text_.size());
        }
        return std::move(text_);
    }

 private:
    // The bytes of a contact that need not be written anew.
    [[nodiscard]] std::optional<std::string_view> AsItIs(const Contact& contact) const {
        return HidesLines(contact) ? std::nullopt : UnchangedRecord(book_, contact, version_);
    }

    // Lists that are written anew name their members by UID, so that these need one.
    void FindNamed() {
        for (const Contact& list : book_.Contacts) {
            if (list.Kind != ContactKind::List || AsItIs(list)) {
                continue;
            }
            for (const ListMember& member : directory_.MembersOf(list)) {
                const bool by_uid = member.Field->Name == field::kMember ||
                                    member.Field->Name == field::kServerMember;
                if (by_uid && member.Record != ListMember::kNobody &&
                    FirstOf(book_, book_.Contacts[member.Record], field::kUid).empty()) {
                    named_.insert(member.Record);
                }
            }
        }
    }

    void Write(const Contact& contact, std::size_t number) {
        book_.TellLosses(contact);
        AppendFolded("BEGIN:VCARD", text_);
        AppendFolded(version_ == Dialect::VCard40 ? "VERSION:4.0" : "VERSION:3.0", text_);
        WriteFirst(contact, number);
        for (const Property& one : contact.Properties) {
            if (one.Name != field::kUid && one.Name != field::kN && one.Name != field::kFn) {
                WriteProperty(contact, one);
            }
        }
        AppendFolded("END:VCARD", text_);
    }

    // What each card has, made up from the rest where it lacks.
    void WriteFirst(const Contact& contact, std::size_t number) {
        if (WriteAll(contact, field::kUid) == 0) {
            std::string line = version_ == Dialect::VCard40 ? "UID:urn:uuid:" : "UID:";
            AppendFolded(line.append(identities_.UidAt(number)), text_);
        }
        if (WriteAll(contact, field::kN) == 0 && version_ == Dialect::VCard30) {
            AppendFolded("N:;;;;", text_);
        }
        if (WriteAll(contact, field::kFn) == 0) {
            std::string line = "FN:";
            AppendEscaped(NameOf(book_, contact).Shown, line);
            AppendFolded(line, text_);
        }
        const NameId kind = version_ == Dialect::VCard40 ? field::kKind : field::kServerKind;
        const bool told = !FirstOf(book_, contact, field::kKind).empty() ||
                          !FirstOf(book_, contact, field::kServerKind).empty() ||
                          !FirstOf(book_, contact, field::kEvolutionList).empty();
        if (contact.Kind == ContactKind::List && !told) {
            AppendFolded(std::string(book_.Names.Text(kind)) + ":group", text_);
        }
    }

    std::size_t WriteAll(const Contact& contact, NameId name) {
        std::size_t count = 0;
        for (const Property& one : contact.Properties) {
            if (one.Name == name) {
                WriteProperty(contact, one);
                ++count;
            }
        }
        return count;
    }

    void WriteProperty(const Contact& contact, const Property& one) {
        if (one.Name == field::kMember || one.Name == field::kServerMember) {
            return WriteMember(contact, one);
        }
        const Details& details = book_.DetailsOf(one);
        VCardName name = NameIn(version_, book_.Names.Text(one.Name));
        // Other kinds than groups have no name of old.
        if (one.Name == field::kKind && version_ == Dialect::VCard30 &&
            !SameName(one.Value, "group")) {
            name = {std::string(kCarriedFromVCard) + "KIND", true};
        }
        std::string line = StartOf(one, name.Text);
        const bool whole = AppendParams(one, details, line);
        if (const std::string breaks = BreaksOf(one.Value, ValueFormOf(book_.Names, one.Name));
            !breaks.empty()) {
            static_cast<void>(AppendParam(version_, kBreaksParam, breaks, line));
        }
        line += ":";
        AppendValue(one, name.Text, line);
        AppendFolded(line, text_);
        Tell(contact, one, whole ? What::Kept : What::Doubtful, name);
    }

    // Whether the program would pass over the line for its group. A name with a dot would be read
    // as another group.
    [[nodiscard]] bool IsHidden(const Property& one) const {
        return groups_ == GroupForm::Param && one.Name != field::kAbLabel &&
               !book_.DetailsOf(one).Group.empty() &&
               book_.Names.Text(one.Name).find('.') == std::string_view::npos;
    }
    [[nodiscard]] bool HidesLines(const Contact& contact) const {
        return std::any_of(contact.Properties.begin(),
                           contact.Properties.end(),
                           [this](const Property& one) { return IsHidden(one); });
    }

    [[nodiscard]] std::string StartOf(const Property& one, const std::string& name) const {
        const std::string group(book_.DetailsOf(one).Group);
        if (!IsHidden(one)) {
            return group.empty() ? name : group + "." + name;
        }
        std::string line = name;
        static_cast<void>(AppendParam(version_, kGroupParam, group, line));
        return line;
    }

    // as_uid: the value is a UID, whatever it was.
    bool AppendParams(const Property& one,
                      const Details& details,
                      std::string& line,
                      bool as_uid = false) {
        const bool newer = version_ == Dialect::VCard40;
        const bool bytes = newer && MayBeData(one) && IsBytes(one);
        bool whole = true;
        if (const auto uri = newer || !MayBeData(one) ? std::nullopt : SplitDataUri(one.Value)) {
            // Before other types, as it is read.
            line += ";ENCODING=b";
            const std::string_view type = TypeOfMedia(one.Name, uri->Type);
            whole = type.empty() || AppendParam(version_, "TYPE", type, line);
        }
        const Param* const media = bytes ? MediaParam(details) : nullptr;
        for (const Param& param : details.Params) {
            const bool preferred = SameName(param.Value, "pref") && param.Name == field::kType;
            if ((bytes && (param.Name == field::kEncoding || &param == media)) ||
                (as_uid && param.Name == field::kValue)) {
                continue;
            }
            if (preferred && newer) {
                line += ";PREF=1";
            } else if (param.Name == field::kPref && param.Value == "1" && !newer) {
                line += ";TYPE=PREF";
            } else {
                whole =
                    AppendParam(version_, book_.Names.Text(param.Name), param.Value, line) && whole;
            }
        }
        return whole;
    }

    // The parameter that says what bytes are; null for none.
    [[nodiscard]] static const Param* MediaParam(const Details& details) {
        const auto found =
            std::find_if(details.Params.begin(), details.Params.end(), [](const Param& param) {
                return param.Name == field::kType && IsMediaType(param.Value);
            });
        return found == details.Params.end() ? nullptr : &*found;
    }

    // Pictures, sounds and keys, whose bytes 4.0 writes as an address that holds them.
    [[nodiscard]] static bool MayBeData(const Property& one) {
        constexpr std::array kNames = {field::kPhoto, field::kLogo, field::kSound, field::kKey};
        return std::find(kNames.begin(), kNames.end(), one.Name) != kNames.end();
    }

    [[nodiscard]] bool IsBytes(const Property& one) const {
        return ParamOf(book_, one, field::kEncoding) == "b";
    }

    void AppendValue(const Property& one, std::string_view name, std::string& line) const {
        const bool newer = version_ == Dialect::VCard40;
        const auto uri = newer || !MayBeData(one) ? std::nullopt : SplitDataUri(one.Value);
        const bool address =
            SameName(ParamOf(book_, one, field::kValue), "uri") && one.Name < field::kKnown;
        const ValueForm form = ValueFormOf(book_.Names, one.Name);
        if (newer && MayBeData(one) && IsBytes(one)) {
            const Param* const media = MediaParam(book_.DetailsOf(one));
            const std::string_view type = media == nullptr ? std::string_view{} : media->Value;
            line.append("data:").append(MediaTypeOf(one.Name, type, one.Value));
            line.append(";base64,").append(one.Value);
        } else if (uri) {
            line += uri->Base64;
        } else if (IsDate(name) && !SameName(ParamOf(book_, one, field::kValue), "text")) {
            line += DateIn(version_, one.Value);
        } else if (form == ValueForm::Text && !address && !IsBytes(one)) {
            AppendEscaped(one.Value, line);
        } else {
            AppendOneLine(one.Value, line);
        }
    }

    [[nodiscard]] static bool IsDate(std::string_view name) {
        return SameName(name, "BDAY") || SameName(name, "REV") || SameName(name, "ANNIVERSARY");
    }

    // A member is named by its UID, else by its address, else as the list named it.
    void WriteMember(const Contact& contact, const Property& one) {
        const ListMember member = directory_.MemberOf(one);
        const VCardName name = NameIn(version_, "MEMBER");
        const bool found = member.Record != ListMember::kNobody;
        std::string line = StartOf(one, name.Text);
        bool whole = AppendParams(one, book_.DetailsOf(one), line, found);
        std::string value(one.Value);
        if (found) {
            value = AsUrn(directory_.UidOf(member));
        } else if (IsDn(one.Value) && !member.Address.empty()) {
            value = "mailto:" + member.Address;
            // What follows from the address need not be kept.
            whole = (one.Value == DnOf({}, member.Address) ||
                     AppendParam(version_, kDnParam, one.Value, line)) &&
                    whole;
        }
        line += ":";
        AppendOneLine(value, line);
        AppendFolded(line, text_);
        Tell(contact, one, whole ? What::Kept : What::Doubtful, name);
        TellMember(book_, contact, one, member);
    }

    void Tell(const Contact& contact, const Property& one, What what, const VCardName& name) {
        if (what == What::Kept && !name.Carried) {
            book_.Told.CountMore(What::Kept);
            return;
        }
        const bool carried = what == What::Kept;
        book_.Told.Add({book_.Names.Text(one.Name),
                        one.Value,
                        contact.From.File,
                        contact.From.Line,
                        book_.Names.Intern(name.Text),
                        carried ? What::Carried : What::Doubtful,
                        carried ? Reason::NotInTarget : Reason::ChangedSigns});
    }

    Book& book_;
    Dialect version_;
    GroupForm groups_;
    Identities identities_;
    Directory directory_;
    // Records without a UID of their own that lists name.
    std::unordered_set<std::size_t> named_;
    std::string text_;
};

}  // namespace

std::string WriteVCard(Book& book, Dialect version, RecordPlaces* places, GroupForm groups) {
    return CardWriter(book, version, groups).WriteAll(places);
}

}  // namespace orvik::book

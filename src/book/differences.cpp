#include "book/differences.h"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "app/text.h"
#include "book/typed_views.h"
#include "book/value_form.h"
#include "book/vcard_fields.h"

namespace orvik::book {
namespace {

constexpr std::array kOfTheRecord = {field::kUid,
                                     field::kRev,
                                     field::kProdId,
                                     field::kFn,
                                     field::kNickname,
                                     field::kMember,
                                     field::kServerMember};
// Fields whose types say which of several they are.
constexpr std::array<std::string_view, 6> kTyped = {"TEL", "ADR", "EMAIL", "URL", "LABEL", "IMPP"};

template <class Names, class Name>
bool IsIn(const Names& names, const Name& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The types of a field, sorted; that one of several comes first says nothing of it.
std::string TypesOf(const Book& book, const Property& one) {
    std::vector<std::string> types;
    for (const Param& param : book.DetailsOf(one).Params) {
        std::string type = ToLower(param.Value);
        if (param.Name == field::kType && type != "pref" && type != "internet") {
            types.push_back(std::move(type));
        }
    }
    std::sort(types.begin(), types.end());
    std::string text;
    for (const std::string& type : types) {
        text += "," + type;
    }
    return text;
}

class FieldsOf {
 public:
    FieldsOf(const Book& book, const Contact& contact)
        : book_(book), contact_(contact), shown_(NameOf(book, contact).Shown) {}

    std::vector<std::string> Lines(const Directory& directory, const CalledUids& called) && {
        Add("kind", contact_.Kind == ContactKind::List ? "list" : "person");
        Add("FN", shown_);
        for (const std::string& nickname : NicknamesOf(book_, contact_)) {
            Add("NICKNAME", nickname);
        }
        for (const ListMember& member : directory.MembersOf(contact_)) {
            const auto other = called.find(member.Record);
            Add("MEMBER",
                other != called.end()                  ? other->second
                : member.Record != ListMember::kNobody ? PlainUid(directory.UidOf(member))
                : !member.Address.empty()              ? ToLower(member.Address)
                                                       : member.Name);
        }
        for (const Property& one : contact_.Properties) {
            AddProperty(one);
        }
        std::sort(lines_.begin(), lines_.end());
        lines_.erase(std::unique(lines_.begin(), lines_.end()), lines_.end());
        return std::move(lines_);
    }

 private:
    void AddProperty(const Property& one) {
        std::string name = UpperName(NameIn(Dialect::VCard40, book_.Names.Text(one.Name)).Text);
        if (name.starts_with(kCarriedFromVCard)) {
            name.erase(0, kCarriedFromVCard.size());
        }
        // Names that were shown are told above; another one is a field of its own.
        const bool shown = one.Name == field::kFn && one.Value != shown_;
        if ((IsIn(kOfTheRecord, one.Name) && !shown) || name == "X-ORVIK-LDIF-DN" ||
            (name == "KIND" && SameName(one.Value, "group"))) {
            return;
        }
        const std::string types = IsIn(kTyped, name) ? TypesOf(book_, one) : "";
        const ValueForm form = ValueFormOf(book_.Names, one.Name);
        if (form == ValueForm::List) {
            std::string_view rest = one.Value;
            for (TakenPart part{{}, true}; part.More;) {
                part = TakePart(rest, ',');
                Add(name + types, Unescaped(part.Text));
            }
        } else {
            const bool date = name == "BDAY" || name == "ANNIVERSARY";
            Add(name + types, date ? DateIn(Dialect::VCard40, one.Value) : ValueOf(one, form));
        }
    }

    [[nodiscard]] static std::string ValueOf(const Property& one, ValueForm form) {
        if (const auto uri = SplitDataUri(one.Value)) {
            return std::string(uri->Base64);
        }
        std::string value(one.Value);
        if (form == ValueForm::Parts) {
            value.erase(value.find_last_not_of(';') + 1);
        }
        return value;
    }

    void Add(const std::string& name, std::string_view value) {
        value = WithoutBlanksAround(value);
        if (!value.empty()) {
            lines_.push_back(name + " " + std::string(value));
        }
    }

    const Book& book_;
    const Contact& contact_;
    std::string shown_;
    std::vector<std::string> lines_;
};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text.append(line).append("\n");
    }
    return text;
}

// The names of the lines that only one of two contacts has, each once.
std::vector<std::string> DifferentFields(const std::vector<std::string>& left,
                                         const std::vector<std::string>& right) {
    std::vector<std::string> lines;
    std::set_symmetric_difference(
        left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(lines));
    std::vector<std::string> names;
    std::unordered_set<std::string> there;
    for (const std::string& line : lines) {
        std::string name = line.substr(0, line.find_first_of(" ,"));
        if (there.insert(name).second) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

// One book of the two, and what its contacts are found by.
class SideKeys {
 public:
    SideKeys(const Book& book, const Identities& uids)
        : book_(book), uids_(uids), directory_(book, uids), taken_(book.Contacts.size(), false) {}

    [[nodiscard]] std::size_t Count() const { return taken_.size(); }
    [[nodiscard]] std::vector<std::string> Lines(std::size_t contact) const {
        return FieldLines(book_, directory_, contact, called_);
    }
    // Lists of both books have the same member then.
    void CallAs(std::size_t contact, const std::string& uid) {
        if (uid != UidKey(contact)) {
            called_.emplace(contact, uid);
        }
    }
    [[nodiscard]] std::string UidKey(std::size_t contact) const {
        return PlainUid(uids_.UidAt(contact));
    }
    [[nodiscard]] std::string ContentKey(std::size_t contact) const {
        return TextOf(Version5Uuid(Joined(Lines(contact))));
    }
    // Empty for one without a name, who could be anybody.
    [[nodiscard]] std::string NameKey(std::size_t contact) const {
        const Contact& one = book_.Contacts[contact];
        const std::string name = NameOf(book_, one).Shown;
        const std::string_view address = FirstOf(book_, one, field::kEmail);
        return name.empty() ? "" : ToLower(name + "\n" + std::string(address));
    }
    [[nodiscard]] bool IsTaken(std::size_t contact) const { return taken_[contact]; }
    void Take(std::size_t contact) { taken_[contact] = true; }

 private:
    const Book& book_;
    const Identities& uids_;
    Directory directory_;
    CalledUids called_;
    std::vector<bool> taken_;
};

using Key = std::string (SideKeys::*)(std::size_t) const;
// From the surest on.
constexpr std::array<Key, 3> kKeys = {&SideKeys::UidKey, &SideKeys::ContentKey, &SideKeys::NameKey};

// Finds for each contact of the left book that has none yet one of the right book with an equal
// key.
void Pair(SideKeys& left, SideKeys& right, Key key, std::vector<Compared>& found) {
    std::unordered_map<std::string, std::deque<std::size_t>> index;
    for (std::size_t i = 0; i < right.Count(); ++i) {
        if (!right.IsTaken(i)) {
            index[(right.*key)(i)].push_back(i);
        }
    }
    for (std::size_t i = 0; i < left.Count(); ++i) {
        const std::string wanted = left.IsTaken(i) ? "" : (left.*key)(i);
        const auto place = wanted.empty() ? index.end() : index.find(wanted);
        if (place != index.end() && !place->second.empty()) {
            found[i].Right = place->second.front();
            place->second.pop_front();
            left.Take(i);
            right.Take(found[i].Right);
        }
    }
}

}  // namespace

std::vector<std::string> FieldLines(const Book& book,
                                    const Directory& directory,
                                    std::size_t contact,
                                    const CalledUids& called) {
    return FieldsOf(book, book.Contacts[contact]).Lines(directory, called);
}

std::vector<Compared> Compare(const Book& left,
                              const Identities& left_uids,
                              const Book& right,
                              const Identities& right_uids) {
    SideKeys one(left, left_uids);
    SideKeys other(right, right_uids);
    std::vector<Compared> found(one.Count());
    for (const Key key : kKeys) {
        Pair(one, other, key, found);
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i].Right != Compared::kNobody) {
            other.CallAs(found[i].Right, one.UidKey(i));
        }
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        Compared& pair = found[i];
        pair.Left = i;
        if (pair.Right == Compared::kNobody) {
            pair.What = Difference::OnlyLeft;
            continue;
        }
        pair.Fields = DifferentFields(one.Lines(i), other.Lines(pair.Right));
        pair.What = pair.Fields.empty() ? Difference::Same : Difference::Changed;
    }
    for (std::size_t i = 0; i < other.Count(); ++i) {
        if (!other.IsTaken(i)) {
            found.push_back({Difference::OnlyRight, Compared::kNobody, i, {}});
        }
    }
    return found;
}

std::vector<bool> KnownIn(const Book& older,
                          const Identities& older_uids,
                          const Book& book,
                          const Identities& uids) {
    const SideKeys there(older, older_uids);
    const SideKeys here(book, uids);
    // A list is not the person that is called as it is.
    const auto full_key = [](const SideKeys& side, const Book& of, Key key, std::size_t i) {
        std::string text = (side.*key)(i);
        text.insert(0, text.empty() ? "" : of.Contacts[i].Kind == ContactKind::List ? "l" : "p");
        return text;
    };
    std::vector<bool> known(here.Count(), false);
    for (const Key key : kKeys) {
        std::unordered_set<std::string> keys;
        for (std::size_t i = 0; i < there.Count(); ++i) {
            keys.insert(full_key(there, older, key, i));
        }
        keys.erase("");
        for (std::size_t i = 0; i < known.size(); ++i) {
            known[i] = known[i] || keys.contains(full_key(here, book, key, i));
        }
    }
    return known;
}

}  // namespace orvik::book

#include "book/old/fitting.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "book/carried_name.h"
#include "book/old/likely_name.h"
#include "book/readable_value.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// Whether each word of the parts of a name is in the whole.
bool HasAllWords(std::string_view whole, const PersonName& parts) {
    // A name is short; whatever is longer is not gone through word by word.
    constexpr std::size_t kLongest = 1000;
    if (whole.size() > kLongest) {
        return false;
    }
    const std::string padded = " " + std::string(whole) + " ";
    const auto has = [&padded](const std::string& part) {
        std::string_view rest = part;
        while (!(rest = WithoutBlanksAround(rest)).empty()) {
            const std::size_t end = std::min(rest.find_first_of(" ,"), rest.size());
            const std::string word(rest.substr(0, end));
            const bool found = padded.find(" " + word + " ") != std::string::npos ||
                               padded.find(" " + word + ",") != std::string::npos;
            if (!word.empty() && !found) {
                return false;
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return true;
    };
    return has(parts.Family) && has(parts.Given) && has(parts.Middle) && has(parts.Prefix) &&
           has(parts.Suffix);
}

// Whether whoever reads the name parts it alike.
bool IsPartedAlike(std::string_view whole, const PersonName& parts) {
    const std::string likely = LikelyName(whole);
    const auto same = [&likely](std::size_t number, const std::string& part) {
        return Unescaped(PartAt(likely, number)) == WithoutBlanksAround(part);
    };
    return same(0, parts.Family) && same(1, parts.Given) && same(2, parts.Middle) &&
           same(3, parts.Prefix) && same(4, parts.Suffix);
}

std::string WholeName(const PersonName& parts) {
    std::string all;
    for (const std::string* const one :
         {&parts.Prefix, &parts.Given, &parts.Middle, &parts.Family, &parts.Suffix}) {
        const std::string_view text = WithoutBlanksAround(*one);
        all.append(all.empty() || text.empty() ? "" : " ").append(text);
    }
    if (IsPartedAlike(all, parts) || !parts.Prefix.empty() || !parts.Middle.empty() ||
        !parts.Suffix.empty() || parts.Family.empty()) {
        return all;
    }
    return parts.Family + ", " + parts.Given;
}

}  // namespace

void TellLostMember(Book& book, const Contact& list, const ListMember& member) {
    const bool found = member.Record != ListMember::kNobody;
    const bool inner = found && book.Contacts[member.Record].Kind == ContactKind::List;
    book.Told.Add({book.Names.Text(member.Field->Name),
                   book.Keep(member.Name.empty() ? member.Address : member.Name),
                   list.From.File,
                   list.From.Line,
                   FieldNames::kNone,
                   What::Lost,
                   inner   ? Reason::ListInList
                   : found ? Reason::NoAddress
                           : Reason::NotFound});
}

std::string OneLine(std::string_view text, std::string_view line_break) {
    text = WithoutBlanksAround(text);
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' || text[i] == '\r') {
            i += text.substr(i).starts_with("\r\n") ? 1U : 0U;
            line += line_break;
        } else {
            line += IsControl(text[i]) ? ' ' : text[i];
        }
    }
    return std::string(WithoutBlanksAround(line));
}

Fitting::Fitting(Book& book, const OldForm& form)
    : book_(book), form_(form), own_("X-ORVIK-" + std::string(form.Own) + "-") {}

void Fitting::Begin(const Contact& contact) {
    contact_ = &contact;
    taken_.assign(contact.Properties.size(), false);
    words_.clear();
    labels_.Fill(book_, contact);
    book_.TellLosses(contact);
    const bool list = contact.Kind == ContactKind::List;
    for (const Property& one : contact.Properties) {
        taken_[NumberOf(one)] = IsHousekeeping(book_, one) || (list && IsOfListItself(one));
        if (IsOpen(one) && !HoldsSomething(one.Value)) {
            Tell(one, What::Kept, Reason::None);
        }
    }
}

bool Fitting::IsOfListItself(const Property& one) const {
    switch (one.Name) {
        case field::kKind:
        case field::kServerKind:
        case field::kMember:
        case field::kServerMember:
        case field::kEvolutionList:
            return true;
        default:
            // Evolution keeps the members of a list as its addresses.
            return one.Name == field::kEmail &&
                   !FirstOf(book_, *contact_, field::kEvolutionList).empty();
    }
}

std::string Fitting::TakeName() {
    const PersonName parts = NameOf(book_, *contact_);
    const Property* const shown = Next(field::kFn);
    const Property* const n = Next(field::kN);
    if (shown == nullptr && n == nullptr) {
        const Property* const firm = Next(field::kOrg);
        if (firm == nullptr) {
            return {};
        }
        return Take(*firm);
    }
    std::string name = shown == nullptr ? OneLine(WholeName(parts)) : Take(*shown);
    if (n != nullptr) {
        TakeParts(*n, name);
    }
    return name;
}

std::string Fitting::TakeNameOrNickname() {
    std::string name = TakeName();
    const Property* const nickname = name.empty() ? Next(field::kNickname) : nullptr;
    return nickname == nullptr ? name : OneLine(FirstWordOf(*nickname));
}

void Fitting::TakeParts(const Property& parts, std::string_view shown) {
    const PersonName name = NameOf(book_, *contact_);
    if (IsPartedAlike(shown, name)) {
        Keep(parts, shown);
    } else if (HasAllWords(shown, name)) {
        Doubt(parts, Reason::PartedElse);
    }
}

std::string Fitting::TakeListName() {
    std::string name = OneLine(NameOf(book_, *contact_).Shown);
    if (const Property* const shown = Next(field::kFn); shown != nullptr) {
        static_cast<void>(Take(*shown));
    }
    if (const Property* const parts = Next(field::kN); parts != nullptr) {
        Keep(*parts, parts->Value);
    }
    return name;
}

std::vector<const Property*> Fitting::Addresses() const {
    std::vector<const Property*> all;
    for (const Property& one : contact_->Properties) {
        if (one.Name == field::kEmail && IsOpen(one)) {
            all.push_back(&one);
        }
    }
    std::stable_sort(all.begin(), all.end(), [this](const Property* one, const Property* other) {
        return KindOf(book_, *one, labels_).Rank < KindOf(book_, *other, labels_).Rank;
    });
    return all;
}

const Property* Fitting::Next(NameId name) const {
    for (const Property& one : contact_->Properties) {
        const bool other_language =
            name == field::kFn && !ParamOf(book_, one, field::kLanguage).empty();
        if (one.Name == name && IsOpen(one) && !other_language) {
            return &one;
        }
    }
    return nullptr;
}

const Property* Fitting::NextOf(NameId name, std::span<const KindBits> kinds) const {
    for (const KindBits bits : kinds) {
        for (const Property& one : contact_->Properties) {
            if (one.Name == name && IsOpen(one) && KindBitsOf(one) == bits &&
                KindOf(book_, one, labels_).Label.empty()) {
                return &one;
            }
        }
    }
    return nullptr;
}

KindBits Fitting::KindBitsOf(const Property& one) const {
    return KindOf(book_, one, labels_).Bits;
}

std::vector<const Property*> Fitting::OwnFields(OwnFits fits) const {
    std::vector<const Property*> all;
    for (const Property& one : contact_->Properties) {
        if (IsOpen(one) && StartsAsName(book_.Names.Text(one.Name), own_) &&
            fits(OwnFieldOf(one), OneLine(ReadableValue(book_, one)))) {
            all.push_back(&one);
        }
    }
    return all;
}

std::string Fitting::OwnFieldOf(const Property& one) const {
    return OneLine(CarriedField(book_, one, own_));
}

std::string Fitting::Take(const Property& one) {
    const std::string value = ReadableValue(book_, one);
    std::string line = OneLine(value);
    if (line == WithoutBlanksAround(value)) {
        Keep(one, line);
    } else {
        Doubt(one, Reason::ChangedSigns);
    }
    return line;
}

std::vector<std::string> Fitting::TakeWords(NameId name, std::size_t most, Fits fits) {
    std::vector<std::string> words;
    std::unordered_set<std::string> seen;
    for (const Property& one : contact_->Properties) {
        if (one.Name != name || !IsOpen(one)) {
            continue;
        }
        bool whole = true;
        std::string_view rest = one.Value;
        for (TakenPart part{{}, true}; part.More;) {
            part = TakePart(rest, ',');
            std::string word = OneLine(Unescaped(part.Text));
            if (word.empty() || !seen.insert(word).second) {
                continue;
            }
            if (words.size() < most && fits(word)) {
                words.push_back(std::move(word));
            } else {
                words_.emplace_back(NumberOf(one), std::move(word));
                whole = false;
            }
        }
        if (whole) {
            Keep(one, one.Value);
        } else {
            Tell(one, form_.Notes ? What::Carried : What::Lost, Reason::NotInTarget);
        }
    }
    return words;
}

std::string Fitting::FirstWordOf(const Property& one) {
    std::string_view rest = one.Value;
    return Unescaped(TakePart(rest, ',').Text);
}

std::string Fitting::TakeNotes(std::string_view line_break) {
    std::string notes;
    for (const Property& one : contact_->Properties) {
        if (one.Name != field::kNote || !IsOpen(one)) {
            continue;
        }
        const std::string_view value = WithoutBlanksAround(one.Value);
        const std::string line = OneLine(value, line_break);
        notes.append(notes.empty() ? "" : line_break).append(line);
        if (line_break == "\n" || line == value) {
            Keep(one, line);
        } else {
            Doubt(one, Reason::ChangedSigns);
        }
    }
    return notes;
}

void Fitting::Keep(const Property& one, std::string_view text) {
    if (form_.Windows && !letters_.Has(text)) {
        return Lose(one, Reason::NoSuchLetter);
    }
    Tell(one, What::Kept, Reason::None);
}

void Fitting::Carry(const Property& one) {
    Tell(one, What::Carried, Reason::NotInTarget);
}

void Fitting::Doubt(const Property& one, Reason why) {
    Tell(one, What::Doubtful, why);
}

void Fitting::Lose(const Property& one, Reason why) {
    Tell(one, What::Lost, why);
}

void Fitting::LoseAll(Reason why) {
    taken_.assign(taken_.size(), true);
    book_.Told.Add({book_.Names.Text(field::kFn),
                    book_.Keep(NameOf(book_, *contact_).Shown),
                    contact_->From.File,
                    contact_->From.Line,
                    FieldNames::kNone,
                    What::Lost,
                    why});
}

void Fitting::Tell(const Property& one, What what, Reason why) {
    taken_[NumberOf(one)] = true;
    if (what == What::Kept) {
        return book_.Told.CountMore(What::Kept);
    }
    const bool has = what == What::Lost || !form_.Windows || letters_.Has(one.Value);
    book_.Told.Add(
        {book_.Names.Text(one.Name),
         one.Value,
         contact_->From.File,
         contact_->From.Line,
         has && what == What::Carried && form_.Notes ? NameId{field::kNote} : FieldNames::kNone,
         has ? what : What::Lost,
         has ? why : Reason::NoSuchLetter});
}

// "Phone (Home Fax): 1", "Job title: Cox"
std::string Fitting::RestOf(const Property& one) const {
    std::string_view what = one.Name == field::kEmail ? "Address"
                            : one.Name == field::kTel ? "Phone"
                            : one.Name == field::kAdr ? "Postal address"
                            : one.Name == field::kUrl ? "Web page"
                            : one.Name == field::kN   ? "Parts of the name"
                            : one.Name == field::kFn  ? "Other name"
                                                      : "";
    std::string label(what);
    if (what.empty()) {
        label = LabelOfValue(book_, one);
    } else {
        const KindOfProperty kind = KindOf(book_, one, labels_);
        const std::string word =
            kind.Label.empty() ? WordOfKind(kind.Bits).Text : std::string(kind.Label);
        label += word.empty() ? "" : " (" + word + ")";
    }
    return OneLine(label) + ": " + OneLine(ReadableValue(book_, one), ", ");
}

std::string Fitting::Rest(std::string_view line_break, std::size_t most) {
    std::string lines;
    const auto add = [&](const std::string& line) {
        const bool fits = lines.size() + line.size() + line_break.size() <= most;
        if (form_.Notes && fits) {
            lines.append(lines.empty() ? "" : line_break).append(line);
        }
        return form_.Notes && fits;
    };
    for (const auto& [number, word] : words_) {
        const Property& one = contact_->Properties[number];
        if (!add((one.Name == field::kNickname ? "Nickname: " : "Group: ") + word) && form_.Notes) {
            Lose(one, Reason::TooLarge);
        }
    }
    for (const Property& one : contact_->Properties) {
        if (!IsOpen(one)) {
            continue;
        }
        const bool bytes =
            ParamOf(book_, one, field::kEncoding) == "b" || StartsAsName(one.Value, "data:");
        if (bytes || !add(RestOf(one))) {
            Lose(one, Reason::NotInTarget);
        } else {
            Carry(one);
        }
    }
    return lines;
}

}  // namespace orvik::book

#include "book/edits.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include "book/address_check.h"
#include "book/match/folding.h"
#include "book/old/likely_name.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::size_t kNoPlace = ~std::size_t{0};
constexpr std::string_view kAndroidNickname = "vnd.android.cursor.item/nickname";

enum Part : std::uint8_t { kFamily, kGiven, kMiddle, kPrefix, kSuffix, kParts };

// Where the first value stands that is shown of a name of fields.
std::size_t ShownFieldPlace(const Book& book, const Contact& contact, NameId name) {
    const std::string_view value = FirstOf(book, contact, name);
    const auto found = std::find_if(
        contact.Properties.begin(), contact.Properties.end(), [&](const Property& one) {
            return one.Name == name && !value.empty() && one.Value.data() == value.data();
        });
    return found == contact.Properties.end()
               ? kNoPlace
               : static_cast<std::size_t>(found - contact.Properties.begin());
}

// The first value of a kind of several, as TypedViews gives them.
std::size_t FirstFieldPlace(const Contact& contact, NameId name) {
    const auto found = std::find_if(
        contact.Properties.begin(), contact.Properties.end(), [name](const Property& one) {
            return one.Name == name && !one.Value.empty();
        });
    return found == contact.Properties.end()
               ? kNoPlace
               : static_cast<std::size_t>(found - contact.Properties.begin());
}

// The items of a list as they are written, empty ones too.
std::vector<std::string_view> ItemsIn(std::string_view list, char separator) {
    std::vector<std::string_view> items;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(list, separator);
        items.push_back(part.Text);
    }
    return items;
}

std::string JoinedItems(std::span<const std::string_view> items, char separator) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        text.append(i == 0 ? 0 : 1, separator).append(items[i]);
    }
    return text;
}

std::string EscapedItem(std::string_view text) {
    std::string escaped;
    AppendEscaped(text, escaped);
    return escaped;
}

// The first item that is not empty, which another text is to stand for.
std::string WithItem(std::string_view list, char separator, std::string_view item) {
    std::vector<std::string_view> items = ItemsIn(list, separator);
    const auto first =
        std::find_if(items.begin(), items.end(), [](std::string_view one) { return !one.empty(); });
    std::string escaped = EscapedItem(item);
    if (first == items.end()) {
        return escaped;
    }
    if (item.empty()) {
        items.erase(first);
    } else {
        *first = escaped;
    }
    return JoinedItems(items, separator);
}

// Changes the properties of a contact.
class Editor {
 public:
    Editor(Book& book, const Contact& contact)
        : book_(book),
          contact_(contact),
          fields_(contact.Properties.begin(), contact.Properties.end()) {}

    void SetName(std::string_view name) {
        const std::size_t parts = ShownFieldPlace(book_, contact_, field::kN);
        bool is_shown = false;
        if (parts != kNoPlace) {
            const std::string value = NewParts(fields_[parts].Value, name);
            is_shown = ShownOf(value) == name;
            SetValue(parts, value);
        }
        const std::size_t shown = ShownFieldPlace(book_, contact_, field::kFn);
        if (shown != kNoPlace) {
            SetValue(shown, name);
        } else if (!is_shown) {
            fields_.insert(fields_.begin(), New(field::kFn, name));
        }
    }

    void SetNickname(std::string_view nickname) {
        const std::size_t place = NicknamePlace();
        if (place == kNoPlace) {
            return Add(field::kNickname, EscapedItem(nickname));
        }
        const std::string_view old = fields_[place].Value;
        if (!StartsAsName(old, kAndroidNickname)) {
            return SetOrRemove(place, WithItem(old, ',', nickname));
        }
        if (nickname.empty()) {
            return Remove(place);
        }
        std::vector<std::string_view> items = ItemsIn(old, ';');
        const std::string escaped = EscapedItem(nickname);
        items[1] = escaped;
        SetValue(place, JoinedItems(items, ';'));
    }

    void SetFirst(NameId name, std::string_view value) {
        const std::size_t place = FirstFieldPlace(contact_, name);
        if (place == kNoPlace) {
            return Add(name, value);
        }
        SetOrRemove(place, value);
    }

    [[nodiscard]] std::vector<Property> Take() { return std::move(fields_); }

 private:
    [[nodiscard]] Property New(NameId name, std::string_view value) {
        return {book_.Keep(value), name, contact_.From.File, 0, 0};
    }
    void Add(NameId name, std::string_view value) {
        if (!value.empty()) {
            fields_.push_back(New(name, value));
        }
    }
    void SetOrRemove(std::size_t place, std::string_view value) {
        if (value.empty()) {
            Remove(place);
        } else {
            SetValue(place, value);
        }
    }

    void SetValue(std::size_t place, std::string_view value) {
        Property& field = fields_[place];
        if (field.Value == value) {
            return;
        }
        field.Value = book_.Keep(value);
        const Details& details = book_.DetailsOf(field);
        std::vector<Param> params(details.Params.begin(), details.Params.end());
        // A number that is an address of the web may stay one.
        const bool is_address = field.Name == field::kTel && StartsAsName(value, "tel:");
        std::erase_if(params, [is_address](const Param& one) {
            return one.Name == field::kEncoding || one.Name == field::kCharset ||
                   (one.Name == field::kValue && !is_address);
        });
        if (params.size() != details.Params.size()) {
            field.Details = book_.TakeDetails(details.Group, params);
        }
    }

    // What only labels it goes with it.
    void Remove(std::size_t place) {
        const std::string_view group = book_.DetailsOf(fields_[place]).Group;
        fields_.erase(fields_.begin() + static_cast<std::ptrdiff_t>(place));
        const auto is_of_group = [&](const Property& one) {
            return !group.empty() && SameName(book_.DetailsOf(one).Group, group);
        };
        const bool labels_else =
            std::any_of(fields_.begin(), fields_.end(), [&](const Property& one) {
                return one.Name != field::kAbLabel && is_of_group(one);
            });
        if (!labels_else) {
            std::erase_if(fields_, is_of_group);
        }
    }

    [[nodiscard]] std::size_t NicknamePlace() const {
        const NameId old = book_.Names.Find("X-NICKNAME");
        const NameId android = book_.Names.Find("X-ANDROID-CUSTOM");
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            const Property& one = fields_[i];
            const bool is_list = one.Name == field::kNickname || one.Name == old;
            const bool is_android = one.Name == android &&
                                    PartAt(one.Value, 0) == kAndroidNickname &&
                                    !PartAt(one.Value, 1).empty();
            if ((is_list && one.Value.find_first_not_of(',') != std::string_view::npos) ||
                is_android) {
                return i;
            }
        }
        return kNoPlace;
    }

    [[nodiscard]] static std::string ShownOf(std::string_view parts) {
        const std::string family = Unescaped(PartAt(parts, kFamily));
        const std::string given = Unescaped(PartAt(parts, kGiven));
        return given + (family.empty() || given.empty() ? "" : " ") + family;
    }

    // A list, and a firm whose whole name is one part, have no parts.
    [[nodiscard]] std::string NewParts(std::string_view old, std::string_view name) const {
        const std::vector<std::string_view> parts = ItemsIn(old, ';');
        const auto filled = std::count_if(
            parts.begin(), parts.end(), [](std::string_view one) { return !one.empty(); });
        const auto only = std::find_if(
            parts.begin(), parts.end(), [](std::string_view one) { return !one.empty(); });
        const bool is_whole = filled == 1 && (contact_.Kind == ContactKind::List ||
                                              (only->find(' ') != std::string_view::npos &&
                                               Unescaped(*only) == ShownNameOf(book_, contact_)));
        return is_whole ? WithItem(old, ';', name) : PartsOfNewName(old, name);
    }

    Book& book_;
    const Contact& contact_;
    std::vector<Property> fields_;
};

// Takes a piece from the start of a text, or from its end, where a blank parts it from the rest.
bool TakeStart(std::string_view& text, std::string_view piece) {
    if (piece.empty() || !text.starts_with(piece) || text.substr(piece.size(), 1) != " ") {
        return false;
    }
    text = WithoutBlanksAround(text.substr(piece.size()));
    return true;
}

bool TakeEnd(std::string_view& text, std::string_view piece) {
    const std::size_t rest = text.size() - std::min(piece.size(), text.size());
    if (piece.empty() || rest == 0 || !text.ends_with(piece) || text[rest - 1] != ' ') {
        return false;
    }
    text = WithoutBlanksAround(text.substr(0, rest));
    return true;
}

}  // namespace

std::string EditText(const Book& book, const Contact& contact, Editable what) {
    switch (what) {
        case Editable::Name:
            return ShownNameOf(book, contact);
        case Editable::Nickname: {
            const std::vector<std::string> all = NicknamesOf(book, contact);
            return all.empty() ? std::string() : all.front();
        }
        case Editable::Address:
        case Editable::Phone:
            break;
    }
    const std::size_t place =
        FirstFieldPlace(contact, what == Editable::Address ? field::kEmail : field::kTel);
    return place == kNoPlace ? std::string() : std::string(contact.Properties[place].Value);
}

std::size_t CountOf(const Book& book, const Contact& contact, Editable what) {
    switch (what) {
        case Editable::Name:
            return 1;
        case Editable::Nickname:
            return NicknamesOf(book, contact).size();
        case Editable::Address:
        case Editable::Phone:
            break;
    }
    const NameId name = what == Editable::Address ? field::kEmail : field::kTel;
    return static_cast<std::size_t>(std::count_if(
        contact.Properties.begin(), contact.Properties.end(), [name](const auto& one) {
            return one.Name == name && !one.Value.empty();
        }));
}

std::string TypedValue(std::string_view typed) {
    std::string value(typed);
    std::replace_if(
        value.begin(),
        value.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; },
        ' ');
    return std::string(WithoutBlanksAround(value));
}

Verdict CheckTyped(Editable what, std::string_view value) {
    std::string folded;
    switch (what) {
        case Editable::Name:
            FoldText(value, folded);
            return folded.empty() ? Verdict{true, "nothing in it"} : Verdict{};
        case Editable::Phone:
            FoldPhone(value, folded);
            return value.empty() || folded.find_first_of("0123456789") != std::string::npos
                       ? Verdict{}
                       : Verdict{true, "no digit"};
        case Editable::Address: {
            if (value.empty()) {
                return {};
            }
            const CheckedAddress checked = CheckAddress(value);
            return {checked.Class() == AddressClass::Bad, checked.Reason()};
        }
        case Editable::Nickname:
            break;
    }
    return {};
}

std::vector<Property> EditedFields(Book& book,
                                   const Contact& contact,
                                   Editable what,
                                   std::string_view value) {
    Editor editor(book, contact);
    switch (what) {
        case Editable::Name:
            editor.SetName(value);
            break;
        case Editable::Nickname:
            editor.SetNickname(value);
            break;
        case Editable::Address:
            editor.SetFirst(field::kEmail, value);
            break;
        case Editable::Phone:
            editor.SetFirst(field::kTel, value);
            break;
    }
    return editor.Take();
}

std::string PartsOfNewName(std::string_view parts, std::string_view name) {
    std::array<std::string, kParts> old;
    for (std::size_t i = 0; i < old.size(); ++i) {
        old[i] = Unescaped(PartAt(parts, i));
    }
    std::array<std::string, kParts> now;
    std::string_view rest = WithoutBlanksAround(name);
    const auto keep = [&](Part part, bool is_there) {
        now[part] = is_there ? old[part] : std::string();
        return is_there;
    };
    keep(kPrefix, TakeStart(rest, old[kPrefix]));
    if (keep(kSuffix, TakeEnd(rest, old[kSuffix]))) {
        rest = WithoutBlanksAround(rest.substr(0, rest.size() - (rest.ends_with(',') ? 1U : 0U)));
    }
    if (rest.find(',') == std::string_view::npos && keep(kFamily, TakeEnd(rest, old[kFamily]))) {
        keep(kMiddle, TakeEnd(rest, old[kMiddle]));
        now[kGiven] = rest;
    } else if (rest.find(',') == std::string_view::npos &&
               keep(kGiven, TakeStart(rest, old[kGiven]))) {
        keep(kMiddle, TakeStart(rest, old[kMiddle]));
        now[kFamily] = rest;
    } else {
        const std::string likely = LikelyName(rest);
        now[kFamily] = Unescaped(PartAt(likely, kFamily));
        now[kGiven] = Unescaped(PartAt(likely, kGiven));
        std::string_view given = now[kGiven];
        if (keep(kMiddle, TakeEnd(given, old[kMiddle]))) {
            now[kGiven] = std::string(given);
        }
    }
    std::string value;
    for (std::size_t i = 0; i < now.size(); ++i) {
        value.append(i == 0 ? 0 : 1, ';').append(EscapedItem(now[i]));
    }
    // Later versions have more parts, which no name shows.
    for (std::size_t i = kParts; i < PartCount(parts); ++i) {
        value.append(";").append(PartAt(parts, i));
    }
    return value;
}

}  // namespace orvik::book

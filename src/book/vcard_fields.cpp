#include "book/vcard_fields.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/text.h"

namespace orvik::book {
namespace {

constexpr std::array<std::string_view, 7> kOnlyIn30 = {
    "LABEL", "MAILER", "NAME", "CLASS", "AGENT", "SORT-STRING", "PROFILE"};
constexpr std::array<std::string_view, 24> kOnlyIn40 = {
    "KIND",       "MEMBER",     "GENDER",    "LANG",     "ANNIVERSARY",   "RELATED",
    "XML",        "CALURI",     "CALADRURI", "FBURL",    "CLIENTPIDMAP",  "BIRTHPLACE",
    "DEATHPLACE", "DEATHDATE",  "EXPERTISE", "HOBBY",    "INTEREST",      "ORG-DIRECTORY",
    "CREATED",    "GRAMGENDER", "LANGUAGE",  "PRONOUNS", "SOCIALPROFILE", "JSPROP"};

// Names that programs of 3.0 have for what came with 4.0.
constexpr std::array kPairs = {
    std::pair<std::string_view, std::string_view>{"X-ADDRESSBOOKSERVER-KIND", "KIND"},
    std::pair<std::string_view, std::string_view>{"X-ADDRESSBOOKSERVER-MEMBER", "MEMBER"},
    std::pair<std::string_view, std::string_view>{"X-ANNIVERSARY", "ANNIVERSARY"},
};

template <class Names>
bool IsIn(const Names& names, std::string_view name) {
    return std::any_of(
        names.begin(), names.end(), [name](std::string_view one) { return SameName(one, name); });
}

// Whether a text has this shape: 9 stands for a digit.
bool HasShape(std::string_view text, std::string_view shape) {
    return text.size() == shape.size() &&
           std::equal(text.begin(), text.end(), shape.begin(), [](char c, char wanted) {
               return wanted == '9' ? c >= '0' && c <= '9' : c == wanted;
           });
}

constexpr std::string_view kPicture = "image/";
constexpr std::string_view kNoType = "octet-stream";

// What the bytes of a field are taken for.
std::string_view KindOf(NameId name) {
    if (name == field::kPhoto || name == field::kLogo) {
        return kPicture;
    }
    return name == field::kSound ? "audio/" : "application/";
}

}  // namespace

VCardName NameIn(Dialect version, std::string_view name) {
    const bool newer = version == Dialect::VCard40;
    if (StartsAsName(name, kCarriedFromVCard)) {
        const std::string_view own = name.substr(kCarriedFromVCard.size());
        const bool has = newer ? IsIn(kOnlyIn40, own) : IsIn(kOnlyIn30, own);
        return has ? VCardName{std::string(own)} : VCardName{std::string(name), true};
    }
    for (const auto& [old_name, new_name] : kPairs) {
        if (SameName(name, newer ? old_name : new_name)) {
            return {std::string(newer ? new_name : old_name)};
        }
    }
    if (newer ? IsIn(kOnlyIn30, name) : IsIn(kOnlyIn40, name)) {
        return {std::string(kCarriedFromVCard).append(name), true};
    }
    // What was merged is called so in cards, and in no other format.
    const bool carried = StartsAsName(name, "X-ORVIK-") && !StartsAsName(name, kCarriedFromMerge);
    return {std::string(name), carried};
}

std::optional<DataUri> SplitDataUri(std::string_view value) {
    constexpr std::string_view kScheme = "data:";
    constexpr std::string_view kBase64 = ";base64";
    const std::size_t end = value.find(kBase64);
    if (!StartsAsName(value, kScheme) || end == std::string_view::npos) {
        return std::nullopt;
    }
    DataUri uri{value.substr(kScheme.size(), end - kScheme.size()),
                value.substr(end + kBase64.size())};
    // Some escape the comma.
    const std::size_t comma = uri.Base64.starts_with("\\,") ? 1 : 0;
    if (!uri.Base64.substr(comma).starts_with(',')) {
        return std::nullopt;
    }
    uri.Base64.remove_prefix(comma + 1);
    return uri;
}

bool IsMediaType(std::string_view type) {
    constexpr std::array<std::string_view, 3> kOthers = {"home", "work", "pref"};
    return !IsIn(kOthers, type);
}

std::string MediaTypeOf(NameId name, std::string_view type, std::string_view base64) {
    if (type.find('/') != std::string_view::npos) {
        return ToLower(type);
    }
    const std::string kind(KindOf(name));
    if (kind != kPicture) {
        return kind + (type.empty() ? std::string(kNoType) : ToLower(type));
    }
    constexpr std::array kBegins = {
        std::pair<std::string_view, std::string_view>{"iVBORw0KGg", "png"},
        std::pair<std::string_view, std::string_view>{"R0lGOD", "gif"},
        std::pair<std::string_view, std::string_view>{"UklGR", "webp"},
        std::pair<std::string_view, std::string_view>{"Qk", "bmp"},
    };
    const auto* const found = std::find_if(kBegins.begin(), kBegins.end(), [&](const auto& row) {
        return base64.starts_with(row.first);
    });
    const std::string_view known = found == kBegins.end() ? "jpeg" : found->second;
    return kind + ToLower(type.empty() ? known : type);
}

std::string_view TypeOfMedia(NameId name, std::string_view media) {
    const std::string_view kind = KindOf(name);
    if (StartsAsName(media, kind)) {
        media.remove_prefix(kind.size());
        return media == kNoType ? std::string_view{} : media;
    }
    return media;
}

std::string DateIn(Dialect version, std::string_view date) {
    constexpr std::array<std::string_view, 5> kShapes = {"9999-99-99",
                                                         "--99-99",
                                                         "9999-99-99T99:99:99",
                                                         "9999-99-99T99:99:99Z",
                                                         "9999-99-99T999999Z"};
    const bool known = std::any_of(kShapes.begin(), kShapes.end(), [date](std::string_view shape) {
        return HasShape(date, shape);
    });
    std::string text(date);
    if (version == Dialect::VCard40 && known) {
        constexpr std::string_view kNoYear = "--";
        const std::size_t from = text.starts_with(kNoYear) ? kNoYear.size() : 0;
        text.erase(std::remove_if(text.begin() + static_cast<std::ptrdiff_t>(from),
                                  text.end(),
                                  [](char c) { return c == '-' || c == ':'; }),
                   text.end());
    }
    return text;
}

}  // namespace orvik::book

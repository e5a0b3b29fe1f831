#include "book/field_words.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/text.h"
#include "book/carried_name.h"
#include "book/picture_bytes.h"
#include "book/readable_value.h"

namespace orvik::book {
namespace {

constexpr std::string_view kOurs = "X-ORVIK-";

struct Word {
    NameId Name;
    std::string_view Text;
};

// What the columns of tables have no word for, or one that says too little beside a value.
constexpr auto kWords = [] {
    using namespace field;
    return std::array{
        Word{kFn, "Name"},
        Word{kN, "Name in parts"},
        Word{kEmail, "E-mail"},
        Word{kAdr, "Address"},
        Word{kLabel, "Address label"},
        Word{kOrg, "Organisation"},
        Word{kLogo, "Logo"},
        Word{kSound, "Sound"},
        Word{kKey, "Key"},
        Word{kRev, "Last changed"},
        Word{kKind, "Kind"},
        Word{kMember, "Member"},
        Word{kImpp, "Messenger"},
        Word{kGender, "Gender"},
        Word{kLang, "Language"},
        Word{kTz, "Time zone"},
        Word{kGeo, "Position"},
        Word{kRelated, "Related"},
        Word{kSource, "Published at"},
        Word{kProdId, "Written by"},
        Word{kVersion, "Version of the card"},
        Word{kClass, "Who may see it"},
        Word{kSortString, "Sorted as"},
        Word{kAgent, "Agent"},
        Word{kAbLabel, "Label"},
        Word{kServerKind, "Kind"},
        Word{kServerMember, "Member"},
        Word{kEvolutionList, "Is a list"},
    };
}();

// "X-ORVIK-LDIF-shoeSize" -> "shoeSize"; formats are one word.
std::string CarriedWords(const Book& book, const Property& one) {
    constexpr std::string_view kMerged = "MERGED-";
    const std::string_view name = book.Names.Text(one.Name);
    const std::string_view behind = name.substr(kOurs.size());
    const std::size_t hyphen = behind.find('-');
    if (hyphen == std::string_view::npos || hyphen + 1 == behind.size()) {
        return std::string(name);
    }
    return CarriedField(book, one, name.substr(0, kOurs.size() + hyphen + 1)) +
           (StartsAsName(behind, kMerged) ? ", before merging" : "");
}

std::string BareWords(const Book& book, const Property& one) {
    const auto* const word = std::find_if(
        kWords.begin(), kWords.end(), [&](const Word& row) { return row.Name == one.Name; });
    if (word != kWords.end()) {
        return std::string(word->Text);
    }
    return StartsAsName(book.Names.Text(one.Name), kOurs) ? CarriedWords(book, one)
                                                          : LabelOfValue(book, one);
}

// "Work phone", "Mobile phone", "Home fax", "Pager".
std::string PhoneWords(const std::string& kind) {
    const std::string word = Capitalised(ToLower(kind));
    const bool is_place = word == "Home" || word == "Work" || word == "Other" || word == "Main";
    return is_place || word == "Mobile" ? word + " phone" : word;
}

bool HasKinds(NameId name) {
    constexpr std::array kNames = {field::kEmail,
                                   field::kTel,
                                   field::kAdr,
                                   field::kLabel,
                                   field::kUrl,
                                   field::kImpp,
                                   field::kRelated};
    return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

}  // namespace

std::string FieldWords(const Book& book, const Property& one, const GroupLabels& labels) {
    std::string words = BareWords(book, one);
    if (!HasKinds(one.Name)) {
        return words;
    }
    const KindOfProperty kind = KindOf(book, one, labels);
    KindBits bits = kind.Bits;
    if (one.Name == field::kTel && bits != 0) {
        const KindWord word = WordOfKind(bits);
        words = word.Text.empty() ? words : PhoneWords(word.Text);
        bits = word.Text.empty() ? bits : word.Left;
    }
    while (bits != 0) {
        const KindWord word = WordOfKind(bits);
        if (word.Text.empty() || word.Left == bits) {
            break;
        }
        words += ", " + ToLower(word.Text);
        bits = word.Left;
    }
    words += kind.Label.empty() ? "" : ", " + std::string(kind.Label);
    return words + (kind.IsPreferred() ? ", preferred" : "");
}

std::string ShownValue(const Book& book, const Property& one, std::size_t most) {
    if (const auto base64 = EmbeddedBase64(book, one)) {
        return Grouped(BytesOfBase64(*base64)) + " bytes";
    }
    if (one.Value.size() <= most) {
        return ReadableValue(book, one);
    }
    Property cut = one;
    cut.Value = one.Value.substr(0, most);
    // The last letter may be cut.
    while (!cut.Value.empty() && (static_cast<unsigned char>(cut.Value.back()) & 0xC0U) == 0x80) {
        cut.Value.remove_suffix(1);
    }
    cut.Value.remove_suffix(cut.Value.empty() ? 0 : 1);
    return ReadableValue(book, cut) + "\xE2\x80\xA6";
}

}  // namespace orvik::book

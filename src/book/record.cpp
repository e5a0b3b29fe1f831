#include "book/record.h"

namespace orvik::book {

// A name of ours stands for a known one, and no deeper.
// NOLINTNEXTLINE(misc-no-recursion)
ValueForm ValueFormOf(const FieldNames& names, NameId name) {
    switch (name) {
        case field::kN:
        case field::kAdr:
        case field::kOrg:
        case field::kGender:
            return ValueForm::Parts;
        case field::kNickname:
        case field::kCategories:
            return ValueForm::List;
        case field::kFn:
        case field::kEmail:
        case field::kTel:
        case field::kLabel:
        case field::kTitle:
        case field::kRole:
        case field::kNote:
        case field::kMailer:
        case field::kClass:
        case field::kSortString:
        case field::kName:
        case field::kAbLabel:
        case field::kCustom1:
        case field::kCustom2:
        case field::kCustom3:
        case field::kCustom4:
            return ValueForm::Text;
        default:
            break;
    }
    const std::string_view text = names.Text(name);
    if (StartsAsName(text, kCarriedFromVCard)) {
        const NameId own = names.Find(text.substr(kCarriedFromVCard.size()));
        return own < field::kKnown ? ValueFormOf(names, own) : ValueForm::Verbatim;
    }
    return StartsAsName(text, "X-ORVIK-") ? ValueForm::Text : ValueForm::Verbatim;
}

}  // namespace orvik::book

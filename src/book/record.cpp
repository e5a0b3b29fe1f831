#include "book/record.h"

#include "app/text.h"

namespace orvik::book {

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
    constexpr std::string_view kOwn = "X-ORVIK-";
    const bool own = SameName(Mid(names.Text(name), 1, kOwn.size()), kOwn);
    return own ? ValueForm::Text : ValueForm::Verbatim;
}

}  // namespace orvik::book

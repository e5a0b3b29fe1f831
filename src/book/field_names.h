// The names of fields, each kept once. Names are equal whatever their case; the spelling that came
// first is shown.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "book/arena.h"

namespace orvik::book {

using NameId = std::uint32_t;

// The names that this library gives a meaning to have the same number in every book.
namespace field {
enum : NameId {
    kFn,
    kN,
    kNickname,
    kEmail,
    kTel,
    kAdr,
    kLabel,
    kOrg,
    kTitle,
    kRole,
    kNote,
    kUrl,
    kBday,
    kAnniversary,
    kCategories,
    kPhoto,
    kLogo,
    kSound,
    kKey,
    kRev,
    kUid,
    kKind,
    kMember,
    kImpp,
    kGender,
    kLang,
    kTz,
    kGeo,
    kRelated,
    kSource,
    kProfile,
    kProdId,
    kVersion,
    kMailer,
    kClass,
    kSortString,
    kAgent,
    kName,
    kXml,
    kAbLabel,
    kServerKind,
    kServerMember,
    kEvolutionList,
    kMozillaHtml,
    kAim,
    kCustom1,
    kCustom2,
    kCustom3,
    kCustom4,
    kPhoneticFirst,
    kPhoneticLast,
    // parameters
    kType,
    kPref,
    kEncoding,
    kCharset,
    kValue,
    kLanguage,
    kKnown  // how many there are
};
}  // namespace field

class FieldNames {
 public:
    FieldNames();
    // A copy shares what there is; each keeps its later names itself.
    FieldNames(const FieldNames& other);
    FieldNames& operator=(const FieldNames& other);
    FieldNames(FieldNames&& other) noexcept = default;
    FieldNames& operator=(FieldNames&& other) noexcept = default;
    ~FieldNames() = default;

    // The number of a name; text is copied if it is new.
    NameId Intern(std::string_view name);
    // The number of a name that is known; kNone for any other.
    [[nodiscard]] NameId Find(std::string_view name) const;
    [[nodiscard]] std::string_view Text(NameId id) const { return texts_[id]; }
    [[nodiscard]] std::size_t Count() const { return texts_.size(); }

    static constexpr NameId kNone = ~NameId{0};

 private:
    [[nodiscard]] std::size_t Place(std::string_view name) const;
    void Grow();

    std::vector<std::shared_ptr<const Arena>> older_;
    std::shared_ptr<Arena> letters_ = std::make_shared<Arena>();
    std::deque<std::string_view> texts_;
    std::vector<NameId> table_;  // open addressing; a power of two, at most half full
};

// Whether two names are the same in any case of ASCII letters, and whether one begins so.
[[nodiscard]] bool SameLetters(const char* one, const char* other, std::size_t length);
[[nodiscard]] inline bool SameName(std::string_view one, std::string_view other) {
    return one.size() == other.size() && SameLetters(one.data(), other.data(), one.size());
}
[[nodiscard]] inline bool StartsAsName(std::string_view name, std::string_view start) {
    return SameName(name.substr(0, start.size()), start);
}

// UpperName: a name in upper case, as it is compared and sorted.
[[nodiscard]] std::string UpperName(std::string_view name);

}  // namespace orvik::book

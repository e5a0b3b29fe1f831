#include "book/field_names.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvik::book {
namespace {

constexpr std::array<std::string_view, field::kKnown> kKnownNames = {"FN",
                                                                     "N",
                                                                     "NICKNAME",
                                                                     "EMAIL",
                                                                     "TEL",
                                                                     "ADR",
                                                                     "LABEL",
                                                                     "ORG",
                                                                     "TITLE",
                                                                     "ROLE",
                                                                     "NOTE",
                                                                     "URL",
                                                                     "BDAY",
                                                                     "ANNIVERSARY",
                                                                     "CATEGORIES",
                                                                     "PHOTO",
                                                                     "LOGO",
                                                                     "SOUND",
                                                                     "KEY",
                                                                     "REV",
                                                                     "UID",
                                                                     "KIND",
                                                                     "MEMBER",
                                                                     "IMPP",
                                                                     "GENDER",
                                                                     "LANG",
                                                                     "TZ",
                                                                     "GEO",
                                                                     "RELATED",
                                                                     "SOURCE",
                                                                     "PROFILE",
                                                                     "PRODID",
                                                                     "VERSION",
                                                                     "MAILER",
                                                                     "CLASS",
                                                                     "SORT-STRING",
                                                                     "AGENT",
                                                                     "NAME",
                                                                     "XML",
                                                                     "X-ABLabel",
                                                                     "X-ADDRESSBOOKSERVER-KIND",
                                                                     "X-ADDRESSBOOKSERVER-MEMBER",
                                                                     "X-EVOLUTION-LIST",
                                                                     "X-MOZILLA-HTML",
                                                                     "X-AIM",
                                                                     "X-CUSTOM1",
                                                                     "X-CUSTOM2",
                                                                     "X-CUSTOM3",
                                                                     "X-CUSTOM4",
                                                                     "X-PHONETIC-FIRST-NAME",
                                                                     "X-PHONETIC-LAST-NAME",
                                                                     "TYPE",
                                                                     "PREF",
                                                                     "ENCODING",
                                                                     "CHARSET",
                                                                     "VALUE",
                                                                     "LANGUAGE"};
static_assert(!kKnownNames.back().empty());

constexpr std::size_t kFirstTable = 256;

constexpr unsigned char Upper(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'a' && byte <= 'z' ? static_cast<unsigned char>(byte - 'a' + 'A') : byte;
}

// FNV-1a over the upper-case letters.
std::size_t Hash(std::string_view name) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : name) {
        hash = (hash ^ Upper(c)) * 0x100000001B3U;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32U));
}

}  // namespace

bool SameLetters(const char* one, const char* other, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        if (one[i] != other[i] && Upper(one[i]) != Upper(other[i])) {
            return false;
        }
    }
    return true;
}

FieldNames::FieldNames() : table_(kFirstTable, kNone) {
    for (const std::string_view text : kKnownNames) {
        Intern(text);
    }
}

FieldNames::FieldNames(const FieldNames& other)
    : older_(other.older_), texts_(other.texts_), table_(other.table_) {
    older_.push_back(other.letters_);
}

FieldNames& FieldNames::operator=(const FieldNames& other) {
    FieldNames twin(other);
    *this = std::move(twin);
    return *this;
}

NameId FieldNames::Intern(std::string_view name) {
    std::size_t place = Place(name);
    if (table_[place] == kNone) {
        if (2 * (texts_.size() + 1) > table_.size()) {
            Grow();
            place = Place(name);
        }
        table_[place] = static_cast<NameId>(texts_.size());
        texts_.push_back(letters_->Keep(name));
    }
    return table_[place];
}

NameId FieldNames::Find(std::string_view name) const {
    return table_[Place(name)];
}

std::size_t FieldNames::Place(std::string_view name) const {
    const std::size_t mask = table_.size() - 1;
    std::size_t place = Hash(name) & mask;
    while (table_[place] != kNone && !SameName(texts_[table_[place]], name)) {
        place = (place + 1) & mask;
    }
    return place;
}

void FieldNames::Grow() {
    table_.assign(2 * table_.size(), kNone);
    for (std::size_t id = 0; id < texts_.size(); ++id) {
        table_[Place(texts_[id])] = static_cast<NameId>(id);
    }
}

std::string UpperName(std::string_view name) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return upper;
}

}  // namespace orvik::book

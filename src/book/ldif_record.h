// One contact as a record of LDIF.

#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

#include "book/address_book.h"
#include "book/ldif_sets.h"
#include "book/members.h"

namespace orvik::book {

class LdifRecordWriter {
 public:
    // All must outlive this; the text is appended to.
    LdifRecordWriter(Book& book, const Directory& directory, LdifAttributes set, std::string& text);

    // number is that of the contact.
    void Write(const Contact& contact, const Identities& identities, std::size_t number);

 private:
    // Only so many fields are looked through for another one, so that time stays linear.
    static constexpr std::size_t kMostCompared = 64;

    // What is written of a property under the names of programs.
    enum class Fit { All, Part, None };

    void WriteHead(const Identities& identities, std::size_t number);
    void WriteProperty(const Property& one);
    bool WriteInLanguage(const Property& one);
    Fit WriteNatural(const Property& one);
    Fit WriteFirstName(const Property& one);
    Fit WriteName(const Property& one);
    Fit WriteNickname(const Property& one);
    Fit WriteOrganisation(const Property& one);
    Fit WriteAddress(const Property& one);
    Fit WriteUrl(const Property& one);
    Fit WriteBirthday(const Property& one);
    Fit WriteTimeStamp(const Property& one);
    Fit WritePhoto(const Property& one);
    Fit WriteMember(const Property& one);
    Fit WriteOwn(const Property& one, std::string_view name);
    void WriteCarried(const Property& one, Fit fit);
    void Tell(const Property& one, std::string_view attribute);
    bool Line(const LdifNames& names, std::string_view value);
    [[nodiscard]] bool IsOfMozilla() const;
    [[nodiscard]] bool IsOfOtherClass() const;
    [[nodiscard]] bool IsRepeated(const Property& one) const;
    [[nodiscard]] bool IsOfOnePlace(const Property& one, const Property& other) const;
    [[nodiscard]] bool IsHomeUrl(const Property& one) const;
    [[nodiscard]] bool HasPlain(NameId name) const;
    [[nodiscard]] bool IsBare(const Property& one) const;
    [[nodiscard]] bool HasTypeOnly(const Property& one, std::string_view type) const;

    Book& book_;
    const Directory& directory_;
    LdifAttributes set_;
    std::string& text_;

    // Of the contact that is being written.
    const Contact* contact_ = nullptr;
    std::string dn_;
    std::string shown_;
    bool of_evolution_ = false;
    bool named_ = false;
    bool parts_ = false;
    bool nicknamed_ = false;
    bool organised_ = false;
    bool work_ = false;
    bool home_ = false;
    bool identified_ = false;
    bool born_ = false;
    bool saved_ = false;
    std::size_t emails_ = 0;
    std::set<std::string_view> phones_;  // the attributes that are there
};

}  // namespace orvik::book

// What a record holds, in the form in which it is compared.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/match/field_rules.h"
#include "book/match/folding.h"

namespace orvik::book {

enum class KeyKind : std::uint8_t { Name, Address, Phone, Other };

// The keys of one record, without those that say nothing. Their texts share one buffer, so that
// a list can be filled again.
class KeyList {
 public:
    struct Key {
        std::size_t Offset = 0;
        std::size_t Length = 0;
        std::uint32_t Field = 0;
        std::uint32_t Property = 0;  // by its number in the record
        KeyKind Kind = KeyKind::Other;
    };

    void Clear() {
        text_.clear();
        keys_.clear();
    }
    void Add(KeyKind kind, std::uint32_t field, std::size_t property, std::string_view text);

    [[nodiscard]] const std::vector<Key>& Keys() const { return keys_; }
    [[nodiscard]] std::string_view TextOf(const Key& key) const {
        return std::string_view(text_).substr(key.Offset, key.Length);
    }
    // A number that equal keys share, and hardly any others.
    [[nodiscard]] std::uint64_t HashOf(const Key& key) const;
    // All of them with their fields, sorted, each once.
    [[nodiscard]] std::vector<std::string> Sorted() const;

 private:
    std::string text_;
    std::vector<Key> keys_;
};

class RecordKeys {
 public:
    // Knows the fields that the book has by now. The book must outlive it.
    explicit RecordKeys(const Book& book) : book_(book), rules_(book) {}

    // The keys of a record in place of those in the list; the members of a list are left out.
    // A name that is one of the record's own addresses, and an N that says nothing more than FN,
    // are no keys. Not for several threads at once.
    void Fill(const Contact& contact, KeyList& keys) const;
    // The keys of one property that is no name.
    void AddOf(const Contact& contact, std::size_t property, KeyList& keys) const;

    [[nodiscard]] const FieldRules& Rules() const { return rules_; }
    // Which fields of a list name its members; none of a person do.
    [[nodiscard]] std::function<bool(const Property&)> MemberFields(const Contact& contact) const;

 private:
    void AddNames(const Contact& contact, KeyList& keys) const;

    const Book& book_;
    FieldRules rules_;
    mutable std::string folded_;
    mutable std::string joined_;
};

}  // namespace orvik::book

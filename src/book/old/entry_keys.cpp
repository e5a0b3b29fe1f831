#include "book/old/entry_keys.h"

#include <utility>

#include "app/text.h"
#include "book/member_names.h"
#include "book/typed_views.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Words by hyphens: "Abbott, Ada" -> "abbott-ada".
std::string Hyphened(std::string_view text) {
    std::string key;
    for (const char c : ToLower(text)) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
            key += c;
        } else if (!key.empty() && key.back() != '-') {
            key += '-';
        }
    }
    key.resize(key.find_last_not_of('-') + 1);
    return key;
}

bool IsAscii(std::string_view text) {
    return AsciiLength(text) == text.size();
}

}  // namespace

EntryKeys::EntryKeys(const Book& book, std::string_view forbidden)
    : book_(book),
      forbidden_(forbidden),
      keys_(book.Contacts.size()),
      why_other_(book.Contacts.size(), Reason::ChangedSigns) {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const std::string_view nickname = FirstOf(book, book.Contacts[i], field::kNickname);
        std::string_view rest = nickname;
        const std::string word = OneLine(Unescaped(TakePart(rest, ',').Text));
        if (!word.empty()) {
            // Lists find nobody by blanks alone, for which _ stands.
            const std::string plain = Plain(word);
            keys_[i] = Unique(NicknameKey(plain).empty() ? "entry" : plain);
            why_other_[i] = keys_[i] == word ? Reason::None
                            : plain == word  ? Reason::TakenNickname
                                             : Reason::ChangedSigns;
        }
    }
}

std::string EntryKeys::Plain(std::string_view word) const {
    std::string plain(word);
    for (char& c : plain) {
        c = forbidden_.find(c) != std::string_view::npos ? '_' : c;
    }
    // Comments and entries that are no more begin so.
    plain[0] = plain[0] == '#' ? '_' : plain[0];
    return plain;
}

std::string EntryKeys::Unique(const std::string& key, char before_number) {
    std::string unique = key;
    std::size_t& count = counts_[NicknameKey(key)];
    while (!used_.insert(NicknameKey(unique)).second) {
        count = count == 0 ? 2 : count + 1;
        unique = key;
        unique += before_number;
        unique += std::to_string(count);
    }
    return unique;
}

const std::string& EntryKeys::Make(std::size_t record) {
    if (!keys_[record].empty()) {
        return keys_[record];
    }
    const Contact& contact = book_.Contacts[record];
    const std::string name = OneLine(NameOf(book_, contact).Shown);
    if (contact.Kind == ContactKind::List && !NicknameKey(name).empty() && Plain(name) == name) {
        return keys_[record] = Unique(name);
    }
    const std::string_view address = FirstOf(book_, contact, field::kEmail);
    const std::string local(address.substr(0, address.find('@')));
    std::string key = Hyphened(IsAscii(name) || !IsAscii(local) || local.empty() ? name : local);
    return keys_[record] = Unique(key.empty() ? "entry" : key);
}

std::string EntryKeys::Next(std::size_t record) {
    return Unique(Make(record), '-');
}

void TakeNicknames(Fitting& entry, Reason why_other) {
    const Property* const first = entry.Next(field::kNickname);
    if (first == nullptr) {
        return;
    }
    if (why_other == Reason::None) {
        static_cast<void>(entry.TakeWords(field::kNickname, 1, Fitting::IsAny));
        return;
    }
    if (Fitting::FirstWordOf(*first) == Unescaped(first->Value)) {
        entry.Doubt(*first, why_other);
    } else {
        entry.Lose(*first, Reason::NotInTarget);
    }
    static_cast<void>(entry.TakeWords(field::kNickname, 0, Fitting::IsAny));
}

}  // namespace orvik::book

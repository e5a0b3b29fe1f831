#include "book/order.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/ustring.h>

#include "book/arena.h"
#include "book/match/folding.h"
#include "book/typed_views.h"

namespace orvik::book {
namespace {

void CheckMemory(UErrorCode error) {
    if (U_FAILURE(error) != 0) {
        throw std::bad_alloc();
    }
}

// "C" and "POSIX" are no language.
std::string LanguageOf(const std::string& locale) {
    const std::string plain = locale.substr(0, locale.find('.'));
    return plain == "C" || plain == "POSIX" ? "" : plain;
}

// Makes keys that stand in the order of the texts when their bytes are compared.
class Collation {
 public:
    explicit Collation(const std::string& locale) {
        UErrorCode error = U_ZERO_ERROR;
        rules_.reset(ucol_open(LanguageOf(locale).c_str(), &error));
        CheckMemory(error);
    }

    void Append(std::string_view text, std::string& key) {
        letters_.resize(text.size());
        std::int32_t length = 0;
        UErrorCode error = U_ZERO_ERROR;
        constexpr UChar32 kLost = 0xFFFD;
        u_strFromUTF8WithSub(letters_.data(),
                             static_cast<std::int32_t>(letters_.size()),
                             &length,
                             text.data(),
                             static_cast<std::int32_t>(text.size()),
                             kLost,
                             nullptr,
                             &error);
        CheckMemory(error);
        const std::size_t before = key.size();
        const std::size_t guess = 3 * text.size() + 16;
        key.resize(before + guess);
        std::size_t needed = Fill(length, key, before);
        if (needed > guess) {
            key.resize(before + needed);
            needed = Fill(length, key, before);
        }
        key.resize(before + needed);
    }

 private:
    std::size_t Fill(std::int32_t length, std::string& key, std::size_t from) {
        return static_cast<std::size_t>(
            ucol_getSortKey(rules_.get(),
                            letters_.data(),
                            length,
                            reinterpret_cast<std::uint8_t*>(key.data() + from),
                            static_cast<std::int32_t>(key.size() - from)));
    }

    std::unique_ptr<UCollator, void (*)(UCollator*)> rules_{nullptr, ucol_close};
    std::u16string letters_;
};

class SortKeys {
 public:
    SortKeys(const Book& book, SortBy by, const std::string& locale)
        : book_(book), by_(by), collation_(locale) {}

    // Empty for a record that has nothing to be sorted by.
    std::string_view Of(const Contact& contact) {
        key_.clear();
        if (by_ == SortBy::Address || by_ == SortBy::Domain) {
            AddAddress(contact);
        } else if (by_ == SortBy::Name) {
            AddText(NameOf(book_, contact).Shown);
        } else {
            AddFamily(NameOf(book_, contact));
        }
        return kept_.Keep(key_);
    }

 private:
    void AddAddress(const Contact& contact) {
        FoldAddress(FirstOf(book_, contact, field::kEmail), key_);
        const std::size_t at = key_.rfind('@');
        if (by_ == SortBy::Domain && at != std::string::npos) {
            key_ = key_.substr(at + 1) + '\0' + key_.substr(0, at);
        }
    }

    void AddText(const std::string& text) {
        if (!text.empty()) {
            collation_.Append(text, key_);
        }
    }

    // Whoever has no family name stands where the whole name does.
    void AddFamily(const PersonName& name) {
        if (name.Family.empty()) {
            return AddText(name.Shown);
        }
        AddText(name.Family);
        AddText(name.Given);
        AddText(name.Shown);
    }

    const Book& book_;
    SortBy by_;
    Collation collation_;
    std::string key_;
    Arena kept_;
};

// The first bytes decide most comparisons without a look at the text.
struct Row {
    std::uint64_t Head = 0;
    std::string_view Key;
    std::size_t Record = 0;

    [[nodiscard]] bool operator<(const Row& other) const {
        if (Key.empty() || other.Key.empty()) {
            return !Key.empty() && other.Key.empty();
        }
        return Head != other.Head ? Head < other.Head : Key < other.Key;
    }
};

std::uint64_t HeadOf(std::string_view key) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < sizeof head; ++i) {
        head = head << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    return head;
}

}  // namespace

void SortBook(Book& book, SortBy by, const std::string& locale) {
    if (by == SortBy::None) {
        return;
    }
    SortKeys keys(book, by, locale);
    std::vector<Row> rows;
    rows.reserve(book.Contacts.size());
    for (const Contact& contact : book.Contacts) {
        const std::string_view key = keys.Of(contact);
        rows.push_back({HeadOf(key), key, rows.size()});
    }
    std::stable_sort(rows.begin(), rows.end());
    std::deque<Contact> sorted;
    for (const Row& row : rows) {
        sorted.push_back(book.Contacts[row.Record]);
    }
    book.Contacts = std::move(sorted);
}

bool IsLocale(const std::string& name) {
    const std::string language = LanguageOf(name);
    return language.empty() || *uloc_getISO3Language(language.c_str()) != '\0';
}

}  // namespace orvik::book

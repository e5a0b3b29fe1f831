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

// Nobody reads as much of a note to find its place.
constexpr std::size_t kLongestSorted = 1000;

class SortKeys {
 public:
    SortKeys(const Book& book, const Sorting& how) : book_(book), collation_(how.Locale) {}

    // Empty for a record that has nothing to be sorted by.
    std::string_view Of(const Contact& contact, SortBy by) {
        key_.clear();
        switch (by) {
            case SortBy::Address:
            case SortBy::Domain:
                AddAddress(contact, by);
                break;
            case SortBy::Name:
                AddText(ShownNameOf(book_, contact));
                break;
            case SortBy::Family:
                AddFamily(NameOf(book_, contact));
                break;
            case SortBy::Nickname:
                AddFirst(NicknamesOf(book_, contact));
                break;
            case SortBy::Phone:
                FoldPhone(FirstOf(book_, contact, field::kTel), key_);
                break;
            case SortBy::Note:
                AddText(FirstOf(book_, contact, field::kNote).substr(0, kLongestSorted));
                break;
            case SortBy::Source:
                AddPlace(contact.From);
                break;
            case SortBy::None:
                break;
        }
        return kept_.Keep(key_);
    }
    std::string_view OfText(std::string_view text) {
        key_.clear();
        AddText(text);
        return kept_.Keep(key_);
    }

 private:
    void AddAddress(const Contact& contact, SortBy by) {
        FoldAddress(FirstOf(book_, contact, field::kEmail), key_);
        const std::size_t at = key_.rfind('@');
        if (by == SortBy::Domain && at != std::string::npos) {
            key_ = key_.substr(at + 1) + '\0' + key_.substr(0, at);
        }
    }

    void AddText(std::string_view text) {
        if (!text.empty()) {
            collation_.Append(text, key_);
        }
    }

    void AddFirst(const std::vector<std::string>& texts) {
        if (!texts.empty()) {
            AddText(texts.front());
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

    void AddPlace(const Origin& from) {
        if (from.Lines == 0) {
            return;
        }
        for (const std::uint32_t number : {from.File, from.Line}) {
            for (unsigned shift = 32; shift > 0; shift -= 8) {
                key_ += static_cast<char>(number >> (shift - 8) & 0xFFU);
            }
        }
    }

    const Book& book_;
    Collation collation_;
    std::string key_;
    Arena kept_;
};

// The first bytes decide most comparisons without a look at the text.
struct Row {
    std::uint64_t Head = 0;
    std::string_view Key;
    std::uint32_t Record = 0;

    [[nodiscard]] bool IsBefore(const Row& other) const {
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

template <class KeyOf>
std::vector<std::uint32_t> OrderByKeys(const Book& book, const Sorting& how, const KeyOf& key_of) {
    std::vector<Row> rows;
    const std::size_t all = book.Contacts.size();
    rows.reserve(all);
    for (const Contact& contact : book.Contacts) {
        const auto number = static_cast<std::uint32_t>(rows.size());
        const std::string_view key = key_of(contact, number);
        rows.push_back({HeadOf(key), key, number});
        if (how.HowFar) {
            how.HowFar(rows.size(), all);
        }
    }
    const auto without = std::stable_partition(
        rows.begin(), rows.end(), [](const Row& row) { return !row.Key.empty(); });
    std::stable_sort(rows.begin(), without, [&how](const Row& one, const Row& other) {
        return how.IsDescending ? other.IsBefore(one) : one.IsBefore(other);
    });
    std::vector<std::uint32_t> order;
    order.reserve(all);
    for (const Row& row : rows) {
        order.push_back(row.Record);
    }
    return order;
}

}  // namespace

std::vector<std::uint32_t> OrderOf(const Book& book, SortBy by, const Sorting& how) {
    SortKeys keys(book, how);
    return OrderByKeys(book, how, [&keys, by](const Contact& contact, std::uint32_t /*number*/) {
        return keys.Of(contact, by);
    });
}

std::vector<std::uint32_t> OrderOf(const Book& book, const SortText& text, const Sorting& how) {
    SortKeys keys(book, how);
    std::string own;
    return OrderByKeys(book, how, [&](const Contact& /*contact*/, std::uint32_t number) {
        own.clear();
        text(number, own);
        return keys.OfText(own);
    });
}

void SortBook(Book& book, SortBy by, const std::string& locale) {
    if (by == SortBy::None) {
        return;
    }
    std::deque<Contact> sorted;
    for (const std::uint32_t record : OrderOf(book, by, {locale})) {
        sorted.push_back(book.Contacts[record]);
    }
    book.Contacts = std::move(sorted);
}

bool IsLocale(const std::string& name) {
    const std::string language = LanguageOf(name);
    return language.empty() || *uloc_getISO3Language(language.c_str()) != '\0';
}

}  // namespace orvik::book

#include "desktop/text/find_entry.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <string>
#include <string_view>

#include "desktop/text/ascii_search.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

// So many rows are looked through as one text, and then the other list's.
constexpr std::size_t kRowsAtOnce = 1024;

// The letters as they are searched where all is ASCII; none if they cannot stand there.
std::optional<AsciiSearch> SearchOf(QStringView letters) {
    std::string lower;
    // A letter outside ASCII can be another case of one inside, such as the Kelvin sign.
    for (const char32_t letter : letters.toUcs4()) {
        const char32_t folded = QChar::toCaseFolded(letter);
        if (folded >= kFirstForeign) {
            return {};
        }
        lower.push_back(static_cast<char>(folded));
    }
    return AsciiSearch(lower);
}

class Wanted {
 public:
    explicit Wanted(QStringView letters)
        : letters_(letters.toString()), ascii_(SearchOf(letters)) {}

    // The first or the last of the rows from begin on and before end that has the letters, end if
    // none has. The list may end before that.
    [[nodiscard]] std::size_t firstIn(const ItemList& list,
                                      std::size_t begin,
                                      std::size_t end) const {
        const std::size_t last = std::min(end, list.size());
        while (begin < last) {
            const Place place = nextPlace(list, begin, last);
            if (place.Found) {
                return place.Row;
            }
            begin = place.Row + 1;
        }
        return end;
    }
    [[nodiscard]] std::size_t lastIn(const ItemList& list,
                                     std::size_t begin,
                                     std::size_t end) const {
        std::size_t found = end;
        while (begin < end) {
            const std::size_t next = firstIn(list, begin, end);
            if (next == end) {
                break;
            }
            found = next;
            begin = next + 1;
        }
        return found;
    }

 private:
    // A row that has the letters, or one that was looked at and has not.
    struct Place {
        std::size_t Row;
        bool Found;
    };

    // The rows stand in one text one behind the other, which is looked through as a whole. Where
    // that finds something, a row is looked at for itself.
    [[nodiscard]] Place nextPlace(const ItemList& list, std::size_t begin, std::size_t end) const {
        const char* const start = list[begin].data();
        const std::string_view back = list[end - 1];
        const std::string_view text(start,
                                    static_cast<std::size_t>(back.data() + back.size() - start));
        for (std::size_t at = nextOf(text, 0); at < text.size(); at = nextOf(text, at)) {
            begin = rowOf(list, begin, end, start + at);
            const std::string_view item = list[begin];
            const auto item_start = static_cast<std::size_t>(item.data() - start);
            if (at < item_start) {
                at = item_start;
            } else if (IsForeign(text[at])) {
                return {begin, ToLetters(item).contains(letters_, Qt::CaseInsensitive)};
            } else if (at + ascii_->size() <= item_start + item.size()) {
                return {begin, true};
            } else {
                ++at;
            }
        }
        return {end - 1, false};
    }

    // The first row that ends behind a place.
    static std::size_t rowOf(const ItemList& list,
                             std::size_t begin,
                             std::size_t end,
                             const char* place) {
        while (begin < end) {
            const std::size_t middle = begin + (end - begin) / 2;
            const std::string_view item = list[middle];
            if (item.data() + item.size() > place) {
                end = middle;
            } else {
                begin = middle + 1;
            }
        }
        return begin;
    }

    // Where a row has to be looked at, from a place on; the end of the text if there is none.
    [[nodiscard]] std::size_t nextOf(std::string_view text, std::size_t at) const {
        return ascii_ ? ascii_->next(text, at) : at + AsciiLength(text.substr(at));
    }

    QString letters_;
    std::optional<AsciiSearch> ascii_;
};

}  // namespace

std::optional<FoundEntry> FindEntry(const ItemList& addresses,
                                    const ItemList& nicknames,
                                    QStringView wanted,
                                    std::size_t from,
                                    Direction direction) {
    if (wanted.isEmpty()) {
        return {};
    }
    const Wanted letters(wanted);
    const std::size_t rows = std::max(addresses.size(), nicknames.size());
    from = std::min(from, rows);
    const auto forward = [&](std::size_t begin, std::size_t end) -> std::optional<std::size_t> {
        for (; begin < end; begin += std::min(kRowsAtOnce, end - begin)) {
            const std::size_t behind = begin + std::min(kRowsAtOnce, end - begin);
            const std::size_t address = letters.firstIn(addresses, begin, behind);
            const std::size_t row = letters.firstIn(nicknames, begin, address);
            if (row < behind) {
                return row;
            }
        }
        return {};
    };
    const auto backward = [&](std::size_t begin, std::size_t end) -> std::optional<std::size_t> {
        for (; begin < end; end -= std::min(kRowsAtOnce, end - begin)) {
            const std::size_t first = end - std::min(kRowsAtOnce, end - begin);
            const std::size_t address = letters.lastIn(addresses, first, end);
            // Those behind the address that was found.
            const std::size_t rest = address < end ? address + 1 : first;
            const std::size_t nickname = letters.lastIn(nicknames, rest, end);
            if (nickname < end || address < end) {
                return nickname < end ? nickname : address;
            }
        }
        return {};
    };
    const bool goes_on = direction == Direction::Forward;
    if (const auto row = goes_on ? forward(from, rows) : backward(0, from)) {
        return FoundEntry{*row, false};
    }
    if (const auto row = goes_on ? forward(0, from) : backward(from, rows)) {
        return FoundEntry{*row, true};
    }
    return {};
}

}  // namespace orvik

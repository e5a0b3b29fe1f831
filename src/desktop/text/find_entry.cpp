#include "desktop/text/find_entry.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

constexpr unsigned kFirstForeign = 0x80;

constexpr std::array<char, 256> kLower = [] {
    std::array<char, 256> lower{};
    for (std::size_t c = 0; c < lower.size(); ++c) {
        const bool upper = c >= 'A' && c <= 'Z';
        lower.at(c) = static_cast<char>(upper ? c + ('a' - 'A') : c);
    }
    return lower;
}();

char Lower(char c) {
    return kLower[static_cast<unsigned char>(c)];
}

bool IsAscii(std::string_view item) {
    unsigned all = 0;
    for (const char c : item) {
        all |= static_cast<unsigned char>(c);
    }
    return all < kFirstForeign;
}

class Wanted {
 public:
    explicit Wanted(QStringView letters) : letters_(letters.toString()) {
        // A letter outside ASCII can be another case of one inside, such as the Kelvin sign.
        for (const char32_t letter : letters.toUcs4()) {
            const char32_t folded = QChar::toCaseFolded(letter);
            is_ascii_ = is_ascii_ && folded < kFirstForeign;
            ascii_.push_back(static_cast<char>(folded & 0xFFU));
        }
    }

    [[nodiscard]] bool isIn(std::string_view item) const {
        if (!IsAscii(item)) {
            return ToLetters(item).contains(letters_, Qt::CaseInsensitive);
        }
        return is_ascii_ &&
               std::search(
                   item.begin(), item.end(), ascii_.begin(), ascii_.end(), [](char a, char b) {
                       return Lower(a) == b;
                   }) != item.end();
    }

 private:
    QString letters_;
    std::string ascii_;  // in lower case
    bool is_ascii_ = true;
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
    const auto has = [&](const ItemList& list, std::size_t row) {
        return row < list.size() && letters.isIn(list[row]);
    };
    const std::size_t rows = std::max(addresses.size(), nicknames.size());
    from = std::min(from, rows);
    const bool forward = direction == Direction::Forward;
    for (std::size_t i = 0; i < rows; ++i) {
        const std::size_t row = forward ? (from + i) % rows : (from + rows - 1 - i) % rows;
        if (has(addresses, row) || has(nicknames, row)) {
            return FoundEntry{row, forward ? row < from : row >= from};
        }
    }
    return {};
}

}  // namespace orvik

#include "book/csv_cells.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "book/field_names.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsPlainAddress(std::string_view text) {
    const std::size_t at = text.find('@');
    return at != std::string_view::npos && at > 0 && at + 1 < text.size() &&
           text.find('@', at + 1) == std::string_view::npos &&
           text.find_first_of(" \t\r\n,;<>()\"|:") == std::string_view::npos &&
           text.front() != '.' && text.back() != '.' && text[at + 1] != '.';
}

// The three numbers of a date.
struct Numbers {
    std::array<std::uint32_t, 3> At{};
    std::array<std::size_t, 3> Digits{};
    char Between = 0;
};

std::optional<Numbers> NumbersOf(std::string_view cell) {
    cell = WithoutBlanksAround(cell);
    Numbers found;
    for (std::size_t i = 0; i < found.At.size(); ++i) {
        const auto is_digit = [](char c) { return IsDigit(c); };
        const auto digits = static_cast<std::size_t>(
            std::find_if_not(cell.begin(), cell.end(), is_digit) - cell.begin());
        if (digits == 0 || digits > 4) {
            return std::nullopt;
        }
        std::from_chars(cell.data(), cell.data() + digits, found.At[i]);
        found.Digits[i] = digits;
        cell.remove_prefix(digits);
        if (i == 2) {
            break;
        }
        constexpr std::string_view kBetween = "/.-";
        if (cell.empty() || kBetween.find(cell.front()) == std::string_view::npos ||
            (i > 0 && cell.front() != found.Between)) {
            return std::nullopt;
        }
        found.Between = cell.front();
        cell.remove_prefix(1);
    }
    // Some end with a dot: "12.4.1980."
    return cell.empty() || cell == "." ? std::optional(found) : std::nullopt;
}

std::string Written(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
    if (month < 1 || month > 12 || day < 1 || day > 31 || year < 1) {
        return {};
    }
    const auto padded = [](std::uint32_t number, std::size_t length) {
        const std::string text = std::to_string(number);
        return std::string(length - std::min(length, text.size()), '0') + text;
    };
    return padded(year, 4) + "-" + padded(month, 2) + "-" + padded(day, 2);
}

}  // namespace

bool IsAddressCell(std::string_view cell) {
    cell = WithoutBlanksAround(cell);
    const std::size_t open = cell.rfind('<');
    if (open != std::string_view::npos && cell.ends_with('>')) {
        return IsPlainAddress(cell.substr(open + 1, cell.size() - open - 2));
    }
    return IsPlainAddress(cell);
}

std::vector<std::string_view> AddressesIn(std::string_view cell) {
    std::vector<std::string_view> addresses;
    while (!cell.empty()) {
        bool quoted = false;
        bool bracket = false;
        std::size_t end = 0;
        for (; end < cell.size(); ++end) {
            const char c = cell[end];
            quoted = quoted != (c == '"');
            bracket = c == '<' || (bracket && c != '>');
            if (!quoted && !bracket && (c == ',' || c == ';')) {
                break;
            }
        }
        const std::string_view piece = WithoutBlanksAround(cell.substr(0, end));
        cell.remove_prefix(std::min(end + 1, cell.size()));
        if (!piece.empty() && !IsAddressCell(piece)) {
            return {};
        }
        if (!piece.empty()) {
            addresses.push_back(piece);
        }
    }
    return addresses;
}

bool HasAddressesAlone(std::string_view cell) {
    // Most have one.
    return IsAddressCell(cell) ||
           (cell.find_first_of(",;") != std::string_view::npos && !AddressesIn(cell).empty());
}

bool IsWebCell(std::string_view cell) {
    cell = WithoutBlanksAround(cell);
    return cell.find_first_of(" \t\r\n") == std::string_view::npos &&
           (StartsAsName(cell, "http://") || StartsAsName(cell, "https://") ||
            (StartsAsName(cell, "www.") && cell.size() > 4));
}

bool IsPhoneCell(std::string_view cell) {
    constexpr std::string_view kOfPhones = "0123456789+()-/. \t";
    constexpr std::ptrdiff_t kFewest = 6;
    cell = WithoutBlanksAround(cell);
    return cell.find_first_not_of(kOfPhones) == std::string_view::npos &&
           std::count_if(cell.begin(), cell.end(), IsDigit) >= kFewest && !NumbersOf(cell);
}

bool IsDialledCell(std::string_view cell) {
    cell = WithoutBlanksAround(cell);
    return IsPhoneCell(cell) && (cell.front() == '0' || cell.find_first_of("+()-/ ") < cell.size());
}

bool IsDateCell(std::string_view cell) {
    constexpr std::size_t kWhole = 10;
    return IsoDate(cell, DateOrder::DayFirst).size() == kWhole;
}

bool IsCodeCell(std::string_view cell) {
    constexpr std::size_t kShortest = 3;
    constexpr std::size_t kLongest = 5;
    cell = WithoutBlanksAround(cell);
    return cell.size() >= kShortest && cell.size() <= kLongest &&
           std::all_of(cell.begin(), cell.end(), IsDigit);
}

bool IsLongCodeCell(std::string_view cell) {
    constexpr std::size_t kLength = 5;
    return IsCodeCell(cell) && WithoutBlanksAround(cell).size() == kLength;
}

bool HasDigit(std::string_view cell) {
    return std::any_of(cell.begin(), cell.end(), IsDigit);
}

bool IsDayCell(std::string_view cell) {
    cell = WithoutBlanksAround(cell);
    std::uint32_t day = 0;
    const auto read = std::from_chars(cell.data(), cell.data() + cell.size(), day);
    return !cell.empty() && read.ptr == cell.data() + cell.size() && day >= 1 && day <= 31;
}

bool IsNameCell(std::string_view cell) {
    cell = WithoutBlanksAround(cell);
    return !cell.empty() && std::all_of(cell.begin(), cell.end(), [](char c) {
        constexpr std::string_view kBetween = " .'-,";
        return static_cast<unsigned char>(c) >= 0x80 || IsAsciiLetter(c) ||
               kBetween.find(c) != std::string_view::npos;
    });
}

FoundOrder OrderOf(std::span<const std::string_view> cells, DateOrder otherwise) {
    bool open = false;
    for (const std::string_view cell : cells) {
        const auto numbers = NumbersOf(cell);
        if (!numbers || numbers->Digits[0] > 2 || numbers->At[0] == 0) {
            continue;
        }
        if (numbers->Between == '.' || numbers->At[0] > 12) {
            return {DateOrder::DayFirst, true};
        }
        if (numbers->At[1] > 12) {
            return {DateOrder::MonthFirst, true};
        }
        open = open || numbers->At[0] != numbers->At[1];
    }
    return {otherwise, !open};
}

std::string IsoDate(std::string_view cell, DateOrder order) {
    cell = WithoutBlanksAround(cell);
    if (cell.starts_with("--")) {
        const bool month_and_day = cell.size() == 7 && cell[4] == '-' &&
                                   IsDayCell(cell.substr(2, 2)) && IsDayCell(cell.substr(5, 2));
        return month_and_day && cell.substr(2, 2) <= "12" ? std::string(cell) : std::string();
    }
    const auto numbers = NumbersOf(cell);
    if (!numbers) {
        return {};
    }
    const auto& [first, second, third] = numbers->At;
    if (numbers->Digits[0] == 4) {
        return Written(first, second, third);
    }
    if (numbers->Digits[2] != 4) {
        return {};
    }
    // One above 12 can be no month, whatever the others of the column are.
    const bool day_first =
        first > 12 || (order == DateOrder::DayFirst && second <= 12) || numbers->Between == '.';
    return day_first ? Written(third, second, first) : Written(third, first, second);
}

bool IsNoDate(std::string_view cell) {
    return cell.find('0') != std::string_view::npos &&
           cell.find_first_not_of("0/.- :") == std::string_view::npos;
}

}  // namespace orvik::book

#include "book/csv_form.h"

#include <algorithm>
#include <array>
#include <vector>

#include "book/arena.h"
#include "book/csv_cells.h"
#include "book/csv_rows.h"
#include "book/csv_words.h"
#include "book/field_names.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::size_t kSampleBytes = 256UL * 1024;
constexpr std::size_t kMostRows = 30;
constexpr std::size_t kMostCells = 1000;
constexpr std::string_view kSeparators = ",;\t|";

// The first rows of a text, parted by one separator.
struct Sample {
    Arena Texts;
    std::vector<std::vector<std::string_view>> Rows;
};

void Fill(std::string_view text, char separator, Sample& sample) {
    CsvRows rows(text.substr(0, kSampleBytes), separator, sample.Texts);
    CsvRow row;
    while (sample.Rows.size() < kMostRows && rows.Next(row)) {
        row.Cells.resize(std::min(row.Cells.size(), kMostCells));
        sample.Rows.push_back(row.Cells);
    }
    // The last one may be cut.
    if (text.size() > kSampleBytes && sample.Rows.size() > 1 && sample.Rows.size() < kMostRows) {
        sample.Rows.pop_back();
    }
}

// What speaks for a table.
struct Signs {
    std::size_t Columns = 0;    // of the first row
    std::size_t Words = 0;      // cells of the first row that name a column
    bool AddressAbove = false;  // a cell of the first row is an address
    bool EmptyAbove = false;    // a cell of the first row is empty
    bool ValuesAbove = false;   // a cell of the first row is a value, as no header is
    bool Addresses = false;     // a column holds addresses below the first row
    bool OtherThings = false;   // another column holds something else
    bool Even = true;           // no row has more cells, and most have as many
    bool Equal = true;          // all have as many
};

// Empty cells tell nothing; more than half of the others have to be addresses.
bool HoldsAddresses(const Sample& sample, std::size_t column, std::size_t first) {
    std::size_t filled = 0;
    std::size_t addresses = 0;
    for (std::size_t i = first; i < sample.Rows.size(); ++i) {
        const auto& row = sample.Rows[i];
        if (column < row.size() && !WithoutBlanksAround(row[column]).empty()) {
            ++filled;
            addresses += HasAddressesAlone(row[column]) ? 1U : 0U;
        }
    }
    return filled > 0 && 2 * addresses > filled;
}

// A page, something with an at inside, a number or another cell without a letter, or what stands
// for nothing.
bool IsValue(std::string_view cell) {
    constexpr std::array<std::string_view, 4> kNothing = {"none", "n/a", "null", "nil"};
    cell = WithoutBlanksAround(cell);
    const bool letters = std::any_of(cell.begin(), cell.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x80 || (c >= 'a' && c <= 'z') ||
               (c >= 'A' && c <= 'Z');
    });
    return IsWebCell(cell) || cell.find('@', 1) != std::string_view::npos ||
           (!cell.empty() && !letters) ||
           std::any_of(kNothing.begin(), kNothing.end(), [cell](std::string_view word) {
               return SameName(cell, word);
           });
}

Signs SignsOf(const Sample& sample) {
    Signs signs;
    if (sample.Rows.empty()) {
        return signs;
    }
    const auto& first = sample.Rows.front();
    signs.Columns = first.size();
    for (const std::string_view cell : first) {
        const CsvHeaderKey key = KeyOf(cell);
        signs.Words += !key.Text.empty() && !CsvWords::All().Find(key.Text).empty() ? 1U : 0U;
        signs.AddressAbove = signs.AddressAbove || HasAddressesAlone(cell);
        signs.EmptyAbove = signs.EmptyAbove || key.Text.empty();
        signs.ValuesAbove = signs.ValuesAbove || IsValue(cell);
    }
    std::size_t equal = 0;
    for (const auto& row : sample.Rows) {
        signs.Even = signs.Even && row.size() <= signs.Columns + 1;
        equal += row.size() == signs.Columns ? 1U : 0U;
    }
    signs.Even = signs.Even && 2 * equal > sample.Rows.size();
    signs.Equal = equal == sample.Rows.size();
    for (std::size_t i = 0; i < signs.Columns; ++i) {
        const bool addresses = HoldsAddresses(sample, i, signs.AddressAbove ? 0 : 1);
        signs.Addresses = signs.Addresses || addresses;
        signs.OtherThings = signs.OtherThings || !addresses;
    }
    return signs;
}

bool IsNamed(const Signs& signs) {
    const bool words = signs.Words >= 3 && 2 * signs.Words > signs.Columns;
    return !signs.AddressAbove && signs.Even && (words || (signs.Words >= 1 && signs.Addresses));
}

// Without a header nothing may be otherwise: texts have commas and addresses, too.
bool IsBare(const Signs& signs, std::size_t rows) {
    return signs.Columns > 1 && signs.Addresses && signs.OtherThings && signs.Equal && rows > 1;
}

// Rows that end where the groups of their person do: an address stands in the same place of each,
// and nowhere else.
bool IsRagged(const Signs& signs, const Sample& sample) {
    constexpr std::size_t kLast = 3;
    if (signs.Equal || sample.Rows.size() < 2) {
        return false;
    }
    const auto& first = sample.Rows.front();
    const auto at = static_cast<std::size_t>(
        std::find_if(first.begin(), first.end(), HasAddressesAlone) - first.begin());
    return at <= kLast &&
           std::all_of(sample.Rows.begin(), sample.Rows.end(), [at](const auto& row) {
               return at < row.size() && HasAddressesAlone(row[at]) &&
                      std::count_if(row.begin(), row.end(), HasAddressesAlone) == 1;
           });
}

// A line that names the separator, as spreadsheets read it.
std::optional<CsvForm> NamedForm(std::string_view text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    std::string_view line = text.substr(0, end);
    if (line.size() >= 2 && line.front() == '"' && line.back() == '"') {
        line = line.substr(1, line.size() - 2);
    }
    constexpr std::string_view kStart = "sep=";
    const bool named = line.size() == kStart.size() + 1 &&
                       SameName(line.substr(0, kStart.size()), kStart) && line.back() != '"';
    if (!named) {
        return std::nullopt;
    }
    return CsvForm{line.back(), true, end, "line 1 names the separator", 1};
}

// Headers that nobody knows are rarely empty, and no values; a person without an address would be
// lost as one.
bool HasHeader(const Signs& signs) {
    return !signs.AddressAbove && (signs.Words > 0 || (!signs.EmptyAbove && !signs.ValuesAbove));
}

// The separator that parts the first row into most cells, where others have as many.
CsvForm BestForm(std::string_view text, Signs& best, std::size_t& rows, bool& ragged) {
    CsvForm form;
    std::size_t points = 0;
    ragged = false;
    for (const char separator : kSeparators) {
        Sample sample;
        Fill(text, separator, sample);
        const Signs signs = SignsOf(sample);
        const bool is_ragged = IsRagged(signs, sample);
        const std::size_t found =
            (IsNamed(signs) ? 1000000 : 0) + (IsBare(signs, sample.Rows.size()) ? 100000 : 0) +
            (is_ragged ? 50000 : 0) + (signs.Even ? 10000 : 0) + 2 * signs.Words + signs.Columns;
        if (found > points) {
            points = found;
            best = signs;
            rows = sample.Rows.size();
            ragged = is_ragged;
            form.Separator = separator;
        }
    }
    form.HasHeader = HasHeader(best);
    return form;
}

void PassLine(std::string_view text, CsvForm& form) {
    const std::size_t end = std::min(text.find_first_of("\r\n", form.From), text.size());
    const std::size_t behind = text.substr(end).starts_with("\r\n") ? end + 2 : end + 1;
    form.From = std::min(behind, text.size());
    ++form.FirstLine;
}

std::optional<CsvForm> FormOfRows(std::string_view text,
                                  std::uint32_t first_line,
                                  bool called_table) {
    Signs signs;
    std::size_t rows = 0;
    bool ragged = false;
    CsvForm form = BestForm(text, signs, rows, ragged);
    const std::string line = "line " + std::to_string(first_line);
    if (IsNamed(signs)) {
        form.Evidence = line + " names columns";
    } else if (IsBare(signs, rows + (called_table ? 1 : 0)) || ragged) {
        form.Evidence = line + " begins rows with addresses";
    } else {
        return std::nullopt;
    }
    return form;
}

// The form of rows behind comments, or behind a line that says how many people were found.
std::optional<CsvForm> FormBehind(std::string_view text, bool called_table) {
    CsvForm behind;
    while (text.substr(behind.From).starts_with('#')) {
        PassLine(text, behind);
    }
    const bool comments = behind.From > 0;
    if (!comments) {
        PassLine(text, behind);
    }
    const std::string_view line = text.substr(0, behind.From);
    const std::string_view rows = text.substr(behind.From);
    // Addresses and tabs, as programs answer a question for an address.
    const bool answer = line.find_first_of("\t@") == std::string_view::npos &&
                        HasAddressesAlone(rows.substr(0, std::min(rows.find('\t'), rows.size())));
    if (rows.empty() || (!comments && !answer)) {
        return std::nullopt;
    }
    auto form = FormOfRows(rows, behind.FirstLine, called_table);
    if (!form || (!comments && form->Separator != '\t')) {
        return std::nullopt;
    }
    form->From = behind.From;
    form->FirstLine = behind.FirstLine;
    return form;
}

}  // namespace

std::optional<CsvForm> CsvFormOf(std::string_view text, bool called_table) {
    if (auto named = NamedForm(text)) {
        Sample sample;
        Fill(text.substr(named->From), named->Separator, sample);
        named->HasHeader = HasHeader(SignsOf(sample));
        return named;
    }
    auto form = FormOfRows(text, 1, called_table);
    return form ? form : FormBehind(text, called_table);
}

CsvForm LikelyCsvForm(std::string_view text) {
    if (auto form = CsvFormOf(text)) {
        return *form;
    }
    Signs signs;
    std::size_t rows = 0;
    bool ragged = false;
    return BestForm(text, signs, rows, ragged);
}

}  // namespace orvik::book

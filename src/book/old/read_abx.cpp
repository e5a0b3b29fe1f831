#include "book/old/read_abx.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/text.h"
#include "book/csv_cells.h"
#include "book/csv_contact.h"
#include "book/csv_form.h"
#include "book/csv_sheet.h"
#include "book/old/abx_columns.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kGroupBegin = "G>";
constexpr std::string_view kGroupEnd = "<G";

class AbxReader {
 public:
    AbxReader(Book& book, std::uint32_t file, Charset& charset, std::span<const CsvMapping> asked)
        : book_(book),
          file_(file),
          table_(book, file, charset, AbxFormOf),
          found_(AbxColumnsOf(table_.Top(), asked)),
          contacts_(book, charset, file, found_.Columns, table_.IsDecoded()) {}

    CsvFound Read(std::span<const CsvMapping> asked) {
        for (CsvRow row; table_.Next(row);) {
            Take(std::move(row));
        }
        EndGroup(Reason::CutOff);
        table_.ShowHeader();
        return {{}, SentenceOf(found_.Columns), NotThere(found_.Columns, asked)};
    }

 private:
    struct Group {
        CsvRow Row;
        std::vector<CsvRow> Rows;
        bool Open = false;
    };

    static std::string_view& CellAt(CsvRow& row, std::size_t column) {
        row.Cells.resize(std::max(row.Cells.size(), column + 1));
        return row.Cells[column];
    }

    void Take(CsvRow row) {
        if (found_.Kind == AbxColumns::kNone || found_.Kind >= row.Cells.size()) {
            Add(row);
            return;
        }
        const std::string_view kind = WithoutBlanksAround(row.Cells[found_.Kind]);
        if (kind == kGroupBegin) {
            EndGroup(Reason::NotEnded);
            CellAt(row, found_.Kind) = {};
            group_ = {std::move(row), {}, true};
        } else if (kind == kGroupEnd) {
            EndGroup(Reason::None);
        } else {
            Prepare(row, kind);
            if (group_.Open) {
                group_.Rows.push_back(std::move(row));
            } else {
                Add(row);
            }
        }
    }

    // What a row is says something of firms and rooms alone.
    void Prepare(CsvRow& row, std::string_view kind) const {
        if (SameName(kind, "U")) {
            CellAt(row, found_.Kind) = {};
        }
        if (SameName(kind, "C") && found_.Firm != AbxColumns::kNone &&
            found_.Name != AbxColumns::kNone && CellAt(row, found_.Firm).empty()) {
            CellAt(row, found_.Firm) = CellAt(row, found_.Name);
        }
        if (found_.Smtp != AbxColumns::kNone && found_.Mail != AbxColumns::kNone &&
            CellAt(row, found_.Smtp) == CellAt(row, found_.Mail)) {
            CellAt(row, found_.Mail) = {};
        }
    }

    // A member that stands in the table already is that row.
    std::uint32_t Add(const CsvRow& row) {
        const auto [place, is_new] = lines_.emplace(WithoutBlanksAround(row.Span), row.Number);
        if (is_new || !group_.Open) {
            contacts_.Add(row, table_.OriginOf(row));
        }
        return place->second;
    }

    void EndGroup(Reason reason) {
        if (!group_.Open) {
            return;
        }
        std::vector<std::uint32_t> members;
        for (const CsvRow& row : group_.Rows) {
            members.push_back(Add(row));
        }
        group_.Open = false;
        if (reason != Reason::None) {
            book_.Told.Add({{},
                            kGroupBegin,
                            file_,
                            group_.Row.Number,
                            FieldNames::kNone,
                            What::Doubtful,
                            reason});
        }
        contacts_.AddList(group_.Row, table_.OriginOf(group_.Row), members);
        group_ = {};
    }

    Book& book_;
    std::uint32_t file_;
    CsvSheet table_;
    AbxColumns found_;
    CsvContacts contacts_;
    Group group_;
    std::unordered_map<std::string_view, std::uint32_t> lines_;  // of rows
};

}  // namespace

std::optional<std::string> TaggedEvidence(const Source& source) {
    return IsTagged(source.Text()) ? std::optional<std::string>("line 1 names columns by tags")
                                   : std::nullopt;
}

std::optional<std::string> AbxEvidence(const Source& source) {
    if (!ToLower(source.Name()).ends_with(".abx")) {
        return std::nullopt;
    }
    // It always writes a header.
    const auto table = CsvFormOf(source.Text());
    if (table) {
        return table->HasHeader ? std::optional(table->Evidence) : std::nullopt;
    }
    constexpr std::size_t kMostRows = 30;
    constexpr std::size_t kAddress = 5;
    const CsvForm form = AbxFormOf(source.Text());
    Arena texts;
    CsvRows rows(source.Text().substr(form.From), form.Separator, texts);
    CsvRow row;
    std::size_t filled = 0;
    std::size_t addresses = 0;
    for (std::size_t i = 0; i < kMostRows && rows.Next(row); ++i) {
        const bool address = row.Cells.size() > kAddress && IsAddressCell(row.Cells[kAddress]);
        filled += i > 0 || address ? 1U : 0U;
        addresses += address ? 1U : 0U;
    }
    if (addresses == 0 || 2 * addresses < filled) {
        return std::nullopt;
    }
    return "column 6 holds addresses";
}

CsvFound ReadAbx(Book& book,
                 std::uint32_t file,
                 Charset& charset,
                 std::span<const CsvMapping> asked) {
    return AbxReader(book, file, charset, asked).Read(asked);
}

}  // namespace orvik::book

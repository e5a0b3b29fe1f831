#include "book/old/abx_columns.h"

#include <algorithm>
#include <array>
#include <vector>

#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kTagMap = ":::TAGMAP:::";

struct AbxTag {
    std::string_view Tag;
    std::string_view Field;
};

// The numbers that Windows programs have for what mail and people are made of.
constexpr std::string_view kKindTag = "0FFE";
constexpr std::array kTags = {
    AbxTag{"3001", "fn"},
    AbxTag{"3A06", "given"},
    AbxTag{"3A11", "family"},
    AbxTag{"3A44", "middle"},
    AbxTag{"3A45", "prefix"},
    AbxTag{"3A05", "suffix"},
    AbxTag{"3A4F", "nickname"},
    AbxTag{"39FE", "email1"},
    AbxTag{"3003", "email2"},
    AbxTag{"3002", "email1.type"},
    AbxTag{"3A08", "phone.work"},
    AbxTag{"3A1B", "phone.work2"},
    AbxTag{"3A09", "phone.home"},
    AbxTag{"3A2F", "phone.home2"},
    AbxTag{"3A1C", "phone.mobile"},
    AbxTag{"3A21", "phone.pager"},
    AbxTag{"3A24", "phone.fax.work"},
    AbxTag{"3A25", "phone.fax.home"},
    AbxTag{"3A23", "phone.fax"},
    AbxTag{"3A16", "org"},
    AbxTag{"3A18", "dept"},
    AbxTag{"3A17", "title"},
    AbxTag{"3A29", "street.work"},
    AbxTag{"3A27", "city.work"},
    AbxTag{"3A28", "region.work"},
    AbxTag{"3A2A", "zip.work"},
    AbxTag{"3A26", "country.work"},
    AbxTag{"3A15", "adr.work"},
    AbxTag{"3A5D", "street.home"},
    AbxTag{"3A59", "city.home"},
    AbxTag{"3A5C", "region.home"},
    AbxTag{"3A5B", "zip.home"},
    AbxTag{"3A5A", "country.home"},
    AbxTag{"3A42", "birthday"},
    AbxTag{"3A51", "url.work"},
    AbxTag{"3A50", "url.home"},
    AbxTag{"3004", "note"},
    AbxTag{"1000", "note"},
};

// "3001001E:Name" as the four digits that tell, and the words.
struct TaggedCell {
    std::string_view Tag;
    std::string_view Words;
};

TaggedCell TaggedCellOf(std::string_view cell) {
    constexpr std::size_t kDigits = 8;
    if (StartsAsName(cell, kTagMap)) {
        cell.remove_prefix(kTagMap.size());
    }
    const bool tagged = cell.size() > kDigits && cell[kDigits] == ':' &&
                        cell.substr(0, kDigits).find_first_not_of("0123456789ABCDEFabcdef") ==
                            std::string_view::npos;
    return tagged ? TaggedCell{cell.substr(0, 4), WithoutBlanksAround(cell.substr(kDigits + 1))}
                  : TaggedCell{{}, cell};
}

void TakeField(CsvColumns& columns, std::size_t i, std::string_view name, CsvGround ground) {
    CsvColumn& column = columns.All[i];
    if (column.Ground != CsvGround::Asked) {
        column.Field = &CsvFieldOf(name);
        column.Name = column.Field->Name;
        column.Ground = ground;
    }
}

AbxColumns ByTags(const CsvTop& top, std::span<const CsvMapping> asked) {
    std::vector<TaggedCell> cells;
    std::vector<std::string_view> words;
    for (const std::string_view header : top.Header) {
        cells.push_back(TaggedCellOf(header));
        const bool kind = SameName(cells.back().Tag, kKindTag);
        words.push_back(kind ? "type" : cells.back().Words);
    }
    CsvTop named = top;
    named.Header = words;
    AbxColumns found{MatchColumns(named, asked)};
    found.Columns.Program = {};
    found.Columns.ManyInCell = false;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string_view tag = cells[i].Tag;
        const auto* const known =
            std::find_if(kTags.begin(), kTags.end(), [tag](const AbxTag& one) {
                return SameName(one.Tag, tag);
            });
        if (SameName(tag, kKindTag)) {
            TakeField(found.Columns, i, "none", CsvGround::None);
            found.Kind = i;
        } else if (known != kTags.end()) {
            TakeField(found.Columns, i, known->Field, CsvGround::Tag);
            CsvColumn& column = found.Columns.All[i];
            if (column.Field->Meaning == CsvMeaning::Date && i < top.Cells.size()) {
                column.Order = OrderOf(top.Cells[i], DateOrder::MonthFirst);
            }
            found.Name = known->Field == "fn" ? i : found.Name;
            found.Firm = known->Field == "org" ? i : found.Firm;
            found.Smtp = known->Field == "email1" ? i : found.Smtp;
            found.Mail = known->Field == "email2" ? i : found.Mail;
        }
    }
    return found;
}

}  // namespace

bool IsTagged(std::string_view text) {
    text.remove_prefix(text.starts_with('"') ? 1 : 0);
    return StartsAsName(text, kTagMap);
}

CsvForm AbxFormOf(std::string_view text) {
    if (!IsTagged(text)) {
        const auto found = CsvFormOf(text);
        return found ? *found : CsvForm{};
    }
    const std::string_view header = text.substr(0, text.find_first_of("\r\n"));
    CsvForm form;
    std::ptrdiff_t most = 0;
    for (const char separator : {',', ';', '\t'}) {
        const auto count = std::count(header.begin(), header.end(), separator);
        form.Separator = count > most ? separator : form.Separator;
        most = std::max(most, count);
    }
    return form;
}

AbxColumns AbxColumnsOf(const CsvTop& top, std::span<const CsvMapping> asked) {
    const bool tagged = !top.Header.empty() && IsTagged(top.Header[0]);
    AbxColumns found = tagged ? ByTags(top, asked) : AbxColumns{MatchColumns(top, asked)};
    found.Columns.Carried = kCarriedFromAbx;
    const auto& all = found.Columns.All;
    const bool named = std::any_of(all.begin(), all.end(), [](const CsvColumn& one) {
        return one.Ground != CsvGround::None && one.Ground != CsvGround::Cells;
    });
    constexpr std::size_t kName = 1;
    constexpr std::size_t kAddress = 5;
    if (!named && !top.Header.empty() && all.size() > kAddress) {
        TakeField(found.Columns, kName, "fn", CsvGround::Place);
        TakeField(found.Columns, kAddress, "email1", CsvGround::Place);
    }
    return found;
}

}  // namespace orvik::book

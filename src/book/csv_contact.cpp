#include "book/csv_contact.h"

#include <algorithm>
#include <map>
#include <utility>

#include "book/carried_name.h"
#include "book/csv_cells.h"
#include "book/csv_values.h"
#include "book/record_lines.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// The value up to the next separator; rest moves behind it.
std::string_view Taken(std::string_view& rest, std::string_view between, bool& more) {
    const std::size_t at = rest.find(between);
    more = at != std::string_view::npos;
    const std::string_view taken = rest.substr(0, at);
    rest.remove_prefix(more ? at + between.size() : rest.size());
    return taken;
}

}  // namespace

CsvContacts::CsvContacts(
    Book& book, Charset& charset, std::uint32_t file, CsvColumns& columns, bool decoded)
    : book_(book),
      charset_(charset),
      file_(file),
      columns_(columns),
      decoded_(decoded),
      plain_((decoded || charset.IsUtf8()) && book.SourceAt(file).BadLetters() == 0) {
    Prepare();
}

void CsvContacts::Prepare() {
    std::map<std::pair<std::string_view, std::uint32_t>, std::size_t> posts;
    std::map<std::uint32_t, std::size_t> firms;
    prepared_.resize(columns_.All.size());
    for (std::size_t i = 0; i < columns_.All.size(); ++i) {
        const CsvColumn& column = columns_.All[i];
        const CsvField& field = *column.Field;
        Prepared& one = prepared_[i];
        one.Carried = book_.Names.Intern(CarriedName(columns_.Carried, column.Header, i));
        one.CarriedDetails = KeepHeader(
            book_, book_.Names.Text(one.Carried).substr(columns_.Carried.size()), column.Header);
        one.Types = TypesOf(field.Types);
        if (field.Property == field::kAdr) {
            one.Group = posts.try_emplace({field.Types, column.Number}, posts.size()).first->second;
        } else if (field.Property == field::kOrg) {
            one.Group = firms.try_emplace(column.Number, firms.size()).first->second;
        }
    }
    posts_.resize(posts.size());
    firms_.resize(firms.size());
    kinds_.resize(columns_.All.size());
}

std::uint32_t CsvContacts::TypesOf(std::string_view types) {
    if (types.empty()) {
        return 0;
    }
    const auto [place, is_new] = types_.try_emplace(std::string(types), 0);
    if (is_new) {
        std::vector<Param> params;
        for (bool more = true; more;) {
            params.push_back({field::kType, book_.Keep(Taken(types, " ", more))});
        }
        place->second = book_.KeepDetails({}, params);
    }
    return place->second;
}

void CsvContacts::Push(NameId name, std::string_view value, std::uint32_t details) {
    properties_.push_back({value, name, file_, line_, details});
}

bool CsvContacts::Add(const CsvRow& row, const Origin& from) {
    const bool empty = std::all_of(row.Cells.begin(), row.Cells.end(), [](std::string_view cell) {
        return WithoutBlanksAround(cell).empty();
    });
    if (empty) {
        return false;
    }
    Begin(row, from);
    book_.AddRead(contact_, properties_);
    return true;
}

void CsvContacts::AddList(const CsvRow& row,
                          const Origin& from,
                          std::span<const std::uint32_t> members) {
    Begin(row, from);
    contact_.Kind = ContactKind::List;
    for (const std::uint32_t line : members) {
        Push(field::kMember, book_.Keep(std::string(kLineScheme) + std::to_string(line)));
    }
    book_.AddRead(contact_, properties_);
}

void CsvContacts::Begin(const CsvRow& row, const Origin& from) {
    line_ = from.Line;
    book_.BeginRead(contact_, from, charset_.IsUtf8());
    contact_.Form = Dialect::Csv;
    Judge(row);
    TakeKinds(row);
    if (row.Doubt != Reason::None) {
        book_.Told.Add(
            {{}, row.DoubtAt, file_, line_, FieldNames::kNone, What::Doubtful, row.Doubt});
    }
    for (std::size_t i = 0; i < row.Cells.size(); ++i) {
        if (!WithoutBlanksAround(row.Cells[i]).empty()) {
            TakeCell(i, row.Cells[i]);
        }
    }
    Finish();
    FinishKinds(row);
}

// All cells of a row were written in one set.
void CsvContacts::Judge(const CsvRow& row) {
    piece_ = PieceCharset::Utf8;
    if (decoded_) {
        contact_.IsUtf8 = false;
    } else if (!charset_.IsUtf8()) {
        piece_ = charset_.Judge(row.Cells, line_);
        contact_.IsUtf8 = contact_.IsUtf8 || piece_ == PieceCharset::Broken;
    }
}

// What says home or work is asked for by the cells beside it.
void CsvContacts::TakeKinds(const CsvRow& row) {
    for (std::size_t i = 0; i < columns_.All.size(); ++i) {
        if (columns_.All[i].Field->Meaning != CsvMeaning::Kind) {
            continue;
        }
        Kinds& kinds = kinds_[i];
        kinds.Cell = i < row.Cells.size() ? Letters(row.Cells[i], i) : std::string_view{};
        kinds.Used = 0;
        kinds.Values.clear();
        std::string_view rest = kinds.Cell;
        for (bool more = columns_.ManyInCell; more;) {
            kinds.Values.push_back(Taken(rest, kBetweenValues, more));
        }
        if (kinds.Values.empty()) {
            kinds.Values.push_back(kinds.Cell);
        }
    }
}

std::string_view CsvContacts::Letters(std::string_view bytes, std::size_t column) {
    if (plain_) {
        return bytes;
    }
    std::size_t bad = 0;
    const std::string_view text = charset_.Decode(bytes, piece_, book_.Texts(), bad);
    const std::string_view header =
        column < columns_.All.size() ? columns_.All[column].Header : std::string_view{};
    if (bad > 0 || book_.SourceAt(file_).IsBroken(text)) {
        book_.Told.Add(
            {header, text, file_, line_, FieldNames::kNone, What::Doubtful, Reason::NoLetter});
    }
    return text;
}

void CsvContacts::TakeCell(std::size_t column, std::string_view cell) {
    if (column >= columns_.All.size()) {
        return TakeExtra(column, Letters(cell, column));
    }
    CsvColumn& one = columns_.All[column];
    const CsvMeaning meaning = one.Field->Meaning;
    if (meaning == CsvMeaning::Kind) {
        return;
    }
    const bool of_name = meaning == CsvMeaning::Single || meaning == CsvMeaning::NamePart;
    if (piece_ == PieceCharset::Other && of_name) {
        charset_.Example(WithoutBlanksAround(cell));
    }
    const std::string_view text = Letters(cell, column);
    if (IsNothing(one.Name, text)) {
        return;
    }
    one.Used = true;
    if (meaning == CsvMeaning::Values) {
        return TakeValues(column, text);
    }
    const bool many = columns_.ManyInCell && meaning != CsvMeaning::Carried &&
                      one.Field->Property != field::kNote && one.Field->Property != field::kN &&
                      one.Field->Property != field::kFn;
    if (!many) {
        return TakeValue(column, text, 0);
    }
    std::string_view rest = text;
    std::size_t number = 0;
    for (bool more = true; more; ++number) {
        const std::string_view value = WithoutBlanksAround(Taken(rest, kBetweenValues, more));
        if (!value.empty()) {
            TakeValue(column, value, number);
        }
    }
}

void CsvContacts::TakeValue(std::size_t column, std::string_view text, std::size_t number) {
    const CsvField& field = *columns_.All[column].Field;
    const std::string_view value = WithoutBlanksAround(text);
    switch (field.Meaning) {
        case CsvMeaning::Address:
            return TakeAddresses(column, value, number);
        case CsvMeaning::Simple: {
            const bool whole = field.Property == field::kNote;
            return PushLabelled(field.Property, whole ? text : value, column, number);
        }
        case CsvMeaning::Single:
        case CsvMeaning::NamePart:
            return TakeName(column, value);
        case CsvMeaning::OrgPart:
            return TakeFirm(column, value);
        case CsvMeaning::Post:
        case CsvMeaning::PostMore:
        case CsvMeaning::PostWhole:
            return TakePost(column, value, number);
        case CsvMeaning::Date:
            return TakeDate(column, value);
        case CsvMeaning::Year:
        case CsvMeaning::Month:
        case CsvMeaning::Day: {
            const auto part = static_cast<std::size_t>(field.Meaning) -
                              static_cast<std::size_t>(CsvMeaning::Year);
            if (!birth_[part].empty()) {
                return Carry(column, text);
            }
            birth_[part] = value;
            birth_columns_[part] = column;
            return;
        }
        case CsvMeaning::AddressName:
            if (!address_names_[field.Part].empty()) {
                return Carry(column, text);
            }
            address_names_[field.Part] = value;
            address_columns_[field.Part] = column;
            return;
        case CsvMeaning::Photo: {
            const std::array params = {Param{field::kValue, "uri"}};
            return Push(field.Property, value, book_.KeepDetails({}, params));
        }
        case CsvMeaning::Html:
            if (SameName(value, "true") || SameName(value, "false")) {
                return Push(field.Property, value.size() == 4 ? "TRUE" : "FALSE");
            }
            return Carry(column, text);
        default:
            return Carry(column, text);
    }
}

// Some programs write all addresses of a person into one cell.
void CsvContacts::TakeAddresses(std::size_t column, std::string_view value, std::size_t number) {
    const NameId name = columns_.All[column].Field->Property;
    const bool several = value.find_first_of(",;") != std::string_view::npos;
    const auto addresses = several ? AddressesIn(value) : std::vector<std::string_view>();
    if (addresses.empty()) {
        return PushLabelled(name, value, column, number);
    }
    for (const std::string_view one : addresses) {
        PushLabelled(name, one, column, number);
    }
}

void CsvContacts::TakeName(std::size_t column, std::string_view value) {
    const CsvField& field = *columns_.All[column].Field;
    if (field.Meaning == CsvMeaning::NamePart && !name_[field.Part].empty()) {
        Carry(column, value);
    } else if (field.Meaning == CsvMeaning::NamePart) {
        name_[field.Part] = value;
    } else {
        shown_ = field.Property == field::kFn ? value : shown_;
        Push(field.Property, value);
    }
}

void CsvContacts::TakeFirm(std::size_t column, std::string_view value) {
    Firm& firm = firms_[prepared_[column].Group];
    if (!firm.Used) {
        firms_used_.push_back(prepared_[column].Group);
        firm.Used = true;
    }
    std::string_view& part = firm.Parts[columns_.All[column].Field->Part];
    if (part.empty()) {
        part = value;
    } else {
        Carry(column, value);
    }
}

void CsvContacts::TakePost(std::size_t column, std::string_view value, std::size_t number) {
    const std::size_t group = prepared_[column].Group;
    std::vector<Post>& posts = posts_[group];
    if (posts.empty()) {
        posts_used_.push_back(group);
    }
    posts.resize(std::max(posts.size(), number + 1));
    Post& post = posts[number];
    post.Column = column;
    post.Value = number;
    const CsvField& field = *columns_.All[column].Field;
    if (field.Meaning == CsvMeaning::PostWhole && !post.Whole.empty()) {
        return Carry(column, value);
    }
    if (field.Meaning == CsvMeaning::PostWhole) {
        post.Whole = value;
        return;
    }
    std::string& part = post.Parts[field.Part];
    part += part.empty() ? "" : ",";
    AppendEscaped(value, part);
}

void CsvContacts::TakeDate(std::size_t column, std::string_view value) {
    const CsvColumn& one = columns_.All[column];
    const std::string date = IsoDate(value, one.Order.Order);
    if (!date.empty()) {
        return Push(one.Field->Property, date == value ? value : book_.Keep(date));
    }
    const std::array params = {Param{field::kValue, "text"}};
    Push(one.Field->Property, value, book_.KeepDetails({}, params));
}

void CsvContacts::TakeValues(std::size_t column, std::string_view cell) {
    const std::string_view between = columns_.ManyInCell ? kBetweenValues : ";";
    std::string list;
    for (bool more = true; more;) {
        const std::string_view value = WithoutBlanksAround(Taken(cell, between, more));
        if (!value.empty()) {
            list += list.empty() ? "" : ",";
            AppendEscaped(value, list);
        }
    }
    if (!list.empty()) {
        Push(columns_.All[column].Field->Property, book_.Keep(list));
    }
}

void CsvContacts::Carry(std::size_t column, std::string_view text) {
    Push(prepared_[column].Carried, text, prepared_[column].CarriedDetails);
}

// A cell behind the last column.
void CsvContacts::TakeExtra(std::size_t column, std::string_view cell) {
    book_.Told.Add({{}, cell, file_, line_, FieldNames::kNone, What::Doubtful, Reason::NoColumn});
    Push(book_.Names.Intern(CarriedName(columns_.Carried, {}, column)), cell);
}

std::string_view CsvContacts::KindOf(std::size_t column, std::size_t number) const {
    const std::size_t kind = columns_.All[column].KindColumn;
    if (kind == CsvColumn::kNone) {
        return {};
    }
    const auto& values = kinds_[kind].Values;
    if (values.size() > 1 || number == 0) {
        return number < values.size() ? values[number] : std::string_view{};
    }
    // Google joins values of one kind and names it once; the star is the first one's.
    std::string_view all = WithoutBlanksAround(values.front());
    all.remove_prefix(all.starts_with('*') ? 1 : 0);
    return all;
}

void CsvContacts::PushLabelled(NameId name,
                               std::string_view value,
                               std::size_t column,
                               std::size_t number) {
    const std::size_t kind_column = columns_.All[column].KindColumn;
    if (kind_column == CsvColumn::kNone) {
        const bool list = ValueFormOf(book_.Names, name) == ValueForm::List;
        std::string escaped;
        if (list && NeedsEscapes(value)) {
            AppendEscaped(value, escaped);
            value = book_.Keep(escaped);
        }
        return Push(name, value, prepared_[column].Types);
    }
    kinds_[kind_column].Used = std::max(kinds_[kind_column].Used, number + 1);
    const CsvKind kind = CsvKindOf(KindOf(column, number));
    if (kind.Label.empty()) {
        return Push(name, value, TypesOf(kind.Types));
    }
    const std::string_view group = book_.Keep("item" + std::to_string(++items_));
    const std::array params = {Param{field::kType, "pref"}};
    Push(name, value, book_.KeepDetails(group, {params.data(), kind.Types.empty() ? 0U : 1U}));
    Push(field::kAbLabel, kind.Label, book_.KeepDetails(group, {}));
}

}  // namespace orvik::book

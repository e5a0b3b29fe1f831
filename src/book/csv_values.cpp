#include "book/csv_values.h"

#include <algorithm>
#include <array>

#include "book/csv_cells.h"
#include "book/field_names.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct Nothing {
    std::string_view Field;
    std::string_view Value;
};

constexpr std::array kNothings = {
    Nothing{"gender", "Unspecified"},
    Nothing{"gender", "Keine Angabe"},
    Nothing{"gender", "Non specificato"},
    Nothing{"priority", "Normal"},
    Nothing{"priority", "Normale"},
    Nothing{"sensitivity", "Normal"},
    Nothing{"sensitivity", "Normale"},
    Nothing{"private", "False"},
    Nothing{"private", "Aus"},
    Nothing{"private", "Falsch"},
    Nothing{"private", "Falso"},
    Nothing{"email1.type", "SMTP"},
    Nothing{"email2.type", "SMTP"},
    Nothing{"email3.type", "SMTP"},
};

struct Named {
    std::string_view Text;
    std::string_view Types;
};

constexpr std::array kKinds = {
    Named{"Home", "home"},
    Named{"Work", "work"},
    Named{"Business", "work"},
    Named{"Other", "other"},
    Named{"Mobile", "cell"},
    Named{"Main", "main"},
    Named{"Pager", "pager"},
    Named{"Fax", "fax"},
    Named{"Home Fax", "home fax"},
    Named{"Work Fax", "work fax"},
    Named{"Other Fax", "other fax"},
    Named{"", ""},
};

}  // namespace

bool IsNothing(std::string_view field, std::string_view value) {
    value = WithoutBlanksAround(value);
    if (field == "birthday" || field == "anniversary") {
        return IsNoDate(value);
    }
    return std::any_of(kNothings.begin(), kNothings.end(), [&](const Nothing& one) {
        return one.Field == field && SameName(one.Value, value);
    });
}

CsvKind CsvKindOf(std::string_view text) {
    text = WithoutBlanksAround(text);
    const bool preferred = text.starts_with('*');
    if (preferred) {
        text = WithoutBlanksAround(text.substr(1));
    }
    CsvKind kind;
    const auto* const found = std::find_if(kKinds.begin(), kKinds.end(), [text](const Named& one) {
        return SameName(one.Text, text);
    });
    if (found == kKinds.end()) {
        kind.Label = text;
    } else {
        kind.Types = found->Types;
    }
    if (preferred) {
        kind.Types += kind.Types.empty() ? "pref" : " pref";
    }
    return kind;
}

std::string_view WordOfTypes(std::string_view types) {
    const auto* const found = std::find_if(
        kKinds.begin(), kKinds.end(), [types](const Named& one) { return one.Types == types; });
    return found == kKinds.end() ? std::string_view{} : found->Text;
}

std::string DateOfParts(std::string_view year, std::string_view month, std::string_view day) {
    const bool no_year = year.empty() || year.find_first_not_of('0') == std::string_view::npos;
    // Any leap year: the 29th of February is a day.
    const std::string whole = IsoDate(
        std::string(no_year ? "2000" : year) + "-" + std::string(month) + "-" + std::string(day),
        DateOrder::DayFirst);
    return no_year && !whole.empty() ? "-" + whole.substr(4, 6) : whole;
}

std::string PlainDate(std::string_view value) {
    std::string date(value.substr(0, value.find('T')));
    const bool digits = date.find_first_not_of("0123456789-") == std::string::npos;
    constexpr std::size_t kWhole = 8;
    constexpr std::size_t kNoYear = 6;
    if (digits && date.size() == kWhole && date.find('-') == std::string::npos) {
        date.insert(6, "-").insert(4, "-");
    } else if (digits && date.size() == kNoYear && date.starts_with("--")) {
        date.insert(4, "-");
    }
    date = IsoDate(date, DateOrder::DayFirst);
    return date.starts_with("0000") ? "-" + date.substr(4) : date;
}

}  // namespace orvik::book

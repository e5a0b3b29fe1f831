#include "book/table_columns.h"

#include <algorithm>
#include <string_view>

#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Joins values up to a length.
class JoinedValues {
 public:
    explicit JoinedValues(std::size_t most) : most_(most) {}

    // False if no more is wanted.
    bool Add(std::string_view value) {
        if (!text_.empty()) {
            text_ += ", ";
        }
        return AppendOnLine(value, most_, text_);
    }
    [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
    std::size_t most_;
    std::string text_;
};

std::string ValuesIn(const Contact& contact, NameId name, std::size_t most) {
    JoinedValues joined(most);
    for (const Property& one : contact.Properties) {
        if (one.Name == name && !one.Value.empty() && !joined.Add(one.Value)) {
            break;
        }
    }
    return joined.Take();
}

std::string NicknameText(const Book& book, const Contact& contact, std::size_t most) {
    JoinedValues joined(most);
    for (const std::string& one : NicknamesOf(book, contact)) {
        if (!joined.Add(one)) {
            break;
        }
    }
    return joined.Take();
}

// The file without its folders.
std::string SourceText(const Book& book, const Contact& contact, std::size_t most) {
    if (contact.From.Lines == 0) {
        return {};
    }
    std::string text;
    AppendOnLine(FileNameOf(book.SourceAt(contact.From.File).Name()), most, text);
    return text + ", line " + std::to_string(contact.From.Line);
}

bool IsBetweenLetters(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

}  // namespace

bool AppendOnLine(std::string_view text, std::size_t most, std::string& to) {
    const std::size_t room = most > to.size() ? most - to.size() : 0;
    const bool all = text.size() <= room;
    if (!all) {
        std::size_t end = room;
        while (end > 0 && IsBetweenLetters(text[end])) {
            --end;
        }
        text = text.substr(0, end);
    }
    const std::size_t before = to.size();
    to += text;
    std::replace_if(
        to.begin() + static_cast<std::ptrdiff_t>(before),
        to.end(),
        [](char c) { return c == '\n' || c == '\r' || c == '\t'; },
        ' ');
    return all;
}

std::string ColumnText(const Book& book, const Contact& contact, Column column, std::size_t most) {
    switch (column) {
        case Column::Name: {
            std::string text;
            AppendOnLine(ShownNameOf(book, contact), most, text);
            return text;
        }
        case Column::Nickname:
            return NicknameText(book, contact, most);
        case Column::Addresses:
            return ValuesIn(contact, field::kEmail, most);
        case Column::Phones:
            return ValuesIn(contact, field::kTel, most);
        case Column::Notes:
            return ValuesIn(contact, field::kNote, most);
        case Column::Source:
            return SourceText(book, contact, most);
        case Column::Lists:
            break;
    }
    return {};
}

}  // namespace orvik::book

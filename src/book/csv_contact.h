// One row of CSV as a contact. Fields: csv_fields.h.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/csv_columns.h"
#include "book/csv_rows.h"

namespace orvik::book {

class CsvContacts {
 public:
    // All must outlive this. The columns are told which of them hold something. decoded says that
    // the rows are letters already.
    CsvContacts(
        Book& book, Charset& charset, std::uint32_t file, CsvColumns& columns, bool decoded);

    // The contact of a row; false for one that holds nothing.
    bool Add(const CsvRow& row, const Origin& from);
    // The list of a row, whose members are the rows that begin in these lines.
    void AddList(const CsvRow& row, const Origin& from, std::span<const std::uint32_t> members);

 private:
    // A postal address that several columns make up.
    struct Post {
        std::array<std::string, 7> Parts;  // escaped
        std::string_view Whole;
        std::size_t Column = CsvColumn::kNone;  // any one of them; none for an address of nothing
        std::size_t Value = 0;                  // which one of the values of their cells
    };
    struct Firm {
        std::array<std::string_view, 2> Parts;
        bool Used = false;
    };
    // What a cell says of the values beside it.
    struct Kinds {
        std::string_view Cell;
        std::vector<std::string_view> Values;
        std::size_t Used = 0;  // up to the last one that belongs to a value
    };
    // What is prepared once for each column.
    struct Prepared {
        NameId Carried = FieldNames::kNone;
        std::uint32_t CarriedDetails = 0;
        std::uint32_t Types = 0;
        std::size_t Group = 0;  // of a postal address or a firm
    };

    void Begin(const CsvRow& row, const Origin& from);
    void Prepare();
    void Judge(const CsvRow& row);
    void TakeKinds(const CsvRow& row);
    void TakeCell(std::size_t column, std::string_view cell);
    void TakeValue(std::size_t column, std::string_view text, std::size_t number);
    void TakeAddresses(std::size_t column, std::string_view value, std::size_t number);
    void TakeName(std::size_t column, std::string_view value);
    void TakePost(std::size_t column, std::string_view value, std::size_t number);
    void TakeFirm(std::size_t column, std::string_view value);
    void TakeDate(std::size_t column, std::string_view value);
    void TakeValues(std::size_t column, std::string_view cell);
    void TakeExtra(std::size_t column, std::string_view cell);
    void Carry(std::size_t column, std::string_view text);
    void Finish();
    void FinishName();
    void FinishBirthday();
    void FinishPosts();
    void FinishKinds(const CsvRow& row);
    void FinishAddressNames();
    void PushLabelled(NameId name, std::string_view value, std::size_t column, std::size_t number);
    std::uint32_t TypesOf(std::string_view types);
    std::string_view Letters(std::string_view bytes, std::size_t column);
    void Push(NameId name, std::string_view value, std::uint32_t details = 0);
    [[nodiscard]] std::string_view KindOf(std::size_t column, std::size_t number) const;

    Book& book_;
    Charset& charset_;
    std::uint32_t file_;
    CsvColumns& columns_;
    bool decoded_;
    bool plain_;  // all letters of the file are good UTF-8
    std::vector<Prepared> prepared_;
    std::unordered_map<std::string, std::uint32_t> types_;
    std::size_t posts_count_ = 0;
    std::size_t firms_count_ = 0;

    // Of the row that is being read.
    Contact contact_;
    std::vector<Property> properties_;
    PieceCharset piece_ = PieceCharset::Utf8;
    std::uint32_t line_ = 0;
    std::vector<Kinds> kinds_;  // by column
    std::array<std::string_view, 5> name_;
    std::string_view shown_;
    std::array<std::string_view, 3> birth_;
    std::array<std::size_t, 3> birth_columns_{};
    std::vector<std::vector<Post>> posts_;
    std::vector<std::size_t> posts_used_;
    std::vector<Firm> firms_;
    std::vector<std::size_t> firms_used_;
    std::array<std::string_view, 3> address_names_;
    std::array<std::size_t, 3> address_columns_{};
    std::size_t items_ = 0;
};

}  // namespace orvik::book

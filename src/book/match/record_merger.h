// One record that takes what others hold more than it does.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "book/address_book.h"
#include "book/match/merge_records.h"
#include "book/match/record_keys.h"

namespace orvik::book {

class RecordMerger {
 public:
    // Begins with a record of the book; all must outlive this.
    RecordMerger(Book& book, const RecordKeys& keys, std::uint32_t first, Merged& merged);

    // Adds another record, but for the members of lists.
    void Take(std::uint32_t record);
    // Puts the properties into the first record, if there is anything new, and counts what of any
    // record is nowhere.
    void Finish();

 private:
    struct Item {
        Property Field;
        std::uint32_t Canonical = 0;
        std::uint32_t Record = 0;
        bool IsCarried = false;
        std::string_view Raw = {};  // of a value out of a list: as it stood there
    };

    void Index(std::size_t item, const KeyList& keys);
    void TakeOne(std::uint32_t record, std::size_t property);
    void TakeNaming(const Item& item);
    void TakeSingle(const Item& item, std::size_t property);
    void TakeList(const Item& item);
    void TakePlain(const Item& item, std::size_t property);
    void TakeLabels(std::uint32_t record);
    void Compete(const Item& item, std::size_t with, bool is_spelling);
    void Carry(const Item& loser, Item winner, bool is_spelling);
    // In the place of another one of its field.
    void Put(const Item& item, std::size_t at);
    void Push(Item item);
    void PushNew(const Item& item);
    void AddTypes(std::size_t item, const Property& other);
    [[nodiscard]] bool IsCarriedName(NameId name) const;
    [[nodiscard]] std::uint32_t DetailsIn(const Item& item);
    [[nodiscard]] std::string RawKey(std::uint32_t canonical, std::string_view value) const;
    void NoteRaw(const Item& item);
    void CountLost(std::uint32_t record);

    Book& book_;
    const RecordKeys& keys_;
    std::uint32_t first_;
    Merged& merged_;
    std::vector<std::uint32_t> records_;
    std::vector<Item> items_;
    bool changed_ = false;
    KeyList list_;
    std::unordered_map<std::string, std::size_t> by_key_;
    std::unordered_map<std::uint32_t, std::size_t> by_field_;
    // Each value as it is written, with its field.
    std::unordered_set<std::string> raw_;
    // The groups that the result has, and what those of the record that is taken are called there.
    std::unordered_set<std::string> groups_;
    std::unordered_map<std::string, std::string_view> renamed_;
};

}  // namespace orvik::book

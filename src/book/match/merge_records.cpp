#include "book/match/merge_records.h"

#include <deque>
#include <numeric>
#include <utility>

#include "book/match/merged_lists.h"
#include "book/match/record_keys.h"
#include "book/match/record_merger.h"

namespace orvik::book {

Merged MergeRecords(Book& book, const MergeGroups& groups) {
    Merged merged;
    if (groups.empty()) {
        return merged;
    }
    std::vector<std::uint32_t> into(book.Contacts.size());
    std::iota(into.begin(), into.end(), 0U);
    for (const auto& group : groups) {
        for (const std::uint32_t record : group) {
            into[record] = group.front();
        }
    }
    MergedLists lists(book, into);
    const RecordKeys keys(book);
    for (const auto& group : groups) {
        RecordMerger merger(book, keys, group.front(), merged);
        for (std::size_t i = 1; i < group.size(); ++i) {
            merger.Take(group[i]);
        }
        merger.Finish();
    }
    lists.Rename();
    std::deque<Contact> left;
    for (std::uint32_t i = 0; i < into.size(); ++i) {
        const Contact& contact = book.Contacts[i];
        if (into[i] == i) {
            left.push_back(contact);
        } else {
            merged.Gone.push_back({contact.From, book.Contacts[into[i]].From});
        }
    }
    book.Contacts = std::move(left);
    return merged;
}

}  // namespace orvik::book

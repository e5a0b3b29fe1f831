#include "book/match/merge_records.h"

#include <deque>
#include <numeric>
#include <utility>

#include "book/match/merged_lists.h"
#include "book/match/record_keys.h"
#include "book/match/record_merger.h"

namespace orvik::book {

bool NamesTheRecord(const MergeNote& note) {
    return note.Field == "UID" || note.Field == "X-ORVIK-LDIF-dn";
}

Merged MergeRecords(Book& book, const MergeGroups& groups) {
    Merged merged;
    if (groups.empty()) {
        return merged;
    }
    std::vector<std::uint32_t> into(book.Contacts.size());
    std::iota(into.begin(), into.end(), 0U);
    // Whoever changes gets another row of properties.
    std::vector<const Property*> before;
    before.reserve(into.size());
    for (const Contact& contact : book.Contacts) {
        before.push_back(contact.Properties.data());
    }
    for (const auto& group : groups) {
        for (const std::uint32_t record : group) {
            into[record] = group.front();
        }
    }
    MergedLists lists(book, into);
    const RecordKeys keys(book);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const auto& group = groups[i];
        book.TellFar(i, groups.size());
        RecordMerger merger(book, keys, group.front(), merged);
        for (std::size_t j = 1; j < group.size(); ++j) {
            merger.Take(group[j]);
        }
        merger.Finish();
    }
    lists.Rename();
    std::deque<Contact> left;
    for (std::uint32_t i = 0; i < into.size(); ++i) {
        const Contact& contact = book.Contacts[i];
        if (into[i] != i) {
            merged.Gone.push_back({contact.From, book.Contacts[into[i]].From, i});
            continue;
        }
        if (contact.Properties.data() != before[i]) {
            merged.Changed.push_back({i, static_cast<std::uint32_t>(left.size())});
        }
        left.push_back(contact);
    }
    book.Contacts = std::move(left);
    return merged;
}

}  // namespace orvik::book

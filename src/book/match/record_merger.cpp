#include "book/match/record_merger.h"

#include <algorithm>
#include <utility>

#include "app/text.h"
#include "book/identity.h"
#include "book/match/value_content.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

std::string KeyOf(std::uint32_t field, std::string_view text) {
    return std::to_string(field).append(" ").append(text);
}

bool IsPreferred(const Param& param) {
    return param.Name == field::kType && SameName(param.Value, "pref");
}

}  // namespace

RecordMerger::RecordMerger(Book& book, const RecordKeys& keys, std::uint32_t first, Merged& merged)
    : book_(book), keys_(keys), first_(first), merged_(merged) {
    const Contact& contact = book.Contacts[first];
    records_.push_back(first);
    items_.reserve(contact.Properties.size());
    for (const Property& one : contact.Properties) {
        items_.push_back({one, keys.Rules().Of(one.Name).Field, first});
        NoteRaw(items_.back());
        if (const std::string_view group = book.DetailsOf(one).Group; !group.empty()) {
            groups_.insert(ToLower(group));
        }
    }
    // What an earlier merging carried comes behind what is in use.
    for (const bool carried : {false, true}) {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const Property& one = items_[i].Field;
            if (IsCarriedName(one.Name) != carried) {
                continue;
            }
            list_.Clear();
            keys.AddOf(contact, i, list_);
            Index(i, list_);
            if (!carried) {
                // One that says nothing gives way to any other.
                std::size_t& first_of = by_field_.try_emplace(items_[i].Canonical, i).first->second;
                first_of = SaysNothing(items_[first_of].Field.Value) ? i : first_of;
            }
        }
    }
}

bool RecordMerger::IsCarriedName(NameId name) const {
    return StartsAsName(book_.Names.Text(name), kCarriedFromMerge);
}

void RecordMerger::Index(std::size_t item, const KeyList& keys) {
    for (const KeyList::Key& key : keys.Keys()) {
        by_key_.try_emplace(KeyOf(key.Field, keys.TextOf(key)), item);
    }
}

std::string RecordMerger::RawKey(std::uint32_t canonical, std::string_view value) const {
    return KeyOf(canonical, WithoutBlanksAround(value));
}

void RecordMerger::NoteRaw(const Item& item) {
    if (item.IsCarried) {
        raw_.insert(RawKey(item.Canonical, item.Raw.empty() ? item.Field.Value : item.Raw));
    } else if (keys_.Rules().Of(item.Field.Name).How == Comparing::List) {
        std::string_view rest = item.Field.Value;
        for (TakenPart part{{}, true}; part.More;) {
            part = TakePart(rest, ',');
            raw_.insert(RawKey(item.Canonical, part.Text));
        }
    } else {
        raw_.insert(RawKey(item.Canonical, item.Field.Value));
    }
}

void RecordMerger::Take(std::uint32_t record) {
    records_.push_back(record);
    renamed_.clear();
    const Contact& contact = book_.Contacts[record];
    book_.TellLosses(contact);
    const auto is_member = keys_.MemberFields(contact);
    for (std::size_t i = 0; i < contact.Properties.size(); ++i) {
        if (!is_member(contact.Properties[i])) {
            TakeOne(record, i);
        }
    }
    TakeLabels(record);
}

void RecordMerger::TakeOne(std::uint32_t record, std::size_t property) {
    const Contact& contact = book_.Contacts[record];
    const Property& one = contact.Properties[property];
    const FieldRule& rule = keys_.Rules().Of(one.Name);
    const Item item{one, rule.Field, record};
    if (one.Name == field::kAbLabel || WithoutBlanksAround(one.Value).empty()) {
        return;
    }
    if (IsCarriedName(one.Name)) {
        PushNew(item);
    } else if (rule.How == Comparing::Ignored) {
        TakeNaming(item);
    } else if (rule.IsSingle) {
        TakeSingle(item, property);
    } else if (rule.How == Comparing::List) {
        TakeList(item);
    } else {
        TakePlain(item, property);
    }
}

// Of what names a record the first one stays; its version and the time of its saving say nothing of
// the person.
void RecordMerger::TakeNaming(const Item& item) {
    const std::string& name = keys_.Rules().NameOf(item.Canonical);
    if ((name != "UID" && name != "X-ORVIK-LDIF-DN") ||
        raw_.contains(RawKey(item.Canonical, item.Field.Value))) {
        return;
    }
    const auto there = by_field_.find(item.Canonical);
    if (there == by_field_.end()) {
        Push(item);
    } else if (SaysNothing(items_[there->second].Field.Value)) {
        Put(item, there->second);
    } else if (PlainUid(items_[there->second].Field.Value) != PlainUid(item.Field.Value)) {
        Carry(item, items_[there->second], false);
    }
}

void RecordMerger::TakeSingle(const Item& item, std::size_t property) {
    if (SaysNothing(item.Field.Value) || raw_.contains(RawKey(item.Canonical, item.Field.Value))) {
        return;
    }
    const auto there = by_field_.find(item.Canonical);
    if (there == by_field_.end()) {
        return Push(item);
    }
    if (SaysNothing(items_[there->second].Field.Value)) {
        return Put(item, there->second);
    }
    bool spelling = false;
    if (keys_.Rules().Of(item.Field.Name).How == Comparing::Name) {
        spelling =
            FoldName(items_[there->second].Field.Value).Key == FoldName(item.Field.Value).Key;
    } else {
        list_.Clear();
        keys_.AddOf(book_.Contacts[item.Record], property, list_);
        spelling = !list_.Keys().empty() &&
                   by_key_.contains(KeyOf(item.Canonical, list_.TextOf(list_.Keys().front())));
    }
    Compete(item, there->second, spelling);
}

// Only the values that are new; another spelling of one is carried.
void RecordMerger::TakeList(const Item& item) {
    std::string added;
    std::vector<std::pair<Item, std::size_t>> spellings;
    std::string_view rest = item.Field.Value;
    std::string folded;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, ',');
        const std::string text = Unescaped(part.Text);
        FoldText(text, folded);
        if (folded.empty() || !raw_.insert(RawKey(item.Canonical, part.Text)).second) {
            continue;
        }
        const auto [place, is_new] =
            by_key_.try_emplace(KeyOf(item.Canonical, folded), items_.size());
        if (is_new) {
            added.append(added.empty() ? "" : ",").append(part.Text);
        } else {
            spellings.emplace_back(item, place->second);
            spellings.back().first.Field.Value = book_.Keep(text);
            spellings.back().first.Raw = part.Text;
        }
    }
    if (!added.empty()) {
        Item more = item;
        more.Field.Value = added == item.Field.Value ? item.Field.Value : book_.Keep(added);
        Push(more);
    }
    for (const auto& [spelling, winner] : spellings) {
        Carry(spelling, items_[winner], true);
    }
}

void RecordMerger::TakePlain(const Item& item, std::size_t property) {
    list_.Clear();
    keys_.AddOf(book_.Contacts[item.Record], property, list_);
    if (list_.Keys().empty()) {
        // Signs alone do not count, and are kept all the same.
        if (!SaysNothing(item.Field.Value)) {
            PushNew(item);
        }
        return;
    }
    const auto there = by_key_.find(KeyOf(item.Canonical, list_.TextOf(list_.Keys().front())));
    if (there == by_key_.end()) {
        const KeyList keys = list_;
        Push(item);
        return Index(items_.size() - 1, keys);
    }
    const std::size_t known = there->second;
    if (!raw_.contains(RawKey(item.Canonical, item.Field.Value))) {
        Compete(item, known, true);
    }
    AddTypes(known, item.Field);
}

// A label belongs to what stands in its group.
void RecordMerger::TakeLabels(std::uint32_t record) {
    const Contact& contact = book_.Contacts[record];
    for (const Property& one : contact.Properties) {
        if (one.Name != field::kAbLabel || WithoutBlanksAround(one.Value).empty()) {
            continue;
        }
        Item item{one, keys_.Rules().Of(one.Name).Field, record};
        if (renamed_.contains(ToLower(book_.DetailsOf(one).Group))) {
            Push(item);
        } else if (!raw_.contains(RawKey(item.Canonical, one.Value))) {
            Carry(item, item, false);
        }
    }
}

void RecordMerger::Compete(const Item& item, std::size_t with, bool is_spelling) {
    Item& there = items_[with];
    // The ASCII form of a domain is longer, and says no more.
    const bool address = keys_.Rules().Of(item.Field.Name).How == Comparing::Address;
    if (address || ContentOf(item.Field.Value) <= ContentOf(there.Field.Value)) {
        return Carry(item, there, is_spelling);
    }
    const Item loser = there;
    Put(item, with);
    if (is_spelling) {
        AddTypes(with, loser.Field);
    }
    Carry(loser, there, is_spelling);
}

void RecordMerger::Put(const Item& item, std::size_t at) {
    Item& there = items_[at];
    there.Field.Value = item.Field.Value;
    there.Field.Details = DetailsIn(item);
    there.Field.File = item.Field.File;
    there.Field.Line = item.Field.Line;
    there.Record = item.Record;
    NoteRaw(there);
    changed_ = true;
}

// The winner may be one of those that move.
void RecordMerger::Carry(const Item& loser, Item winner, bool is_spelling) {
    const std::string_view own = book_.Names.Text(loser.Field.Name);
    Item item = loser;
    item.IsCarried = true;
    if (!IsCarriedName(loser.Field.Name)) {
        item.Field.Name = book_.Names.Intern(std::string(kCarriedFromMerge).append(own));
        // Its group says what the winner is.
        const Details& details = book_.DetailsOf(loser.Field);
        item.Field.Details =
            details.Group.empty() ? loser.Field.Details : book_.KeepDetails({}, details.Params);
    }
    NoteRaw(item);
    items_.push_back(item);
    changed_ = true;
    merged_.Notes.push_back({own,
                             loser.Field.Value,
                             winner.Field.Value,
                             item.Field.Name,
                             is_spelling,
                             book_.Contacts[loser.Record].From,
                             book_.Contacts[winner.Record].From});
}

void RecordMerger::Push(Item item) {
    item.Field.Details = DetailsIn(item);
    NoteRaw(item);
    if (!IsCarriedName(item.Field.Name)) {
        by_field_.try_emplace(item.Canonical, items_.size());
    }
    items_.push_back(item);
    changed_ = true;
}

void RecordMerger::PushNew(const Item& item) {
    if (!raw_.contains(RawKey(item.Canonical, item.Field.Value))) {
        Push(item);
    }
}

// Groups of two records may be called alike.
std::uint32_t RecordMerger::DetailsIn(const Item& item) {
    const Details& details = book_.DetailsOf(item.Field);
    if (details.Group.empty()) {
        return item.Field.Details;
    }
    const auto [place, is_new] = renamed_.try_emplace(ToLower(details.Group), details.Group);
    if (is_new && !groups_.insert(place->first).second) {
        std::size_t number = groups_.size();
        std::string name;
        do {
            name = "item" + std::to_string(++number);
        } while (!groups_.insert(name).second);
        place->second = book_.Keep(name);
    }
    return place->second == details.Group ? item.Field.Details
                                          : book_.KeepDetails(place->second, details.Params);
}

// A number that is home and work is both.
void RecordMerger::AddTypes(std::size_t item, const Property& other) {
    Property& there = items_[item].Field;
    const Details& details = book_.DetailsOf(there);
    std::vector<Param> params(details.Params.begin(), details.Params.end());
    for (const Param& param : book_.DetailsOf(other).Params) {
        const bool known = std::any_of(params.begin(), params.end(), [&](const Param& own) {
            return own.Name == param.Name && SameName(own.Value, param.Value);
        });
        if (param.Name == field::kType && !known && !IsPreferred(param)) {
            params.push_back(param);
        }
    }
    // Nobody has so many.
    constexpr std::size_t kMostParams = 64;
    if (params.size() > details.Params.size() && params.size() <= kMostParams) {
        there.Details = book_.KeepDetails(details.Group, params);
        changed_ = true;
    }
}

void RecordMerger::CountLost(std::uint32_t record) {
    const Contact& contact = book_.Contacts[record];
    const auto is_member = keys_.MemberFields(contact);
    for (std::size_t i = 0; i < contact.Properties.size(); ++i) {
        const Property& one = contact.Properties[i];
        const FieldRule& rule = keys_.Rules().Of(one.Name);
        list_.Clear();
        keys_.AddOf(contact, i, list_);
        const bool counts = !rule.IsSingle && !list_.Keys().empty();
        const bool says = rule.How != Comparing::Ignored && !SaysNothing(one.Value);
        if ((!counts && !says) || is_member(one)) {
            continue;
        }
        if (rule.How != Comparing::List) {
            merged_.Lost += raw_.contains(RawKey(rule.Field, one.Value)) ? 0 : 1;
            continue;
        }
        std::string_view rest = one.Value;
        std::string folded;
        for (TakenPart part{{}, true}; part.More;) {
            part = TakePart(rest, ',');
            FoldText(Unescaped(part.Text), folded);
            const bool there = folded.empty() || raw_.contains(RawKey(rule.Field, part.Text));
            merged_.Lost += there ? 0 : 1;
        }
    }
}

void RecordMerger::Finish() {
    raw_.clear();
    for (const Item& item : items_) {
        NoteRaw(item);
    }
    for (const std::uint32_t record : records_) {
        CountLost(record);
    }
    if (!changed_) {
        return;
    }
    std::vector<Property> properties;
    properties.reserve(items_.size());
    for (const Item& item : items_) {
        properties.push_back(item.Field);
    }
    book_.Replace(book_.Contacts[first_], properties);
}

}  // namespace orvik::book

#include "desktop/book/record_edits.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "book/list_changes.h"
#include "book/typed_views.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

using book::Editable;

QString StepName(Editable what, const QString& whose) {
    switch (what) {
        case Editable::Name:
            return RecordEdits::tr("Change name of %1").arg(whose);
        case Editable::Nickname:
            return RecordEdits::tr("Change nickname of %1").arg(whose);
        case Editable::Address:
            return RecordEdits::tr("Change address of %1").arg(whose);
        case Editable::Phone:
            break;
    }
    return RecordEdits::tr("Change phone of %1").arg(whose);
}

void AddLists(const std::vector<book::ListChange>& lists, BookDocument::Changes& changes) {
    for (const book::ListChange& one : lists) {
        changes.push_back({one.List, one.After});
    }
}

}  // namespace

RecordEdits::RecordEdits(BookDocument& document, const BookRows& rows)
    : document_(document), rows_(rows) {}

QString RecordEdits::nameOf(BookDocument::Number record) const {
    const std::string name = book::ShownNameOf(document_.book(), document_.at(record));
    return name.empty() ? tr("a person without a name") : ShortName(name);
}

bool RecordEdits::isEditable(BookDocument::Number record, Editable what) const {
    const book::Contact& contact = document_.at(record);
    const bool has_it = contact.Kind == book::ContactKind::Person || what == Editable::Name ||
                        what == Editable::Nickname;
    // A field takes no more, and would give a part of it back.
    return !document_.isFrozen() && has_it &&
           book::EditText(document_.book(), contact, what).size() <=
               static_cast<std::size_t>(kMostTyped);
}

QString RecordEdits::refusal(Editable what, const QString& typed) const {
    const std::string value = book::TypedValue(typed.toStdString());
    const book::Verdict verdict = book::CheckTyped(what, value);
    if (!verdict.IsRefused) {
        return {};
    }
    const QString why = QString::fromStdString(verdict.Words);
    switch (what) {
        case Editable::Name:
        case Editable::Nickname:
            return tr("A name cannot be empty.");
        case Editable::Address:
            return tr("%1 is no address: %2.").arg(ShortName(value), why);
        case Editable::Phone:
            break;
    }
    return tr("%1 is no phone number: %2.").arg(ShortName(value), why);
}

bool RecordEdits::set(BookDocument::Number record, Editable what, const QString& typed) {
    const std::string value = book::TypedValue(typed.toStdString());
    const book::Contact& before = document_.at(record);
    if (value == book::TypedValue(book::EditText(document_.book(), before, what))) {
        return true;
    }
    if (const QString why = refusal(what, typed); !why.isEmpty()) {
        emit told(why);
        return false;
    }
    book::Book& maker = document_.maker();
    std::vector<book::Property> fields = book::EditedFields(maker, before, what, value);
    const book::Contact after = maker.WithFields(before, fields);
    BookDocument::Changes changes = {{record, after}};
    AddLists(book::ListsAfterChange(maker, rows_.memberships(), record, after), changes);
    document_.change(StepName(what, nameOf(record)), std::move(changes));
    const std::size_t count = book::CountOf(document_.book(), document_.at(record), what);
    if (const std::string odd = book::CheckTyped(what, value).Words; !odd.empty()) {
        emit told(tr("%1 was taken, though it is odd: %2.")
                      .arg(ShortName(value), QString::fromStdString(odd)));
    } else if (count > 1 && !value.empty()) {
        emit told(tr("The first of %1 was changed.").arg(count));
    } else {
        emit told({});
    }
    return true;
}

BookDocument::Number RecordEdits::addPerson() {
    book::Contact person;
    person.Changed = true;
    return document_.add(tr("Add a person"), {person});
}

void RecordEdits::dropIfEmpty(BookDocument::Number record) {
    if (!document_.isFrozen() && document_.isThere(record) &&
        document_.at(record).Properties.empty()) {
        document_.remove(tr("Add a person"), {record});
    }
}

void RecordEdits::remove(const BookDocument::Numbers& records) {
    if (records.empty() || document_.isFrozen()) {
        return;
    }
    BookDocument::Changes changes;
    changes.reserve(records.size());
    for (const BookDocument::Number one : records) {
        changes.push_back({one, document_.at(one), false});
    }
    AddLists(book::ListsAfterRemoval(document_.maker(), rows_.memberships(), records), changes);
    const QString name = records.size() == 1 ? tr("Delete %1").arg(nameOf(records.front()))
                                             : tr("Delete %1 records").arg(records.size());
    document_.change(name, std::move(changes));
    emit told({});
}

}  // namespace orvik

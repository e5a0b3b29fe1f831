#include "desktop/book/book_document.h"

#include <QUndoCommand>
#include <algorithm>
#include <utility>

namespace orvik {

class BookDocument::Step : public QUndoCommand {
 public:
    Step(BookDocument& document, const QString& name, Changes changes)
        : QUndoCommand(name), document_(document), after_(std::move(changes)) {
        before_.reserve(after_.size());
        for (const Change& one : after_) {
            before_.push_back({one.Record, document.at(one.Record), document.isThere(one.Record)});
        }
    }

    void undo() override { document_.apply(before_); }
    void redo() override { document_.apply(after_); }

    // Steps that may be one have the same.
    [[nodiscard]] int id() const override {
        constexpr Number kMost = 0x7FFFFFFF;
        return after_.size() == 1 ? static_cast<int>(after_[0].Record & kMost) : -1;
    }
    bool mergeWith(const QUndoCommand* other) override {
        const Change& later = static_cast<const Step&>(*other).after_[0];
        const bool is_empty = !before_[0].IsThere && after_[0].After.Properties.empty();
        if (!is_empty || later.Record != after_[0].Record) {
            return false;
        }
        after_[0] = later;
        setObsolete(!later.IsThere);
        return true;
    }

 private:
    BookDocument& document_;
    Changes before_;
    Changes after_;
};

// Millions of records are not kept twice.
class BookDocument::Reading : public QUndoCommand {
 public:
    Reading(BookDocument& document, const QString& name, Number first, Number end)
        : QUndoCommand(name), document_(document), first_(first), end_(end) {}

    void undo() override { document_.setThere(first_, end_, false); }
    void redo() override { document_.setThere(first_, end_, true); }

 private:
    BookDocument& document_;
    Number first_;
    Number end_;
};

BookDocument::BookDocument() = default;

BookDocument::Numbers BookDocument::records() const {
    Numbers numbers;
    numbers.reserve(there_count_);
    for (Number i = 0; i < there_.size(); ++i) {
        if (there_[i]) {
            numbers.push_back(i);
        }
    }
    return numbers;
}

void BookDocument::change(const QString& name, Changes changes) {
    if (!changes.empty()) {
        undo_.push(new Step(*this, name, std::move(changes)));
    }
}

BookDocument::Number BookDocument::add(const QString& name,
                                       const std::vector<book::Contact>& contacts) {
    const auto first = static_cast<Number>(count());
    Changes changes;
    changes.reserve(contacts.size());
    for (const book::Contact& one : contacts) {
        changes.push_back({static_cast<Number>(count()), one, true});
        loaded_.Book.Contacts.push_back(one);
        there_.push_back(false);
    }
    change(name, std::move(changes));
    return first;
}

void BookDocument::remove(const QString& name, const Numbers& records) {
    Changes changes;
    changes.reserve(records.size());
    for (const Number record : records) {
        changes.push_back({record, at(record), false});
    }
    change(name, std::move(changes));
}

BookDocument::Snapshot BookDocument::snapshot(const Numbers& records) const {
    Snapshot made{std::make_shared<book_cli::Loaded>(), records};
    made.Copy->Book = std::move(*loaded_.Book.Snapshot(records));
    made.Copy->Inputs = loaded_.Inputs;
    return made;
}

void BookDocument::setFrozen(bool frozen) {
    if (std::exchange(frozen_, frozen) != frozen) {
        emit frozenChanged(frozen);
    }
}

void BookDocument::takeOver(const Snapshot& snapshot,
                            const QString& name,
                            Changes changes,
                            const std::vector<book::Contact>& added) {
    loaded_.Inputs = std::move(snapshot.Copy->Inputs);
    loaded_.Book.TakeOver(std::make_unique<book::Book>(std::move(snapshot.Copy->Book)));
    for (const book::Contact& one : added) {
        changes.push_back({static_cast<Number>(count()), one, true});
        loaded_.Book.Contacts.push_back(one);
        there_.push_back(false);
    }
    change(name, std::move(changes));
}

void BookDocument::takeRead(const Snapshot& snapshot, const QString& name) {
    book::Book& copy = snapshot.Copy->Book;
    const std::deque<book::Contact> contacts = std::move(copy.Contacts);
    loaded_.Inputs = std::move(snapshot.Copy->Inputs);
    loaded_.Book.TakeOver(std::make_unique<book::Book>(std::move(copy)));
    const auto first = static_cast<Number>(count());
    std::for_each(contacts.begin() + static_cast<std::ptrdiff_t>(snapshot.Records.size()),
                  contacts.end(),
                  [this](const book::Contact& one) { loaded_.Book.Contacts.push_back(one); });
    there_.resize(count());
    if (const auto end = static_cast<Number>(count()); end > first) {
        undo_.push(new Reading(*this, name, first, end));
    }
}

bool BookDocument::isUnsaved() const {
    const int saved = undo_.cleanIndex();
    const int now = undo_.index();
    const int end = std::max(saved, now);
    for (int i = std::min(saved, now); i >= 0 && i < end; ++i) {
        if (dynamic_cast<const Reading*>(undo_.command(i)) == nullptr) {
            return true;
        }
    }
    return saved < 0;
}

void BookDocument::setThere(Number first, Number end, bool is_there) {
    std::fill(there_.begin() + first, there_.begin() + end, is_there);
    there_count_ = static_cast<std::size_t>(std::count(there_.begin(), there_.end(), true));
    ++revision_;
    emit recordsChanged();
}

void BookDocument::apply(const Changes& changes) {
    const std::size_t before = there_count_;
    bool same = true;
    Numbers numbers;
    numbers.reserve(changes.size());
    for (const Change& one : changes) {
        loaded_.Book.Contacts[one.Record] = one.After;
        same = same && there_[one.Record] == one.IsThere;
        there_count_ += (one.IsThere ? 1U : 0U);
        there_count_ -= (there_[one.Record] ? 1U : 0U);
        there_[one.Record] = one.IsThere;
        numbers.push_back(one.Record);
    }
    ++revision_;
    if (same && before == there_count_) {
        emit changed(numbers);
    } else {
        emit recordsChanged();
    }
}

}  // namespace orvik

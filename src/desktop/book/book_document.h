// The book that a Book window shows: its records, what was said about reading them, and each change
// as a step that can be undone.

#pragma once

#include <QObject>
#include <QString>
#include <QUndoStack>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "book_cli/inputs.h"

namespace orvik {

class BookDocument : public QObject {
    Q_OBJECT
 public:
    // Records have a number for good: one that is removed keeps its own, so that undoing brings it
    // back.
    using Number = std::uint32_t;
    using Numbers = std::vector<Number>;

    // What a record becomes.
    struct Change {
        Number Record = 0;
        book::Contact After;
        bool IsThere = true;
    };
    using Changes = std::vector<Change>;

    BookDocument();

    [[nodiscard]] const book::Book& book() const { return loaded_.Book; }
    [[nodiscard]] const book_cli::Loaded& loaded() const { return loaded_; }
    // Of all records ever, and of those that are there.
    [[nodiscard]] std::size_t count() const { return loaded_.Book.Contacts.size(); }
    [[nodiscard]] std::size_t thereCount() const { return there_count_; }
    [[nodiscard]] bool isThere(Number record) const { return there_[record]; }
    // Those that are there, in the order of the files.
    [[nodiscard]] Numbers records() const;
    [[nodiscard]] const book::Contact& at(Number record) const {
        return loaded_.Book.Contacts[record];
    }

    // To make values and contacts with, and nothing else: its contacts change by change() alone.
    [[nodiscard]] book::Book& maker() { return loaded_.Book; }
    // Text that lives as long as the book, and a contact with other fields.
    [[nodiscard]] std::string_view keep(std::string_view text) { return loaded_.Book.Keep(text); }
    [[nodiscard]] book::Contact withFields(const book::Contact& contact,
                                           std::vector<book::Property>& fields) {
        return loaded_.Book.WithFields(contact, fields);
    }

    // Changes records as one step of undo, which has this name. The first change of a record that
    // was added without a field is part of that step.
    void change(const QString& name, Changes changes);
    // Puts new records behind the others as one step; returns the first one's number.
    Number add(const QString& name, const std::vector<book::Contact>& contacts);
    void remove(const QString& name, const Numbers& records);

    // A copy for the worker, of records in this order: what it learns is nothing to the document.
    struct Snapshot {
        std::shared_ptr<book_cli::Loaded> Copy;
        Numbers Records;  // by the number of the contact in the copy
    };
    [[nodiscard]] Snapshot snapshot(const Numbers& records) const;
    [[nodiscard]] Snapshot snapshot() const { return snapshot(records()); }
    // While the worker finds out what the document takes over, nobody changes it.
    void setFrozen(bool frozen);
    [[nodiscard]] bool isFrozen() const { return frozen_; }
    // Takes over what a copy has learnt, inputs and all, as one step: records of the document that
    // are other ones now, and contacts of the copy that are new.
    void takeOver(const Snapshot& snapshot,
                  const QString& name,
                  Changes changes,
                  const std::vector<book::Contact>& added);

    // Puts those records of a copy behind the others that it has more than the document: what was
    // read. Reading is a step, and leaves nothing to be saved.
    void takeRead(const Snapshot& snapshot, const QString& name);

    [[nodiscard]] QUndoStack& undoStack() { return undo_; }
    // Whether there are changes that no file holds.
    [[nodiscard]] bool isUnsaved() const;
    void markSaved() { undo_.setClean(); }
    // No file holds it, whatever is undone.
    void markUnsaved() { undo_.resetClean(); }
    // Another one after each change.
    [[nodiscard]] std::uint64_t revision() const { return revision_; }

 signals:
    // These records are other ones; or some have come or gone, too.
    void changed(const std::vector<std::uint32_t>& records);
    void recordsChanged();
    void frozenChanged(bool frozen);

 private:
    class Step;
    class Reading;
    void setThere(Number first, Number end, bool is_there);
    void apply(const Changes& changes);

    book_cli::Loaded loaded_;
    std::vector<bool> there_;
    std::size_t there_count_ = 0;
    bool frozen_ = false;
    std::uint64_t revision_ = 0;
    QUndoStack undo_;
};

}  // namespace orvik

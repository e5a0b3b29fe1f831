// What a person does to records in the table of a Book window: each act is one step of undo.

#pragma once

#include <QObject>
#include <QString>

#include "book/edits.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_rows.h"

namespace orvik {

class RecordEdits : public QObject {
    Q_OBJECT
 public:
    // Both must outlive this.
    RecordEdits(BookDocument& document, const BookRows& rows);

    // What a sentence calls a record.
    [[nodiscard]] QString nameOf(BookDocument::Number record) const;
    // Whether it can be typed now: lists have no addresses of their own.
    [[nodiscard]] bool isEditable(BookDocument::Number record, book::Editable what) const;
    // Why what was typed cannot be taken; empty if it can.
    [[nodiscard]] QString refusal(book::Editable what, const QString& typed) const;
    // Takes what was typed in the place of the first value, and tells what is odd about it. False
    // if it is refused, which is told too.
    bool set(BookDocument::Number record, book::Editable what, const QString& typed);
    void tell(const QString& text) { emit told(text); }

    // A new person without any field; dropIfEmpty takes it back if nothing was typed.
    BookDocument::Number addPerson();
    void dropIfEmpty(BookDocument::Number record);
    // Removes records, and takes them out of the lists that stay.
    void remove(const BookDocument::Numbers& records);

 signals:
    void told(const QString& text);

 private:
    BookDocument& document_;
    const BookRows& rows_;
};

}  // namespace orvik

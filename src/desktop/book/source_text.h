// "Show as text": the lines of a file that a record or a problem is about, as they stand there.

#pragma once

#include <QWidget>
#include <optional>

#include "book/source_excerpt.h"
#include "desktop/book/book_checks.h"
#include "desktop/book/book_document.h"

class QPlainTextEdit;

namespace orvik {

class LinkButton;

class SourceText : public QWidget {
    Q_OBJECT
 public:
    // Both must outlive this, which is named name, and what it holds after it.
    SourceText(BookDocument& document, BookChecks& checks, const QString& name, QWidget* parent);

    // What is to be shown; nothing for what came from no file.
    void setPlace(const std::optional<book::ExcerptPlace>& place);
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] LinkButton& link() const { return *link_; }

 private:
    void setOpen(bool open);
    void fill();
    [[nodiscard]] QString text() const;

    BookDocument& document_;
    BookChecks& checks_;
    std::optional<book::ExcerptPlace> place_;
    LinkButton* link_;
    QPlainTextEdit* text_;
};

}  // namespace orvik

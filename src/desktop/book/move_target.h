// Which program a book is for, how that imports it, and behind "More" which file it gets.

#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

#include "book_cli/book_arguments.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QSpinBox;
class QToolButton;
class QVBoxLayout;

namespace orvik {

class LinkButton;

class MoveTarget : public QWidget {
    Q_OBJECT
 public:
    // A program gets the file that takes lists if the book has any.
    MoveTarget(bool has_lists, QWidget* parent);

    // What is chosen, as orvik-book convert has it.
    [[nodiscard]] book_cli::Arguments arguments() const;
    // Of its file's name, with the dot; empty for any.
    [[nodiscard]] std::string_view ending() const;
    // A word for its file's name; empty for no program.
    [[nodiscard]] std::string_view word() const;

    // Parts the book into files of so many records.
    void split(std::size_t most);
    // Puts something below what is chosen.
    void addBelow(QWidget* what);

 signals:
    void changed();
    // A page of the help, "move_google.html".
    void helpAsked(const QString& page);

 private:
    void makeRight();
    void makeMore();
    void listPrograms();
    void chooseProgram();
    void take();
    void openMore(bool open);
    [[nodiscard]] const book_cli::Program* program() const;
    [[nodiscard]] QString sentence() const;

    bool has_lists_;
    QListWidget* programs_;
    QVBoxLayout* right_;
    QLabel* title_;
    QLabel* where_;
    LinkButton* help_;
    QToolButton* more_;
    QWidget* details_;
    QComboBox* form_;
    QCheckBox* splits_;
    QSpinBox* most_;
};

}  // namespace orvik

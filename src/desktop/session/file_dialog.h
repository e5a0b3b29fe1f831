// The common file dialog on Qt's, and what a name typed in it means.

#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

#include "formats/endings.h"
#include "platform/platform.h"

class QWidget;

namespace orvik {

// NameFilters: a filter's entries for Qt, which shows what stands before the parentheses. Patterns
// ignore case, and "*.*" means every file.
//   "Text|*.txt|All files|*.*" -> "Text: *.txt (*.[tT][xX][tT])", "All files (*)"
[[nodiscard]] QStringList NameFilters(std::string_view filter);

// AllBooksFilter: an entry for every ending that an address book can have.
[[nodiscard]] QString AllBooksFilter();

// FilterEnding: the ending of a filter's entry, counted from 1, with its dot; empty for every file.
//   "Text|*.txt|All files|*.*", 1 -> ".txt"
[[nodiscard]] std::string FilterEnding(std::string_view filter, int index);

// WithEnding: a name that was typed without an ending gets the one of the chosen filter.
//   "lists/book", ".txt" -> "lists/book.txt"
[[nodiscard]] QString WithEnding(const QString& name, std::string_view ending);

// WithFormatEnding: the same where the ending chooses the format: one that chooses none is part of
// the name, and one that was cut short is made whole.
//   "book.2026", ".ldif" -> "book.2026.ldif";  "book.ldi", ".txt" -> "book.ldif"
[[nodiscard]] QString WithFormatEnding(const QString& name, std::string_view ending);

// WritableEndings: those of a filter's endings that choose a format, as they are told to the user.
//   "Text|*.txt|Juno|*.nv|Columns|*.csv|Pegasus|*.pml" -> ".txt, .nv or .pml"
[[nodiscard]] QString WritableEndings(std::string_view filter);

// WhyNoFile: why no file can be saved under a name, empty where one can.
[[nodiscard]] QString WhyNoFile(const QString& name);

// OverwriteQuestion: what the user is asked before a file that exists is saved to. changed says
// that another program has changed it since it was opened or saved here.
[[nodiscard]] QString OverwriteQuestion(const QString& name, Saving way, bool changed);

// MayOverwrite: asks it, with what will be done on the button that does it.
[[nodiscard]] bool MayOverwrite(const QString& question, Saving way, QWidget* parent);

class FileDialogs {
 public:
    // The folder outlives the program in the file state (window_place.h).
    explicit FileDialogs(const QString& state);

    // The next dialog starts in this file's folder.
    void rememberFolderOf(const QString& name);
    // Shows a dialog over parent, which may be null. Returns the name, empty when it was cancelled,
    // and leaves the filter in use in FilterIndex.
    std::string show(FileDialog& dialog, QWidget* parent);

 private:
    QString state_;
    QString folder_;
    bool all_books_ = true;  // nobody has chosen a single kind of book yet
};

}  // namespace orvik

// The Book window: a book of any program as a table, and beside it the person, the problems and the
// duplicates.

#pragma once

#include <QMainWindow>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

#include "desktop/book/book_checks.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "platform/file_system.h"
#include "store/recent_books.h"

class QTabWidget;

namespace orvik {

class DuplicatesPage;
class PersonPage;
class ProblemsPage;

class BookWindow : public QMainWindow {
    Q_OBJECT
 public:
    // Both must outlive the window.
    BookWindow(FileSystem& files, RecentBooks& books);

    // What is to be read: a file, or bytes under the name of one.
    struct Input {
        std::string Name;
        std::optional<std::string> Bytes = {};
    };
    // Reads them in the worker, and puts their records behind those that are there.
    void open(std::vector<Input> inputs);

    [[nodiscard]] BookDocument& document() { return document_; }
    [[nodiscard]] BookWorker& worker() { return worker_; }

 private:
    void takeRead(const BookDocument::Snapshot& read, const QStringList& told);

    FileSystem& files_;
    RecentBooks& books_;
    BookDocument document_;
    BookWorker worker_;
    BookChecks checks_{document_};
    QTabWidget* panel_;
    PersonPage* person_;
    ProblemsPage* problems_;
    DuplicatesPage* duplicates_;
};

}  // namespace orvik

// The Book window: a book of any program as a table, and beside it the person, the problems and the
// duplicates.

#pragma once

#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "book/detect.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_rows.h"
#include "desktop/book/book_worker.h"
#include "desktop/book/record_edits.h"
#include "platform/file_system.h"
#include "store/recent_books.h"

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QSplitter;
class QStackedWidget;
class QTabWidget;

namespace orvik {

class BookTable;
class DuplicatesPage;
class PersonPage;
class ProblemsPage;
class QuietLine;
class WelcomePage;

class BookWindow : public QMainWindow {
    Q_OBJECT
 public:
    // Both must outlive the window.
    BookWindow(FileSystem& files, RecentBooks& books);
    BookWindow(const BookWindow&) = delete;
    BookWindow& operator=(const BookWindow&) = delete;
    BookWindow(BookWindow&&) = delete;
    BookWindow& operator=(BookWindow&&) = delete;
    ~BookWindow() override;

    // What is to be read: a file, or bytes under the name of one.
    struct Input {
        std::string Name;
        std::optional<std::string> Bytes = {};
        book::Format Form = book::Format::None;  // of bytes, if it is known
        bool IsUnsaved = false;                  // no file has these bytes
    };
    // Reads them in the worker, and puts their records behind those that are there. A reading that
    // fails or is cancelled changes nothing.
    void open(std::vector<Input> inputs);

    // Puts the window and its parts where they were, and from now on keeps that in this file.
    void rememberIn(const QString& file);
    // Whether the window may close; asks about what is not saved.
    [[nodiscard]] bool mayClose();
    // Selects a record, and shows it whatever the filter says.
    void showRecord(std::uint32_t record);
    // Says something quietly.
    void tell(const QString& text, const QString& link = {}, std::function<void()> follow = {});

    [[nodiscard]] BookDocument& document() { return document_; }
    [[nodiscard]] BookWorker& worker() { return worker_; }
    // Which records the table shows.
    [[nodiscard]] const BookRows& rows() const { return rows_; }

 signals:
    // A page of the help is wanted.
    void helpAsked(const QString& topic);
    // The window was closed by its user.
    void closed();
    // What no file has was read.
    void unsavedRead();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

 private:
    // What was read: what is to be said of it, what is a book, and which of these are files.
    struct Read {
        QStringList Told;
        std::vector<std::string> Names;
        std::vector<std::string> Books;
        bool IsUnsaved = false;
    };
    static Read readAll(FileSystem& files,
                        const BookWorker::Watch& watch,
                        std::vector<Input>& inputs,
                        book_cli::Loaded& loaded);
    void takeRead(const BookDocument::Snapshot& snapshot, const Read& read);
    void tellRead(const QStringList& told);

    void layOut();
    void connectParts();
    void sync();
    void syncActions();
    void syncTitle();
    void syncCounts();
    void keepPlace();

    // book_window_menu.cpp
    void addMenus();
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addHelpMenu();
    QAction* add(QMenu& menu, const char* name, const QString& text, const QKeySequence& keys);
    void chooseFiles();
    void openFiles(const QStringList& names);
    void move(bool closes);
    void startFilter(const QString& letters);

    FileSystem& files_;
    RecentBooks& books_;
    BookDocument document_;
    BookRows rows_;
    RecordEdits edits_;
    BookWorker worker_;

    QStackedWidget* stack_;
    WelcomePage* welcome_;
    QSplitter* splitter_;
    QLineEdit* filter_;
    BookTable* table_;
    QTabWidget* panel_;
    PersonPage* person_;
    ProblemsPage* problems_;
    DuplicatesPage* duplicates_;
    QuietLine* quiet_line_;
    QLabel* counts_;

    QAction* open_ = nullptr;
    QMenu* recent_ = nullptr;
    QAction* move_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QAction* add_ = nullptr;
    QAction* change_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* select_all_ = nullptr;
    QAction* filter_action_ = nullptr;

    QString state_file_;
    QStringList dropped_;
    QTimer drop_is_over_;
};

}  // namespace orvik

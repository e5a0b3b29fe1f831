// The Book windows of this program: each has a keeper of its own, and goes when it is closed.

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "desktop/book/book_keeper.h"
#include "desktop/book/book_window.h"
#include "platform/file_system.h"
#include "store/recent_books.h"

namespace orvik {

class BookWindows : public QObject {
    Q_OBJECT
 public:
    // Both must outlive the windows, whose place is kept in the file.
    BookWindows(FileSystem& files,
                RecentBooks& books,
                QString state_file,
                std::chrono::milliseconds interval = BookKeeper::kInterval);
    BookWindows(const BookWindows&) = delete;
    BookWindows& operator=(const BookWindows&) = delete;
    BookWindows(BookWindows&&) = delete;
    BookWindows& operator=(BookWindows&&) = delete;
    ~BookWindows() override;

    // Shows a new window, and reads these into it. The first one offers what ended programs have
    // left; what is restored gets a window of its own unless that one is empty.
    BookWindow& open(std::vector<BookWindow::Input> inputs);
    // For the main window's controls, of whose double click only the first one counts: shows a new
    // window, or one with the entries of the main window, each as "NICK" <ADDR> in a line.
    void openEmpty();
    void openList(const std::string& name, std::string lines);
    [[nodiscard]] bool areOpen() const;

    // Keeps every book at once.
    void keepNow();
    // Removes what ended programs have left.
    void removeLeft();

    // The session ends: asks as closing each window does. What is given up goes by endForLogOut.
    [[nodiscard]] bool mayLogOut();
    // The session goes on after all.
    void stayAfterLogOut();
    // Hides the windows without a question: what nobody has given up is kept. Boxes may still wait
    // for answers, so they go with the program.
    void endForLogOut();

 signals:
    // A page of the help is wanted.
    void helpAsked(const QString& topic);

 private:
    // The keeper goes before the document that it keeps.
    struct Open {
        std::unique_ptr<BookWindow> Window;
        std::unique_ptr<BookKeeper> Keeper;
        bool IsClosed = false;
        bool IsGivenUp = false;  // if the session ends
    };
    Open& add();
    bool isSecondClick();
    Open* of(const QObject* window);
    static void giveUp(Open& open);
    void dropClosed();
    void offerLeft();
    void restore(RecoveryStore::Left left, BookWindow& first);

    FileSystem& files_;
    RecentBooks& books_;
    QString state_file_;
    std::chrono::milliseconds interval_;
    std::vector<std::unique_ptr<Open>> open_;
    bool has_offered_ = false;
    QElapsedTimer asked_;
    QTimer offer_;
    QTimer drop_;
};

}  // namespace orvik

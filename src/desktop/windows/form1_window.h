// Shows Form1: the main window.

#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/module1.h"
#include "desktop/session/desktop.h"
#include "desktop/views/find_bar.h"
#include "desktop/windows/form_events.h"
#include "store/recent_books.h"

class QAction;
class QLabel;
class QPushButton;

namespace orvik {

struct RecoveryCopy;
class EmptyNote;
class ListBoxView;
class ListGroup;
class ListHeading;
class ListMenu;
class QuietLine;
class RecoveryKeeper;
class StatusBarView;
class TextBoxView;
class ToolBar;

class Form1Window : public QMainWindow, public View {
    Q_OBJECT
 public:
    // All must outlive the window.
    Form1Window(Module1& module, Desktop& desktop, RecentBooks& books);
    Form1Window(const Form1Window&) = delete;
    Form1Window& operator=(const Form1Window&) = delete;
    Form1Window(Form1Window&&) = delete;
    Form1Window& operator=(Form1Window&&) = delete;
    ~Form1Window() override;

    void sync() override;
    [[nodiscard]] QWidget& window() override { return *this; }
    [[nodiscard]] std::optional<Encoding> selectionEncoding() const override;
    void fileChosen(const std::string& name) override;
    void saveFailed() override;
    void fileNoted(const std::string& text) override;
    void waits(const std::string& text) override;

    // Opens a file that was named on the command line or dropped on the window. A name that cannot
    // be opened, and more than one, is told of, and the open book stays.
    void openBooks(const QStringList& names);

    // Shows the tool bar, or not, as the user left it, and from now on keeps in this file what the
    // user chooses.
    void rememberIn(const QString& file);
    [[nodiscard]] QMenu* createPopupMenu() override;

    // From now on the keeper sees the book. It must outlive the window.
    void keepWith(RecoveryKeeper& keeper);
    // Offers the books that ended programs have left, as soon as no other window waits for an
    // answer about a file.
    void offerLeftBooks();

    // The session ends: asks as closing does. Returns whether the program has ended.
    bool endForLogOut();

 signals:
    // The working text is to be shown in a Book window, under the name of its file: each entry as
    // "NICK" <ADDR> in a line.
    void moveAsked(const std::string& name, const std::string& lines);
    // A Book window is to be shown.
    void bookWindowAsked();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // Escape presses Cancel while an extraction runs, when Cancel has the keys.
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    // The form's caption; after a save that failed the book keeps the title that it had.
    [[nodiscard]] const std::string& title() const;
    void openBook(const QString& name);
    // What there is to say quietly of the book and its file, as lines.
    [[nodiscard]] QString note() const;

    // form1_menu.cpp
    void addMenus();
    QAction* addCommand(QMenu& menu, const NamedControl& row);
    void syncMenus();
    // Runs a command on the text box's selection; its change joins the undo history.
    void runOnSelection(const MenuItem& item, const NamedHandler& command);
    bool makeRoomForPaste();

    // form1_bar.cpp
    void addBar();
    void addHeadings();
    void syncHeadings();
    void fitBar();
    void askForMove();

    // form1_notes.cpp
    void addEmptyNote();
    void addNotes();
    void syncNotes();
    // Tells of the number of entries: after the last command, and after any change.
    void tellOfCommand();
    void tellOfChange(std::string_view title, std::size_t before);
    // Tells that the last command took the place of a book, where undoing is not at hand.
    void tellNotSaved();
    // Runs a command of edit mode and tells of it.
    void runInEditMode(const NamedHandler& command, const FormEvents::Event& run);
    void placeEmptyNote();

    // form1_recovery.cpp
    void syncRecovery();
    void askAboutLeftBooks();
    void syncRestored();
    // Return whether the book was restored, or saved.
    bool restore(const RecoveryCopy& copy);
    bool saveLeft(const RecoveryCopy& copy);
    void tellRestored();
    // Tells that a book could not be kept, once there is room.
    void tellNotKept(const QString& why);

    // form1_controls.cpp
    void addText();
    void addLists();
    void addButtons();
    void addButton(std::string_view name, AtYield at_yield);
    void syncControls();
    void focusCancel();
    [[nodiscard]] bool isExtracting() const;

    // form1_drop.cpp
    void addDrop();

    // form1_find.cpp
    void addFind();
    void openFind();
    void closeFind();
    void find(FindBar::Step step);
    // These return what there is to say about the search.
    QString findEntry(FindBar::Step step);
    QString findInText(FindBar::Step step);

    // form1_layout.cpp
    [[nodiscard]] QSize startSize() const;
    void layOut();
    void place();
    // Places the lists above this line, and the hint to the numbers under them.
    void placeLists(int top, int bottom);
    void setFloor();

    // A list's heading, and the button that it presses.
    struct Heading {
        const ListBox* Of;
        const Button* Sorts;
        ListHeading* Shown;
    };

    Form1& form_;
    Desktop& desktop_;
    Module1& module_;
    RecentBooks& books_;
    FormEvents events_;
    ListMenu* list_menu_ = nullptr;
    std::vector<std::pair<const MenuItem*, QAction*>> actions_;
    std::vector<std::pair<const Button*, QPushButton*>> buttons_;
    std::vector<std::pair<const ListBox*, ListBoxView*>> lists_;
    ListGroup* list_group_ = nullptr;
    QLabel* number_hint_ = nullptr;  // how numbers are chosen, while they are shown
    TextBoxView* text1_ = nullptr;
    TextBoxView* text3_ = nullptr;
    StatusBarView* status_bar_ = nullptr;
    FindBar* find_bar_ = nullptr;
    ToolBar* tool_bar_ = nullptr;
    std::vector<Heading> headings_;
    QuietLine* quiet_line_ = nullptr;
    EmptyNote* empty_note_ = nullptr;
    // What the quiet line is about.
    Revision command_seen_ = 0;
    Revision text_seen_ = 0;
    std::uint64_t book_seen_ = 0;
    QString old_book_;         // the last command took its place, and it was not saved
    QString shown_book_;       // the file of the title, or "The book"
    bool line_stays_ = false;  // until the next command
    RecoveryKeeper* keeper_ = nullptr;
    bool offers_left_ = false;
    // What the entries were compared with before a left book was restored, and how often a book
    // was opened or saved until then.
    std::optional<std::pair<SavedBook::Hash, std::uint64_t>> before_restore_;
    QTimer offer_;
    bool is_low_ = false;
    QString state_file_;
    QPointer<QWidget> before_find_;  // what had the focus
    std::string file_note_;          // of the file that was chosen last
    std::string title_before_;       // before a file was chosen
    std::string failed_caption_;     // instead of this one title_kept_ is shown
    std::string title_kept_;
    bool on_selection_ = false;
    bool cancel_has_keys_ = false;
    QPointer<QWidget> before_cancel_;  // what had the focus
    QString dropped_file_;
    QTimer drop_is_over_;
};

}  // namespace orvik

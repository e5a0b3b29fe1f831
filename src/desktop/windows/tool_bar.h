// The main window's tool bar. It is no part of the form: its buttons run what menus and keys run,
// but for the one that goes on in a Book window.

#pragma once

#include <QString>
#include <QToolBar>
#include <functional>

#include "app/module1.h"
#include "store/recent_books.h"

class QAction;

namespace orvik {

class BooksMenu;
class TextBoxView;

class ToolBar : public QToolBar {
    Q_OBJECT
 public:
    // What is run: the window's own actions. In edit mode undo and redo are those of the text.
    struct Actions {
        QAction* Open;
        QAction* Save;
        QAction* Undo;
        QAction* Redo;
        QAction* Find;
    };
    // All must outlive the bar. The window gets the key for the list of books.
    ToolBar(Module1& module,
            RecentBooks& books,
            const Actions& actions,
            TextBoxView& text,
            QWidget& window);

    // Enables the buttons and names in their tips what they would do.
    void sync();

    // The checkable action with which the user shows and hides the bar.
    [[nodiscard]] QAction& wanted() const { return *wanted_; }
    // Fits the bar into a window of this size: it hides in one that is low, and in one that is
    // narrow it shows its longest button, or all of them, without a caption.
    void fit(bool low, int width);
    // How much of the window's height it takes.
    [[nodiscard]] int takenHeight() const;

    [[nodiscard]] QAction& undoAction() const { return *undo_; }

 signals:
    void bookChosen(const QString& name);
    // The book is to go to another program.
    void moveAsked();

 protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QAction* add(const char* name, const QString& text, const QIcon& icon, const QAction& runs);
    QAction* addStep(const char* name,
                     const QString& text,
                     const QIcon& icon,
                     QAction& in_lists,
                     std::function<void()> in_text);
    void addBooks(QWidget& window);
    void showBooks(const QWidget& window);
    void setTip(QAction& button, const QString& says, const QAction& runs) const;
    void addMove();
    void measure();
    void setStyles(Qt::ToolButtonStyle style, Qt::ToolButtonStyle of_move);

    Module1& module_;
    Actions actions_;
    TextBoxView& text_;
    QAction* open_;
    QAction* save_;
    QAction* undo_;
    QAction* redo_;
    QAction* find_;
    QAction* move_;
    QAction* wanted_;
    BooksMenu* books_menu_;
    int width_with_text_ = 0;
    int width_with_most_text_ = 0;
};

}  // namespace orvik

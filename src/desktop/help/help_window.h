// A window of the help viewer.

#pragma once

#include <QMainWindow>
#include <QString>

#include "desktop/views/find_bar.h"

class QLineEdit;
class QTabWidget;
class QToolBar;

namespace orvik {

class HelpBook;
class HelpBrowser;

class HelpWindow : public QMainWindow {
    Q_OBJECT
 public:
    // Contents, index and search beside the page, or the page alone.
    enum class Kind { WithPanes, PageAlone };

    // book must outlive the window. Without one only showProblem may be called.
    HelpWindow(HelpBook* book, Kind kind);

    void showTopic(const QString& topic);
    // Raise a pane, with the first page if there is none yet.
    void showContents() { showPane(0); }
    void showIndex() { showPane(1); }
    // A page that says why there is no help; body is HTML.
    void showProblem(const QString& heading, const QString& body);

    [[nodiscard]] bool hasBook() const { return book_ != nullptr; }

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    // The key of a tab leads to what stands in it, also where the tab is in front already.
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    void addActions(QToolBar& bar);
    [[nodiscard]] QTabWidget* makePanes();
    [[nodiscard]] QWidget* makeContents();
    [[nodiscard]] QWidget* makeIndex();
    [[nodiscard]] QWidget* makeSearch();
    // While the search is in front, what it looks for is marked in the page.
    void markWords();
    void showPane(int number);
    void bringToFront();
    void find(FindBar::Step step);
    void closeFind();

    HelpBook* book_;
    Kind kind_;
    HelpBrowser* page_;
    QTabWidget* panes_ = nullptr;
    QLineEdit* search_words_ = nullptr;
    FindBar* find_bar_ = nullptr;
};

}  // namespace orvik

#include "desktop/help/help_window.h"

#include <QAction>
#include <QKeyEvent>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "desktop/help/help_book.h"
#include "desktop/help/help_browser.h"
#include "desktop/views/find_in_text.h"

namespace orvik {
namespace {

// At first a line of the page has about this many letters, a pane's this many, and the window this
// many lines.
constexpr int kPageLetters = 85;
constexpr int kPaneLetters = 44;
constexpr int kLines = 34;

}  // namespace

HelpWindow::HelpWindow(HelpBook* book, Kind kind)
    : book_(book), kind_(kind), page_(new HelpBrowser(book, this)) {
    setObjectName(kind == Kind::WithPanes ? QStringLiteral("secWin") : QStringLiteral("Stripped"));
    setWindowTitle(tr("Orvik Help"));
    auto* const right = new QWidget(this);
    auto* const column = new QVBoxLayout(right);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(page_);
    find_bar_ = new FindBar(*this, right);
    connect(find_bar_, &FindBar::asked, this, [this] {
        find_bar_->tell({});
        find_bar_->open();
    });
    connect(find_bar_, &FindBar::stepped, this, [this](FindBar::Step step) { find(step); });
    connect(find_bar_, &FindBar::left, this, [this] { closeFind(); });
    column->addWidget(find_bar_);
    auto* const bar = new QToolBar(tr("Navigation"), this);
    addActions(*bar);
    const int letter = fontMetrics().averageCharWidth();
    int letters = kPageLetters;
    if (kind == Kind::WithPanes) {
        addToolBar(bar);
        auto* const splitter = new QSplitter(this);
        panes_ = makePanes();
        splitter->addWidget(panes_);
        splitter->addWidget(right);
        splitter->setStretchFactor(1, 1);
        splitter->setSizes({letter * kPaneLetters, letter * kPageLetters});
        splitter->setChildrenCollapsible(false);
        setCentralWidget(splitter);
        letters += kPaneLetters;
    } else {
        // Its commands stay: they have keys.
        bar->hide();
        setCentralWidget(right);
    }
    resize(letter * letters, fontMetrics().lineSpacing() * kLines);
    connect(page_, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = page_->documentTitle();
        setWindowTitle(title.isEmpty() ? tr("Orvik Help") : tr("%1 - Orvik Help").arg(title));
    });
}

// In words alone: not every one has a picture that all desktops know.
void HelpWindow::addActions(QToolBar& bar) {
    const auto add = [&](const QString& text, const QList<QKeySequence>& keys, auto&& act) {
        QAction* const action = bar.addAction(text, this, act);
        action->setShortcuts(keys);
        addAction(action);
        return action;
    };
    bar.setToolButtonStyle(Qt::ToolButtonTextOnly);
    // Who hid it would have nothing to bring it back with.
    bar.setMovable(false);
    bar.toggleViewAction()->setVisible(false);
    QAction* const back = add(
        tr("Back"), QKeySequence::keyBindings(QKeySequence::Back), [this] { page_->backward(); });
    QAction* const forward = add(tr("Forward"),
                                 QKeySequence::keyBindings(QKeySequence::Forward),
                                 [this] { page_->forward(); });
    QAction* const first = add(tr("First page"), {QKeySequence(Qt::ALT | Qt::Key_Home)}, [this] {
        showTopic(QStringLiteral("index.html"));
    });
    bar.addSeparator();
    add(tr("Larger"), QKeySequence::keyBindings(QKeySequence::ZoomIn), [this] { page_->zoomIn(); });
    add(tr("Smaller"), QKeySequence::keyBindings(QKeySequence::ZoomOut), [this] {
        page_->zoomOut();
    });
    add(tr("Normal size"), {QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { page_->resetZoom(); });
    bar.addSeparator();
    bar.addAction(&find_bar_->findAction());
    back->setEnabled(false);
    forward->setEnabled(false);
    first->setEnabled(book_ != nullptr);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::showTopic(const QString& topic) {
    page_->showPage(HelpBook::page(topic));
    bringToFront();
    page_->setFocus();
}

void HelpWindow::showProblem(const QString& heading, const QString& body) {
    page_->showText(heading, body);
    bringToFront();
}

void HelpWindow::showPane(int number) {
    if (page_->source().isEmpty()) {
        page_->showPage(HelpBook::page(QStringLiteral("index.html")));
    }
    bringToFront();
    if (panes_ != nullptr) {
        panes_->setCurrentIndex(number);
        panes_->currentWidget()->setFocus();
    }
}

void HelpWindow::bringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void HelpWindow::find(FindBar::Step step) {
    if (find_bar_->wanted().isEmpty()) {
        find_bar_->tell({});
        find_bar_->open();
        return;
    }
    const TextPlace found = FindInText(page_->textCursor(), find_bar_->wanted(), step);
    if (!found.Cursor.isNull()) {
        page_->setTextCursor(found.Cursor);
    }
    find_bar_->show();
    find_bar_->tell(FindBar::notice(!found.Cursor.isNull(), found.Wrapped, step));
}

void HelpWindow::closeFind() {
    find_bar_->hide();
    page_->setFocus();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        QMainWindow::keyPressEvent(event);
    } else if (!find_bar_->isHidden()) {
        closeFind();
    } else {
        close();
    }
}

bool HelpWindow::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        // The tab comes to the front first.
        QMetaObject::invokeMethod(
            this,
            [this] { panes_->currentWidget()->setFocus(Qt::ShortcutFocusReason); },
            Qt::QueuedConnection);
    }
    return QMainWindow::eventFilter(receiver, event);
}

}  // namespace orvik

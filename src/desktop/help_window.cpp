#include "desktop/help_window.h"

#include <QAction>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolBar>
#include <QVBoxLayout>

#include "desktop/help_book.h"
#include "desktop/help_browser.h"

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
    auto* const bar = new QToolBar(tr("Navigation"), this);
    addActions(*bar);
    auto* const right = new QWidget(this);
    auto* const column = new QVBoxLayout(right);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(page_);
    find_bar_ = makeFindBar();
    column->addWidget(find_bar_);
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

void HelpWindow::addActions(QToolBar& bar) {
    const auto add = [&](const QString& text,
                         const char* icon,
                         QStyle::StandardPixmap fallback,
                         const QList<QKeySequence>& keys,
                         auto&& act) {
        const QIcon plain =
            fallback == QStyle::SP_CustomBase ? QIcon() : style()->standardIcon(fallback);
        QAction* const action =
            bar.addAction(QIcon::fromTheme(QString::fromLatin1(icon), plain), text, this, act);
        action->setShortcuts(keys);
        addAction(action);
        return action;
    };
    const auto none = QStyle::SP_CustomBase;
    bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction* const back = add(tr("Back"),
                              "go-previous",
                              QStyle::SP_ArrowBack,
                              QKeySequence::keyBindings(QKeySequence::Back),
                              [this] { page_->backward(); });
    QAction* const forward = add(tr("Forward"),
                                 "go-next",
                                 QStyle::SP_ArrowForward,
                                 QKeySequence::keyBindings(QKeySequence::Forward),
                                 [this] { page_->forward(); });
    QAction* const first = add(tr("First page"),
                               "go-home",
                               QStyle::SP_DirHomeIcon,
                               {QKeySequence(Qt::ALT | Qt::Key_Home)},
                               [this] { showTopic(QStringLiteral("index.html")); });
    bar.addSeparator();
    add(tr("Larger"), "zoom-in", none, QKeySequence::keyBindings(QKeySequence::ZoomIn), [this] {
        page_->zoomIn();
    });
    add(tr("Smaller"), "zoom-out", none, QKeySequence::keyBindings(QKeySequence::ZoomOut), [this] {
        page_->zoomOut();
    });
    add(tr("Normal size"), "zoom-original", none, {QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] {
        page_->resetZoom();
    });
    bar.addSeparator();
    add(tr("Find..."), "edit-find", none, QKeySequence::keyBindings(QKeySequence::Find), [this] {
        startFinding();
    });
    back->setEnabled(false);
    forward->setEnabled(false);
    first->setEnabled(book_ != nullptr);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

QWidget* HelpWindow::makeFindBar() {
    auto* const bar = new QWidget(this);
    bar->setLayout(new QHBoxLayout);
    wanted_ = new QLineEdit(bar);
    wanted_->setObjectName(QStringLiteral("find"));
    wanted_->setAccessibleName(tr("Find in this page"));
    auto* const label = new QLabel(tr("&Find:"), bar);
    label->setBuddy(wanted_);
    auto* const next = new QPushButton(tr("&Next"), bar);
    auto* const previous = new QPushButton(tr("&Previous"), bar);
    auto* const close = new QPushButton(tr("&Close"), bar);
    for (QWidget* const widget : {static_cast<QWidget*>(label),
                                  static_cast<QWidget*>(wanted_),
                                  static_cast<QWidget*>(next),
                                  static_cast<QWidget*>(previous),
                                  static_cast<QWidget*>(close)}) {
        bar->layout()->addWidget(widget);
    }
    connect(wanted_, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(next, &QPushButton::clicked, this, [this] { find(false); });
    connect(previous, &QPushButton::clicked, this, [this] { find(true); });
    connect(close, &QPushButton::clicked, bar, &QWidget::hide);
    bar->hide();
    return bar;
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

void HelpWindow::startFinding() {
    find_bar_->show();
    wanted_->selectAll();
    wanted_->setFocus();
}

// Goes on at the other end of the page.
void HelpWindow::find(bool backwards) {
    const QTextDocument::FindFlags flags =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (wanted_->text().isEmpty() || page_->find(wanted_->text(), flags)) {
        return;
    }
    const QTextCursor here = page_->textCursor();
    page_->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (!page_->find(wanted_->text(), flags)) {
        page_->setTextCursor(here);
    }
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        QMainWindow::keyPressEvent(event);
    } else if (!find_bar_->isHidden()) {
        find_bar_->hide();
        page_->setFocus();
    } else if (kind_ == Kind::PageAlone) {
        close();
    }
}

}  // namespace orvik

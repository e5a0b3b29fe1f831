#include "desktop/book/book_window.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "app/messages.h"
#include "desktop/book/book_table.h"
#include "desktop/book/duplicates_page.h"
#include "desktop/book/person_page.h"
#include "desktop/book/problems_page.h"
#include "desktop/book/welcome_page.h"
#include "desktop/book/work_bar.h"
#include "desktop/help/help_key.h"
#include "desktop/session/window_place.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"
#include "desktop/views/quiet_line.h"

namespace orvik {
namespace {

constexpr const char* kColumnsPart = "columns";
constexpr const char* kSplitterPart = "splitter";
constexpr QSize kStartSize(1080, 660);
constexpr int kAroundFilter = 4;
constexpr qsizetype kMostTypedInFilter = 1000;
// So many files are named in the title.
constexpr std::size_t kNamed = 2;

// The texts of the window are English, and so are its numbers.
QString Counted(std::size_t count, const QString& one, const QString& many) {
    return QLocale(QLocale::English).toString(static_cast<qulonglong>(count)) + u' ' +
           (count == 1 ? one : many);
}

}  // namespace

BookWindow::BookWindow(FileSystem& files, RecentBooks& books)
    : files_(files),
      books_(books),
      rows_(document_),
      edits_(document_, rows_),
      stack_(new QStackedWidget(this)),
      welcome_(new WelcomePage(stack_)),
      splitter_(new QSplitter(stack_)),
      filter_(new QLineEdit),
      table_(new BookTable(document_, rows_, edits_, splitter_)),
      panel_(new QTabWidget(splitter_)),
      person_(new PersonPage(document_, checks_, panel_)),
      problems_(new ProblemsPage(document_, checks_, panel_)),
      duplicates_(new DuplicatesPage(document_, worker_, files_, panel_)),
      quiet_line_(new QuietLine(QStringLiteral("bookQuietLine"), this)),
      counts_(new QLabel(this)) {
    setObjectName(QStringLiteral("bookWindow"));
    SetHelpTopic(*this, "book.html");
    layOut();
    addMenus();
    connectParts();
    setAcceptDrops(true);
    drop_is_over_.setSingleShot(true);
    connect(&drop_is_over_, &QTimer::timeout, this, [this] { openFiles(dropped_); });
    resize(kStartSize);
    sync();
    person_->show(table_->selected());
}

// The pages go before the document that they show.
BookWindow::~BookWindow() {
    worker_.disconnect(this);
    rows_.disconnect(this);
    document_.undoStack().disconnect(this);
    table_->disconnect(this);
    delete takeCentralWidget();
}

void BookWindow::layOut() {
    auto* const left = new QWidget(splitter_);
    auto* const label = new QLabel(tr("Fi&lter:"), left);
    label->setObjectName(QStringLiteral("filterLabel"));
    label->setBuddy(filter_);
    filter_->setObjectName(QStringLiteral("filterText"));
    filter_->setAccessibleName(tr("Filter"));
    filter_->setPlaceholderText(tr("Words of any field"));
    filter_->setClearButtonEnabled(true);
    // Files that are dropped here are opened, too.
    filter_->setAcceptDrops(false);
    LimitLength(*filter_, kMostTypedInFilter);
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(kAroundFilter, kAroundFilter, 0, 0);
    row->addWidget(label);
    row->addWidget(filter_, 1);
    auto* const column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addWidget(table_, 1);

    panel_->setObjectName(QStringLiteral("bookPanel"));
    panel_->setAccessibleName(tr("Panel"));
    panel_->setDocumentMode(true);
    panel_->addTab(person_, tr("Person"));
    panel_->addTab(problems_, tr("Problems"));
    panel_->addTab(duplicates_, tr("Duplicates"));

    splitter_->setObjectName(QStringLiteral("bookSplitter"));
    splitter_->setChildrenCollapsible(false);
    splitter_->addWidget(left);
    splitter_->addWidget(panel_);
    splitter_->setStretchFactor(0, 2);
    splitter_->setStretchFactor(1, 1);
    stack_->addWidget(welcome_);
    stack_->addWidget(splitter_);

    auto* const central = new QWidget(this);
    auto* const all = new QVBoxLayout(central);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(stack_, 1);
    all->addWidget(quiet_line_);
    setCentralWidget(central);

    counts_->setObjectName(QStringLiteral("bookCounts"));
    counts_->setTextFormat(Qt::PlainText);
    statusBar()->setObjectName(QStringLiteral("bookStatusBar"));
    statusBar()->setAccessibleName(tr("Status bar"));
    statusBar()->addWidget(counts_, 1);
    statusBar()->addPermanentWidget(new WorkBar(worker_, this));
}

void BookWindow::connectParts() {
    connect(welcome_, &WelcomePage::openAsked, open_, &QAction::trigger);
    // A button that is pressed by its key leaves the focus in the cell.
    for (const auto* const button : panel_->findChildren<QAbstractButton*>()) {
        connect(button, &QAbstractButton::pressed, table_, &BookTable::finishTyping);
    }
    connect(filter_, &QLineEdit::textChanged, &rows_, &BookRows::setFilter);
    connect(filter_, &QLineEdit::returnPressed, table_, qOverload<>(&QWidget::setFocus));
    connect(table_, &BookTable::lettersTyped, this, &BookWindow::startFilter);
    connect(table_, &BookTable::selectionMoved, this, [this] {
        person_->show(table_->selected());
        syncActions();
        syncCounts();
    });
    connect(table_, &BookTable::currentMoved, this, &BookWindow::syncActions);
    connect(problems_, &ProblemsPage::recordAsked, this, &BookWindow::showRecord);
    connect(duplicates_, &DuplicatesPage::recordAsked, this, &BookWindow::showRecord);
    connect(&edits_, &RecordEdits::told, this, [this](const QString& text) { tell(text); });
    connect(&rows_, &BookRows::changed, this, &BookWindow::sync);
    connect(&rows_, &BookRows::busyChanged, this, &BookWindow::syncCounts);
    connect(&rows_, &BookRows::failed, this, [this](const QString& why) {
        tell(tr("The table could not be filtered or sorted: %1.").arg(why));
    });
    connect(&document_, &BookDocument::frozenChanged, this, &BookWindow::syncActions);
    QUndoStack& steps = document_.undoStack();
    connect(&steps, &QUndoStack::indexChanged, this, &BookWindow::sync);
    connect(&steps, &QUndoStack::cleanChanged, this, &BookWindow::sync);
    // However work ends, the document can be changed again.
    connect(&worker_, &BookWorker::began, this, &BookWindow::syncActions);
    connect(&worker_, &BookWorker::ended, this, [this] {
        document_.setFrozen(false);
        syncActions();
    });
}

void BookWindow::tell(const QString& text, const QString& link, std::function<void()> follow) {
    if (text.isEmpty()) {
        quiet_line_->clear();
    } else {
        quiet_line_->tell(text, link, std::move(follow));
    }
}

void BookWindow::showRecord(std::uint32_t record) {
    if (record >= document_.count() || !document_.isThere(record)) {
        tell(tr("This record is not there any more."));
        return;
    }
    if (!table_->showRecord(record)) {
        filter_->clear();
        table_->showRecord(record);
    }
}

void BookWindow::sync() {
    const bool is_empty = document_.loaded().Inputs.empty() && document_.undoStack().count() == 0;
    QWidget* const shown = is_empty ? static_cast<QWidget*>(welcome_) : splitter_;
    if (stack_->currentWidget() != shown) {
        stack_->setCurrentWidget(shown);
        (is_empty ? static_cast<QWidget*>(welcome_) : table_)->setFocus();
    }
    syncTitle();
    syncActions();
    syncCounts();
}

void BookWindow::syncTitle() {
    const book::Book& book = document_.book();
    const std::size_t count = book.SourceCount();
    std::string files;
    for (std::size_t i = 0; i < std::min(count, kNamed); ++i) {
        files.append(i == 0 ? "" : ", ")
            .append(book::FileNameOf(book.SourceAt(static_cast<std::uint32_t>(i)).Name()));
    }
    if (count > kNamed) {
        files += tr(" and %1 more").arg(count - kNamed).toStdString();
    }
    const std::string title = files.empty()
                                  ? std::string(kTitle) + tr(" - Address book").toStdString()
                                  : std::string(kTitle) + " - " + files;
    SyncTitle(*this, title, TitleMark::Shown);
    setWindowModified(document_.isUnsaved());
}

void BookWindow::syncCounts() {
    const std::size_t all = document_.thereCount();
    const std::size_t lists = rows_.listCount();
    QString text = Counted(all - lists, tr("person"), tr("people"));
    if (lists > 0) {
        text += QStringLiteral(", ") + Counted(lists, tr("list"), tr("lists"));
    }
    if (rows_.isFiltering()) {
        text += QStringLiteral("; ") + Counted(rows_.rows().size(), tr("shown"), tr("shown"));
    }
    if (const std::size_t selected = table_->selectedCount(); selected > 1) {
        text += QStringLiteral("; ") + Counted(selected, tr("selected"), tr("selected"));
    }
    if (rows_.isBusy()) {
        text += QStringLiteral("; ") + tr("looking...");
    }
    counts_->setText(document_.thereCount() == 0 && welcome_->isVisibleTo(this) ? QString() : text);
}

void BookWindow::rememberIn(const QString& file) {
    RestorePlace(*this, file, kBookWindow);
    splitter_->restoreState(KeptParts(file, kBookWindow, kSplitterPart));
    table_->setColumnState(KeptParts(file, kBookWindow, kColumnsPart));
    state_file_ = file;
}

void BookWindow::keepPlace() {
    if (!state_file_.isEmpty()) {
        KeepPlace(*this, state_file_, kBookWindow);
        KeepParts(splitter_->saveState(), state_file_, kBookWindow, kSplitterPart);
        KeepParts(table_->columnState(), state_file_, kBookWindow, kColumnsPart);
    }
}

bool BookWindow::mayClose() {
    if (!table_->mayFinishTyping()) {
        return false;
    }
    table_->finishTyping();
    if (!document_.isUnsaved()) {
        return true;
    }
    QMessageBox box(QMessageBox::Question,
                    ToLetters(kTitle),
                    tr("What you changed is in no file yet.\n"
                       "Move writes a file for the program of your choice."),
                    QMessageBox::NoButton,
                    this);
    box.setObjectName(QStringLiteral("closeBox"));
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::WindowModal);
    const QPushButton* const moves = box.addButton(tr("&Move..."), QMessageBox::AcceptRole);
    const QPushButton* const discards = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    QPushButton* const stays = box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(stays);
    box.setEscapeButton(stays);
    box.exec();
    if (box.clickedButton() == moves) {
        move(true);
    }
    return box.clickedButton() == discards;
}

void BookWindow::closeEvent(QCloseEvent* event) {
    if (!mayClose()) {
        event->ignore();
        return;
    }
    worker_.cancel();
    keepPlace();
    event->accept();
    emit closed();
}

}  // namespace orvik

// The menus of a Book window, with their keys.

#include <QAction>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>

#include "desktop/book/book_table.h"
#include "desktop/book/book_window.h"
#include "desktop/book/duplicates_page.h"
#include "desktop/book/move_dialog.h"
#include "desktop/book/person_page.h"
#include "desktop/book/problems_page.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"
#include "desktop/views/books_menu.h"

namespace orvik {
namespace {

QMenu& AddMenu(QMenuBar& bar, const char* name, const QString& title) {
    QMenu* const menu = bar.addMenu(title);
    menu->setObjectName(QString::fromLatin1(name));
    menu->menuAction()->setObjectName(menu->objectName());
    return *menu;
}

// "Undo Delete Ada", with what would be taken for a key.
QString StepText(const QString& does, const QString& step) {
    QString text = step;
    text.replace(u'&', QStringLiteral("&&"));
    return step.isEmpty() ? does : does + u' ' + text;
}

}  // namespace

QAction* BookWindow::add(QMenu& menu,
                         const char* name,
                         const QString& text,
                         const QKeySequence& keys) {
    QAction* const action = menu.addAction(text);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(keys);
    return action;
}

void BookWindow::addMenus() {
    addFileMenu();
    addEditMenu();
    addViewMenu();
    addHelpMenu();
}

void BookWindow::addFileMenu() {
    QMenu& menu = AddMenu(*menuBar(), "bookFileMenu", tr("&File"));
    open_ = add(menu, "bookOpen", tr("&Open..."), QKeySequence::Open);
    connect(open_, &QAction::triggered, this, &BookWindow::chooseFiles);
    auto* const recent = new BooksMenu(books_, this);
    recent->setTitle(tr("Open &recent"));
    menu.addMenu(recent);
    connect(recent, &BooksMenu::chosen, this, [this](const QString& name) { openFiles({name}); });
    recent_ = recent;
    menu.addSeparator();
    move_ = add(menu, "bookMove", tr("&Move to another program..."), QKeySequence::Save);
    connect(move_, &QAction::triggered, this, [this] { move(false); });
    menu.addSeparator();
    // Not every desktop has it as its first key for that.
    QAction* const close = add(menu, "bookClose", tr("&Close"), Qt::CTRL | Qt::Key_W);
    connect(close, &QAction::triggered, this, &QWidget::close);
}

void BookWindow::addEditMenu() {
    QMenu& menu = AddMenu(*menuBar(), "bookEditMenu", tr("&Edit"));
    QUndoStack& steps = document_.undoStack();
    undo_ = add(menu, "bookUndo", tr("&Undo"), QKeySequence::Undo);
    redo_ = add(menu, "bookRedo", tr("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    connect(undo_, &QAction::triggered, this, [this, &steps] {
        table_->finishTyping();
        steps.undo();
    });
    connect(redo_, &QAction::triggered, this, [this, &steps] {
        table_->finishTyping();
        steps.redo();
    });
    menu.addSeparator();
    add_ = add(menu, "bookAdd", tr("&New person"), QKeySequence::New);
    connect(add_, &QAction::triggered, table_, &BookTable::addPerson);
    change_ = add(menu, "bookChange", tr("&Change cell"), Qt::Key_F2);
    connect(change_, &QAction::triggered, table_, [this] { table_->edit(table_->currentIndex()); });
    delete_ = add(menu, "bookDelete", tr("&Delete"), QKeySequence::Delete);
    connect(delete_, &QAction::triggered, table_, &BookTable::removeSelected);
    // Not in a field of the panel.
    for (QAction* const one : {change_, delete_}) {
        one->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        table_->addAction(one);
    }
    menu.addSeparator();
    select_all_ = add(menu, "bookSelectAll", tr("Select &all"), QKeySequence::SelectAll);
    select_all_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    table_->addAction(select_all_);
    connect(select_all_, &QAction::triggered, table_, &QAbstractItemView::selectAll);
    menu.addSeparator();
    filter_action_ = add(menu, "bookFilter", tr("&Filter"), QKeySequence::Find);
    connect(filter_action_, &QAction::triggered, this, [this] {
        filter_->setFocus();
        filter_->selectAll();
    });
    // Esc shows all again.
    auto* const all = new QAction(tr("Show all"), filter_);
    all->setObjectName(QStringLiteral("bookShowAll"));
    all->setShortcut(Qt::Key_Escape);
    all->setShortcutContext(Qt::WidgetShortcut);
    connect(all, &QAction::triggered, this, [this] {
        filter_->clear();
        table_->setFocus();
    });
    QWidget& field = *filter_;
    field.addAction(all);
    connect(&worker_, &BookWorker::began, all, [all] { all->setEnabled(false); });
    connect(&worker_, &BookWorker::ended, all, [all] { all->setEnabled(true); });
}

void BookWindow::addViewMenu() {
    QMenu& menu = AddMenu(*menuBar(), "bookViewMenu", tr("&View"));
    menu.addMenu(&table_->columnsMenu());
    menu.addMenu(&table_->sortMenu());
    menu.addSeparator();
    for (int i = 0; i < panel_->count(); ++i) {
        QAction* const page =
            menu.addAction(u'&' + QString::number(i + 1) + u' ' + panel_->tabText(i));
        page->setObjectName(QStringLiteral("bookPage%1").arg(i + 1));
        page->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + i)));
        connect(page, &QAction::triggered, panel_, [this, i] {
            panel_->setCurrentIndex(i);
            panel_->currentWidget()->setFocus();
        });
    }
}

void BookWindow::addHelpMenu() {
    QMenu& menu = AddMenu(*menuBar(), "bookHelpMenu", tr("&Help"));
    // F1 shows it, too.
    QAction* const help = menu.addAction(tr("&This window"));
    help->setObjectName(QStringLiteral("bookHelp"));
    connect(
        help, &QAction::triggered, this, [this] { emit helpAsked(QStringLiteral("book.html")); });
}

void BookWindow::syncActions() {
    const bool is_free = !worker_.isBusy() && !document_.isFrozen();
    const bool has_records = document_.thereCount() > 0;
    const bool has_selected = table_->selectedCount() > 0;
    const QUndoStack& steps = document_.undoStack();
    open_->setEnabled(is_free);
    recent_->setEnabled(is_free);
    move_->setEnabled(is_free && has_records);
    undo_->setEnabled(is_free && steps.canUndo());
    redo_->setEnabled(is_free && steps.canRedo());
    undo_->setText(StepText(tr("&Undo"), steps.undoText()));
    redo_->setText(StepText(tr("&Redo"), steps.redoText()));
    add_->setEnabled(is_free);
    change_->setEnabled(is_free && table_->currentIndex().flags().testFlag(Qt::ItemIsEditable));
    delete_->setEnabled(is_free && has_selected);
    select_all_->setEnabled(has_records);
    filter_action_->setEnabled(has_records);
}

void BookWindow::startFilter(const QString& letters) {
    filter_->setFocus();
    filter_->setText(letters);
}

void BookWindow::move(bool closes) {
    if (!table_->mayFinishTyping()) {
        return;
    }
    table_->finishTyping();
    auto* const dialog = new MoveDialog(document_, worker_, files_, document_.records(), this);
    if (!filter_->text().trimmed().isEmpty()) {
        dialog->tellOfFilter();
    }
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    connect(dialog, &MoveDialog::saved, this, [this](const QString& file) {
        document_.markSaved();
        tell(tr("Saved as %1.").arg(ShownName(file)));
    });
    connect(dialog, &MoveDialog::helpAsked, this, &BookWindow::helpAsked);
    if (closes) {
        connect(dialog, &QDialog::finished, this, [this] {
            if (!document_.isUnsaved()) {
                close();
            }
        });
    }
    dialog->open();
}

}  // namespace orvik

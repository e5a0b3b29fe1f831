#include "desktop/windows/tool_bar.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QToolButton>
#include <utility>

#include "desktop/text/text_box_view.h"
#include "desktop/views/books_menu.h"
#include "desktop/views/line_icon.h"

namespace orvik {
namespace {

QString WithoutKey(QString text) {
    return text.remove(u'&');
}

}  // namespace

ToolBar::ToolBar(
    Module1& module, RecentBooks& books, const Actions& actions, TextBoxView& text, QWidget& window)
    : QToolBar(&window),
      module_(module),
      actions_(actions),
      text_(text),
      open_(add("barOpen", tr("Open"), LineIcon(Drawing::Open), *actions.Open)),
      save_(add("barSave", tr("Save"), LineIcon(Drawing::Save), *actions.Save)),
      undo_(addStep(
          "barUndo", tr("Undo"), LineIcon(Drawing::Undo), *actions.Undo, [this] { text_.undo(); })),
      redo_(addStep(
          "barRedo", tr("Redo"), LineIcon(Drawing::Redo), *actions.Redo, [this] { text_.redo(); })),
      find_(add("barFind", tr("Find"), LineIcon(Drawing::Find), *actions.Find)),
      move_(addAction(LineIcon(Drawing::Move), tr("Move to another program..."))),
      wanted_(new QAction(tr("Show the &tool bar"), this)),
      books_menu_(new BooksMenu(books, this)) {
    setObjectName(QStringLiteral("toolBar"));
    setWindowTitle(tr("Tool bar"));
    setAccessibleName(windowTitle());
    setMovable(false);
    setFloatable(false);
    // What Qt shows for buttons that have no room.
    if (auto* const more = findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
        more->setAccessibleName(tr("More buttons"));
    }
    wanted_->setObjectName(QStringLiteral("toolBarWanted"));
    wanted_->setCheckable(true);
    wanted_->setChecked(true);
    addBooks(window);
    addMove();
    connect(&text_, &QPlainTextEdit::undoAvailable, this, &ToolBar::sync);
    connect(&text_, &QPlainTextEdit::redoAvailable, this, &ToolBar::sync);
    measure();
}

QAction* ToolBar::add(const char* name,
                      const QString& text,
                      const QIcon& icon,
                      const QAction& runs) {
    QAction* const button = addAction(icon, text);
    button->setObjectName(QString::fromLatin1(name));
    connect(button, &QAction::triggered, &runs, &QAction::trigger);
    widgetForAction(button)->installEventFilter(this);
    return button;
}

QAction* ToolBar::addStep(const char* name,
                          const QString& text,
                          const QIcon& icon,
                          QAction& in_lists,
                          std::function<void()> in_text) {
    QAction* const button = addAction(icon, text);
    button->setObjectName(QString::fromLatin1(name));
    connect(button, &QAction::triggered, this, [this, &in_lists, in_text = std::move(in_text)] {
        if (text_.isCovered()) {
            in_lists.trigger();
        } else {
            in_text();
        }
    });
    widgetForAction(button)->installEventFilter(this);
    return button;
}

// It may have no caption when the others have theirs.
void ToolBar::addMove() {
    move_->setObjectName(QStringLiteral("barMove"));
    // Else the dots would go.
    move_->setIconText(move_->text());
    move_->setToolTip(tr("Show these entries as people, and write them for another program"));
    connect(move_, &QAction::triggered, this, &ToolBar::moveAsked);
    QWidget* const button = widgetForAction(move_);
    button->setAccessibleName(move_->text());
    button->setAccessibleDescription(move_->toolTip());
    button->installEventFilter(this);
}

void ToolBar::addBooks(QWidget& window) {
    connect(books_menu_, &BooksMenu::chosen, this, &ToolBar::bookChosen);
    auto* const button = qobject_cast<QToolButton*>(widgetForAction(open_));
    button->setPopupMode(QToolButton::MenuButtonPopup);
    button->setMenu(books_menu_);
    auto* const key = new QAction(books_menu_->accessibleName(), this);
    key->setObjectName(QStringLiteral("showBooks"));
    key->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_O);
    connect(key, &QAction::triggered, this, [this, &window] { showBooks(window); });
    window.addAction(key);
}

// Below its button, or where the bar would be.
void ToolBar::showBooks(const QWidget& window) {
    if (!open_->isEnabled()) {
        return;
    }
    const QWidget* const button = isVisible() ? widgetForAction(open_) : nullptr;
    books_menu_->popup(button != nullptr && button->isVisible()
                           ? button->mapToGlobal(QPoint(0, button->height()))
                           : window.mapToGlobal(QPoint(0, 0)));
}

void ToolBar::sync() {
    const Form1& form = module_.form1;
    // During an extraction the menus are disabled, and so are their commands.
    const bool free = form.mnuFile.Enabled;
    open_->setEnabled(free && form.mnuOpen.Enabled);
    save_->setEnabled(free && form.mnuSave.Enabled && !module_.WorkText.empty());
    find_->setEnabled(free);
    move_->setEnabled(free && !module_.WorkText.empty());
    if (text_.isCovered()) {
        undo_->setEnabled(free && actions_.Undo->isEnabled());
        redo_->setEnabled(free && actions_.Redo->isEnabled());
        setTip(*undo_, WithoutKey(actions_.Undo->text()), *actions_.Undo);
        setTip(*redo_, WithoutKey(actions_.Redo->text()), *actions_.Redo);
    } else {
        undo_->setEnabled(text_.document()->isUndoAvailable());
        redo_->setEnabled(text_.document()->isRedoAvailable());
        setTip(*undo_, tr("Undo editing"), *actions_.Undo);
        setTip(*redo_, tr("Redo editing"), *actions_.Redo);
    }
    setTip(*open_, WithoutKey(actions_.Open->text()), *actions_.Open);
    setTip(*save_, WithoutKey(actions_.Save->text()), *actions_.Save);
    setTip(*find_, WithoutKey(actions_.Find->text()), *actions_.Find);
}

void ToolBar::setTip(QAction& button, const QString& says, const QAction& runs) const {
    const QString tip =
        says + QStringLiteral(" (") + runs.shortcut().toString(QKeySequence::NativeText) + u')';
    if (button.toolTip() != tip) {
        button.setToolTip(tip);
        // The button's name is its caption; what it would do is read behind it.
        widgetForAction(&button)->setAccessibleDescription(tip);
    }
}

void ToolBar::fit(bool low, int width) {
    setStyles(
        width_with_most_text_ <= width ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly,
        width_with_text_ <= width ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    const bool shown = wanted_->isChecked() && !low;
    if (isHidden() == shown) {
        setVisible(shown);
    }
}

int ToolBar::takenHeight() const {
    return isHidden() ? 0 : sizeHint().height();
}

// A button that is disabled would keep the wish for the bar's menu to itself.
bool ToolBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        event->ignore();
        return true;
    }
    return QToolBar::eventFilter(watched, event);
}

void ToolBar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        measure();
    }
}

void ToolBar::setStyles(Qt::ToolButtonStyle style, Qt::ToolButtonStyle of_move) {
    if (toolButtonStyle() != style) {
        setToolButtonStyle(style);
    }
    auto* const button = qobject_cast<QToolButton*>(widgetForAction(move_));
    if (button->toolButtonStyle() != of_move) {
        button->setToolButtonStyle(of_move);
        // One that is not shown yet tells nobody.
        layout()->invalidate();
    }
}

void ToolBar::measure() {
    const Qt::ToolButtonStyle style = toolButtonStyle();
    const Qt::ToolButtonStyle of_move =
        qobject_cast<QToolButton*>(widgetForAction(move_))->toolButtonStyle();
    setStyles(Qt::ToolButtonTextBesideIcon, Qt::ToolButtonTextBesideIcon);
    width_with_text_ = sizeHint().width();
    setStyles(Qt::ToolButtonTextBesideIcon, Qt::ToolButtonIconOnly);
    width_with_most_text_ = sizeHint().width();
    setStyles(style, of_move);
}

}  // namespace orvik

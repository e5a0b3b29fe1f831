#include "desktop/desktop_actor.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTextDocument>
#include <algorithm>

#include "desktop/desktop_properties.h"
#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"
#include "desktop/views/list_box_view.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/form_window.h"
#include "desktop/windows/late_windows.h"

namespace orvik::testkit {
namespace {

// A menu item that a person could choose now.
bool CanChoose(const QAction& action) {
    const auto* const menu = qobject_cast<const QMenu*>(action.parent());
    return action.isEnabled() && action.isVisible() &&
           (menu == nullptr || menu->menuAction()->isEnabled());
}

bool CanUse(QWidget& widget) {
    for (QWidget* page = &widget; page->parentWidget() != nullptr; page = page->parentWidget()) {
        auto* const tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
        if (tabs != nullptr && tabs->indexOf(page) >= 0) {
            tabs->setCurrentWidget(page);
        }
    }
    return widget.isVisible() && widget.isEnabled();
}

// Selects in the box as the form says. Returns false if an end lies inside a letter.
bool SelectAsForm(TextBoxView& view, const TextBox& box, std::size_t start, std::size_t length) {
    const auto first = BoxPosition(box.Text(), start, view.encoding());
    const auto last = BoxPosition(box.Text(), start + length, view.encoding());
    const QString letters = view.document()->toRawText();
    if (ByteOffset(letters, first, view.encoding()) != start ||
        ByteOffset(letters, last, view.encoding()) != start + length) {
        return false;
    }
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(static_cast<int>(first));
    cursor.setPosition(static_cast<int>(last), QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    return true;
}

void Type(TextBoxView& view, const QString& letters) {
    if (letters.isEmpty()) {
        QTest::keyClick(&view, Qt::Key_Backspace);
        return;
    }
    QInputMethodEvent typed;
    typed.setCommitString(letters);
    QApplication::sendEvent(&view, &typed);
}

}  // namespace

DesktopActor::DesktopActor(ScenarioPlatform& platform, Share& share)
    : platform_(platform), share_(share) {
    platform_.windows = this;
}

DesktopActor::~DesktopActor() {
    platform_.windows = nullptr;
}

// The windows go before the forms that they show.
void DesktopActor::Detach() {
    small_windows_.reset();
    form1_.reset();
    Actor::Detach();
}

void DesktopActor::Attach(Program& program) {
    Detach();
    Actor::Attach(program);
    desktop_ = std::make_unique<Desktop>();
    form1_ = std::make_unique<Form1Window>(program.module, *desktop_, books_);
    small_windows_ = std::make_unique<LateWindows>(program, *desktop_, form1_.get());
}

QWidget& DesktopActor::WindowOf(const Form& form) const {
    return desktop_->viewOf(form)->window();
}

template <class Kind>
Kind* DesktopActor::Find(const Form& form, std::string_view name) const {
    return WindowOf(form).findChild<Kind*>(ObjectName(name));
}

template <class Kind>
Kind* DesktopActor::Usable(const Form& form, std::string_view name) const {
    auto* const view = Find<Kind>(form, name);
    return view != nullptr && CanUse(*view) ? view : nullptr;
}

void DesktopActor::CountWidget() {
    ++share_.ThroughWidgets;
    desktop_->rethrowEnd();
}

void DesktopActor::RunHandler(Form& form, const NamedHandler& handler) {
    constexpr std::string_view kClick = "_Click";
    Sync();
    if (std::string_view(handler.Name).ends_with(kClick)) {
        const std::string control = handler.Name.substr(0, handler.Name.size() - kClick.size());
        auto* const action = Find<QAction>(form, control);
        auto* const button = Usable<QPushButton>(form, control);
        // A command on the selection takes the one that the box shows.
        const TextBox& text = module().form1.Text1;
        auto* const view = Find<TextBoxView>(module().form1, "Text1");
        const bool selection_shown =
            view->isCovered() || SelectAsForm(*view, text, text.SelStart, text.SelLength);
        if (action != nullptr && CanChoose(*action) && selection_shown) {
            action->trigger();
            CountWidget();
            return;
        }
        if (button != nullptr) {
            button->click();
            CountWidget();
            return;
        }
    }
    CountDirect();
    Actor::RunHandler(form, handler);
    Sync();
}

TextBoxView* DesktopActor::Editable(const Target& target) const {
    auto* const view = Usable<TextBoxView>(target.Owner, target.Name);
    return view != nullptr && !view->isReadOnly() ? view : nullptr;
}

void DesktopActor::SetText(const Target& target, TextBox& box, const std::string& text) {
    Sync();
    TextBoxView* const view = Editable(target);
    // A text that stays the same is no edit in a widget.
    if (view != nullptr && text != box.Text()) {
        Encoding encoding = view->encoding();
        const QString letters = ToBoxText(text, EncodingOf(text));
        if (FromBoxText(letters, encoding) == text) {
            view->selectAll();
            Type(*view, letters);
            CountWidget();
            return;
        }
    }
    CountDirect();
    Actor::SetText(target, box, text);
    Sync();
}

void DesktopActor::TypeText(const Target& target, TextBox& box, const std::string& text) {
    Sync();
    TextBoxView* const view = Editable(target);
    std::string whole(box.Text());
    whole.replace(box.SelStart, box.SelLength, text);
    if (view != nullptr && whole != box.Text()) {
        const QString letters = ToBoxText(text, view->encoding());
        Encoding encoding = view->encoding();
        if (FromBoxText(letters, encoding) == text && encoding == view->encoding() &&
            SelectAsForm(*view, box, box.SelStart, box.SelLength)) {
            Type(*view, letters);
            CountWidget();
            return;
        }
    }
    CountDirect();
    Actor::TypeText(target, box, text);
    Sync();
}

void DesktopActor::SelectText(const Target& target,
                              TextBox& box,
                              std::size_t start,
                              std::size_t length) {
    Sync();
    TextBoxView* const view = Editable(target);
    const std::size_t first = std::min(start, box.Text().size());
    const std::size_t count = std::min(length, box.Text().size() - first);
    if (view != nullptr && SelectAsForm(*view, box, first, count) && box.SelStart == first &&
        box.SelLength == count) {
        CountWidget();
        return;
    }
    CountDirect();
    Actor::SelectText(target, box, start, length);
    Sync();
}

bool DesktopActor::ClickRow(ListBoxView& view,
                            const ListBox& list,
                            const std::vector<std::size_t>& rows) {
    if (!CanUse(view) || rows.empty() || rows == list.Selected()) {
        return false;
    }
    const QModelIndex last = view.model()->index(static_cast<int>(rows.back()), 0);
    if (rows.size() == 1 && (!view.addsClicks() || list.Selected().empty())) {
        view.scrollTo(last);
        QTest::mouseClick(
            view.viewport(), Qt::LeftButton, Qt::NoModifier, view.visualRect(last).center());
        return true;
    }
    QItemSelection selection;
    for (const std::size_t row : rows) {
        const QModelIndex index = view.model()->index(static_cast<int>(row), 0);
        selection.select(index, index);
    }
    view.selectionModel()->setCurrentIndex(last, QItemSelectionModel::NoUpdate);
    view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    return true;
}

void DesktopActor::SelectRows(const Target& target,
                              ListBox& list,
                              const std::vector<std::size_t>& rows) {
    Sync();
    auto* const view = Find<ListBoxView>(target.Owner, target.Name);
    if (view != nullptr && ClickRow(*view, list, rows)) {
        CountWidget();
        return;
    }
    CountDirect();
    Actor::SelectRows(target, list, rows);
    Sync();
}

void DesktopActor::SetCheck(const Target& target, CheckBox& box, bool checked) {
    Sync();
    auto* const view = Usable<QCheckBox>(target.Owner, target.Name);
    if (view != nullptr && view->isChecked() != checked) {
        view->click();
        CountWidget();
        return;
    }
    CountDirect();
    Actor::SetCheck(target, box, checked);
    Sync();
}

void DesktopActor::ChooseOption(const Target& target, OptionButton& option) {
    Sync();
    if (auto* const view = Usable<QRadioButton>(target.Owner, target.Name)) {
        view->click();
        CountWidget();
        return;
    }
    CountDirect();
    Actor::ChooseOption(target, option);
    Sync();
}

void DesktopActor::ChooseItem(const Target& target, ComboBox& combo, const std::string& item) {
    Sync();
    auto* const view = Usable<QComboBox>(target.Owner, target.Name);
    const int row = view == nullptr ? -1 : view->findText(ToLetters(item));
    if (row >= 0) {
        view->showPopup();
        view->view()->setCurrentIndex(view->model()->index(row, 0));
        QTest::keyClick(view->view(), Qt::Key_Return);
        CountWidget();
        return;
    }
    CountDirect();
    Actor::ChooseItem(target, combo, item);
    Sync();
}

bool DesktopActor::EditEntry(std::size_t row,
                             const std::string& address,
                             const std::string& nickname) {
    CountDirect();
    const bool there = Actor::EditEntry(row, address, nickname);
    Sync();
    return there;
}

bool DesktopActor::DeleteEntries(const std::vector<std::size_t>& rows) {
    CountDirect();
    const bool there = Actor::DeleteEntries(rows);
    Sync();
    return there;
}

void DesktopActor::Click(Form& form) {
    Sync();
    QWidget& window = WindowOf(form);
    if (window.isVisible()) {
        QTest::mouseClick(&window, Qt::LeftButton);
        CountWidget();
        return;
    }
    CountDirect();
    Actor::Click(form);
    Sync();
}

void DesktopActor::DoubleClick(const Target& target) {
    Sync();
    if (auto* const view = Usable<TextBoxView>(target.Owner, target.Name)) {
        QTest::mouseDClick(view->viewport(), Qt::LeftButton);
        CountWidget();
        return;
    }
    CountDirect();
    Actor::DoubleClick(target);
    Sync();
}

void DesktopActor::ReleaseKey(Form& form, int key_code) {
    Sync();
    QWidget& window = WindowOf(form);
    if (key_code == kKeyF1 && window.isVisible()) {
        QWidget* const focus = window.focusWidget();
        QTest::keyRelease(focus == nullptr ? &window : focus, Qt::Key_F1);
        CountWidget();
        return;
    }
    CountDirect();
    Actor::ReleaseKey(form, key_code);
    Sync();
}

void DesktopActor::Close(Form& form) {
    Sync();
    if (WindowOf(form).isVisible()) {
        WindowOf(form).close();
        CountWidget();
        return;
    }
    CountDirect();
    Actor::Close(form);
    Sync();
}

std::string DesktopActor::ReadProperty(const Target& target, std::string_view property) {
    Sync();
    QObject* const view = std::holds_alternative<MenuItem*>(target.Ref)
                              ? static_cast<QObject*>(Find<QAction>(target.Owner, target.Name))
                              : Find<QWidget>(target.Owner, target.Name);
    if (view != nullptr) {
        if (const auto shown = ShownProperty(*view, target.Ref, property)) {
            ++share_.ThroughWidgets;
            return *shown;
        }
    }
    CountDirect();
    return Actor::ReadProperty(target, property);
}

void DesktopActor::Sync() {
    desktop_->syncAll();
}

// A real window tells its form how large it is; a scenario's keeps the size that the form gave.
void DesktopActor::Shown(Form& form) {
    const double width = form.Width;
    const double height = form.Height;
    const double scale_width = form.ScaleWidth;
    const double scale_height = form.ScaleHeight;
    WindowOf(form).show();
    form.Width = width;
    form.Height = height;
    form.ScaleWidth = scale_width;
    form.ScaleHeight = scale_height;
    form.Form_Resize();
    Sync();
}

void DesktopActor::Hidden(Form& form) {
    WindowOf(form).hide();
}

void DesktopActor::Closed(Form& form) {
    WindowOf(form).hide();
}

}  // namespace orvik::testkit

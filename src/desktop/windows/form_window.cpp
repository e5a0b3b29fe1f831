#include "desktop/windows/form_window.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>

#include "desktop/text/text_box_view.h"
#include "desktop/views/control_views.h"
#include "desktop/windows/accessible_views.h"

namespace orvik {

FormWindow::FormWindow(Module1& module, Form& form, Desktop& desktop, QWidget* owner)
    : QWidget(owner, owner == nullptr ? Qt::Window : Qt::Dialog),
      form_(form),
      desktop_(desktop),
      events_(module, form, desktop) {
    DescribeViews();
    setObjectName(ObjectName(form.Name()));
    for (const NamedControl& control : form.Controls()) {
        std::visit([&](auto* kind) { add(control, kind); }, control.Ref);
    }
    FormWindow::sync();
    desktop_.add(form_, *this);
}

FormWindow::~FormWindow() {
    desktop_.remove(form_);
}

void FormWindow::sync() {
    SyncTitle(*this, form_.Caption);
    for (const auto& [control, widget] : widgets_) {
        SyncControl(*widget, *control);
    }
    for (const auto& sync : syncs_) {
        sync();
    }
    syncOptions();
    for (const Text& text : texts_) {
        text.Shown->sync(text.Shown->isHidden(), text.Editable);
    }
}

// An exclusive group always has a chosen option, a form's need not.
void FormWindow::syncOptions() {
    for (const auto& [number, group] : groups_) {
        group->setExclusive(false);
    }
    for (const auto& [option, view] : options_) {
        view->setChecked(option->Value);
    }
    for (const auto& [number, group] : groups_) {
        group->setExclusive(true);
    }
}

std::vector<QWidget*> FormWindow::widgets() const {
    std::vector<QWidget*> all(widgets_.size());
    std::transform(widgets_.begin(), widgets_.end(), all.begin(), [](const auto& shown) {
        return shown.second;
    });
    return all;
}

QWidget* FormWindow::find(const Control& control) const {
    const auto found = std::find_if(widgets_.begin(), widgets_.end(), [&](const auto& shown) {
        return shown.first == &control;
    });
    return found == widgets_.end() ? nullptr : found->second;
}

void FormWindow::setDefaultButton(const Button& button) {
    default_button_ = &widget<QPushButton>(button);
    default_button_->setDefault(true);
}

void FormWindow::setCancelButton(const Button& button) {
    cancel_button_ = &widget<QPushButton>(button);
}

void FormWindow::setReadOnly(const TextBox& box) {
    for (Text& text : texts_) {
        if (text.Shown == find(box)) {
            text.Editable = false;
        }
    }
    sync();
}

void FormWindow::addSync(const std::function<void()>& sync) {
    syncs_.push_back(sync);
    sync();
}

void FormWindow::takeClicksAtYield() {
    clickable_ = true;
    desktop_.acceptAtYield(*this);
    for (QWidget* const view : widgets()) {
        desktop_.acceptAtYield(*view);
    }
}

void FormWindow::closeEvent(QCloseEvent* event) {
    events_.close(*event);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (clickable_ && (enter || key == Qt::Key_Escape || key == Qt::Key_Space)) {
        click();
    } else if (key == Qt::Key_Escape) {
        if (cancel_button_ != nullptr) {
            cancel_button_->click();
        } else {
            close();
        }
    } else if (enter) {
        if (default_button_ != nullptr && default_button_->isVisible()) {
            default_button_->click();
        }
    } else {
        const auto command = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
        unused_key_ = event->text().isEmpty() || (event->modifiers() & command) != 0 ? 0 : key;
        QWidget::keyPressEvent(event);
    }
}

// Some forms know every key. They are told of those that nothing else was done with, so that typing
// a name and going from control to control stay possible.
void FormWindow::keyReleaseEvent(QKeyEvent* event) {
    const int key = event->key();
    if (events_.releaseKey(*event)) {
        return;
    }
    if (key == unused_key_ && !event->isAutoRepeat()) {
        unused_key_ = 0;
        events_.run([this, key] { form_.Form_KeyUp(key); });
        return;
    }
    QWidget::keyReleaseEvent(event);
}

void FormWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        click();
    }
}

void FormWindow::click() {
    events_.run([this] { form_.Form_Click(); }, AtYield::Taken);
}

bool FormWindow::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        for (const Text& text : texts_) {
            if (receiver == text.Shown->viewport() && text.DoubleClick) {
                events_.run(text.DoubleClick);
                return true;
            }
        }
    }
    return QWidget::eventFilter(receiver, event);
}

}  // namespace orvik

#include "desktop/form_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "desktop/control_views.h"
#include "desktop/text_box_view.h"
#include "desktop/text_codec.h"

namespace orvik {

FormWindow::FormWindow(Module1& module, Form& form, Desktop& desktop, QWidget* owner)
    : QWidget(owner, Qt::Dialog), form_(form), desktop_(desktop), events_(module, form, desktop) {
    setObjectName(ObjectName(form.Name()));
    new QVBoxLayout(this);
    for (const NamedControl& control : form.Controls()) {
        std::visit([&](auto* kind) { add(control.Name, kind); }, control.Ref);
    }
    desktop_.add(form_, *this);
    FormWindow::sync();
}

FormWindow::~FormWindow() {
    desktop_.remove(form_);
}

void FormWindow::add(std::string_view name, const Label* label) {
    auto* const view = new QLabel(ToLetters(label->Caption), this);
    view->setTextFormat(Qt::PlainText);
    add(name, *label, *view);
}

void FormWindow::add(std::string_view name, TextBox* box) {
    auto* const view = new TextBoxView(
        *box, [this](const FormEvents::Event& event) { return events_.run(event); }, {}, this);
    view->setAccessibleName(ToLetters(form_.Caption));
    texts_.push_back(view);
    add(name, *box, *view);
}

void FormWindow::add(std::string_view name, const Button* button) {
    auto* const view = MakeButton(name, *button, this);
    connect(view, &QPushButton::clicked, this, [this, handler = std::string(name) + "_Click"] {
        events_.runHandler(handler);
    });
    add(name, *button, *view);
}

void FormWindow::add(std::string_view name, const Control& control, QWidget& view) {
    view.setObjectName(ObjectName(name));
    layout()->addWidget(&view);
    widgets_.emplace_back(&control, &view);
}

void FormWindow::sync() {
    SyncTitle(*this, form_.Caption);
    for (const auto& [control, widget] : widgets_) {
        SyncControl(*widget, *control);
    }
    for (TextBoxView* const text : texts_) {
        text->sync(text->isHidden(), true);
    }
}

void FormWindow::closeEvent(QCloseEvent* event) {
    events_.close(*event);
}

void FormWindow::keyReleaseEvent(QKeyEvent* event) {
    if (!events_.releaseKey(*event)) {
        QWidget::keyReleaseEvent(event);
    }
}

}  // namespace orvik

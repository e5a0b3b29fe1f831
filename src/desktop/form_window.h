// Shows a small form: its labels, texts and buttons below each other.

#pragma once

#include <QWidget>
#include <utility>
#include <vector>

#include "desktop/desktop.h"
#include "desktop/form_events.h"

namespace orvik {

class TextBoxView;

class FormWindow : public QWidget, public View {
    Q_OBJECT
 public:
    // All must outlive the window. owner is the window that it stays above.
    FormWindow(Module1& module, Form& form, Desktop& desktop, QWidget* owner);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    FormWindow(FormWindow&&) = delete;
    FormWindow& operator=(FormWindow&&) = delete;
    ~FormWindow() override;

    void sync() override;
    [[nodiscard]] QWidget& window() override { return *this; }

 protected:
    void closeEvent(QCloseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

 private:
    void add(std::string_view name, const Label* label);
    void add(std::string_view name, TextBox* box);
    void add(std::string_view name, const Button* button);
    // A form with any other kind of control has a window of its own.
    void add(std::string_view /*name*/, const void* /*control*/) {}
    void add(std::string_view name, const Control& control, QWidget& view);

    Form& form_;
    Desktop& desktop_;
    FormEvents events_;
    std::vector<std::pair<const Control*, QWidget*>> widgets_;
    std::vector<TextBoxView*> texts_;
};

}  // namespace orvik

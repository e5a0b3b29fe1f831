// Shows a form with its controls. The controls come without a layout: each window places its own
// (small_windows.h, form2_window.h).

#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "desktop/session/desktop.h"
#include "desktop/windows/form_events.h"

class QAbstractButton;
class QButtonGroup;
class QComboBox;
class QLabel;
class QPushButton;

namespace orvik {

class TextBoxView;

class FormWindow : public QWidget, public View {
    Q_OBJECT
 public:
    // All must outlive the window. owner is the window that it stays above; without one it is a
    // window of its own right.
    FormWindow(Module1& module, Form& form, Desktop& desktop, QWidget* owner);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    FormWindow(FormWindow&&) = delete;
    FormWindow& operator=(FormWindow&&) = delete;
    ~FormWindow() override;

    void sync() override;
    [[nodiscard]] QWidget& window() override { return *this; }

    // The widgets in the order of the form's controls.
    [[nodiscard]] std::vector<QWidget*> widgets() const;
    // The widget of a control, which must be of this kind.
    template <class Kind = QWidget>
    [[nodiscard]] Kind& widget(const Control& control) const {
        return *qobject_cast<Kind*>(find(control));
    }

    // The button that Enter presses, and the one that Escape presses; without one Escape is the
    // close box.
    void setDefaultButton(const Button& button);
    void setCancelButton(const Button& button);
    void setReadOnly(const TextBox& box);
    // Runs whenever the widgets are made equal to the form: for what is shown and is no control.
    void addSync(const std::function<void()>& sync);
    // A click on the window or on what it shows runs Form_Click, also at a yield; so do the keys
    // that press a button.
    void takeClicksAtYield();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    // Double clicks on a text.
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    struct Text {
        TextBoxView* Shown;
        bool Editable;
        FormEvents::Event DoubleClick;
    };

    // form_controls.cpp
    void add(const NamedControl& row, const Label* label);
    void add(const NamedControl& row, TextBox* box);
    void add(const NamedControl& row, const Button* button);
    void add(const NamedControl& row, const Frame* frame);
    void add(const NamedControl& row, CheckBox* box);
    void add(const NamedControl& row, OptionButton* option);
    void add(const NamedControl& row, ComboBox* combo);
    void add(const NamedControl& row, const PictureBox* picture);
    void add(const NamedControl& row, const TabControl* tabs);
    // Only the main window has controls of any other kind.
    void add(const NamedControl& /*row*/, const void* /*control*/) {}
    void add(std::string_view name, const Control& control, QWidget& view);
    // What a label in front of a control says is the control's name.
    void nameAfterLabel(QWidget& view);
    void syncOptions();
    void click();

    [[nodiscard]] QWidget* find(const Control& control) const;

    Form& form_;
    Desktop& desktop_;
    FormEvents events_;
    std::vector<std::pair<const Control*, QWidget*>> widgets_;
    std::vector<Text> texts_;
    std::vector<std::function<void()>> syncs_;
    std::map<int, QButtonGroup*> groups_;
    std::vector<std::pair<const OptionButton*, QAbstractButton*>> options_;
    QLabel* label_ = nullptr;  // while controls are added: the last label, if it names none yet
    QPushButton* default_button_ = nullptr;
    QPushButton* cancel_button_ = nullptr;
    bool clickable_ = false;
    int unused_key_ = 0;  // the key that is down and that no control has a use for
};

}  // namespace orvik

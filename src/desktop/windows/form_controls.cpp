// The controls of a form, as widgets.

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <string>

#include "desktop/text/plain_text.h"
#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"
#include "desktop/views/picture_view.h"
#include "desktop/windows/form_window.h"

namespace orvik {
namespace {

// Whether an option was chosen before it was clicked.
constexpr const char* kWasChosen = "wasChosen";

// The items, and the text: one that is not among them takes the place of the chosen item.
void SyncCombo(QComboBox& view, const ComboBox& combo) {
    QStringList items;
    for (const std::string& item : combo.Items) {
        items.append(ToLetters(item));
    }
    QStringList shown;
    for (int i = 0; i < view.count(); ++i) {
        shown.append(view.itemText(i));
    }
    if (items != shown) {
        view.clear();
        view.addItems(items);
    }
    const QString text = ToLetters(combo.Text);
    const int chosen = static_cast<int>(items.indexOf(text));
    const QString instead = chosen < 0 ? text : QString();
    if (view.placeholderText() != instead) {
        view.setPlaceholderText(instead);
    }
    if (view.currentIndex() != chosen) {
        view.setCurrentIndex(chosen);
    }
}

}  // namespace

void FormWindow::add(const NamedControl& row, const Label* label) {
    auto* const view = new QLabel(ToLetters(label->Caption), this);
    view->setTextFormat(Qt::PlainText);
    add(row.Name, *label, *view);
    label_ = view;
    syncs_.emplace_back([view, label] {
        if (const QString caption = ToLetters(label->Caption); view->text() != caption) {
            view->setText(caption);
        }
    });
}

void FormWindow::add(const NamedControl& row, TextBox* box) {
    auto* const view = new TextBoxView(
        *box, [this](const FormEvents::Event& event) { return events_.run(event); }, {}, this);
    view->viewport()->installEventFilter(this);
    texts_.push_back({view, true, row.DoubleClick});
    add(row.Name, *box, *view);
    nameAfterLabel(*view);
}

void FormWindow::add(const NamedControl& row, const Button* button) {
    auto* const view = MakeButton(row.Name, *button, this);
    // Enter presses the button that has the focus.
    view->setAutoDefault(true);
    connect(view, &QPushButton::clicked, this, [this, command = Form::CommandOf(row)] {
        events_.runCommand(command);
    });
    add(row.Name, *button, *view);
}

void FormWindow::add(const NamedControl& row, const Frame* frame) {
    auto* const view = new QGroupBox(ToLetters(frame->Caption), this);
    view->setAccessibleName(SpokenCaption(frame->Caption));
    // The controls around it stay where they are.
    QSizePolicy policy = view->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    view->setSizePolicy(policy);
    add(row.Name, *frame, *view);
}

void FormWindow::add(const NamedControl& row, CheckBox* box) {
    auto* const view = new QCheckBox(ToLetters(box->Caption), this);
    view->setAccessibleName(SpokenCaption(box->Caption));
    // A screen reader toggles without a click; sync() toggles to what the form already holds.
    connect(view, &QCheckBox::toggled, this, [this, box, click = row.Click](bool checked) {
        if (checked != (box->Value == 1)) {
            events_.runChange([&] { box->Value = checked ? 1 : 0; }, click);
        }
    });
    add(row.Name, *box, *view);
    syncs_.emplace_back([view, box] { view->setChecked(box->Value == 1); });
}

void FormWindow::add(const NamedControl& row, OptionButton* option) {
    auto* const view = new QRadioButton(ToLetters(option->Caption), this);
    view->setAccessibleName(SpokenCaption(option->Caption));
    QButtonGroup*& group = groups_[option->Group];
    if (group == nullptr) {
        group = new QButtonGroup(this);
    }
    group->addButton(view);
    const auto choose = [this, option, click = row.Click] {
        events_.runChange([&] { form_.Choose(*option); }, click);
    };
    // A screen reader toggles without a click; a click on what is chosen toggles nothing.
    connect(view, &QRadioButton::toggled, this, [option, choose](bool checked) {
        if (checked && !option->Value) {
            choose();
        }
    });
    connect(view, &QRadioButton::pressed, this, [view, option] {
        view->setProperty(kWasChosen, option->Value);
    });
    connect(view, &QRadioButton::clicked, this, [view, choose] {
        if (view->property(kWasChosen).toBool()) {
            choose();
        }
    });
    add(row.Name, *option, *view);
    options_.emplace_back(option, view);
}

void FormWindow::add(const NamedControl& row, ComboBox* combo) {
    auto* const view = new QComboBox(this);
    connect(view, &QComboBox::activated, this, [this, combo, click = row.Click](int item) {
        events_.runChange([&] { combo->Text = combo->Items.at(static_cast<std::size_t>(item)); },
                          click);
    });
    add(row.Name, *combo, *view);
    nameAfterLabel(*view);
    view->view()->setAccessibleName(view->accessibleName());
    syncs_.emplace_back([view, combo] { SyncCombo(*view, *combo); });
}

void FormWindow::add(const NamedControl& row, const PictureBox* picture) {
    auto* const view = new PictureView(*picture, this);
    view->setAccessibleName(tr("Picture"));
    add(row.Name, *picture, *view);
    syncs_.emplace_back([view] { view->sync(); });
}

void FormWindow::add(const NamedControl& row, const TabControl* tabs) {
    auto* const view = new QTabWidget(this);
    view->setAccessibleName(ToLetters(form_.Caption));
    for (const std::string& tab : tabs->Tabs) {
        view->addTab(new QWidget(view), ToLetters(tab));
    }
    add(row.Name, *tabs, *view);
}

void FormWindow::add(std::string_view name, const Control& control, QWidget& view) {
    view.setObjectName(ObjectName(name));
    view.setToolTip(PlainTip(ToLetters(control.ToolTip)));
    widgets_.emplace_back(&control, &view);
}

void FormWindow::nameAfterLabel(QWidget& view) {
    if (label_ == nullptr) {
        view.setAccessibleName(ToLetters(form_.Caption));
        return;
    }
    view.setAccessibleName(label_->text().remove(u'&'));
    label_->setBuddy(&view);
    label_ = nullptr;
}

}  // namespace orvik

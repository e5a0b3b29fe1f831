#include "desktop/windows/form2_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

enum Tab { kFormats, kPim, kAutomation };

constexpr int kPathLetters = 30;

}  // namespace

Form2Window::Form2Window(Module1& module, Desktop& desktop, QWidget* owner)
    : FormWindow(module, module.form2, desktop, owner), form_(module.form2) {
    for (const TextBox* const box : {&form_.Text1, &form_.Text2, &form_.Text3}) {
        widget<TextBoxView>(*box).setSingleLine(kPathLetters);
    }
    first_start_ =
        new QLabel(tr("Orvik starts for the first time and needs these choices. OK keeps "
                      "them and goes on; Cancel asks once more, a second Cancel ends "
                      "Orvik."),
                   this);
    first_start_->setObjectName(QStringLiteral("firstStart"));
    first_start_->setTextFormat(Qt::PlainText);
    first_start_->setWordWrap(true);
    first_start_->hide();
    auto* const column = new QVBoxLayout(this);
    column->addWidget(first_start_);
    column->addWidget(&widget(form_.SSTab1), 1);
    layOutFormats();
    layOutPim();
    layOutAutomation();
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const Button* const button : {&form_.Command1, &form_.Command2, &form_.Command4}) {
        buttons->addWidget(&widget(*button));
    }
    column->addLayout(buttons);
    setDefaultButton(form_.Command1);
    setCancelButton(form_.Command2);
}

void Form2Window::setVisible(bool visible) {
    if (visible && !isVisible()) {
        first_start_->setVisible(form_.IsFirstStart());
    }
    FormWindow::setVisible(visible);
}

void Form2Window::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        widget<QTabWidget>(form_.SSTab1).setCurrentIndex(static_cast<int>(form_.SSTab1.Front));
    }
    FormWindow::showEvent(event);
}

QBoxLayout& Form2Window::page(int tab) {
    return *new QVBoxLayout(widget<QTabWidget>(form_.SSTab1).widget(tab));
}

void Form2Window::layOutFormats() {
    QBoxLayout& column = page(kFormats);
    // As a group, so that the heading is read with each of its options.
    auto* const ways = new QGroupBox(ToLetters(Form2::kFormatsHeading), this);
    ways->setObjectName(QStringLiteral("formats"));
    auto* const options = new QVBoxLayout(ways);
    for (const OptionButton* const option :
         {&form_.Option1, &form_.Option2, &form_.Option3, &form_.Option4}) {
        options->addWidget(&widget(*option));
    }
    column.addWidget(ways);
    column.addWidget(&widget(form_.Frame1));
    auto* const separators = new QVBoxLayout(&widget(form_.Frame1));
    separators->addWidget(&widget(form_.Option5));
    separators->addWidget(&widget(form_.Option6));
    column.addStretch();
}

void Form2Window::layOutPim() {
    QBoxLayout& column = page(kPim);
    column.addWidget(&widget(form_.Label1));
    auto* const row = new QHBoxLayout;
    row->addWidget(&widget(form_.Text1), 1);
    row->addWidget(&widget(form_.Command3));
    column.addLayout(row);
    column.addStretch();
}

void Form2Window::layOutAutomation() {
    QBoxLayout& column = page(kAutomation);
    column.addWidget(&widget(form_.Check1));
    column.addWidget(&widget(form_.Frame2));
    auto* const inside = new QVBoxLayout(&widget(form_.Frame2));
    for (const CheckBox* const box : {&form_.Check2, &form_.Check3, &form_.Check4}) {
        inside->addWidget(&widget(*box));
    }
    auto* const grid = new QGridLayout;
    addSteps(*grid);
    inside->addLayout(grid);
    column.addStretch();
}

void Form2Window::addSteps(QGridLayout& grid) {
    grid.addWidget(&widget(form_.Label2), 0, 0);
    auto* const kinds = new QHBoxLayout;
    kinds->addWidget(&widget(form_.Option7));
    kinds->addWidget(&widget(form_.Option8));
    kinds->addStretch();
    grid.addLayout(kinds, 0, 1);
    grid.addWidget(&widget(form_.Text2), 1, 1);
    grid.addWidget(&widget(form_.Command5), 1, 2);
    int row = 2;
    const std::array<std::pair<const Label*, const ComboBox*>, 2> steps = {
        {{&form_.Label3, &form_.Combo1}, {&form_.Label4, &form_.Combo2}}};
    for (const auto& [label, combo] : steps) {
        grid.addWidget(&widget(*label), row, 0);
        grid.addWidget(&widget(*combo), row, 1);
        ++row;
    }
    // The last two steps share what they show: they stand beside it, and are grey with it.
    auto* const shared = new QWidget(this);
    auto* const captions = new QVBoxLayout(shared);
    captions->setContentsMargins({});
    captions->setSpacing(0);
    captions->addWidget(&widget(form_.Label5));
    captions->addWidget(&widget(form_.Label6));
    addSync([this, shared] { shared->setEnabled(form_.Combo3.Enabled); });
    widget<QLabel>(form_.Label5).setBuddy(&widget(form_.Combo3));
    widget(form_.Combo3).setAccessibleName(tr("Step 4 and step 5"));
    grid.addWidget(shared, row, 0, Qt::AlignVCenter);
    grid.addWidget(&widget(form_.Combo3), row, 1);
    ++row;
    grid.addWidget(&widget(form_.Label7), row, 0);
    grid.addWidget(&widget(form_.Text3), row, 1);
    grid.addWidget(&widget(form_.Command6), row, 2);
    grid.setColumnStretch(1, 1);
}

}  // namespace orvik

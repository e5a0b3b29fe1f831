#include "desktop/windows/small_windows.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <stdexcept>
#include <string>

#include "desktop/help/help_key.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/picture_view.h"
#include "desktop/windows/form2_window.h"
#include "desktop/windows/tab_order.h"
#include "program/program.h"

namespace orvik {
namespace {

using Window = std::unique_ptr<FormWindow>;

// About this many letters of a text are in a line, and this many lines at first.
constexpr int kLetters = 60;
constexpr int kLines = 14;

QBoxLayout& AddRow(QBoxLayout& column,
                   const FormWindow& window,
                   std::initializer_list<const Button*> buttons) {
    auto* const row = new QHBoxLayout;
    row->addStretch();
    for (const Button* const button : buttons) {
        row->addWidget(&window.widget(*button));
    }
    column.addLayout(row);
    return *row;
}

// The formats below each other, and under them what is no format.
Window MakeForm3(Module1& module, Desktop& desktop, QWidget* owner) {
    Form3& form = module.form3;
    Window window = std::make_unique<FormWindow>(module, form, desktop, owner);
    auto* const column = new QVBoxLayout(window.get());
    column->addWidget(&window->widget(form.Label1));
    for (const Button* const format : {&form.Command10,
                                       &form.Command4,
                                       &form.Command3,
                                       &form.Command5,
                                       &form.Command2,
                                       &form.Command1,
                                       &form.Command6}) {
        column->addWidget(&window->widget(*format));
    }
    column->addStretch();
    AddRow(*column, *window, {&form.Command9, &form.Command8, &form.Command7});
    window->setCancelButton(form.Command7);
    return window;
}

Window MakeForm4(Module1& module, Desktop& desktop, QWidget* /*owner*/) {
    // It takes the place of the main window, which is hidden while it is shown.
    Form4& form = module.form4;
    Window window = std::make_unique<FormWindow>(module, form, desktop, nullptr);
    auto* const column = new QVBoxLayout(window.get());
    auto* const files = new QGridLayout;
    const auto add = [&](const Label& label, const TextBox& box, const Button& button) {
        const int row = files->rowCount();
        auto& text = window->widget<TextBoxView>(box);
        text.setSingleLine(kLetters / 2);
        files->addWidget(&window->widget(label), row, 0);
        files->addWidget(&text, row, 1);
        files->addWidget(&window->widget(button), row, 2);
    };
    add(form.Label1, form.Text1, form.Command1);
    add(form.Label2, form.Text2, form.Command2);
    files->setColumnStretch(1, 1);
    column->addLayout(files);
    auto& strip = window->widget<PictureView>(form.Picture2);
    strip.showProgress(Form4::kFullWidth);
    column->addWidget(&strip);
    auto* const result = new QLabel(window.get());
    result->setObjectName(QStringLiteral("Result"));
    result->setAccessibleName(QObject::tr("Result"));
    result->setTextFormat(Qt::PlainText);
    result->setWordWrap(true);
    column->addWidget(result);
    window->addSync([&form, result] { result->setText(ShownName(form.Result)); });
    column->addStretch();
    AddRow(*column, *window, {&form.Command4, &form.Command3, &form.Command5});
    window->setDefaultButton(form.Command4);
    return window;
}

Window MakeForm5(Module1& module, Desktop& desktop, QWidget* owner) {
    Form5& form = module.form5;
    Window window = std::make_unique<FormWindow>(module, form, desktop, owner);
    auto* const column = new QVBoxLayout(window.get());
    auto& text = window->widget<TextBoxView>(form.Text1);
    text.setSingleLine(kLetters / 2);
    column->addWidget(&window->widget(form.Label1));
    column->addWidget(&text);
    column->addStretch();
    AddRow(*column, *window, {&form.Command1, &form.Command2});
    window->setDefaultButton(form.Command1);
    window->setCancelButton(form.Command2);
    SetHelpTopic(*window, "preferences.html#pim");
    return window;
}

Window MakeForm6(Module1& module, Desktop& desktop, QWidget* owner) {
    Form6& form = module.form6;
    Window window = std::make_unique<FormWindow>(module, form, desktop, owner);
    auto& label = window->widget<QLabel>(form.Label1);
    label.setAlignment(Qt::AlignCenter);
    label.setMargin(label.fontMetrics().height());
    // Room for the window's title.
    label.setMinimumWidth(label.fontMetrics().averageCharWidth() * kLetters * 2 / 3);
    auto* const column = new QVBoxLayout(window.get());
    column->addWidget(&label);
    window->takeClicksAtYield();
    SetHelpTopic(*window, "automation.html");
    return window;
}

Window MakeAbout(Module1& module, Desktop& desktop, QWidget* owner) {
    FrmAbout& form = module.frm_about;
    Window window = std::make_unique<FormWindow>(module, form, desktop, owner);
    auto* const column = new QVBoxLayout(window.get());
    auto* const middle = new QHBoxLayout;
    auto* const pictures = new QVBoxLayout;
    pictures->addWidget(&window->widget(form.Picture1));
    pictures->addWidget(&window->widget(form.Picture2));
    pictures->addStretch();
    middle->addLayout(pictures);
    auto& text = window->widget<TextBoxView>(form.Text1);
    text.setMinimumSize(text.fontMetrics().averageCharWidth() * kLetters,
                        text.fontMetrics().lineSpacing() * kLines);
    middle->addWidget(&text, 1);
    column->addLayout(middle);
    // The text speaks of a version of its own.
    auto* const version =
        new QLabel(QObject::tr("Version %1").arg(QCoreApplication::applicationVersion()));
    version->setObjectName(QStringLiteral("version"));
    version->setTextFormat(Qt::PlainText);
    AddRow(*column, *window, {&form.Command1}).insertWidget(0, version);
    window->setReadOnly(form.Text1);
    window->setDefaultButton(form.Command1);
    SetHelpTopic(*window, "index.html");
    return window;
}

Window MakeSelect(Module1& module, Desktop& desktop, QWidget* owner) {
    FrmSelect& form = module.frm_select;
    Window window = std::make_unique<FormWindow>(module, form, desktop, owner);
    auto* const column = new QVBoxLayout(window.get());
    column->addWidget(&window->widget(form.Text1), 1);
    AddRow(*column, *window, {&form.Command1, &form.Command2, &form.Command3});
    window->setReadOnly(form.Text1);
    // Its button Cancel does nothing, so Escape is the close box.
    window->setDefaultButton(form.Command1);
    SetHelpTopic(*window, "lists.html");
    return window;
}

Window MakeForm2(Module1& module, Desktop& desktop, QWidget* owner) {
    return std::make_unique<Form2Window>(module, desktop, owner);
}

}  // namespace

Window MakeWindow(Module1& module, const Form& form, Desktop& desktop, QWidget* owner) {
    struct Row {
        const Form* Shown;
        Window (*Make)(Module1& module, Desktop& desktop, QWidget* owner);
    };
    const std::array rows = {
        Row{&module.form2, &MakeForm2},
        Row{&module.form3, &MakeForm3},
        Row{&module.form4, &MakeForm4},
        Row{&module.form5, &MakeForm5},
        Row{&module.form6, &MakeForm6},
        Row{&module.frm_about, &MakeAbout},
        Row{&module.frm_select, &MakeSelect},
    };
    const auto* const row =
        std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return r.Shown == &form; });
    if (row == rows.end()) {
        throw std::logic_error("no window for " + std::string(form.Name()));
    }
    Window window = row->Make(module, desktop, owner);
    OrderTabs(*window);
    return window;
}

}  // namespace orvik

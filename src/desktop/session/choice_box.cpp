#include "desktop/session/choice_box.h"

#include <QPushButton>
#include <algorithm>

#include "app/messages.h"
#include "desktop/text/text_codec.h"

namespace orvik {

std::size_t AskForChoice(QWidget* parent,
                         const QString& text,
                         const std::vector<Choice>& choices,
                         std::size_t preset) {
    QMessageBox box(QMessageBox::Question, ToLetters(kTitle), text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::WindowModal);
    std::vector<QPushButton*> buttons;
    buttons.reserve(choices.size());
    for (const Choice& choice : choices) {
        buttons.push_back(box.addButton(choice.Text, choice.Role));
    }
    box.setDefaultButton(buttons.at(preset));
    box.setEscapeButton(buttons.back());
    box.exec();
    const auto taken = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return std::min<std::size_t>(static_cast<std::size_t>(taken - buttons.begin()),
                                 buttons.size() - 1);
}

std::size_t AskForChoice(Desktop& desktop,
                         const QString& text,
                         const std::vector<Choice>& choices,
                         std::size_t preset) {
    return desktop.nested(
        [&] { return AskForChoice(desktop.frontWindow(), text, choices, preset); });
}

}  // namespace orvik

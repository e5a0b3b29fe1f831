// A question whose answers are buttons with words of their own.

#pragma once

#include <QMessageBox>
#include <QString>
#include <cstddef>
#include <vector>

#include "desktop/session/desktop.h"

namespace orvik {

struct Choice {
    QString Text;
    QMessageBox::ButtonRole Role;
};

// AskForChoice: asks under the program's name, and returns which choice was taken, counted from 0.
// The text is shown as it stands. preset is the choice of Enter; Esc and the close box take the
// last one.
[[nodiscard]] std::size_t AskForChoice(QWidget* parent,
                                       const QString& text,
                                       const std::vector<Choice>& choices,
                                       std::size_t preset);
// In the middle of a command, over the window in front.
[[nodiscard]] std::size_t AskForChoice(Desktop& desktop,
                                       const QString& text,
                                       const std::vector<Choice>& choices,
                                       std::size_t preset);

}  // namespace orvik

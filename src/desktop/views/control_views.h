// What windows have in common in showing controls.

#pragma once

#include <QString>
#include <string_view>

#include "app/controls.h"

class QDialog;
class QPushButton;
class QWidget;

namespace orvik {

// The name of a control as an object's name.
[[nodiscard]] QString ObjectName(std::string_view name);

// A caption without the marks of its access keys, for a screen reader.
//   "E-&Mail address" -> "E-Mail address"
[[nodiscard]] QString SpokenCaption(std::string_view caption);

// A button with its caption, tool tip and names.
[[nodiscard]] QPushButton* MakeButton(std::string_view name, const Button& button, QWidget* parent);

// Shows, hides, enables or disables a widget as its control says.
void SyncControl(QWidget& widget, const Control& control);

// Whether a title shows, in the way of the platform, that a window is modified.
enum class TitleMark { None, Shown };
// Takes the icons from the buttons of one of Qt's dialogs: the program's own windows have none.
void ShowWordsOnly(QDialog& dialog);

// Gives a window its caption.
void SyncTitle(QWidget& window, std::string_view caption, TitleMark mark = TitleMark::None);

}  // namespace orvik

#include "desktop/views/control_views.h"

#include <QDialog>
#include <QPushButton>

#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {

QString ObjectName(std::string_view name) {
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

QString SpokenCaption(std::string_view caption) {
    return ToLetters(caption).remove(u'&');
}

QPushButton* MakeButton(std::string_view name, const Button& button, QWidget* parent) {
    auto* const view = new QPushButton(ToLetters(button.Caption), parent);
    view->setObjectName(ObjectName(name));
    view->setToolTip(PlainTip(ToLetters(button.ToolTip)));
    view->setAccessibleName(SpokenCaption(button.Caption));
    return view;
}

void SyncControl(QWidget& widget, const Control& control) {
    if (widget.isHidden() == control.Visible) {
        widget.setVisible(control.Visible);
    }
    if (widget.testAttribute(Qt::WA_ForceDisabled) == control.Enabled) {
        widget.setEnabled(control.Enabled);
    }
}

void ShowWordsOnly(QDialog& dialog) {
    for (auto* const button : dialog.findChildren<QPushButton*>()) {
        button->setIcon({});
    }
}

void SyncTitle(QWidget& window, std::string_view caption, TitleMark mark) {
    // No screen shows as much; Wayland takes 1265 letters.
    constexpr qsizetype kMostOfTitle = 1000;
    QString title = WithoutMiddle(ShownName(caption), kMostOfTitle);
    // "[*]" in a title stands for the mark, and twice for itself.
    title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    if (mark == TitleMark::Shown) {
        title += QStringLiteral("[*]");
    }
    if (window.windowTitle() != title) {
        window.setWindowTitle(title);
    }
}

}  // namespace orvik

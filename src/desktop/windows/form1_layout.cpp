// Where the main window's controls are. The form says it from side to side; from top to bottom it
// depends on how high letters are, so there the window decides.

#include <QEvent>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "desktop/text/text_box_view.h"
#include "desktop/views/list_box_view.h"
#include "desktop/views/list_heading.h"
#include "desktop/views/measures.h"
#include "desktop/views/quiet_line.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/tool_bar.h"

namespace orvik {

QSize Form1Window::startSize() const {
    return {ToPixels(form_.Width, logicalDpiX()), ToPixels(form_.Height, logicalDpiY())};
}

void Form1Window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    layOut();
}

void Form1Window::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        layOut();
    }
}

void Form1Window::layOut() {
    setFloor();
    if (size() != size().expandedTo(minimumSize())) {
        // Without a window manager nothing else keeps to the floor.
        resize(size().expandedTo(minimumSize()));
        return;
    }
    fitBar();
    form_.Minimised = isMinimized();
    form_.Width = ToTwips(frameGeometry().width(), logicalDpiX());
    form_.Height = ToTwips(frameGeometry().height(), logicalDpiY());
    form_.ScaleWidth = ToTwips(width(), logicalDpiX());
    // The tool bar is no part of the form.
    form_.ScaleHeight =
        ToTwips(height() - menuBar()->height() - tool_bar_->takenHeight(), logicalDpiY());
    form_.Form_Resize();
    syncHeadings();
    place();
}

// The form's smallest size is that of the window with its frame.
void Form1Window::setFloor() {
    const QSize frame = frameGeometry().size() - size();
    setMinimumSize(
        static_cast<int>(std::ceil(Form1::kMinimumWidth * logicalDpiX() / kTwipsPerInch)) -
            frame.width(),
        static_cast<int>(std::ceil(Form1::kMinimumHeight * logicalDpiY() / kTwipsPerInch)) -
            frame.height());
}

void Form1Window::place() {
    const int width = centralWidget()->width();
    int height = centralWidget()->height();
    const auto put_at_foot = [&](QWidget& line, int tall) {
        height -= tall;
        line.setGeometry(0, height, width, tall);
    };
    put_at_foot(*quiet_line_, quiet_line_->heightIn(width));
    put_at_foot(*find_bar_, find_bar_->isHidden() ? 0 : find_bar_->sizeHint().height());
    int button_height = 0;
    for (const auto& [button, view] : buttons_) {
        button_height = std::max(button_height, view->sizeHint().height());
    }
    int heading_height = 0;
    for (const Heading& heading : headings_) {
        if (!heading.Shown->isHidden()) {
            heading_height = std::max(heading_height, heading.Shown->sizeHint().height());
        }
    }
    const int lists_end = std::max(0, height - button_height);
    const int list_height = std::max(0, lists_end - heading_height);
    // Edges are rounded, not widths, so that neighbours meet.
    const auto set = [this](QWidget& widget, const Control& control, int top, int tall) {
        const int left = ToPixels(control.Left, logicalDpiX());
        const int right = ToPixels(control.Left + control.Width, logicalDpiX());
        widget.setGeometry(left, top, right - left, tall);
    };
    set(*text1_, form_.Text1, 0, height);
    for (const auto& [list, view] : lists_) {
        if (list == &form_.List3) {
            // The form gives the numbers no width: they take what they need.
            view->setGeometry(ToPixels(list->Left, logicalDpiX()),
                              heading_height,
                              view->widthOfNumbers(),
                              list_height);
        } else {
            set(*view, *list, heading_height, list_height);
        }
    }
    for (const Heading& heading : headings_) {
        set(*heading.Shown, *heading.Of, 0, heading_height);
    }
    for (const auto& [button, view] : buttons_) {
        // The form puts a button into the middle of the window where it gives it a top.
        const int top = ToPixels(button->Top, logicalDpiY());
        set(*view, *button, top == 0 ? lists_end : top, button_height);
    }
    placeEmptyNote();
}

}  // namespace orvik

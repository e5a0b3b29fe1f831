// Where the main window's controls are. The form says it from side to side; from top to bottom it
// depends on how high letters are, so there the window decides.

#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "desktop/text/text_box_view.h"
#include "desktop/views/list_box_view.h"
#include "desktop/views/list_group.h"
#include "desktop/views/list_heading.h"
#include "desktop/views/measures.h"
#include "desktop/views/quiet_line.h"
#include "desktop/views/status_bar_view.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/tool_bar.h"

namespace orvik {
namespace {

// As many rows as a window should show at first.
constexpr int kFewestRows = 10;

}  // namespace

// The form's size, or more where the letters are so large that usual addresses would be cut off.
QSize Form1Window::startSize() const {
    const QSize form(ToPixels(form_.Width, logicalDpiX()), ToPixels(form_.Height, logicalDpiY()));
    const ListBoxView& list = *lists_.front().second;
    const QSize row = list.sizeOf(QStringLiteral("christopher.winter@example.org"));
    const int height = menuBar()->sizeHint().height() + tool_bar_->sizeHint().height() +
                       headings_.front().Shown->sizeHint().height() + kFewestRows * row.height() +
                       buttons_.front().second->sizeHint().height() +
                       status_bar_->sizeHint().height();
    const int width =
        2 * (row.width() + 2 * list.frameWidth() + list.verticalScrollBar()->sizeHint().width());
    return form.expandedTo({width, height}).boundedTo(screen()->availableSize());
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
    // Edges are rounded, not widths, so that neighbours meet.
    const auto set = [this](QWidget& widget, const Control& control, int top, int tall) {
        const int left = ToPixels(control.Left, logicalDpiX());
        const int right = ToPixels(control.Left + control.Width, logicalDpiX());
        widget.setGeometry(left, top, right - left, tall);
    };
    set(*text1_, form_.Text1, 0, height);
    placeLists(heading_height, lists_end);
    for (const Heading& heading : headings_) {
        set(*heading.Shown, *heading.Of, 0, heading_height);
    }
    for (const auto& [button, view] : buttons_) {
        // The form puts a button into the middle of the window where it gives it a top.
        const int top = ToPixels(button->Top, logicalDpiY());
        set(*view, *button, top == 0 ? lists_end : top, button_height);
        if (button == &form_.cmdCancel && isExtracting()) {
            // It stays in the middle, where the form puts it once, also when the window is resized.
            view->move((width - view->width()) / 2, (height - button_height) / 2);
        }
    }
    placeEmptyNote();
}

void Form1Window::placeLists(int top, int bottom) {
    number_hint_->setVisible(form_.List3.Visible);
    if (form_.List3.Visible) {
        const int width = centralWidget()->width();
        const int height = std::min(number_hint_->heightForWidth(width), std::max(0, bottom - top));
        bottom -= height;
        number_hint_->setGeometry(0, bottom, width, height);
    }
    const auto set = [&](ListBoxView& view, int left, int right) {
        view.setGeometry(left, top, right - left, std::max(0, bottom - top));
    };
    // Edges are rounded, not widths, so that neighbours meet.
    const int middle = ToPixels(form_.List1.Left + form_.List1.Width, logicalDpiX());
    ListBoxView& addresses = *lists_[0].second;
    ListBoxView& numbers = *lists_[2].second;
    set(addresses, ToPixels(form_.List1.Left, logicalDpiX()), middle);
    set(*lists_[1].second,
        ToPixels(form_.List2.Left, logicalDpiX()),
        ToPixels(form_.List2.Left + form_.List2.Width, logicalDpiX()));
    // The form lays the numbers over the edge between the lists and gives them no width. They end
    // at that edge, so that they hide no nickname, and addresses are cut off in front of them.
    const int numbers_width = std::min(numbers.widthOfItems(), addresses.width());
    set(numbers, middle - numbers_width, middle);
    addresses.setCovered(form_.List3.Visible ? numbers_width : 0);
    list_group_->shareRange();
}

}  // namespace orvik

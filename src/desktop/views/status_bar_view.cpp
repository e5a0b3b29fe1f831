#include "desktop/views/status_bar_view.h"

#include <QLabel>
#include <QProgressBar>
#include <algorithm>
#include <cmath>

#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/measures.h"

namespace orvik {
namespace {

// Where the progress bar lies, in twips: this far behind the panels, and below the upper and above
// the lower edge of the status bar.
constexpr double kBesidePanels = 60;
constexpr double kInsideBar = 25;

// A panel's text is its name, so that a screen reader reads it and then the tip.
void SetTip(QLabel& panel, const QString& tip) {
    panel.setToolTip(PlainTip(tip));
    panel.setAccessibleDescription(tip);
}

QLabel* MakePanel(const StatusBar& bar, std::size_t number, QWidget* parent) {
    auto* const panel = new QLabel(parent);
    panel->setObjectName(QStringLiteral("Panel%1").arg(number));
    panel->setTextFormat(Qt::PlainText);
    SetTip(*panel, ToLetters(bar.Panels(number).ToolTip));
    return panel;
}

}  // namespace

StatusBarView::StatusBarView(const StatusBar& bar, const ProgressBar& progress, QWidget* parent)
    : QStatusBar(parent),
      bar_(bar),
      progress_(progress),
      panels_{MakePanel(bar, 1, this), MakePanel(bar, 2, this)},
      progress_bar_(new QProgressBar(this)) {
    progress_bar_->setObjectName(QStringLiteral("ProgressBar1"));
    progress_bar_->setAccessibleName(tr("Progress"));
    progress_bar_->setRange(0, 100);
    progress_bar_->setTextVisible(false);
    progress_bar_->hide();
    sync(Running::Nothing);
}

void StatusBarView::sync(Running running) {
    bool changed = false;
    const bool extracting = running == Running::Extraction;
    if (kept_widths_.has_value() != extracting) {
        kept_widths_.reset();
        if (extracting) {
            // The longest texts of an extraction.
            kept_widths_ = {widthFor(0, QStringLiteral("Extracting: 100%")),
                            widthFor(1, QStringLiteral("32767 addresses found "))};
        }
        changed = true;
    }
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        const QString text = ToShownLetters(bar_.Panels(i + 1).Text);
        if (panels_.at(i)->text() != text) {
            panels_.at(i)->setText(text);
            changed = true;
        }
    }
    if (sizing_ != bar_.PanelSizing) {
        sizing_ = bar_.PanelSizing;
        changed = true;
    }
    const bool visible = extracting || (progress_.Visible && running == Running::Command);
    if (progress_bar_->isVisibleTo(this) != visible) {
        progress_bar_->setVisible(visible);
        changed = true;
    }
    // QProgressBar leaves an equal value alone.
    progress_bar_->setValue(static_cast<int>(std::lround(progress_.Value)));
    if (changed) {
        place();
    }
}

void StatusBarView::showForNow(const QString& text) {
    panels_.front()->setText(Shortened(text));
    place();
}

void StatusBarView::setNote(const QString& note) {
    if (note_ == note) {
        return;
    }
    note_ = note;
    const QString tip = ToLetters(bar_.Panels(panels_.size()).ToolTip);
    SetTip(*panels_.back(), note.isEmpty() ? tip : tip + u'\n' + note);
}

void StatusBarView::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    place();
}

int StatusBarView::widthFor(std::size_t panel, const QString& text) const {
    const QLabel& label = *panels_.at(panel);
    const int around =
        label.sizeHint().width() - label.fontMetrics().horizontalAdvance(label.text());
    return std::max(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(text) + around);
}

// At once and not by a layout, which waits for an event that a repaint does not take.
void StatusBarView::place() {
    const int gap = ToPixels(kBesidePanels, logicalDpiX());
    std::array<int, 2> wide{panels_[0]->sizeHint().width(), panels_[1]->sizeHint().width()};
    if (kept_widths_) {
        wide = *kept_widths_;
    } else if (sizing_ == AutoSize::Spring) {
        wide[0] = std::max(wide[0], width() - 2 * gap - wide[1] - height());
    }
    int left = gap;
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_.at(i)->setGeometry(left, 0, wide.at(i), height());
        left += wide.at(i) + gap;
    }
    const int inside = ToPixels(kInsideBar, logicalDpiY());
    progress_bar_->setGeometry(left, inside, std::max(0, width() - left), height() - 2 * inside);
}

}  // namespace orvik

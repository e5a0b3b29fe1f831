#include "desktop/views/picture_view.h"

#include <QAccessible>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionProgressBar>
#include <algorithm>
#include <cmath>

#include "desktop/text/text_codec.h"
#include "desktop/views/program_icon.h"

namespace orvik {
namespace {

constexpr int kWhole = 1000;
constexpr int kPictureSize = 64;
constexpr int kStripWidth = 240;

}  // namespace

PictureView::PictureView(const PictureBox& box, QWidget* parent) : QWidget(parent), box_(box) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureView::showProgress(double full_width) {
    full_width_ = full_width;
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Progress"));
    sync();
}

void PictureView::sync() {
    const int progress =
        showsProgress()
            ? static_cast<int>(std::lround(std::clamp(box_.Width / full_width_, 0.0, 1.0) * kWhole))
            : 0;
    const QString picture = ToLetters(box_.Picture);
    if (progress_ != progress) {
        QAccessibleValueChangeEvent change(this, progress / 10);
        QAccessible::updateAccessibility(&change);
    }
    if (progress_ != progress || picture_ != picture) {
        progress_ = progress;
        picture_ = picture;
        update();
    }
}

QSize PictureView::sizeHint() const {
    return showsProgress() ? QSize(kStripWidth, fontMetrics().height())
                           : QSize(kPictureSize, kPictureSize);
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    if (showsProgress()) {
        paintProgress();
    } else if (!picture_.isEmpty()) {
        paintPicture();
    }
}

void PictureView::paintProgress() {
    QStyleOptionProgressBar bar;
    bar.initFrom(this);
    bar.state |= QStyle::State_Horizontal;
    bar.maximum = kWhole;
    bar.progress = progress_;
    QPainter painter(this);
    style()->drawControl(QStyle::CE_ProgressBar, &bar, &painter, this);
}

void PictureView::paintPicture() {
    QPainter painter(this);
    ProgramIcon().paint(&painter, rect());
}

}  // namespace orvik

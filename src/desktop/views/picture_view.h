// Shows a PictureBox: the program's picture, or, where the box's width tells it, progress.

#pragma once

#include <QString>
#include <QWidget>

#include "app/controls.h"

namespace orvik {

class PictureView : public QWidget {
    Q_OBJECT
 public:
    // box must outlive the view.
    PictureView(const PictureBox& box, QWidget* parent);

    // The box shows progress; it is complete at this width, in twips.
    void showProgress(double full_width);
    [[nodiscard]] bool showsProgress() const { return full_width_ > 0; }
    // Makes the widget equal to the form.
    void sync();
    // In thousandths.
    [[nodiscard]] int progress() const { return progress_; }

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void paintProgress();
    void paintPicture();

    const PictureBox& box_;
    double full_width_ = 0;
    int progress_ = 0;
    QString picture_;
};

}  // namespace orvik

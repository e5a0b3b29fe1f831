// Shows a StatusBar with its two panels, and the ProgressBar laid over it beside them.

#pragma once

#include <QStatusBar>
#include <QString>
#include <array>

#include "app/controls.h"

class QLabel;
class QProgressBar;

namespace orvik {

class StatusBarView : public QStatusBar {
    Q_OBJECT
 public:
    // The controls must outlive the view.
    StatusBarView(const StatusBar& bar, const ProgressBar& progress, QWidget* parent);

    // Makes the widgets equal to the form. A command that ended early leaves its progress bar
    // visible; it is shown only while a command runs.
    void sync(bool running);

    // Shows this in the first panel until the next sync.
    void showForNow(const QString& text);

    // Says this, if anything, in the tool tip of the second panel below what stands there anyway.
    void setNote(const QString& note);

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void place();

    const StatusBar& bar_;
    const ProgressBar& progress_;
    std::array<QLabel*, 2> panels_;
    QProgressBar* progress_bar_;
    QString note_;
    AutoSize sizing_ = AutoSize::Contents;
};

}  // namespace orvik

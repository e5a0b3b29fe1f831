// Shows a StatusBar with its two panels, and the ProgressBar laid over it beside them.

#pragma once

#include <QStatusBar>
#include <QString>
#include <array>
#include <optional>

#include "app/controls.h"

class QLabel;
class QProgressBar;

namespace orvik {

class StatusBarView : public QStatusBar {
    Q_OBJECT
 public:
    // The controls must outlive the view.
    StatusBarView(const StatusBar& bar, const ProgressBar& progress, QWidget* parent);

    enum class Running {
        Nothing,
        Command,
        Extraction,
    };
    // Makes the widgets equal to the form. A command that ended early leaves its progress bar
    // visible; it is shown only while a command runs. During an extraction it always is, and all
    // parts keep their places, whatever the form says between two pieces of the file.
    void sync(Running running);

    // Shows this in the first panel until the next sync.
    void showForNow(const QString& text);

    // Says this, if anything, in the tool tip of the second panel below what stands there anyway.
    void setNote(const QString& note);

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void place();
    // How wide a panel must be for a text in place of its own.
    [[nodiscard]] int widthFor(std::size_t panel, const QString& text) const;

    const StatusBar& bar_;
    const ProgressBar& progress_;
    std::array<QLabel*, 2> panels_;
    QProgressBar* progress_bar_;
    QString note_;
    AutoSize sizing_ = AutoSize::Contents;
    std::optional<std::array<int, 2>> kept_widths_;  // of the panels, during an extraction
};

}  // namespace orvik

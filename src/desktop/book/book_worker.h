// Long work for the Book window, on a thread of its own: its news come as signals.

#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "book/work_thread.h"

namespace orvik {

class BookWorker : public QObject {
    Q_OBJECT
 public:
    using Watch = book::WorkThread::Watch;
    using Work = book::WorkThread::Work;

    BookWorker();

    // Runs work, which touches nothing that this thread changes meanwhile. When it is done, done
    // runs here; after a cancel or a failure it does not. One at a time: false while another runs.
    bool run(const QString& what, Work work, std::function<void()> done);
    // The work ends at its next step.
    void cancel() { thread_.Cancel(); }
    [[nodiscard]] bool isBusy() const { return busy_; }
    [[nodiscard]] QString what() const { return what_; }

 signals:
    void began(const QString& what);
    void progressed(const QString& step, int percent);
    // Sent before done runs. why is empty but for a failure.
    void ended(bool is_done, const QString& why);
    // Sent on the other thread.
    void newsCame();

 private:
    void look();

    bool busy_ = false;
    QString what_;
    std::function<void()> done_;
    book::WorkThread thread_;
};

}  // namespace orvik

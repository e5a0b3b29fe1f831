#include "desktop/book/book_worker.h"

#include <utility>

namespace orvik {

// The other thread's news are looked at on this one.
BookWorker::BookWorker() : thread_([this] { emit newsCame(); }) {
    connect(this, &BookWorker::newsCame, this, &BookWorker::look, Qt::QueuedConnection);
}

bool BookWorker::run(const QString& what, Work work, std::function<void()> done) {
    if (busy_) {
        return false;
    }
    busy_ = true;
    what_ = what;
    done_ = std::move(done);
    emit began(what);
    thread_.Start(std::move(work));
    return true;
}

void BookWorker::look() {
    using End = book::WorkThread::End;
    if (!busy_) {
        return;
    }
    const book::WorkThread::State state = thread_.Look();
    if (state.How == End::None) {
        emit progressed(QString::fromStdString(state.Doing), state.Percent);
        return;
    }
    busy_ = false;
    const auto done = std::exchange(done_, {});
    emit ended(state.How == End::Done, QString::fromStdString(state.Why));
    if (state.How == End::Done && done) {
        done();
    }
}

}  // namespace orvik

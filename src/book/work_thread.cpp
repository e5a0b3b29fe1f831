#include "book/work_thread.h"

#include <exception>
#include <new>
#include <utility>

namespace orvik::book {

void WorkThread::Watch::Begin(const std::string& doing) const {
    thread_.Begin(doing);
}

void WorkThread::Watch::Tell(std::size_t done, std::size_t all) const {
    thread_.Tell(done, all);
}

Book::Progress WorkThread::Watch::Progress() const {
    return [&thread = thread_](std::size_t done, std::size_t all) { thread.Tell(done, all); };
}

WorkThread::~WorkThread() {
    Cancel();
    Wait();
}

void WorkThread::Start(Work work) {
    Wait();
    state_ = {};
    cancelled_ = false;
    told_ = -1;
    thread_ = std::thread([this, work = std::move(work)] { Run(work); });
}

void WorkThread::Wait() {
    if (thread_.joinable()) {
        thread_.join();
    }
}

WorkThread::State WorkThread::Look() {
    const std::lock_guard lock(mutex_);
    return state_;
}

void WorkThread::Run(const Work& work) {
    End how = End::Done;
    std::string why;
    try {
        work(Watch(*this));
    } catch (const Cancelled&) {
        how = End::Cancelled;
    } catch (const std::bad_alloc&) {
        how = End::Failed;
        why = "Out of memory";
    } catch (const std::exception& failure) {
        how = End::Failed;
        why = failure.what();
    }
    {
        const std::lock_guard lock(mutex_);
        state_.How = how;
        state_.Why = std::move(why);
    }
    news_();
}

void WorkThread::Begin(const std::string& doing) {
    Check();
    {
        const std::lock_guard lock(mutex_);
        state_.Doing = doing;
        state_.Percent = 0;
    }
    told_ = 0;
    news_();
}

void WorkThread::Tell(std::size_t done, std::size_t all) {
    Check();
    const int percent = all == 0 ? 100 : static_cast<int>(100 * done / all);
    if (percent == told_) {
        return;
    }
    told_ = percent;
    {
        const std::lock_guard lock(mutex_);
        state_.Percent = percent;
    }
    news_();
}

void WorkThread::Check() const {
    if (cancelled_) {
        throw Cancelled();
    }
}

}  // namespace orvik::book

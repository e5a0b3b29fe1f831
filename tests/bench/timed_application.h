// An application that knows how long its events took.

#pragma once

#include <QEvent>
#include <algorithm>
#include <utility>

#include "bench/processor_time.h"
#include "desktop/session/application.h"

namespace orvik::bench {

class TimedApplication : public Application {
 public:
    using Application::Application;

    // In milliseconds: painting, in the window or in a part of it, and anything at all, while
    // nobody comes back to the event loop.
    struct Longest {
        double Paint = 0;
        double Away = 0;
    };
    // Since the last time.
    Longest takeLongest() { return std::exchange(longest_, {}); }
    [[nodiscard]] std::size_t paints() const { return paints_; }

    bool notify(QObject* receiver, QEvent* event) override {
        const bool paints =
            event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest;
        const bool is_outer = !std::exchange(is_inside_, true);
        const double before = MillisecondsOn(CLOCK_THREAD_CPUTIME_ID);
        const bool done = Application::notify(receiver, event);
        const double took = MillisecondsOn(CLOCK_THREAD_CPUTIME_ID) - before;
        if (paints) {
            ++paints_;
            longest_.Paint = std::max(longest_.Paint, took);
        }
        if (is_outer) {
            is_inside_ = false;
            longest_.Away = std::max(longest_.Away, took);
        }
        return done;
    }

 private:
    Longest longest_;
    std::size_t paints_ = 0;
    bool is_inside_ = false;
};

}  // namespace orvik::bench

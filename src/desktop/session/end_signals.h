// The signals that ask the program to end: TERM, HUP and INT.

#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace orvik {

class EndSignals : public QObject {
    Q_OBJECT
 public:
    // The first signal is taken when the event loop gets to it: before_end is run, and the program
    // ends as the signal would have ended it. The next one ends it a second later at most.
    explicit EndSignals(std::function<void()> before_end);

 private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace orvik

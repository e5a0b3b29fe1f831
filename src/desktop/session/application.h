// The application: what an event that lacks memory ends in.

#pragma once

#include <QApplication>
#include <functional>

namespace orvik {

class Application : public QApplication {
 public:
    using QApplication::QApplication;

    // tell shows the user that memory does not suffice; it returns false where no box can be shown
    // now, and may itself lack memory. Then the user is told on standard error.
    void onOutOfMemory(std::function<bool()> tell) { tell_ = std::move(tell); }

    bool notify(QObject* receiver, QEvent* event) override;

 private:
    void tellOutOfMemory();

    std::function<bool()> tell_;
    bool telling_ = false;
};

}  // namespace orvik

// What is done on every way out of a block.

#pragma once

#include <exception>
#include <utility>

namespace orvik {

// Runs an action when it goes.
//   const OnExit closing([&] { file.Close(); });
template <class Action>
class OnExit {
 public:
    explicit OnExit(Action action) : action_(std::move(action)) {}
    OnExit(const OnExit&) = delete;
    OnExit& operator=(const OnExit&) = delete;
    OnExit(OnExit&&) = delete;
    OnExit& operator=(OnExit&&) = delete;
    ~OnExit() { action_(); }

 private:
    Action action_;
};

// Runs an action when it goes because of an exception: undoes what was begun.
template <class Action>
class OnFailure {
 public:
    explicit OnFailure(Action action) : action_(std::move(action)) {}
    OnFailure(const OnFailure&) = delete;
    OnFailure& operator=(const OnFailure&) = delete;
    OnFailure(OnFailure&&) = delete;
    OnFailure& operator=(OnFailure&&) = delete;
    ~OnFailure() {
        if (std::uncaught_exceptions() > before_) {
            action_();
        }
    }

 private:
    Action action_;
    int before_ = std::uncaught_exceptions();
};

// Sets a flag as long as it lives.
class Mark {
 public:
    explicit Mark(bool& flag) : flag_(flag) { flag_ = true; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;
    Mark(Mark&&) = delete;
    Mark& operator=(Mark&&) = delete;
    ~Mark() { flag_ = false; }

 private:
    bool& flag_;
};

}  // namespace orvik

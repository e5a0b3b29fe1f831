// Long work on a book, on a thread of its own: how far it is, and an end before its time.

#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "book/address_book.h"

namespace orvik::book {

class WorkThread {
 public:
    enum class End : std::uint8_t { None, Done, Cancelled, Failed };

    // What work throws when it finds out that it is cancelled. It keeps nothing then.
    struct Cancelled {};

    struct State {
        std::string Doing;
        int Percent = 0;
        End How = End::None;  // None as long as it runs
        std::string Why;      // of a failure
    };

    // Work tells how far it is by what it is given, often: each call ends it if it is cancelled.
    class Watch {
     public:
        // Begins a step, "reading a.ldif". Errors: Cancelled.
        void Begin(const std::string& doing) const;
        // Errors: Cancelled.
        void Tell(std::size_t done, std::size_t all) const;
        [[nodiscard]] Book::Progress Progress() const;

     private:
        friend class WorkThread;
        explicit Watch(WorkThread& thread) : thread_(thread) {}

        WorkThread& thread_;
    };
    using Work = std::function<void(const Watch& watch)>;

    // news is called on either thread when there is something new to look at, not too often.
    explicit WorkThread(std::function<void()> news) : news_(std::move(news)) {}
    WorkThread(const WorkThread&) = delete;
    WorkThread& operator=(const WorkThread&) = delete;
    WorkThread(WorkThread&&) = delete;
    WorkThread& operator=(WorkThread&&) = delete;
    // Cancels, and waits.
    ~WorkThread();

    // One at a time: the last one has been seen to end. What work throws besides Cancelled is its
    // failure.
    void Start(Work work);
    void Cancel() { cancelled_ = true; }
    // Waits for the end.
    void Wait();

    [[nodiscard]] State Look();

 private:
    void Run(const Work& work);
    void Begin(const std::string& doing);
    void Tell(std::size_t done, std::size_t all);
    void Check() const;

    std::function<void()> news_;
    std::mutex mutex_;
    State state_;  // guarded
    std::atomic<bool> cancelled_ = false;
    int told_ = -1;  // the worker's alone
    std::thread thread_;
};

}  // namespace orvik::book

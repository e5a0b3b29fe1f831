// The signals that end the program, and how a saving keeps them for later.

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

#include "platform/system_files.h"

namespace orvik {
namespace {

constexpr std::array kEnding = {SIGTERM, SIGINT, SIGHUP};

// How many holds there are, or that the program ends. Signals may come on any thread.
constexpr int kEnds = -1;
std::atomic<int> holds = 0;
std::atomic<int> kept_signal = 0;
// Where the first signal is told of, and which one it was.
std::atomic<int> listener = -1;
std::atomic<int> told_signal = 0;
// The second one, which waits a moment: what the first one began, as to keep the book, may end.
std::atomic<int> second_signal = 0;
constexpr unsigned kSecondsToEnd = 1;
static_assert(std::atomic<int>::is_always_lock_free);

void Die(int signal_number) {
    static_cast<void>(std::signal(signal_number, SIG_DFL));
    static_cast<void>(std::raise(signal_number));
}

// Returns false if nobody listens, or somebody was told already.
bool Announce(int signal_number) {
    int none = 0;
    if (listener < 0 || !told_signal.compare_exchange_strong(none, signal_number)) {
        return false;
    }
    const int error = errno;
    const bool told = write(listener, "", 1) == 1;
    errno = error;
    return told;
}

void EndUnlessHeld(int signal_number) {
    int none = 0;
    if (holds.compare_exchange_strong(none, kEnds) || none == kEnds) {
        Die(signal_number);
        return;
    }
    kept_signal = signal_number;
    // The last hold may have gone before it could see the signal.
    none = 0;
    if (holds.compare_exchange_strong(none, kEnds)) {
        Die(signal_number);
    }
}

extern "C" void EndOrKeep(int signal_number) {
    if (Announce(signal_number)) {
        return;
    }
    int none = 0;
    if (listener < 0) {
        EndUnlessHeld(signal_number);
    } else if (second_signal.compare_exchange_strong(none, signal_number)) {
        alarm(kSecondsToEnd);
    }
}

extern "C" void EndBySecond(int /*alarm*/) {
    if (const int signal_number = second_signal; signal_number != 0) {
        EndUnlessHeld(signal_number);
    }
}

// The program that started this one may have blocked it.
void TakeAlarms() {
    struct sigaction action {};
    action.sa_handler = &EndBySecond;
    action.sa_flags = SA_RESTART;
    sigaction(SIGALRM, &action, nullptr);
    sigset_t alarms{};
    sigemptyset(&alarms);
    sigaddset(&alarms, SIGALRM);
    pthread_sigmask(SIG_UNBLOCK, &alarms, nullptr);
}

class SystemHold : public EndHold {
 public:
    SystemHold() {
        int held = holds;
        while (held == kEnds || !holds.compare_exchange_weak(held, held + 1)) {
            if (held == kEnds) {
                // Another thread is ending the program.
                pause();
                held = holds;
            }
        }
    }
    SystemHold(const SystemHold&) = delete;
    SystemHold& operator=(const SystemHold&) = delete;
    SystemHold(SystemHold&&) = delete;
    SystemHold& operator=(SystemHold&&) = delete;
    ~SystemHold() override {
        if (--holds == 0) {
            if (const int signal_number = kept_signal; signal_number != 0) {
                Die(signal_number);
            }
        }
    }
};

}  // namespace

std::unique_ptr<EndHold> SystemFiles::HoldEnd() {
    return std::make_unique<SystemHold>();
}

void HandleSignals() {
    // Nothing can be done where this fails.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    for (const int signal_number : kEnding) {
        struct sigaction action {};
        if (sigaction(signal_number, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
            action = {};
            action.sa_handler = &EndOrKeep;
            action.sa_flags = SA_RESTART;
            sigaction(signal_number, &action, nullptr);
        }
    }
}

int TellOfSignals() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) < 0) {
        return -1;
    }
    TakeAlarms();
    listener = ends[1];
    return ends[0];
}

void EndBySignal() {
    if (const int signal_number = told_signal; signal_number != 0) {
        EndUnlessHeld(signal_number);
    }
}

}  // namespace orvik

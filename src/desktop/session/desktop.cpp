#include "desktop/session/desktop.h"
#include "app/scope.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <new>
#include <stdexcept>

namespace orvik {
namespace {

// In milliseconds. A window manager needs a few; one that shows a window elsewhere never does it.
constexpr int kLongestWait = 500;
constexpr int kBetweenLooks = 2;

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            return true;
        default:
            return false;
    }
}

}  // namespace

void Desktop::add(const Form& form, View& view) {
    const auto behind = [this](std::ptrdiff_t place, const Entry& entry) {
        return place < rank(*entry.Shown);
    };
    entries_.insert(std::upper_bound(entries_.begin(), entries_.end(), rank(form), behind),
                    {&form, &view});
}

void Desktop::remove(const Form& form) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.Shown == &form; });
}

void Desktop::makeWhenAskedFor(std::vector<const Form*> forms,
                               std::function<void(const Form&)> make) {
    made_later_ = std::move(forms);
    make_ = std::move(make);
}

std::ptrdiff_t Desktop::rank(const Form& form) const {
    const auto found = std::find(made_later_.begin(), made_later_.end(), &form);
    return found == made_later_.end() ? 0 : found - made_later_.begin() + 1;
}

View* Desktop::viewOf(const Form& form) {
    View* const made = madeViewOf(form);
    if (made != nullptr || rank(form) == 0) {
        return made;
    }
    make_(form);
    return madeViewOf(form);
}

View* Desktop::madeViewOf(const Form& form) const {
    const auto found = std::find_if(
        entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.Shown == &form; });
    return found == entries_.end() ? nullptr : found->Window;
}

QWidget* Desktop::frontWindow() const {
    QWidget* const active = QApplication::activeWindow();
    for (const QWidget* window = active; window != nullptr; window = window->parentWidget()) {
        if (std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
                return &entry.Window->window() == window;
            })) {
            return active;
        }
    }
    // A help window is none: a box that belonged to it would block no other.
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [](const Entry& entry) {
        return entry.Window->window().isVisible();
    });
    return found == entries_.rend() ? nullptr : &found->Window->window();
}

std::optional<Encoding> Desktop::selectionEncoding() const {
    for (const Entry& entry : entries_) {
        if (const auto encoding = entry.Window->selectionEncoding()) {
            return encoding;
        }
    }
    return {};
}

bool Desktop::run(const std::function<void()>& event, AtYield at_yield) {
    if (hasEnded() || waiting_) {
        return false;
    }
    const bool refused = yielding_ && at_yield == AtYield::Refused;
    if (!refused) {
        ++event_;
        const QScopedValueRollback running(running_, running_ + 1);
        const OnExit yielded([this] { has_yielded_ = has_yielded_ && running_ > 1; });
        try {
            event();
        } catch (const std::bad_alloc&) {
            // The application tells of it, and the program goes on.
            throw;
        } catch (const std::length_error&) {
            throw;
        } catch (...) {
            end_ = std::current_exception();
        }
    }
    if (hasEnded()) {
        QCoreApplication::exit();
    } else {
        syncAll();
    }
    return !refused;
}

void Desktop::fileChosen(const std::string& name) const {
    for (const Entry& entry : entries_) {
        entry.Window->fileChosen(name);
    }
}

void Desktop::saveFailed() const {
    for (const Entry& entry : entries_) {
        entry.Window->saveFailed();
    }
}

void Desktop::fileNoted(const std::string& text) const {
    for (const Entry& entry : entries_) {
        entry.Window->fileNoted(text);
    }
}

void Desktop::syncAll() {
    for (const Entry& entry : entries_) {
        entry.Window->sync();
    }
}

void Desktop::waits(const std::string& text) {
    syncAll();
    for (const Entry& entry : entries_) {
        entry.Window->waits(text);
    }
    paintAll();
}

void Desktop::repaint() {
    if (isBetweenFrames()) {
        return;
    }
    beginFrame();
    syncAll();
    paintAll();
    endFrame();
}

bool Desktop::isBetweenFrames() const {
    return frame_event_ == event_ && since_frame_.isValid() &&
           since_frame_.elapsed() < until_next_frame_.count();
}

void Desktop::beginFrame() {
    frame_event_ = event_;
    since_frame_.start();
}

// On a slow display the frames take a small part of the time too. A box that was answered meanwhile
// is no frame.
void Desktop::endFrame() {
    constexpr int kShare = 10;
    until_next_frame_ = std::clamp(std::chrono::milliseconds(since_frame_.restart()) * kShare,
                                   between_frames_,
                                   between_frames_ * kShare);
}

void Desktop::paintAll() const {
    for (const Entry& entry : entries_) {
        QWidget& window = entry.Window->window();
        if (window.isVisible()) {
            // What sync() marked as changed is painted, and nothing else.
            QEvent request(QEvent::UpdateRequest);
            QCoreApplication::sendEvent(&window, &request);
        }
    }
}

// The user's input stays in the queue. What a screen reader or the session asks for is no input;
// run() refuses it.
void Desktop::waitUntilOnScreen(const QWidget& window) {
    const QWindow* const shown = window.windowHandle();
    const QScopedValueRollback waiting(waiting_, true);
    const QDeadlineTimer deadline(kLongestWait);
    while (!shown->isExposed() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::ExcludeSocketNotifiers);
        QThread::msleep(kBetweenLooks);
    }
}

void Desktop::yield() {
    rethrowEnd();
    if (isBetweenFrames()) {
        return;
    }
    beginFrame();
    has_yielded_ = isRunning();
    syncAll();
    if (!yielding_) {
        const QScopedValueRollback yielding(yielding_, true);
        qApp->installEventFilter(this);
        QCoreApplication::processEvents();
        qApp->removeEventFilter(this);
    }
    endFrame();
    rethrowEnd();
}

void Desktop::acceptAtYield(QWidget& widget) {
    accepted_at_yield_.push_back(&widget);
}

void Desktop::rethrowEnd() const {
    if (hasEnded()) {
        std::rethrow_exception(end_);
    }
}

bool Desktop::eventFilter(QObject* receiver, QEvent* event) {
    // What a QWindow gets is sent on to one of its widgets, and filtered there.
    return yielding_ && IsInput(event->type()) && !receiver->isWindowType() &&
           std::find(accepted_at_yield_.begin(), accepted_at_yield_.end(), receiver) ==
               accepted_at_yield_.end();
}

}  // namespace orvik

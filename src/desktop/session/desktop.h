// The windows of the program, and the one way in which the user's events reach their forms.
//
// No exception crosses one of Qt's event loops. run() catches at every slot; what ends the program
// is remembered, all event loops are told to return, and a nested one (a box, a dialog, a modal
// window, a yield) throws it again on its way back into the command that opened it. A lack of
// memory that no command handled goes on to the application (application.h), which is inside every
// loop.

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QScopedValueRollback>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/form.h"
#include "desktop/text/text_codec.h"

class QWidget;

namespace orvik {

// One window: it shows a form and nothing of its own.
class View {
 public:
    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    View(View&&) = delete;
    View& operator=(View&&) = delete;
    virtual ~View() = default;

    // Makes the widgets equal to the form; one whose value did not change is not touched.
    virtual void sync() = 0;
    [[nodiscard]] virtual QWidget& window() = 0;
    // The encoding of the text whose selection the running command works on, if it does so.
    [[nodiscard]] virtual std::optional<Encoding> selectionEncoding() const { return {}; }
    // A file was chosen; what is saved under the name chosen last could not be saved.
    virtual void fileChosen(const std::string& /*name*/) {}
    virtual void saveFailed() {}
    // Something quiet about the file that was chosen last.
    virtual void fileNoted(const std::string& /*text*/) {}
    // What the command waits for, until the next sync.
    virtual void waits(const std::string& /*text*/) {}
};

// Whether an event is also taken while a command lets pending events run.
enum class AtYield { Refused, Taken };

class Desktop : public QObject {
    Q_OBJECT
 public:
    // While a command runs, the windows are made equal to their forms at a yield, and events taken,
    // no more often than this: as often as an eye sees it.
    static constexpr std::chrono::milliseconds kBetweenFrames{50};
    explicit Desktop(std::chrono::milliseconds between_frames = kBetweenFrames)
        : between_frames_(between_frames) {}

    // The view must stay until the desktop goes or its form is removed.
    void add(const Form& form, View& view);
    void remove(const Form& form);
    // The views of these forms stand behind all others, in this order; make adds one of them.
    void makeWhenAskedFor(std::vector<const Form*> forms, std::function<void(const Form&)> make);
    // Makes the view if it has to be made; null if nobody knows the form.
    [[nodiscard]] View* viewOf(const Form& form);
    // The window that a box or a dialog belongs to; none before the first one is shown.
    [[nodiscard]] QWidget* frontWindow() const;
    [[nodiscard]] std::optional<Encoding> selectionEncoding() const;

    // Runs an event of the user and makes all windows equal to their forms. Returns false if the
    // event is refused: at a yield, while a window comes onto the screen, and after the end.
    bool run(const std::function<void()>& event, AtYield at_yield = AtYield::Refused);
    [[nodiscard]] bool isRunning() const { return running_ > 0; }
    // The number of the event that began last.
    [[nodiscard]] std::uint64_t event() const { return event_; }

    // Tells every view.
    void fileChosen(const std::string& name) const;
    void saveFailed() const;
    void fileNoted(const std::string& text) const;
    // Shows it as repaint() shows the forms.
    void waits(const std::string& text);

    void syncAll();
    // Shows the forms as they are now, unless it just did in this command; no event is taken.
    void repaint();
    // Waits, for a short time at most, until a window that was shown is on the screen. A command
    // that shows it goes on without taking events, and it would stay blank. No event of the user is
    // taken, from wherever it comes.
    void waitUntilOnScreen(const QWidget& window);
    // Lets pending events run, unless they just did in this command. Of the user's input only what
    // goes to a widget of acceptAtYield, and the closing of a window, is taken.
    void yield();
    void acceptAtYield(QWidget& widget);
    // Whether the running command has let events run: of all commands only an extraction does.
    [[nodiscard]] bool hasYielded() const { return has_yielded_; }

    // Runs an event loop, for example a box, in the middle of a command.
    template <class Loop>
    auto nested(Loop&& loop) {
        rethrowEnd();
        syncAll();
        auto result = [&] {
            const QScopedValueRollback yielding(yielding_, false);
            return loop();
        }();
        rethrowEnd();
        return result;
    }

    [[nodiscard]] bool hasEnded() const { return end_ != nullptr; }
    // Throws what ended the program, if anything has.
    void rethrowEnd() const;

 protected:
    // At a yield: swallows what is not accepted.
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    // Paints what changed.
    void paintAll() const;
    // Whether this command has just shown the forms: to show each step would take most of its time.
    [[nodiscard]] bool isBetweenFrames() const;
    void beginFrame();
    void endFrame();

    struct Entry {
        const Form* Shown;
        View* Window;
    };
    [[nodiscard]] View* madeViewOf(const Form& form) const;
    // 0 for a form whose view nobody makes later.
    [[nodiscard]] std::ptrdiff_t rank(const Form& form) const;

    std::vector<Entry> entries_;
    std::vector<const Form*> made_later_;
    std::function<void(const Form&)> make_;
    std::vector<QObject*> accepted_at_yield_;
    std::exception_ptr end_;
    int running_ = 0;
    std::uint64_t event_ = 0;
    std::chrono::milliseconds between_frames_;
    std::chrono::milliseconds until_next_frame_{0};
    QElapsedTimer since_frame_;
    std::uint64_t frame_event_ = 0;  // the event that the last frame belongs to
    bool has_yielded_ = false;
    bool yielding_ = false;
    bool waiting_ = false;
};

}  // namespace orvik

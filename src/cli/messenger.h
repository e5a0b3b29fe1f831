// What a program of the command line tells its user: lines on standard error, and a line that shows
// how far a long step has come.

#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace orvik::cli {

class Messenger {
 public:
    // Writes to a stream that must outlive the messenger, as the program of this name. Progress is
    // for a terminal only, and of steps that take longer than quick_step.
    Messenger(std::string_view program,
              std::ostream& stream,
              bool shows_progress,
              std::chrono::milliseconds quick_step)
        : program_(program),
          stream_(stream),
          shows_progress_(shows_progress),
          quick_step_(quick_step) {}

    // Starts the clock of a step and names the file that its messages are about, if any.
    void BeginStep(std::string_view file);
    void EndStep() { ClearProgress(); }

    // A line of its own; line breaks in the text become blanks, what else a terminal would not show
    // as it stands an escape (app/printable.h).
    void Tell(std::string_view text);
    // Each line of a text as a line of its own; all of them or none.
    void TellLines(std::string_view text);
    // Shows how far the step is, on a line that the next one covers.
    void Progress(std::string_view text);

 private:
    using Clock = std::chrono::steady_clock;

    void ClearProgress();
    [[nodiscard]] std::string LineOf(std::string_view text) const;

    std::string program_;
    std::ostream& stream_;
    bool shows_progress_;
    std::chrono::milliseconds quick_step_;
    std::string file_;
    Clock::time_point next_progress_;
    std::size_t shown_length_ = 0;
};

}  // namespace orvik::cli

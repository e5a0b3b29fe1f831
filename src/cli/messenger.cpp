#include "cli/messenger.h"

#include <algorithm>

#include "app/printable.h"

namespace orvik::cli {
namespace {

constexpr std::chrono::milliseconds kBetweenShows{100};

}  // namespace

void Messenger::BeginStep(std::string_view file) {
    file_ = file;
    next_progress_ = Clock::now() + quick_step_;
}

void Messenger::Tell(std::string_view text) {
    ClearProgress();
    stream_ << LineOf(text);
}

void Messenger::TellLines(std::string_view text) {
    ClearProgress();
    // One that lacks the memory for the second line tells none.
    std::string lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.append(LineOf(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    stream_ << lines;
}

std::string Messenger::LineOf(std::string_view text) const {
    std::string line = program_ + ": ";
    if (!file_.empty()) {
        line.append(Printable(file_)).append(": ");
    }
    return line.append(PrintableLine(text)).append("\n");
}

void Messenger::Progress(std::string_view text) {
    if (!shows_progress_ || Clock::now() < next_progress_) {
        return;
    }
    next_progress_ = Clock::now() + std::min(kBetweenShows, quick_step_);
    std::string line = Printable(file_) + ": " + PrintableLine(text);
    const std::size_t length = line.size();
    // A shorter line covers the one before it.
    if (length < shown_length_) {
        line.append(shown_length_ - length, ' ');
    }
    shown_length_ = length;
    stream_ << '\r' << line << std::flush;
}

void Messenger::ClearProgress() {
    if (shown_length_ > 0) {
        stream_ << '\r' << std::string(shown_length_, ' ') << '\r';
        shown_length_ = 0;
    }
}

}  // namespace orvik::cli

#include "batch/messenger.h"

#include <algorithm>

namespace orvik::batch {
namespace {

constexpr std::chrono::milliseconds kBetweenShows{100};

void AppendPrintable(std::string& line, std::string_view text) {
    bool blank = false;
    for (const char c : text) {
        const bool line_break = c == '\r' || c == '\n';
        if (!line_break) {
            const auto byte = static_cast<unsigned char>(c);
            line += byte < ' ' || byte == 0x7F ? '?' : c;
        } else if (!blank) {
            line += ' ';
        }
        blank = line_break;
    }
}

}  // namespace

void Messenger::BeginStep(std::string_view file) {
    file_ = file;
    next_progress_ = Clock::now() + quick_step_;
}

void Messenger::Tell(std::string_view text) {
    ClearProgress();
    std::string line = "orvik-batch: ";
    if (!file_.empty()) {
        AppendPrintable(line, file_);
        line += ": ";
    }
    AppendPrintable(line, text);
    line += '\n';
    stream_ << line;
}

void Messenger::Progress(std::string_view text) {
    if (!shows_progress_ || Clock::now() < next_progress_) {
        return;
    }
    next_progress_ = Clock::now() + std::min(kBetweenShows, quick_step_);
    std::string line;
    AppendPrintable(line, file_);
    line += ": ";
    AppendPrintable(line, text);
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

}  // namespace orvik::batch

// What orvik-book has around it: files, the standard streams, and whoever watches them.

#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <system_error>

#include "app/file_slot.h"
#include "cli/messenger.h"
#include "platform/file_system.h"
#include "platform/file_talk.h"

namespace orvik::book_cli {

// The parts that tests stand in for.
struct Surroundings {
    FileSystem& Files;
    std::ostream& Out;
    cli::Messenger& Messages;
    // Whether what is printed may have colours.
    bool Colours = false;
    // Appends standard input, of more than most bytes a little more than that.
    std::function<std::error_code(std::size_t most, std::string& bytes)> ReadInput;
    // Asks whoever sits at the terminal; No where nobody does.
    std::function<bool(const std::string& question)> Ask;
    // Whoever shows how far the work is in place of the messages; may throw to end it.
    std::function<void(std::string_view doing, std::size_t done, std::size_t all)> HowFar = {};
};

class Console : public FileTalk {
 public:
    // What is around must outlive the console.
    explicit Console(const Surroundings& around) : around_(around), slot_(around.Files, *this) {}

    [[nodiscard]] FileSystem& Files() const { return around_.Files; }
    [[nodiscard]] FileSlot& Slot() { return slot_; }
    [[nodiscard]] std::ostream& Out() const { return around_.Out; }
    [[nodiscard]] std::error_code ReadInput(std::size_t most, std::string& bytes) const {
        return around_.ReadInput(most, bytes);
    }
    [[nodiscard]] bool Ask(const std::string& question) const { return around_.Ask(question); }

    // From now on messages are about this file; about none if it is empty.
    void Begin(std::string_view file) { around_.Messages.BeginStep(file); }
    void End();
    void Tell(std::string_view text) { around_.Messages.Tell(text); }
    void TellLines(std::string_view text) { around_.Messages.TellLines(text); }
    // "reading: 42%", as long as somebody watches.
    [[nodiscard]] std::function<void(std::size_t done, std::size_t all)> ProgressOf(
        std::string_view doing);

    // Any words of how far the work is, as long as somebody watches.
    void ShowProgress(std::string_view text) { around_.Messages.Progress(text); }

    // What stands out where there are colours.
    [[nodiscard]] std::string Strong(const std::string& text) const;
    [[nodiscard]] std::string Alarming(const std::string& text) const;

    void Note(std::string_view text) override { Tell(text); }
    void Waits(std::string_view text) override { Tell(text); }
    // Nobody is asked: both files stay.
    CopyAnswer OfferCopy(const std::string& book, const std::string& copy) override;

 private:
    [[nodiscard]] std::string Coloured(std::string_view colour, const std::string& text) const;

    const Surroundings& around_;
    FileSlot slot_;
};

}  // namespace orvik::book_cli

// Undo and redo of whole commands: kept here, at the top, so that no command knows of it.

#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/controls.h"
#include "app/reading_note.h"
#include "app/shared_text.h"

namespace orvik {

class Module1;

class UndoHistory {
 public:
    explicit UndoHistory(Module1& module) : module_(module) {}

    // Runs a command. If the working text is another one afterwards, also after a failure, the
    // command can be undone. What happens from the switch into edit mode to the way out of it is
    // one step. A command inside another belongs to that one.
    void Run(std::string_view title, const std::function<void()>& command);

    // Neither does anything in edit mode, where the text box has a history of its own.
    void Undo();
    void Redo();

    // The command that would be undone or done again, empty if there is none.
    [[nodiscard]] std::string_view UndoTitle() const;
    [[nodiscard]] std::string_view RedoTitle() const;

    // Beyond either of these the oldest steps go.
    static constexpr std::size_t kMostSteps = 50;
    static constexpr std::size_t kMostBytes = std::size_t{256} * 1024 * 1024;

 private:
    struct List {
        ItemList Items;
        ListBox::Rows Selected;
        std::ptrdiff_t ListIndex = -1;
    };
    // What a command changes, as it was, and the command's title.
    struct State {
        std::string Title;
        SharedText WorkText;
        std::string TextMode;
        std::string Caption;
        ReadingNote Note;
        SharedText Text1;
        List List1;
        List List2;
        std::size_t ItemCount = 0;
        std::string ItemText;
    };

    [[nodiscard]] State Capture(std::string_view title) const;
    void Restore(State&& state);
    // Takes the newest state of one history and keeps the present one in the other.
    void Step(std::deque<State>& from, std::deque<State>& to);
    // Drops the oldest states beyond the limits. What several of them share counts once.
    static void Limit(std::deque<State>& states);

    Module1& module_;
    std::deque<State> undo_;
    std::deque<State> redo_;
    std::optional<State> before_;
    bool running_ = false;
};

}  // namespace orvik

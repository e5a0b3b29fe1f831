// Undo and redo of whole commands: kept here, at the top, so that no command knows of it.

#pragma once

#include <cstddef>
#include <functional>
#include <list>
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

    // Whether the command that ran last is the one that would be undone; then EntriesBefore counts
    // the entries that it found, in one pass.
    [[nodiscard]] bool LastCanBeUndone() const { return last_can_be_undone_ && !undo_.empty(); }
    [[nodiscard]] std::size_t EntriesBefore() const;

    // These count the commands, those undone and done again among them, and what may have been
    // changes of the working text.
    [[nodiscard]] Revision Commands() const { return commands_; }
    [[nodiscard]] Revision TextRevision() const { return text_revision_; }

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
    // The oldest stand first. States move from one to another without new memory: after a command
    // none may be left.
    using States = std::list<State>;
    // Takes the newest state of one history and keeps the present one in the other.
    void Step(States& from, States& to);
    // Drops the oldest states beyond the limits. What several of them share counts once.
    static void Limit(States& states);

    Module1& module_;
    States undo_;
    States redo_;
    States before_;  // at most one
    bool running_ = false;
    bool last_can_be_undone_ = false;
    Revision commands_ = 0;
    Revision text_revision_ = 0;
};

}  // namespace orvik

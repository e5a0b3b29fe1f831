// What a step can change, kept for a comparison, and a literal twin of the history of undo.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "depth/entries.h"
#include "program/program.h"

namespace orvik::depth {

struct State {
    struct List {
        ItemList Items;
        Revision Listed = 0;
        std::vector<std::size_t> Selected;
        std::ptrdiff_t Clicked = -1;
    };
    std::string Text;
    std::string Mode;
    std::string Caption;
    std::string Box;
    List Addresses;
    List Nicknames;
    std::size_t Count = 0;
    std::string CountText;
    bool Editing = false;

    static State Of(const Module1& module);
    // Whether a person sees the same, and every command works on the same.
    [[nodiscard]] bool IsSameAs(const State& other) const;
    // What the lists show, where each address has a nickname beside it.
    [[nodiscard]] std::optional<Entries> Shown() const;
};

class UndoTwin {
 public:
    // A command that can be undone ran between the two states.
    void Ran(std::string_view title, const State& before, const State& after);
    // Undo ran, or redo: what has to be seen now. Nothing where there was nothing to undo.
    std::optional<State> Undo(const State& before) { return Step(undo_, redo_, before); }
    std::optional<State> Redo(const State& before) { return Step(redo_, undo_, before); }

    [[nodiscard]] std::string UndoTitle(const State& now) const { return TitleOf(undo_, now); }
    [[nodiscard]] std::string RedoTitle(const State& now) const { return TitleOf(redo_, now); }

 private:
    struct Kept {
        std::string Title;
        State Was;
    };
    using Steps = std::vector<Kept>;
    static std::optional<State> Step(Steps& from, Steps& to, const State& before);
    static std::string TitleOf(const Steps& steps, const State& now);
    static void Keep(Steps& steps, Kept kept);

    Steps undo_;
    Steps redo_;
    // What edit mode began with.
    std::optional<Kept> before_;
};

}  // namespace orvik::depth

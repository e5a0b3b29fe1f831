// The acts of a person: every handler, and what has no handler of its own.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "depth/dice.h"
#include "depth/tally.h"
#include "program/program.h"

namespace orvik::depth {

struct Act {
    // The handler, as "Form1.mnuOpen_Click"; or the statement of an act without one.
    std::string Name = {};
    // What undo calls it; empty where it is no command.
    std::string Title = {};
    // Where it is a handler with nothing besides.
    NamedHandler Handler = {};
    Form* Owner = nullptr;
    // Whether a person could do it now.
    std::function<bool()> IsPossible = {};
    // The act that makes it possible; empty for none.
    std::string After = {};
    // How much it is liked, besides that every act has to run often enough.
    std::size_t Weight = 0;
};

class Acts {
 public:
    // program must outlive this. Every act is expected in the tally.
    Acts(Program& program, Tally& tally);

    // The next act: half of the time a rare one, or what makes it possible.
    [[nodiscard]] const Act& Choose(Dice& dice, const Tally& tally, std::size_t steps) const;

    // The least share of the steps that each handler has to run in, per thousand.
    static constexpr std::size_t kLeastPerThousand = 5;

 private:
    void AddHandlers(Form& form);
    void AddOthers();
    void Add(std::string_view name, std::string_view title, std::function<bool()> is_possible);
    [[nodiscard]] std::function<bool()> PossibleIn(Form& form, const std::string& control);
    [[nodiscard]] const Act* Find(const std::string& name) const;
    [[nodiscard]] const Act* Rare(Dice& dice, const Tally& tally, std::size_t steps) const;

    Program& program_;
    std::vector<Act> acts_;
    std::size_t weights_ = 0;
};

}  // namespace orvik::depth

// A run of steps: a program, a person who acts on it by chance, and the checks of each step.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "depth/acts.h"
#include "depth/chance_person.h"
#include "depth/checks.h"
#include "depth/dice.h"
#include "depth/tally.h"
#include "depth/watched_files.h"
#include "fuzz/fuzz_program.h"

namespace orvik::depth {

struct Figures {
    Tally Handlers;
    std::size_t Steps = 0;
    std::size_t Changing = 0;  // those that changed the working text
    std::size_t Empty = 0;     // those that began with an empty one
};

class Run {
 public:
    explicit Run(std::uint64_t seed) : dice_(seed) { Restart(); }

    // One act, and its checks.
    void Take();

    [[nodiscard]] const Figures& Told() const { return figures_; }
    // What is done now: for the message of a check that fails.
    [[nodiscard]] const std::string& Doing() const { return statement_; }

 private:
    // The program is ended and started anew.
    void Restart();
    void Begin();
    bool Do(const Act& act, Step& step);
    bool Say(const std::string& statement);
    bool StartAgain();
    bool Drop();
    void ChooseRows(Step& step, std::size_t rows);
    std::string StatementFor(const Act& act, Step& step);
    void FillClipboard(const std::string& act);

    Dice dice_;
    Figures figures_;
    WatchedFiles files_;
    ChancePerson* person_ = nullptr;  // the program's
    std::unique_ptr<fuzz::FuzzedProgram> program_;
    std::unique_ptr<Acts> acts_;
    std::unique_ptr<Checks> checks_;
    std::string statement_;
};

}  // namespace orvik::depth

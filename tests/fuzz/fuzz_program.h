// A whole program with a person made of bytes: each statement is one of the scenario language, so a
// run can be repeated as a scenario. With ORVIK_PRINT_SCENARIO set in the environment it is
// printed.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "program/program.h"
#include "testkit/actor.h"
#include "testkit/scenario.h"
#include "testkit/scenario_platform.h"

namespace orvik::fuzz {

// A person who always knows an answer: No where there is no Cancel, and a click of any kind on
// whatever asks for one.
class FuzzPlatform : public testkit::ScenarioPlatform {
 public:
    FuzzPlatform();
    Answer ShowBox(const MessageBox& box) override;
    void ShowForm(Form& form, Showing showing) override;

    // What is clicked in the modal showings to come, by index.
    std::deque<std::uint8_t> clicks;
};

// Lets the checks see the program.
class FuzzActor : public testkit::Actor {
 public:
    [[nodiscard]] Program& Root() const { return program(); }
};

class FuzzedProgram {
 public:
    // Starts the program with an empty folder of its own; the folder is the same one each time.
    // files, if given, must outlive this.
    explicit FuzzedProgram(
        std::unique_ptr<FuzzPlatform> platform = std::make_unique<FuzzPlatform>(),
        FileSystem* files = nullptr);
    FuzzedProgram(const FuzzedProgram&) = delete;
    FuzzedProgram& operator=(const FuzzedProgram&) = delete;
    FuzzedProgram(FuzzedProgram&&) = delete;
    FuzzedProgram& operator=(FuzzedProgram&&) = delete;
    ~FuzzedProgram() = default;

    // The full name of a file in the folder.
    [[nodiscard]] static std::string Name(std::string_view file);
    static void WriteFile(const std::string& name, std::string_view contents);

    // Runs a statement. Returns false if the run is over: the program has ended, or more was asked
    // than anybody queued.
    bool Run(const std::string& statement);
    // The same for a handler of a form that is loaded, without looking for it.
    bool RunHandler(Form& form, const NamedHandler& handler);

    // What the person does next, in place of what was left of the last time: answers by two bits
    // each, file names, and clicks.
    void Queue(std::uint8_t choices, const std::string& pick);

    [[nodiscard]] Program& Root() const { return actor_.Root(); }

    // What holds between two events of the user.
    void CheckState() const;
    // Undoes all and does all again, which changes nothing.
    void CheckHistory();

 private:
    bool RunTraced(const std::string& statement, const std::function<void()>& act);

    std::unique_ptr<FuzzPlatform> platform_;
    FuzzActor actor_;
    testkit::Scenario scenario_;
};

}  // namespace orvik::fuzz

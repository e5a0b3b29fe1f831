// What a person does in a scenario. The acts of this class go to the forms directly; a class that
// derives from it makes them through windows.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "program/program.h"
#include "testkit/scenario_platform.h"

namespace orvik::testkit {

// A control with its form.
struct Target : NamedControl {
    Target(Form& owner, const NamedControl& control) : NamedControl(control), Owner(owner) {}
    Form& Owner;
};

// Each act is one event of the program: a failure in it is reported to the platform. An act in
// which the program ends throws ProgramEnded.
class Actor {
 public:
    Actor() = default;
    Actor(const Actor&) = delete;
    Actor& operator=(const Actor&) = delete;
    Actor(Actor&&) = delete;
    Actor& operator=(Actor&&) = delete;
    virtual ~Actor() = default;

    // A new run of the program begins; the former one, if any, is gone after this call.
    virtual void Attach(Program& program) { program_ = &program; }
    // The program is gone after this call, and none follows it.
    virtual void Detach() { program_ = nullptr; }

    // The program's start: loads and shows the main window.
    virtual void Start();
    // Runs an event handler: what it is named after is clicked, chosen or changed.
    virtual void RunHandler(Form& form, const NamedHandler& handler);
    // Replaces the whole text of a text box.
    virtual void SetText(const Target& target, TextBox& box, const std::string& text);
    // Replaces the selection of a text box.
    virtual void TypeText(const Target& target, TextBox& box, const std::string& text);
    virtual void SelectText(const Target& target,
                            TextBox& box,
                            std::size_t start,
                            std::size_t length);
    // Selects exactly these rows of a list; the row clicked is the last one.
    virtual void SelectRows(const Target& target,
                            ListBox& list,
                            const std::vector<std::size_t>& rows);
    virtual void SetCheck(const Target& target, CheckBox& box, bool checked);
    virtual void ChooseOption(const Target& target, OptionButton& option);
    virtual void ChooseItem(const Target& target, ComboBox& combo, const std::string& item);
    virtual void Click(Form& form);
    virtual void DoubleClick(const Target& target);
    // Both return false if a row is not there; a refused entry changes nothing.
    virtual bool EditEntry(std::size_t row,
                           const std::string& address,
                           const std::string& nickname);
    virtual bool DeleteEntries(const std::vector<std::size_t>& rows);
    virtual void Undo();
    virtual void Redo();
    virtual void ReleaseKey(Form& form, int key_code);
    virtual void Close(Form& form);
    virtual void Resize(Form& form, double width, double height);

    // A property of a control as a transcript shows it. Errors: ScenarioError if it has none.
    virtual std::string ReadProperty(const Target& target, std::string_view property);

 protected:
    [[nodiscard]] Program& program() const { return *program_; }
    [[nodiscard]] Module1& module() const { return program_->module; }
    // Runs what a click on a control or a double click runs, if anything.
    void RunIfAny(const std::function<void()>& handler);

 private:
    Program* program_ = nullptr;
};

}  // namespace orvik::testkit

// What all windows have in common: loading, showing, hiding, unloading, and their controls and
// handlers by name.

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/controls.h"
#include "platform/platform.h"

namespace orvik {

class Module1;

inline constexpr int kKeyF1 = 112;

// A handler under its name, for example "mnuOpen_Click". Title is what a person calls it, "Open
// file"; a handler that is no command, such as a click on a row of a list, has none.
struct NamedHandler {
    std::string Name;
    std::function<void()> Run;
    std::string Title = {};
};

class Form {
 public:
    Form(Module1& module, std::string_view name, std::string_view caption)
        : Caption(caption), module_(module), name_(name) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    Form(Form&&) = delete;
    Form& operator=(Form&&) = delete;
    virtual ~Form() = default;

    [[nodiscard]] std::string_view Name() const { return name_; }
    [[nodiscard]] bool Loaded() const { return loaded_; }
    [[nodiscard]] bool Visible() const { return visible_; }

    // Runs Form_Load the first time.
    void Load();
    // Loads the form if needed and shows its window.
    void Show(Showing showing);
    void Hide();
    // Runs Form_Unload and, unless that keeps the window open, closes it.
    void Unload();

    // Every control, each told once with what it runs.
    virtual std::vector<NamedControl> Controls() = 0;
    // Every handler without arguments: those of the controls, and those of the form itself.
    std::vector<NamedHandler> Handlers();
    // The control of this name. Errors: std::logic_error if there is none.
    [[nodiscard]] NamedControl ControlNamed(std::string_view name);
    // What a click on a control runs, as a command of the user.
    [[nodiscard]] static NamedHandler CommandOf(const NamedControl& control);

    virtual void Form_Load() {}
    // The window is about to be shown.
    virtual void Form_Activate() {}
    // Returns whether the window may go.
    virtual bool Form_Unload() { return true; }
    virtual void Form_Resize() {}
    // A key was released anywhere in the window.
    virtual void Form_KeyUp(int /*key_code*/) {}
    // The window itself was clicked.
    virtual void Form_Click() {}

    // Chooses an option and lets go of the others of its group.
    void Choose(OptionButton& option);

    std::string Caption;
    // The window in twips: outside, and inside its frame.
    double Width = 0;
    double Height = 0;
    double ScaleWidth = 0;
    double ScaleHeight = 0;
    bool Minimised = false;

 protected:
    // A row whose control runs a handler of this form when it is clicked.
    template <class Kind>
    [[nodiscard]] NamedControl Clicked(std::string_view name,
                                       ControlRef control,
                                       void (Kind::*click)()) {
        return {name, control, [form = static_cast<Kind*>(this), click] { (form->*click)(); }};
    }
    // The handlers that belong to no click, but Form_Load and Form_Unload, which every form has.
    virtual std::vector<NamedHandler> OtherHandlers() { return {}; }

    Module1& module_;

 private:
    std::string_view name_;
    bool loaded_ = false;
    bool visible_ = false;
};

}  // namespace orvik

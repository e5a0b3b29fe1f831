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

struct NamedHandler {
    std::string_view Name;
    std::function<void()> Run;
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

    // Every control and every handler without arguments under its name.
    virtual std::vector<NamedControl> Controls() = 0;
    virtual std::vector<NamedHandler> Handlers() = 0;

    // What a handler is called in its menu, in its button's tool tip or on the button, less access
    // key and dots.
    //   "mnuOpen_Click"  ->  "Open file"
    [[nodiscard]] std::string TitleOf(std::string_view handler);

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
    Module1& module_;

 private:
    std::string_view name_;
    bool loaded_ = false;
    bool visible_ = false;
};

}  // namespace orvik

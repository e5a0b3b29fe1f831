#include "app/form.h"

#include <stdexcept>
#include <utility>
#include <variant>

#include "app/module1.h"
#include "app/scope.h"

namespace orvik {
namespace {

// What a command is called in its menu, in its button's tool tip or on the button, less access key
// and less the dots that announce a question.
//   "&Open file..."  ->  "Open file";  "&Convert to 4.0"  ->  "Convert to 4.0"
std::string TitleOf(const ControlRef& control) {
    std::string title = std::visit(
        [](const auto* kind) -> std::string {
            if constexpr (requires {
                              kind->Caption;
                              kind->ToolTip;
                          }) {
                return kind->ToolTip.empty() ? kind->Caption : kind->ToolTip;
            } else if constexpr (requires { kind->Caption; }) {
                return kind->Caption;
            } else {
                return {};
            }
        },
        control);
    std::erase(title, '&');
    constexpr std::string_view kAsks = "...";
    if (title.ends_with(kAsks)) {
        title.resize(title.size() - kAsks.size());
    }
    return title;
}

}  // namespace

void Form::Choose(OptionButton& option) {
    for (const NamedControl& control : Controls()) {
        OptionButton* const* const other = std::get_if<OptionButton*>(&control.Ref);
        if (other != nullptr && (*other)->Group == option.Group) {
            (*other)->Value = false;
        }
    }
    option.Value = true;
}

std::vector<NamedHandler> Form::Handlers() {
    std::vector<NamedHandler> handlers = OtherHandlers();
    handlers.push_back({"Form_Load", [this] { Form_Load(); }});
    handlers.push_back({"Form_Unload", [this] { Unload(); }});
    for (const NamedControl& control : Controls()) {
        if (control.Click) {
            handlers.push_back(CommandOf(control));
        }
        if (control.DoubleClick) {
            handlers.push_back({std::string(control.Name) + "_DblClick", control.DoubleClick});
        }
    }
    return handlers;
}

NamedControl Form::ControlNamed(std::string_view name) {
    for (NamedControl& control : Controls()) {
        if (control.Name == name) {
            return std::move(control);
        }
    }
    throw std::logic_error("no control " + std::string(name));
}

NamedHandler Form::CommandOf(const NamedControl& control) {
    return {std::string(control.Name) + "_Click", control.Click, TitleOf(control.Ref)};
}

void Form::Load() {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
}

void Form::Show(Showing showing) {
    Load();
    // A window that memory did not suffice for is not waited for.
    const OnFailure not_shown([this, before = visible_] { visible_ = visible_ && before; });
    if (!visible_) {
        visible_ = true;
        Form_Resize();
    }
    Form_Activate();
    module_.platform.ShowForm(*this, showing);
}

void Form::Hide() {
    if (visible_) {
        visible_ = false;
        module_.platform.HideForm(*this);
    }
}

void Form::Unload() {
    if (loaded_ && Form_Unload()) {
        loaded_ = false;
        visible_ = false;
        module_.platform.CloseForm(*this);
    }
}

}  // namespace orvik

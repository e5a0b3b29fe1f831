#include "app/form.h"

#include <variant>

#include "app/module1.h"

namespace orvik {

void Form::Choose(OptionButton& option) {
    for (const NamedControl& control : Controls()) {
        OptionButton* const* const other = std::get_if<OptionButton*>(&control.Ref);
        if (other != nullptr && (*other)->Group == option.Group) {
            (*other)->Value = false;
        }
    }
    option.Value = true;
}

std::string Form::TitleOf(std::string_view handler) {
    for (const NamedControl& control : Controls()) {
        if (handler == std::string(control.Name) + "_Click") {
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
                control.Ref);
            std::erase_if(title, [](char c) { return c == '&' || c == '.'; });
            return title;
        }
    }
    return {};
}

void Form::Load() {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
}

void Form::Show(Showing showing) {
    Load();
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

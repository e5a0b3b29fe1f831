#include "testkit/properties.h"

#include <functional>
#include <map>

#include "testkit/statement.h"
#include "testkit/transcript.h"

namespace orvik::testkit {
namespace {

std::string FormatValue(bool value) {
    return Format(value);
}
std::string FormatValue(int value) {
    return std::to_string(value);
}
std::string FormatValue(double value) {
    return Format(value);
}

template <class Items>
std::string FormatItems(const Items& items) {
    std::vector<std::string> formatted;
    for (std::size_t i = 0; i < items.size(); ++i) {
        formatted.push_back(Quote(items[i]));
    }
    return FormatList(formatted);
}

std::string FormatRows(const std::vector<std::size_t>& rows) {
    std::vector<std::string> formatted;
    for (const std::size_t row : rows) {
        formatted.push_back(std::to_string(row));
    }
    return FormatList(formatted);
}

// Empty where the control has no such property.
template <class Kind>
std::string Property(const Kind& control, std::string_view name) {
    if constexpr (requires { control.Text(); }) {
        if (name == "Text") {
            return Quote(control.Text());
        }
    } else if constexpr (requires { control.Text; }) {
        if (name == "Text") {
            return Quote(control.Text);
        }
    }
    if constexpr (requires { control.Caption; }) {
        if (name == "Caption") {
            return Quote(control.Caption);
        }
    }
    if (name == "Visible") {
        return Format(control.Visible);
    }
    if (name == "Enabled") {
        return Format(control.Enabled);
    }
    if constexpr (requires { control.Checked; }) {
        if (name == "Checked") {
            return Format(control.Checked);
        }
    }
    if constexpr (requires { control.Value; }) {
        if (name == "Value") {
            return FormatValue(control.Value);
        }
    }
    if constexpr (requires { control.Items(); }) {
        if (name == "Items") {
            return FormatItems(control.Items());
        }
    } else if constexpr (requires { control.Items; }) {
        if (name == "Items") {
            return FormatItems(control.Items);
        }
    }
    if constexpr (requires { control.Selected(); }) {
        if (name == "Selected") {
            return FormatRows(control.Selected());
        }
    }
    if constexpr (requires { control.Left; }) {
        if (name == "Left") {
            return Format(control.Left);
        }
        if (name == "Top") {
            return Format(control.Top);
        }
        if (name == "Width") {
            return Format(control.Width);
        }
        if (name == "Height") {
            return Format(control.Height);
        }
    }
    if constexpr (requires { control.Panels(1); }) {
        if (name == "Panels(1).Text") {
            return Quote(control.Panels(1).Text);
        }
        if (name == "Panels(2).Text") {
            return Quote(control.Panels(2).Text);
        }
    }
    return {};
}

}  // namespace

std::string FormatProperty(const ControlRef& control, std::string_view property) {
    std::string formatted =
        std::visit([&](const auto* kind) { return Property(*kind, property); }, control);
    if (formatted.empty()) {
        throw ScenarioError("unknown property " + std::string(property));
    }
    return formatted;
}

std::string FormatProperty(const Form& form, std::string_view property) {
    if (property == "Caption") {
        return Quote(form.Caption);
    }
    if (property == "Visible") {
        return Format(form.Visible());
    }
    if (property == "Loaded") {
        return Format(form.Loaded());
    }
    if (property == "Width") {
        return Format(form.Width);
    }
    if (property == "Height") {
        return Format(form.Height);
    }
    throw ScenarioError("unknown property " + std::string(property));
}

std::string FormatState(Module1& m, std::string_view name) {
    static const std::map<std::string_view, std::function<std::string(Module1&)>> kState = {
        {"WorkText", [](Module1& s) { return Quote(s.WorkText); }},
        {"TextMode", [](Module1& s) { return Quote(s.TextMode); }},
        {"EmailBlock", [](Module1& s) { return Quote(s.EmailBlock); }},
        {"NickBlock", [](Module1& s) { return Quote(s.NickBlock); }},
        {"textSep", [](Module1& s) { return Quote(s.textSep); }},
        {"ItemCount", [](Module1& s) { return std::to_string(s.ItemCount); }},
        {"LdifText", [](Module1& s) { return Quote(s.LdifText); }},
        {"LdifCurrent", [](Module1& s) { return Format(s.form1.LdifCurrent); }},
        {"EditMode", [](Module1& s) { return Format(s.EditMode); }},
        {"PimSep", [](Module1& s) { return Quote(s.PimSep); }},
        {"OpenMode", [](Module1& s) { return std::to_string(s.OpenMode); }},
        {"AutoExtract", [](Module1& s) { return Format(s.AutoExtract); }},
        {"TextSepChoice", [](Module1& s) { return std::to_string(s.TextSepChoice); }},
        {"AddressCount", [](Module1& s) { return std::to_string(s.AddressCount); }},
        {"CancelRequested", [](Module1& s) { return Format(s.CancelRequested); }},
        {"MsgAnswer", [](Module1& s) { return Quote(s.MsgAnswer); }},
        {"OldCaption", [](Module1& s) { return Quote(s.OldCaption); }},
        {"TextBeforeOpen", [](Module1& s) { return Quote(s.TextBeforeOpen); }},
        {"StartingUp", [](Module1& s) { return Format(s.StartingUp); }},
        {"JustStarted", [](Module1& s) { return Format(s.JustStarted); }},
    };
    const auto found = kState.find(name);
    if (found == kState.end()) {
        throw ScenarioError("unknown item " + std::string(name));
    }
    return found->second(m);
}

}  // namespace orvik::testkit

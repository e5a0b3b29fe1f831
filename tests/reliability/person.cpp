#include "reliability/person.h"

#include "app/form.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "reliability/allocations.h"
#include "settings/keys.h"

namespace orvik::test {

Person::Person() {
    Set(key::kSettings, "textSep", "5");
    Set(key::kSettings, "Open", "1");
    Set(key::kSettings, "Extract", "False");
    Set(key::kSettings, "Sep", ",");
    Set(key::kSettings, "Auto", "False");
}

void Person::Set(std::string_view section, std::string_view key, std::string_view value) {
    settings_[{std::string(section), ToLower(key)}] = value;
}

Answer Person::ShowBox(const MessageBox& box) {
    const OwnMemory own;
    if (box.Choice == Buttons::OK) {
        told.push_back({box.Cause ? static_cast<int>(*box.Cause) : 0, box.Text});
        return Answer::OK;
    }
    return box.Choice == Buttons::YesNoCancel ? Answer::No : reply;
}

std::string Person::ShowFileDialog(FileDialog& /*dialog*/) {
    const OwnMemory own;
    if (picks.empty()) {
        return {};
    }
    std::string name = std::move(picks.front());
    picks.pop_front();
    return name;
}

std::string Person::ClipboardText() {
    const OwnMemory own;
    return clipboard;
}

void Person::SetClipboardText(std::string_view text) {
    const OwnMemory own;
    clipboard = text;
}

std::optional<std::string> Person::GetSetting(std::string_view section, std::string_view key) {
    const OwnMemory own;
    const auto found = settings_.find({std::string(section), ToLower(key)});
    return found == settings_.end() ? std::nullopt : std::optional(found->second);
}

void Person::SaveSetting(std::string_view section, std::string_view key, std::string_view value) {
    const OwnMemory own;
    Set(section, key, value);
}

void Person::DeleteSettings() {
    settings_.clear();
}

void Person::ShowForm(Form& form, Showing showing) {
    if (showing == Showing::Modeless) {
        return;
    }
    if (const auto act = modal.find(form.Name()); act != modal.end()) {
        act->second();
    }
    if (form.Visible()) {
        form.Unload();
    }
}

void Person::ReportFailure(const RunTimeError& failure) {
    const OwnMemory own;
    told.push_back({failure.Number(), failure.what()});
}

}  // namespace orvik::test

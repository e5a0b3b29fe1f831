// Reads the settings that the commands use.

#include <string>

#include "app/module1.h"
#include "app/run_time_error.h"
#include "formats/form5.h"
#include "settings/form2.h"
#include "settings/keys.h"
#include "settings/numbers.h"

namespace orvik {
namespace {

// A setting that fails this often in a row ends the program, so that nobody is caught in it.
constexpr int kMostFailures = 3;

// Outside the start only the very first loading asks, and only for the handheld's separator.
void AskForSeparator(Module1& module) {
    if (module.FirstPimRun) {
        module.Tell("This is your first time using Orvik. We need to set a few options.");
        module.form5.Unload();
        module.form5.Show(Showing::Modal);
    }
}

// Reads one setting; while that fails the user is asked for the settings. Returns false if loading
// ends here.
bool ReadOrAsk(Module1& module, const std::function<void()>& read) {
    for (int failures = 1;; ++failures) {
        bool failed = false;
        TrapFailure(read, [&](const RunTimeError& failure) {
            PassLackOfMemory(failure);
            failed = true;
        });
        if (!failed) {
            return true;
        }
        if (!module.StartingUp) {
            AskForSeparator(module);
            return false;
        }
        if (failures == kMostFailures) {
            module.platform.End();
        }
        module.AskForSettings();
    }
}

}  // namespace

std::string Module1::Setting(std::string_view name) {
    return platform.GetSetting(key::kSettings, name).value_or("");
}

double Module1::NumberOrZero(std::string_view section, std::string_view name) {
    double number = 0;
    TrapFailure([&] { number = ToNumber(platform.GetSetting(section, name).value_or("")); },
                &PassLackOfMemory);
    return number;
}

void Module1::Save(std::string_view name, std::string_view value) {
    platform.SaveSetting(key::kSettings, name, value);
}

void Module1::LoadSettings() {
    if (!ReadOrAsk(*this, [this] {
            const double number = ToNumber(Setting("textSep"));
            if (number == key::kByNewlines) {
                TextSepChoice = 1;
            } else if (number == key::kByCommas) {
                TextSepChoice = 2;
            }
        })) {
        return;
    }
    textSep.assign(1, TextSepChoice == 1 ? '\r' : ',');
    if (!ReadOrAsk(*this, [this] { OpenMode = ToInteger(Setting("Open")); })) {
        return;
    }
    if (OpenMode < 1 || OpenMode > 4) {
        TellFailed(key::kCorrupt);
        OpenMode = 1;
    }
    const std::string extract = Setting("Extract");
    AutoExtract = extract != "False";
    if (AutoExtract && extract != "True") {
        TellFailed(key::kCorrupt);
    }
    PimSep = Setting("Sep");
    FirstPimRun = false;
}

void Module1::AskForSettings() {
    form2.Show(Showing::Modal);
    StartingUp = true;
}

void Module1::CloseSettings() {
    form2.Unload();
}

}  // namespace orvik

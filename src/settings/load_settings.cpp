// Reads the settings that the commands use.

#include <string>

#include "app/module1.h"
#include "app/run_time_error.h"
#include "settings/numbers.h"

namespace orvik {
namespace {

constexpr std::string_view kSection = "Settings";
constexpr std::string_view kCorrupt = "Error, Registry information Corrupt!";

constexpr int kSeparatedByNewlines = 5;
constexpr int kSeparatedByCommas = 6;

// A setting that fails this often in a row ends the program, so that nobody is caught in it.
constexpr int kMostFailures = 3;

}  // namespace

std::string Module1::Setting(std::string_view key) {
    return platform.GetSetting(kSection, key).value_or("");
}

void Module1::LoadSettings() {
    if (!ReadOrAsk([this] {
            const double number = ToNumber(Setting("textSep"));
            if (number == kSeparatedByNewlines) {
                TextSepChoice = 1;
            } else if (number == kSeparatedByCommas) {
                TextSepChoice = 2;
            }
        })) {
        return;
    }
    textSep.assign(1, TextSepChoice == 1 ? '\r' : ',');
    if (!ReadOrAsk([this] { OpenMode = ToInteger(Setting("Open")); })) {
        return;
    }
    if (OpenMode < 1 || OpenMode > 4) {
        Tell(kCorrupt);
        OpenMode = 1;
    }
    const std::string extract = Setting("Extract");
    AutoExtract = extract != "False";
    if (AutoExtract && extract != "True") {
        Tell(kCorrupt);
    }
    PimSep = Setting("Sep");
}

bool Module1::ReadOrAsk(const std::function<void()>& read) {
    for (int failures = 1;; ++failures) {
        bool failed = false;
        Guard(read, [&](const RunTimeError&) { failed = true; });
        if (!failed) {
            return true;
        }
        if (!StartingUp) {
            return false;
        }
        if (failures == kMostFailures) {
            platform.End();
        }
        // The preferences window asks here once it exists.
        StoreDefaults();
    }
}

void Module1::StoreDefaults() {
    platform.SaveSetting(kSection, "textSep", std::to_string(kSeparatedByNewlines));
    platform.SaveSetting(kSection, "Open", "1");
    platform.SaveSetting(kSection, "Extract", "False");
    platform.SaveSetting(kSection, "Sep", ",");
    platform.SaveSetting(kSection, "Auto", "False");
}

}  // namespace orvik

// The automation: up to five stored steps that run without the user.

#include <array>
#include <string>

#include "app/module1.h"
#include "app/run_time_error.h"
#include "settings/form2.h"
#include "settings/form6.h"
#include "settings/keys.h"
#include "settings/numbers.h"

namespace orvik {
namespace {

// Returns whether the run goes on. The sorts are crossed: what the preferences
// store for "Sort by Nickname" sorts by address, as it always did.
bool RunStep(Module1& module,
             const std::string& number,
             const std::string& source,
             const std::string& destination) {
    const double code = ToNumber(module.platform.GetSetting(key::kSteps, number).value_or(""));
    if (code == step::kDoneCode) {
        return false;
    }
    if (code == step::kOpenCode) {
        module.AutoOpenFile(source);
    } else if (code == step::kSaveCode) {
        module.AutoSaveFile(destination);
    } else if (code == step::kExtractCode) {
        module.AutoExtractFile(source);
    } else if (code == step::kSortByNicknameCode) {
        module.form1.cmdEmail_Click();
    } else if (code == step::kSortByAddressCode) {
        module.form1.cmdNick_Click();
    }
    return true;
}

}  // namespace

std::vector<NamedHandler> Form6::OtherHandlers() {
    return {{"Form_Click", [this] { Form_Click(); }}};
}

void Form6::Form_Load() {
    Label1.Caption = "Orvik Automation: Ready";
}

void Form6::Form_Click() {
    module_.form1.cmdCancel_Click();
}

void Form1::mnuAuto_Click() {
    module_.SetUpDemoAutomation();
}

void Module1::RunAutomation() {
    if (NumberOrZero(key::kSettings, "info") == 1) {
        form6.Show(Showing::Modeless);
        platform.Repaint();
    }
    const std::string source = Setting("aOpenName");
    const std::string destination = Setting("aSaveName");
    for (int i = 1; i <= 5; ++i) {
        form6.Load();
        AutomationStep = i;
        form6.Label1.Caption = "Orvik Automation: Step " + std::to_string(i);
        platform.Repaint();
        if (!RunStep(*this, std::to_string(i), source, destination)) {
            break;
        }
    }
    form6.Hide();
    if (NumberOrZero(key::kSettings, "aClose") == 1) {
        platform.End();
    }
}

void Module1::RunStoredAutomation() {
    for (int failures = 0; failures < 2 && Setting("Auto") == "True";) {
        bool failed = false;
        TrapFailure([&] { RunAutomation(); },
                    [&](const RunTimeError& failure) {
                        failed = true;
                        form6.Hide();
                        Tell(failure);
                    });
        if (!failed) {
            return;
        }
        // The preferences let the user switch it off; a second failure in a row skips it.
        if (++failures == 1) {
            form2.SSTab1.Front = Form2::kAutomationTab;
            AskForSettings();
            form2.SSTab1.Front = 0;
        }
    }
}

void Module1::SetUpDemoAutomation() {
    constexpr std::array<std::string_view, 5> kCodes = {"5", "4", "1", "0", "0"};
    for (std::size_t i = 0; i < kCodes.size(); ++i) {
        platform.SaveSetting(key::kSteps, std::to_string(i + 1), kCodes.at(i));
    }
    Save("aOpenName", "c:\\quenvale\\orvik.xtr");
    Save("aSaveName", "c:\\quenvale\\orvik.html");
    Save("Auto", "True");
}

}  // namespace orvik

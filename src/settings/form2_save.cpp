// Storing the preferences.

#include <array>
#include <string>

#include "app/module1.h"
#include "settings/form2.h"
#include "settings/keys.h"

namespace orvik {

void Form2::Command1_Click() {
    if (!SaveFormats()) {
        return;
    }
    module_.Save("extract", "False");
    module_.PimSep = Text1.Text();
    module_.Save("Sep", module_.PimSep);
    if (Check1.Value == 1) {
        SaveAutomation();
    } else {
        module_.RemoveStartUpLink();
        module_.Save("Auto", "False");
    }
    module_.LoadSettings();
    Unload();
}

// What is chosen is stored before the next choice is looked at.
bool Form2::SaveFormats() {
    struct Row {
        const OptionButton* Option;
        std::string_view Value;
    };
    const std::array formats = {
        Row{&Option1, "1"}, Row{&Option2, "2"}, Row{&Option3, "3"}, Row{&Option4, "4"}};
    const std::array separators = {Row{&Option5, "5"}, Row{&Option6, "6"}};
    const auto save = [this](std::string_view name, const auto& rows) {
        for (const Row& row : rows) {
            if (row.Option->Value) {
                module_.Save(name, row.Value);
                return true;
            }
        }
        module_.Tell("Please select a valid option");
        return false;
    };
    return save("Open", formats) && save("textSep", separators);
}

void Form2::SaveAutomation() {
    module_.Save("Auto", "True");
    module_.Save("info", std::to_string(Check4.Value));
    module_.Save("StartUp", std::to_string(Check2.Value));
    if (Check2.Value == 1) {
        module_.CreateStartUpLink();
    } else {
        module_.RemoveStartUpLink();
    }
    // Step 3 saves also where step 2 does nothing: "Done" is looked for among the
    // codes, where it never stands, so step 2 stays empty.
    std::array<std::string, 5> codes;
    if (Option7.Value) {
        codes[0] = std::to_string(step::kOpenCode);
    } else if (Option8.Value) {
        codes[0] = std::to_string(step::kExtractCode);
    }
    if (Combo1.Text == step::kSortByNickname) {
        codes[1] = std::to_string(step::kSortByNicknameCode);
    } else if (Combo1.Text == step::kSortByAddress) {
        codes[1] = std::to_string(step::kSortByAddressCode);
    }
    codes[2] = std::to_string(step::kSaveCode);
    codes[3] = std::to_string(step::kDoneCode);
    for (std::size_t i = 0; i < codes.size(); ++i) {
        module_.platform.SaveSetting(key::kSteps, std::to_string(i + 1), codes.at(i));
    }
    module_.Save("aOpenName", Text2.Text());
    module_.Save("aSaveName", Text3.Text());
    module_.Save("aClose", std::to_string(Check3.Value));
}

}  // namespace orvik

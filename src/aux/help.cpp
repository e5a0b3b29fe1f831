// Help topics: which help file and window a topic is shown in.

#include <string>

#include "app/module1.h"

namespace orvik {

std::string Module1::HelpFilePath(int number) {
    switch (number) {
        case 1:
            return platform.ProgramFolder() + "\\help.chm";
        case 2:
            return platform.ProgramFolder() + "\\HelpTutorial.chm";
        default:
            return {};
    }
}

void Module1::ShowHelpTopic(int number, std::string_view window, std::string_view topic) {
    platform.ShowHelp(HelpCommand::Topic, HelpFilePath(number).append(">").append(window), topic);
}

}  // namespace orvik

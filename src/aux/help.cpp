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

void Module1::ShowHelpContents(int number, std::string_view window) {
    platform.ShowHelp(HelpCommand::Contents, HelpFilePath(number).append(">").append(window), "");
}

void Module1::ShowHelpIndex(int number, std::string_view window) {
    platform.ShowHelp(HelpCommand::Index, HelpFilePath(number).append(">").append(window), "");
}

void Form1::mnuHlp_Click() {
    module_.ShowHelpTopic(1, "Stripped", "install.html");
}

void Form1::mnuHelpContents_Click() {
    module_.ShowHelpContents(1, "SecWin");
}

void Form1::mnuHelpIndex_Click() {
    module_.ShowHelpIndex(1, "SecWin");
}

}  // namespace orvik

// The shortcut that starts the program with the user's session.

#include <string>

#include "app/module1.h"

namespace orvik {
namespace {

constexpr std::string_view kFolder = "StartUp";
constexpr std::string_view kName = "Orvik Auto";

}  // namespace

void Module1::CreateStartUpLink() {
    const ShellLink link{
        .Folder = std::string(kFolder),
        .Name = std::string(kName),
        .Target = platform.ProgramFolder() + "\\" + platform.ProgramName() + ".exe",
        .Arguments = {},
        .Private = true,
        .Parent = "$(Programs)"};
    if (!platform.CreateShellLink(link)) {
        TellFailed("Error creating startup icon!");
    }
}

// Whether there was one does not matter.
void Module1::RemoveStartUpLink() {
    platform.RemoveShellLink(kFolder, kName);
}

}  // namespace orvik

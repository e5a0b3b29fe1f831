// Every command of the main window and every button, with what it needs to run to its end.

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "reliability/world.h"

namespace orvik::test {

// How the main window holds a text before a command.
enum class Holding { Native, List, EditText };

[[nodiscard]] std::string_view NameOf(Holding holding);

// Puts a text into the window, and everywhere else where a command may look for one: the clipboard,
// the handheld export and, if a file is named, that file, which is also the answer of a file
// dialog.
void Put(World& world, const std::string& text, Holding holding, const std::string& file);

struct MainCommand {
    std::string Name;
    std::string File;  // of the folder, if it needs one
    std::function<void(World& world)> Act;
};

// The rows of the menus, the buttons, clicks on the lists, and what has no row: typing, undo and
// single entries. Commands that ask for a file stand there once for each kind of file.
[[nodiscard]] std::vector<MainCommand> MainCommands();

}  // namespace orvik::test

// Every command that reads or writes files, each with the file that it is tried on.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "reliability/world.h"

namespace orvik::test {

// How a command tells of a failure: by its number, or by a box that asks for another name.
enum class Telling { Number, AnotherName };

struct FileCommand {
    std::string Name;  // as docs/reliability.md calls it
    std::string File;
    std::string Contents;  // of the file, where it is there already
    std::function<void(World& world)> Prepare;
    std::function<void(World& world)> Act;
    Telling How = Telling::Number;
    // A saving that keeps the old book aside makes this file too.
    std::string Aside = {};
};

[[nodiscard]] const std::vector<FileCommand>& Readers();
[[nodiscard]] const std::vector<FileCommand>& Savers();

}  // namespace orvik::test

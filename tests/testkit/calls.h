// The procedures that a scenario can call by name.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/module1.h"

namespace orvik::testkit {

struct Procedure {
    std::string_view Name;
    std::size_t FewestArguments;
    std::size_t MostArguments;
    // Returns a function's result as a transcript shows it.
    std::function<std::optional<std::string>(Module1&, const std::vector<std::string>&)> Run;
};

// Errors: ScenarioError if there is no such procedure or it takes another number of arguments.
[[nodiscard]] const Procedure& FindProcedure(std::string_view name, std::size_t arguments);

}  // namespace orvik::testkit

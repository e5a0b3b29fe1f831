// The command line of the scenario programs.

#pragma once

#include <functional>
#include <memory>

#include "testkit/actor.h"
#include "testkit/scenario_platform.h"

namespace orvik::testkit {

// Makes the actor of one scenario. The actor may hold on to the platform.
using MakeActor = std::function<std::unique_ptr<Actor>(ScenarioPlatform& platform)>;

//   PROGRAM FILE            runs one scenario, prints its transcript on standard output
//   PROGRAM -               the same, from standard input
//   PROGRAM --check FILE... runs each, compares with the expectations written inside it
// Returns the exit status: 0; 1 when a check failed; 2 for a scenario that cannot be run.
int ScenarioMain(int argc, char** argv, const MakeActor& make_actor);

}  // namespace orvik::testkit

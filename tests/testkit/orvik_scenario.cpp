// orvik-scenario: runs scenario files on the forms, without a window.

#include "testkit/scenario_main.h"

int main(int argc, char** argv) {
    using namespace orvik::testkit;
    return ScenarioMain(argc, argv, [](ScenarioPlatform&) { return std::make_unique<Actor>(); });
}

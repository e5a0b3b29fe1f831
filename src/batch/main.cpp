// orvik-batch: the commands of Orvik for scripts.

#include <unistd.h>

#include <chrono>
#include <iostream>
#include <variant>

#include "batch/arguments.h"
#include "batch/messenger.h"
#include "batch/run_steps.h"
#include "platform/system_files.h"
#include "store/settings_store.h"

namespace {

// A step that is done before a reader looks needs no progress.
constexpr std::chrono::milliseconds kQuickStep{500};

}  // namespace

int main(int argc, char** argv) {
    using namespace orvik::batch;
    orvik::HandleSignals();
    const auto parsed = ParseArguments(argc, argv, std::cout, std::cerr);
    if (const auto* const status = std::get_if<Status>(&parsed)) {
        return static_cast<int>(*status);
    }
    Messenger messenger(std::cerr, isatty(STDERR_FILENO) == 1, kQuickStep);
    return static_cast<int>(
        RunSteps(std::get<Arguments>(parsed), messenger, orvik::SettingsStore::UserFile()));
}

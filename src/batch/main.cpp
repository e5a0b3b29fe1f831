// orvik-batch: the commands of Orvik for scripts.

#include <chrono>
#include <iostream>
#include <new>
#include <stdexcept>
#include <variant>

#include "batch/arguments.h"
#include "batch/run_steps.h"
#include "cli/messenger.h"
#include "platform/system_files.h"
#include "platform/system_process.h"
#include "store/settings_store.h"

namespace {

using namespace orvik::batch;

constexpr const char* kProgram = "orvik-batch";

// A step that is done before a reader looks needs no progress.
constexpr std::chrono::milliseconds kQuickStep{500};

// Runs before anything else is made, which may lack memory already.
[[gnu::constructor(101)]] void Prepare() {
    orvik::EndWhereMemoryLacks(kProgram);
}

Status Run(int argc, const char* const* argv) {
    const auto parsed = ParseArguments(argc, argv, std::cout, std::cerr);
    if (const auto* const status = std::get_if<Status>(&parsed)) {
        return *status;
    }
    orvik::cli::Messenger messenger(kProgram, std::cerr, orvik::ErrorsGoToTerminal(), kQuickStep);
    orvik::SystemFiles files;
    return RunSteps(
        std::get<Arguments>(parsed), messenger, files, orvik::SettingsStore::UserFile());
}

}  // namespace

int main(int argc, char** argv) {
    orvik::ReserveStandardStreams();
    orvik::HandleSignals();
    // Caught here, so that what was begun is undone.
    try {
        return static_cast<int>(Run(argc, argv));
    } catch (const std::bad_alloc&) {
        orvik::EndOutOfMemory(kProgram);
    } catch (const std::length_error&) {
        orvik::EndOutOfMemory(kProgram);
    }
}

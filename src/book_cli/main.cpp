// orvik-book: address books with all that they hold, for scripts.

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string>
#include <variant>

#include "app/text.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/verbs.h"
#include "cli/messenger.h"
#include "platform/system_files.h"
#include "platform/system_process.h"

namespace {

using namespace orvik::book_cli;

constexpr const char* kProgram = "orvik-book";

// Work that is done before a reader looks needs no progress.
constexpr std::chrono::milliseconds kQuickStep{500};

// Runs before anything else is made, which may lack memory already.
[[gnu::constructor(101)]] void Prepare() {
    orvik::EndWhereMemoryLacks(kProgram);
}

// NO_COLOR counts if it is not empty.
bool WantsColours() {
    const char* const no_color = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    return orvik::OutputGoesToTerminal() && (no_color == nullptr || *no_color == '\0') &&
           (terminal == nullptr || std::string(terminal) != "dumb");
}

bool Ask(const std::string& question) {
    if (!orvik::InputComesFromTerminal() || !orvik::ErrorsGoToTerminal()) {
        return false;
    }
    std::cerr << kProgram << ": " << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    answer = orvik::ToLower(answer);
    return answer == "y" || answer == "yes";
}

orvik::cli::ExitStatus RunProgram(int argc, const char* const* argv) {
    const auto parsed = ParseArguments(argc, argv, std::cout, std::cerr);
    if (const auto* const status = std::get_if<orvik::cli::ExitStatus>(&parsed)) {
        return *status;
    }
    orvik::cli::Messenger messenger(kProgram, std::cerr, orvik::ErrorsGoToTerminal(), kQuickStep);
    orvik::SystemFiles files;
    const Surroundings around{
        files, std::cout, messenger, WantsColours(), &orvik::ReadStandardInput, &Ask};
    Console console(around);
    return Run(std::get<Arguments>(parsed), console);
}

}  // namespace

int main(int argc, char** argv) {
    orvik::ReserveStandardStreams();
    orvik::HandleSignals();
    // Caught here, so that what was begun is undone.
    try {
        return static_cast<int>(RunProgram(argc, argv));
    } catch (const std::bad_alloc&) {
        orvik::EndOutOfMemory(kProgram);
    } catch (const std::length_error&) {
        orvik::EndOutOfMemory(kProgram);
    }
}

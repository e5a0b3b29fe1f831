// The arguments of orvik-batch.

#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "cli/exit_status.h"
#include "platform/platform.h"

namespace orvik::batch {

using Status = cli::ExitStatus;

enum class Command { Open, Extract, Merge, SortByAddress, SortByNickname, Save, Pim, Automation };

struct Step {
    Command What = Command::Open;
    // The file that is read or written; for Pim the one that is read.
    std::string File;
    // The file that Pim writes.
    std::string Output;
};

enum class Separator { Newline, Comma };

struct Arguments {
    // In the order given, at least one.
    std::vector<Step> Steps;
    // None: what the settings say, or newlines without them.
    std::optional<Separator> EntriesBy;
    // What every question is answered.
    Answer Reply = Answer::No;
    bool Quiet = false;

    // Whether the user's settings are read.
    [[nodiscard]] bool UsesSettings() const;
};

// ParseArguments: the arguments, or the exit status where there is nothing to run: after help and
// version, which go to out, and after a mistake, which goes to err. Errors: std::bad_alloc.
[[nodiscard]] std::variant<Arguments, Status> ParseArguments(int argc,
                                                             const char* const* argv,
                                                             std::ostream& out,
                                                             std::ostream& err);

}  // namespace orvik::batch

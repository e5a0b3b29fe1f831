// Runs the steps of orvik-batch.

#pragma once

#include <string>

#include "batch/arguments.h"
#include "cli/messenger.h"
#include "platform/file_system.h"

namespace orvik::batch {

// RunSteps: runs the steps in their order up to the first one that has a problem, so that nothing
// is saved after a book that could not be read. Returns the exit status. Errors: std::bad_alloc.
[[nodiscard]] Status RunSteps(const Arguments& arguments,
                              cli::Messenger& messenger,
                              FileSystem& files,
                              const std::string& settings_file);

}  // namespace orvik::batch

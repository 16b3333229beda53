#pragma once

#include "app/command_line.h"

#include <optional>

namespace quillery {

/// Runs the program with its window until the user quits, on `project` when one is given.
/// Drawings are converted by what `makeFlattener` makes, if it makes one.
ExitStatus runWindow(int& argc, char** argv, const ProgramPlaces& places,
                     const std::optional<std::filesystem::path>& project,
                     const MakeFlattener& makeFlattener);

} // namespace quillery

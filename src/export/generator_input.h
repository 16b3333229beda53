#pragma once

#include "base/problem.h"
#include "base/result.h"
#include "model/font_project.h"

#include <filesystem>
#include <string>

namespace quillery {

// What the font generator is told: one JSON object with the project's names and metrics, its glyphs
// (name, character, metrics and outline) and its kerning pairs. All values are those of the
// project, unchecked and unrounded; nothing says where the font goes or in which format.

/// The document as UTF-8 text. Prints the kerning pairs and the beginning of the document. Fails
/// for a number that is not finite, which has no JSON form. May be called on any thread.
Result<std::string, Problem> createJSONData(const FontProject& project);

/// Writes the document into a new file in the user's temporary folder and returns its absolute
/// path. Prints where. What could be written of it stays when that fails half way.
Result<std::filesystem::path, Problem> writeGeneratorInput(const FontProject& project);

} // namespace quillery

#pragma once

#include "base/file.h"
#include "base/json_writer.h"
#include "base/problem.h"
#include "base/result.h"
#include "model/font_project.h"

#include <filesystem>
#include <string>

namespace quillery {

// The .fontproj document: one JSON object in UTF-8. Members are the fields of the records under
// their own names; a point is [x, y], a rectangle [[x, y], [width, height]], a path command an
// object of one member named after the command, with its points as "_0", "_1", "_2".

/// The file name extension of projects, without its dot.
inline constexpr const char* kProjectExtension = "fontproj";

/// Reads a document. Values are stored as they are; no metric rule runs. Members may stand in any
/// order, unknown ones are passed over, of equal ones the last counts; a byte-order mark is
/// skipped. A problem lies at a member or at a place in the text. The bytes are used as scratch
/// space and are the same again afterwards.
Result<FontProject, Problem> decodeProject(FileBytes& bytes);

/// Writes a document. Fails for a number that is not finite; the sink has seen a part of the
/// document then. A sink that stops ends the writing without an error of its own.
Result<void, Problem> encodeProject(const FontProject& project, const ByteSink& sink);

Result<FontProject, Problem> readProjectFile(const std::filesystem::path& path);

/// Replaces the file whole or not at all.
Result<void, Problem> writeProjectFile(const std::filesystem::path& path,
                                       const FontProject& project);

} // namespace quillery

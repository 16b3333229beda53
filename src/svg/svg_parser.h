#pragma once

#include "base/file.h"
#include "model/glyph.h"
#include "svg/plain_path.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillery {

/// Reads drawings. A drawing's outline is the data of its first path element, found by searching
/// the text, so anything that looks like an SVG path will do; all else in the file is passed over.
/// May be called on any thread.
namespace SVGParser {

/// Reads one file to a glyph that is not placed yet: name and character from the file name, view
/// box from the path data. Prints a line and returns nothing when the file can't be used.
std::optional<Glyph> parseSVGFile(const std::filesystem::path& file);

/// A glyph that is not placed yet, and its outline in the drawing's units.
struct UnplacedDrawing {
  Glyph glyph;
  Outline outline;
  /// Its path data is as programs write it (readPlainPath).
  bool isPlain = false;
};

/// The same of the file's content, with the outline, and with the line as the error instead of
/// printed.
Result<UnplacedDrawing, std::string> readDrawing(const std::filesystem::path& file,
                                                 std::string_view content);

/// The line for a file that can't be read.
std::string unreadable(const std::filesystem::path& file);

/// What path data draws, with name and character from the name of its file without extension.
UnplacedDrawing drawingOf(const Utf8& fileName, Utf8 pathData);

/// The value of the last attribute whose name ends in d (d itself, or an id behind it) within the
/// first path element that has one; nothing when there is none. Linear time, whatever the text.
std::optional<std::string_view> findPathData(std::string_view svg);

/// The outline and the view box of path data (PathConverter::parsePathData, computeViewBox).
DrawnPath readPath(std::string_view pathData);

/// The tight box of every coordinate pair in the path data, whichever command it belongs to, in
/// the drawing's units; 0, 0, 100, 100 for less than one pair.
Rect computeViewBox(std::string_view pathData);

} // namespace SVGParser
} // namespace quillery

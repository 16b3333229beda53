#pragma once

#include "model/font_project.h"

#include <filesystem>
#include <string>

namespace quillery::bench {

/// The path data of a drawing of about 50 curves with two decimals, as drawing programs write them;
/// different for every number.
std::string madePathData(unsigned number);

/// The path data of a letter drawn with a brush: a ring of two contours with rough edges, 50 curves
/// in all; different for every number.
std::string madeLetterData(unsigned number);

using MakePathData = std::string (*)(unsigned number);

/// A project of made drawings, one glyph each, named "g00000" and up, mapped to CJK characters and
/// further, with `pairs` kerning pairs between them.
FontProject madeProject(std::size_t glyphs, std::size_t pairs, MakePathData drawing = madePathData);

/// A folder of drawings "g00000.svg" and up, removed when it goes.
class DrawingFolder {
public:
  explicit DrawingFolder(std::size_t drawings);
  ~DrawingFolder();
  DrawingFolder(const DrawingFolder&) = delete;
  DrawingFolder& operator=(const DrawingFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

} // namespace quillery::bench

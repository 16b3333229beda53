#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillery::action {

// What undo steps are called.

inline constexpr const char* kChangeFontName = "Change Font Name";
inline constexpr const char* kChangeDesigner = "Change Designer";
inline constexpr const char* kChangeVersion = "Change Version";
inline constexpr const char* kChangeUnitsPerEm = "Change Units Per Em";
inline constexpr const char* kChangeAscender = "Change Ascender";
inline constexpr const char* kChangeDescender = "Change Descender";
inline constexpr const char* kChangeCapHeight = "Change Cap Height";
inline constexpr const char* kChangeXHeight = "Change x-Height";

inline constexpr const char* kDragGlyphPosition = "Drag Glyph Position";
inline constexpr const char* kDragLeftSideBearing = "Drag Left Sidebearing";
inline constexpr const char* kDragRightSideBearing = "Drag Right Sidebearing";
inline constexpr const char* kDragVerticalOffset = "Drag Vertical Offset";
inline constexpr const char* kDragScale = "Drag Scale";

inline constexpr const char* kRenameGlyph = "Rename Glyph";
inline constexpr const char* kChangeUnicode = "Change Unicode";
inline constexpr const char* kChangeLeftSideBearing = "Change Left Sidebearing";
inline constexpr const char* kChangeRightSideBearing = "Change Right Sidebearing";
inline constexpr const char* kChangeAdvanceWidth = "Change Advance Width";
inline constexpr const char* kChangeVerticalOffset = "Change Vertical Offset";
inline constexpr const char* kScaleGlyph = "Scale Glyph";

inline std::string applyMetrics(std::size_t count) {
  return "Apply Metrics to " + std::to_string(count) + " Glyphs";
}

inline std::string changeMetrics(std::size_t count) {
  return count == 1 ? "Change Metrics" : "Change Metrics of " + std::to_string(count) + " Glyphs";
}

inline std::string deleteGlyphs(std::size_t count) {
  return "Delete " + std::to_string(count) + " Glyphs";
}

inline std::string kernPairs(std::size_t count) {
  return "Kern " + std::to_string(count) + (count == 1 ? " Pair" : " Pairs");
}

inline std::string changeKerning(std::string_view leftGlyph, std::string_view rightGlyph) {
  return std::string("Change Kerning ").append(leftGlyph).append("/").append(rightGlyph);
}

} // namespace quillery::action

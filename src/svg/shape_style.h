#pragma once

#include <string_view>

namespace quillery {

/// What style says of a shape, as far as it decides whether and how the shape is drawn. The members
/// that an element does not set are those of the element around it.
struct ShapeStyle {
  bool filled = true;
  bool white = false; ///< or nearly
  bool evenOdd = false;
  bool stroked = false;
  bool strokeHasWidth = true;
  bool visible = true;
  // Of the element or one around it.
  bool removed = false;     ///< not displayed, or of no opacity
  bool transformed = false; ///< by more than a shift
  bool clipped = false;
  bool masked = false;
  bool filtered = false;
  bool marked = false;

  bool hasStroke() const { return stroked && strokeHasWidth; }

  /// A property, from an attribute or a style sheet; those that decide nothing are passed over.
  void set(std::string_view property, std::string_view value);
  /// "fill: none; stroke: black".
  void setAll(std::string_view declarations);

  friend bool operator==(const ShapeStyle&, const ShapeStyle&) = default;
};

/// False for the text of a style sheet that colours shapes dark and nothing more.
bool styleSheetMatters(std::string_view text);

} // namespace quillery

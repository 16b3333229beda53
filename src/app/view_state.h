#pragma once

#include "project/glyph_sort_order.h"

#include <optional>
#include <string>
#include <vector>

namespace quillery {

/// What of the window comes back at the next start: how it looks, not what it shows. Lengths are
/// points. Stored as a list of texts of the kind "cardSize=120".
struct ViewState {
  enum class Scheme { system, light, dark };

  int width = 0; ///< of the window when it is not maximized; 0 while nobody has chosen
  int height = 0;
  bool maximized = false;
  int gridWidth = 0; ///< 0 while nobody has moved the divider
  GlyphSortOrder sortOrder = GlyphSortOrder::unicode;
  int cardSize = 120;
  bool preview = true;
  Scheme scheme = Scheme::system;

  /// What can't be read, or makes no sense, stays as it is in a new window.
  static ViewState parse(const std::vector<std::string>& list);
  std::vector<std::string> list() const;

  friend bool operator==(const ViewState&, const ViewState&) = default;
};

/// The range of `cardSize`, which goes in steps.
inline constexpr int kLeastCard = 80;
inline constexpr int kGreatestCard = 200;
inline constexpr int kCardStep = 10;

} // namespace quillery

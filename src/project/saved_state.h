#pragma once

#include "model/font_project.h"
#include "project/glyph_index.h"

#include <optional>

namespace quillery {

/// What the project's file holds, or what it was when it was begun, to tell whether there are
/// changes that no file holds. Outlines are shared with the project, so it costs little.
class SavedState {
public:
  void keep(const FontProject& project);
  void changed() { changed_ = true; }
  /// What was changed may have been changed back: it is looked at when somebody asks.
  void mayBeBack() { mayBeBack_ = true; }
  bool differsFrom(const FontProject& project) const;
  /// Whether a glyph stands in the file with just these values.
  bool holds(const Glyph& glyph) const;

private:
  FontProject saved_;
  mutable std::optional<GlyphIndex> index_; // made when it is asked
  mutable bool changed_ = false;
  mutable bool mayBeBack_ = false;
};

} // namespace quillery

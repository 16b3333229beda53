#include "project/saved_state.h"

#include <utility>

namespace quillery {

void SavedState::keep(const FontProject& project) {
  saved_ = project;
  index_.reset();
  changed_ = mayBeBack_ = false;
}

bool SavedState::differsFrom(const FontProject& project) const {
  if (std::exchange(mayBeBack_, false) && changed_) changed_ = project != saved_;
  return changed_;
}

bool SavedState::holds(const Glyph& glyph) const {
  if (!index_) index_.emplace(saved_.glyphs);
  const auto position = index_->withId(glyph.id());
  return position && saved_.glyphs[*position] == glyph;
}

} // namespace quillery

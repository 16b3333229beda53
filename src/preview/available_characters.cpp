#include "preview/available_characters.h"

#include <algorithm>

namespace quillery {

std::string availableCharacters(const FontProject& project) {
  std::string text;
  bool first = true;
  for (const Glyph& glyph : project.glyphs) {
    if (!glyph.unicode()) continue;
    if (!std::exchange(first, false)) text += ' ';
    text += *glyph.unicode();
  }
  return text;
}

bool AvailableCharacters::projectChanged(const ProjectChange& change) {
  using What = ProjectChange::What;
  switch (change.what) {
  case What::project:
  case What::glyphList:
  case What::everything:
    stale_ = true;
    return true;
  case What::glyphs:
    return std::any_of(change.ids.begin(), change.ids.end(),
                       [this](const Uuid& id) { return glyphChanged(id); });
  default:
    return false;
  }
}

bool AvailableCharacters::glyphChanged(const Uuid& id) {
  if (stale_) return false;
  const auto position = manager_.glyphIndex().withId(id);
  if (!position || *position >= ofGlyphs_.size()) return false;
  stale_ = manager_.currentProject().glyphs[*position].unicode() != ofGlyphs_[*position];
  return stale_;
}

const std::vector<std::string>& AvailableCharacters::list() {
  if (!std::exchange(stale_, false)) return list_;
  ofGlyphs_.clear();
  list_.clear();
  for (const Glyph& glyph : manager_.currentProject().glyphs) {
    ofGlyphs_.push_back(glyph.unicode());
    if (glyph.unicode()) list_.push_back(*glyph.unicode());
  }
  return list_;
}

} // namespace quillery

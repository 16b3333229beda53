#include "preview/available_characters.h"

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
  case What::glyph: {
    if (stale_) return false;
    const auto position = manager_.glyphIndex().withId(change.id);
    if (!position || *position >= ofGlyphs_.size()) return false;
    stale_ = manager_.currentProject().glyphs[*position].unicode() != ofGlyphs_[*position];
    return stale_;
  }
  default:
    return false;
  }
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

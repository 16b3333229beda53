#include "preview/available_characters.h"

#include <utility>

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

bool AvailableCharacters::projectChanged(const ProjectChanges& changes) {
  stale_ = stale_ || changes.has(ProjectChange::What::glyphList);
  for (const Uuid& id : changes.glyphs()) stale_ = stale_ || isAnother(id);
  return stale_;
}

bool AvailableCharacters::isAnother(const Uuid& id) const {
  const auto position = manager_.glyphIndex().withId(id);
  return position && manager_.currentProject().glyphs[*position].unicode() != ofGlyphs_[*position];
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

#pragma once

#include "project/project_watch.h"

#include <optional>
#include <string>
#include <vector>

namespace quillery {

/// The characters that a project has glyphs for, in the order of its glyphs, joined by spaces.
std::string availableCharacters(const FontProject& project);

/// Keeps the characters that a project has glyphs for while glyphs come, go and change. What an
/// edit costs here does not depend on how many glyphs there are, unless it changes the characters.
class AvailableCharacters {
public:
  explicit AvailableCharacters(const ProjectManager& manager) : manager_(manager) {}

  /// True when the list may have become another.
  bool projectChanged(const ProjectChanges& changes);
  /// In the order of the glyphs. Looked up in the project when a change made that necessary.
  const std::vector<std::string>& list();

private:
  bool isAnother(const Uuid& id) const;

  const ProjectManager& manager_;
  bool stale_ = true;
  std::vector<std::optional<Utf8>> ofGlyphs_;
  std::vector<std::string> list_;
};

} // namespace quillery

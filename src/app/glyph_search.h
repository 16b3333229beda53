#pragma once

#include "project/project_manager.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace quillery {

/// What is typed to search the grid: words, of which each must fit. A word fits a glyph when its
/// name holds it, in any case, when it is its character, or that one's code ("e9", "00E9", "U+E9");
/// and a few words say what a glyph lacks or is:
///
/// | word     | fits                                                   |
/// |----------|--------------------------------------------------------|
/// | missing  | no outline was found in its drawing                    |
/// | empty    | it has nothing to draw, as a space                     |
/// | unkerned | it stands in no kerning pair                           |
/// | changed  | it is not as the project's file holds it               |
class GlyphSearch {
public:
  /// The kerning is looked at now.
  GlyphSearch(const ProjectManager& manager, std::string_view text);

  /// Nothing is searched for.
  bool empty() const { return words_.empty(); }
  bool fits(const Glyph& glyph) const;

private:
  bool fits(const Glyph& glyph, const std::string& word) const;

  const ProjectManager& manager_;
  std::vector<std::string> words_; // in lower case
  std::unordered_set<std::string> kerned_;
};

} // namespace quillery

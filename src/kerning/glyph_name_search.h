#pragma once

#include "model/font_project.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// A glyph to choose by its name. Of several of one name it is the first, which is the one that a
/// pair means.
struct NamedGlyph {
  std::string name;
  std::string character; ///< empty when it has none
};

/// The names of the project's glyphs, each once, ascending.
std::vector<NamedGlyph> sortedGlyphNames(const FontProject& project);

/// Finds names as a text is typed: those that contain it, case aside, in the order of the list. A
/// glyph whose character is the text, but whose name hides that ("v" of "uni0076"), comes first.
class GlyphNameSearch {
public:
  using Glyphs = std::shared_ptr<const std::vector<NamedGlyph>>;

  /// Finds all of them at first.
  explicit GlyphNameSearch(Glyphs glyphs);

  void setText(std::string_view text);

  std::size_t size() const { return found_.size(); }
  const NamedGlyph& operator[](std::size_t candidate) const {
    return (*glyphs_)[found_[candidate]];
  }

  /// What the text means without a choice: the glyph of exactly this name, or else the only one of
  /// this character.
  const NamedGlyph* meant(std::string_view text) const;

private:
  Glyphs glyphs_;
  std::vector<std::uint32_t> found_; // in glyphs_
};

} // namespace quillery

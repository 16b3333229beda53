#pragma once

#include "model/font_project.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// The names of the project's glyphs, each once, ascending.
std::vector<std::string> sortedGlyphNames(const FontProject& project);

/// Finds names as a text is typed: those that contain it, case aside, in the order of the list.
class GlyphNameSearch {
public:
  using Names = std::shared_ptr<const std::vector<std::string>>;

  /// Finds all of them at first.
  explicit GlyphNameSearch(Names names);

  void setText(std::string_view text);

  std::size_t size() const { return found_.size(); }
  const std::string& operator[](std::size_t candidate) const {
    return (*names_)[found_[candidate]];
  }

private:
  Names names_;
  std::vector<std::uint32_t> found_; // in names_
};

} // namespace quillery

#pragma once

#include "project/project_manager.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace quillery {

/// A glyph beside the one that is edited. Lengths are font units.
struct Neighbour {
  Uuid glyph;
  std::size_t place; ///< which character of the text
  double origin;     ///< from the origin of the edited glyph, negative to its left
  double advance;
};

/// A line of text in which a glyph is judged: the glyph stands for one of its characters, and the
/// others are its neighbours. They are set with the advances and the kerning of the project, as the
/// preview sets them; a character that has no glyph takes no room, but for a space.
class SpacingText {
public:
  /// A longer text is cut.
  static constexpr std::size_t kMostCharacters = 200;
  static constexpr std::string_view kUsualText = "nnHnn";

  explicit SpacingText(const ProjectManager& manager);

  /// Empty for no neighbours.
  const std::string& text() const { return text_; }
  /// Takes the first line. The edited glyph finds its place anew.
  void setText(std::string_view text);
  /// The edited glyph. It keeps its place where the text has its character there, else it goes to
  /// the one nearest to the middle, else it stands in for the middle character.
  void setGlyph(const Uuid& glyph);
  /// Puts the edited glyph, and the one set next, in this place.
  void setPlace(std::size_t place);
  std::size_t place() const { return place_; }

  /// From left to right. None while the edited glyph is not in the project.
  std::vector<Neighbour> neighbours() const;
  /// The neighbour whose room, from its origin to its advance, has this x.
  std::optional<Neighbour> neighbourAt(double x) const;
  /// Values of this glyph may change what is shown.
  bool concerns(const Glyph& glyph) const;

private:
  void findPlace(bool anew);
  struct Setting;
  Setting settingOf(std::size_t place) const;

  const ProjectManager& manager_;
  std::string text_;
  std::vector<std::string> characters_;
  std::unordered_set<std::string> different_; // of the characters
  std::size_t place_ = 0;
  Uuid glyph_;
};

/// The line of a text to judge a character in: the first that has it, else the first that is not
/// empty.
std::string_view lineFor(std::string_view text, std::string_view character);

} // namespace quillery

#include "editor/spacing_text.h"

#include "base/unicode.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kSpaceWidth = 0.25; // of an em, for a space without a glyph

std::size_t distance(std::size_t a, std::size_t b) {
  return a > b ? a - b : b - a;
}

} // namespace

// What stands in a place of the text.
struct SpacingText::Setting {
  const Glyph* glyph = nullptr; // drawn
  bool isMapped = false;        // it is the character's own, which kerning goes by
  double advance = 0;
};

SpacingText::SpacingText(const ProjectManager& manager) : manager_(manager) {
  setText(kUsualText);
}

void SpacingText::setText(std::string_view text) {
  text = lineFor(text, {});
  characters_.clear();
  std::size_t length = 0;
  for (const std::string_view character : characters(text)) {
    if (characters_.size() == kMostCharacters) break;
    characters_.emplace_back(character);
    length += character.size();
  }
  text_ = text.substr(0, length);
  different_ = {characters_.begin(), characters_.end()};
  findPlace(true);
}

void SpacingText::setGlyph(const Uuid& glyph) {
  glyph_ = glyph;
  findPlace(false);
}

void SpacingText::setPlace(std::size_t place) {
  if (place < characters_.size()) place_ = place;
}

void SpacingText::findPlace(bool anew) {
  const std::size_t middle = characters_.empty() ? 0 : (characters_.size() - 1) / 2;
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  const std::string character = glyph && glyph->unicode() ? std::string(*glyph->unicode()) : "";
  const auto isHere = [&](std::size_t place) { return characters_[place] == character; };
  if (!anew && place_ < characters_.size() && isHere(place_)) return;
  std::optional<std::size_t> nearest;
  for (std::size_t i = 0; i < characters_.size(); ++i)
    if (isHere(i) && (!nearest || distance(i, middle) < distance(*nearest, middle))) nearest = i;
  place_ = nearest.value_or(middle);
}

SpacingText::Setting SpacingText::settingOf(std::size_t place) const {
  Setting setting;
  if (place == place_) {
    setting.glyph = manager_.glyphWithId(glyph_);
    setting.isMapped = setting.glyph != nullptr;
  } else {
    setting.glyph = manager_.glyphForCharacter(characters_[place]);
    setting.isMapped = setting.glyph != nullptr;
    if (!setting.glyph) setting.glyph = manager_.firstGlyphNamed(".notdef");
  }
  if (setting.glyph)
    setting.advance = setting.glyph->advanceWidth();
  else if (characters_[place] == " ")
    setting.advance = kSpaceWidth * static_cast<double>(manager_.currentProject().unitsPerEm);
  return setting;
}

std::vector<Neighbour> SpacingText::neighbours() const {
  if (characters_.empty() || !manager_.glyphWithId(glyph_)) return {};
  std::vector<Setting> line;
  line.reserve(characters_.size());
  for (std::size_t i = 0; i < characters_.size(); ++i) line.push_back(settingOf(i));
  // Origins from the start of the line, and then from the edited glyph.
  std::vector<double> origins;
  double pen = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    origins.push_back(pen);
    pen += line[i].advance;
    if (i + 1 == line.size() || !line[i].glyph || !line[i + 1].isMapped) continue;
    if (const KerningPair* const pair =
            manager_.firstKerningPair(line[i].glyph->name(), line[i + 1].glyph->name()))
      pen += pair->value;
  }
  std::vector<Neighbour> neighbours;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const double origin = origins[i] - origins[place_];
    if (i != place_ && line[i].glyph && std::isfinite(origin))
      neighbours.push_back({line[i].glyph->id(), i, origin, line[i].advance});
  }
  return neighbours;
}

std::optional<Neighbour> SpacingText::neighbourAt(double x) const {
  for (const Neighbour& neighbour : neighbours())
    if (x >= neighbour.origin && x < neighbour.origin + neighbour.advance) return neighbour;
  return std::nullopt;
}

bool SpacingText::concerns(const Glyph& glyph) const {
  return glyph.id() == glyph_ || glyph.name() == ".notdef" ||
         (glyph.unicode() && different_.contains(std::string(*glyph.unicode())));
}

std::string_view lineFor(std::string_view text, std::string_view character) {
  std::string_view first;
  for (const std::string_view line : lines(text)) {
    if (line.empty()) continue;
    if (first.empty()) first = line;
    if (character.empty()) break;
    const auto all = characters(line);
    if (std::find(all.begin(), all.end(), character) != all.end()) return line;
  }
  return first;
}

} // namespace quillery

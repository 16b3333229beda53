#include "preview/preview_scene.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillery {
namespace {

using What = ProjectChange::What;

bool setTextAlike(const FontInfo& a, const FontInfo& b) {
  return a.unitsPerEm == b.unitsPerEm && a.ascender == b.ascender && a.descender == b.descender &&
         a.lineGap == b.lineGap;
}

bool isSameItem(const CharacterInfo& a, const CharacterInfo& b) {
  return a.character == b.character && a.glyphName == b.glyphName;
}

bool isSameItem(const CharacterPairInfo& a, const CharacterPairInfo& b) {
  return a.leftGlyph == b.leftGlyph && a.rightGlyph == b.rightGlyph;
}

// Puts new rectangles in the place of old ones; nothing is hovered that became another item.
template <typename Info>
void renew(HitRows<Info>& rows, std::vector<Info> infos, std::optional<std::size_t>& hovered) {
  const auto& old = rows.infos();
  if (hovered && (*hovered >= old.size() || *hovered >= infos.size() ||
                  !isSameItem(old[*hovered], infos[*hovered])))
    hovered.reset();
  rows = HitRows<Info>(std::move(infos));
}

} // namespace

bool PreviewScene::setText(std::string text) {
  if (text == text_) return false;
  text_ = std::move(text);
  layoutIsStale_ = true;
  hovered_.reset();
  return true;
}

bool PreviewScene::setFontSize(double points) {
  if (points == fontSize_) return false;
  fontSize_ = points;
  layoutIsStale_ = true;
  return true;
}

bool PreviewScene::setMode(PreviewMode mode) {
  if (mode == mode_) return false;
  mode_ = mode;
  hovered_.reset();
  glyphRows_ = {};
  pairRows_ = {};
  rowsAreStale_ = true;
  return true;
}

PreviewScene::Effect PreviewScene::projectChanged(const ProjectChanges& changes) {
  auto effect = Effect::nothing;
  const auto raise = [&](Effect to) { effect = std::max(effect, to); };
  // First: positions in another list of glyphs mean nothing.
  if (changes.has(What::kerningList) || changes.has(What::glyphList) ||
      (changes.has(What::fontInfo) && !setTextAlike(font_, manager_.currentProject())))
    raise(Effect::layout);
  layoutIsStale_ = layoutIsStale_ || effect == Effect::layout;
  for (const Uuid& id : changes.glyphs()) raise(glyphChanged(id));
  for (const Uuid& id : changes.pairs()) raise(pairChanged(id));
  return effect;
}

PreviewScene::Effect PreviewScene::glyphChanged(const Uuid& id) {
  if (layoutIsStale_) return Effect::nothing; // it was announced
  const auto position = manager_.glyphIndex().withId(id);
  if (!position) return Effect::nothing;
  const Glyph& glyph = manager_.currentProject().glyphs[*position];
  const auto used = used_.find(*position);
  if (used != used_.end()) {
    if (used->second.advanceWidth == glyph.advanceWidth() &&
        used->second.unicode == glyph.unicode()) {
      addInk(glyph.fontPath());
      return Effect::picture;
    }
  } else {
    // It may have been given a character of the text.
    const auto& unicode = glyph.unicode();
    if (!unicode || manager_.glyphIndex().forCharacter(*unicode) != position ||
        text_.find(*unicode) == std::string::npos)
      return Effect::nothing;
  }
  layoutIsStale_ = true;
  return Effect::layout;
}

PreviewScene::Effect PreviewScene::pairChanged(const Uuid& id) {
  const FontProject& project = manager_.currentProject();
  const KerningPair* const pair = manager_.kerningPairWithId(id);
  if (!pair || layoutIsStale_) return Effect::nothing;
  const auto& set = layout_.characters;
  const auto isKerned = [&](const SetCharacter& left, const SetCharacter& right) {
    return left.line == right.line && project.glyphs[left.glyph].name() == pair->leftGlyph &&
           project.glyphs[right.glyph].name() == pair->rightGlyph;
  };
  if (std::adjacent_find(set.begin(), set.end(), isKerned) == set.end()) return Effect::nothing;
  layoutIsStale_ = true;
  return Effect::layout;
}

const TextLayout& PreviewScene::layout() {
  if (layoutIsStale_) layOut();
  return layout_;
}

void PreviewScene::layOut() {
  const FontProject& project = manager_.currentProject();
  layout_ = layoutText(text_, project, manager_.glyphIndex(), manager_.kerningIndex(), fontSize_);
  font_ = project;
  layoutIsStale_ = false;
  rowsAreStale_ = true;
  used_.clear();
  lineBegins_.clear();
  ink_ = {};
  for (std::size_t i = 0; i < layout_.characters.size(); ++i) {
    const SetCharacter& set = layout_.characters[i];
    if (i == 0 || set.line != layout_.characters[i - 1].line) lineBegins_.push_back(i);
    const Glyph& glyph = project.glyphs[set.glyph];
    if (used_.try_emplace(set.glyph, UsedGlyph{glyph.advanceWidth(), glyph.unicode()}).second)
      addInk(glyph.fontPath());
  }
  lineBegins_.push_back(layout_.characters.size());
}

void PreviewScene::addInk(const Outline& outline) {
  const Rect box = controlBox(outline);
  if (!isFinite({box.x, box.y}) || !isFinite({box.maxX(), box.maxY()})) return;
  const double right = std::max(ink_.maxX(), box.maxX());
  const double top = std::max(ink_.maxY(), box.maxY());
  ink_.x = std::min(ink_.x, box.x);
  ink_.y = std::min(ink_.y, box.y);
  ink_.width = right - ink_.x;
  ink_.height = top - ink_.y;
}

std::vector<PreviewScene::PlacedGlyph> PreviewScene::glyphsIn(const Rect& area) {
  const TextLayout& layout = this->layout();
  const FontProject& project = manager_.currentProject();
  std::vector<PlacedGlyph> found;
  if (!std::isfinite(layout.scale)) return found;
  // Ink is counted from the origin, with y downwards.
  const double left = ink_.minX() * layout.scale;
  const double right = ink_.maxX() * layout.scale;
  const double above = ink_.maxY() * layout.scale;
  const double below = -ink_.minY() * layout.scale;
  for (std::size_t row = 0; row + 1 < lineBegins_.size(); ++row) {
    const std::size_t begin = lineBegins_[row];
    const double baseline = layout.baseline(layout.characters[begin].line);
    if (!(baseline - above < area.maxY() && baseline + below > area.minY())) continue;
    for (std::size_t i = begin; i < lineBegins_[row + 1]; ++i) {
      const SetCharacter& set = layout.characters[i];
      const Point origin{set.penX, baseline};
      if (!(origin.x + left < area.maxX() && origin.x + right > area.minX()) || !isFinite(origin))
        continue;
      found.push_back({&project.glyphs[set.glyph], origin});
    }
  }
  return found;
}

void PreviewScene::updateRows() {
  const TextLayout& layout = this->layout();
  if (!rowsAreStale_) return;
  rowsAreStale_ = false;
  if (mode_ == PreviewMode::glyphs)
    renew(glyphRows_, characterInfos(layout, manager_.currentProject()), hovered_);
  if (mode_ == PreviewMode::kerning)
    renew(pairRows_, characterPairInfos(layout, manager_.currentProject()), hovered_);
}

bool PreviewScene::setHovered(std::optional<std::size_t> item) {
  return std::exchange(hovered_, item) != item;
}

bool PreviewScene::hover(Point point) {
  updateRows();
  return setHovered(mode_ == PreviewMode::kerning ? pairRows_.at(point) : glyphRows_.at(point));
}

bool PreviewScene::leave() {
  return setHovered(std::nullopt);
}

bool PreviewScene::hoverNext(int step) {
  updateRows();
  const std::size_t count =
      mode_ == PreviewMode::kerning ? pairRows_.infos().size() : glyphRows_.infos().size();
  if (count == 0) return false;
  const auto last = static_cast<std::ptrdiff_t>(count) - 1;
  const auto next = hovered_ ? static_cast<std::ptrdiff_t>(*hovered_) + step : step > 0 ? 0 : last;
  return setHovered(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(next, 0, last)));
}

std::optional<std::size_t> PreviewScene::hovered() {
  updateRows();
  return hovered_;
}

std::optional<Rect> PreviewScene::hoveredBounds() {
  if (const CharacterInfo* glyph = hoveredGlyph()) return glyph->bounds;
  if (const CharacterPairInfo* pair = hoveredPair()) return pair->bounds;
  return std::nullopt;
}

const CharacterInfo* PreviewScene::hoveredGlyph() {
  const auto item = hovered();
  return item && mode_ == PreviewMode::glyphs ? &glyphRows_.infos()[*item] : nullptr;
}

const CharacterPairInfo* PreviewScene::hoveredPair() {
  const auto item = hovered();
  return item && mode_ == PreviewMode::kerning ? &pairRows_.infos()[*item] : nullptr;
}

bool PreviewScene::hoveredPairExists() {
  const CharacterPairInfo* pair = hoveredPair();
  return pair && manager_.firstKerningPair(pair->leftGlyph, pair->rightGlyph);
}

} // namespace quillery

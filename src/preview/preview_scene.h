#pragma once

#include "preview/hit_rows.h"
#include "preview/text_layout.h"
#include "project/project_watch.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillery {

/// What the pointer picks in the preview.
enum class PreviewMode { none, glyphs, kerning };

/// A text set from the open project, and what the pointer rests on. Whoever keeps it tells it what
/// has changed before anything is asked; the layout and the rectangles are computed when they are
/// asked for after something that they depend on has changed. View points, y downwards, from the
/// corner of the drawing surface.
class PreviewScene {
public:
  /// What a change of the project means to the picture.
  enum class Effect {
    nothing,
    picture, ///< an outline that the text uses changed; everything stands where it stood
    layout,
  };

  explicit PreviewScene(const ProjectManager& manager) : manager_(manager) {}

  const std::string& text() const { return text_; }
  double fontSize() const { return fontSize_; }
  PreviewMode mode() const { return mode_; }
  // True when something changed. Another text and another mode forget the hovered item.
  bool setText(std::string text);
  bool setFontSize(double points);
  bool setMode(PreviewMode mode);
  Effect projectChanged(const ProjectChanges& changes);

  const TextLayout& layout();

  struct PlacedGlyph {
    const Glyph* glyph;
    /// Of the glyph's coordinates, on the baseline.
    Point origin;
  };
  /// Every glyph whose ink can touch the area, and few others, in text order. Those at no finite
  /// place are left out. The pointers are good until the next edit.
  std::vector<PlacedGlyph> glyphsIn(const Rect& area);

  // True when the hovered item is another than before.
  bool hover(Point point);
  bool leave();
  /// Moves on by so many items, to the first or the last one when nothing is hovered.
  bool hoverNext(int step);

  /// The position of the hovered item among those of the mode.
  std::optional<std::size_t> hovered();
  std::optional<Rect> hoveredBounds();
  /// Null in other modes and when nothing is hovered. Good until the next change.
  const CharacterInfo* hoveredGlyph();
  const CharacterPairInfo* hoveredPair();
  /// The project has a pair of the hovered names.
  bool hoveredPairExists();

private:
  struct UsedGlyph {
    double advanceWidth;
    std::optional<Utf8> unicode;
  };

  void layOut();
  void addInk(const Outline& outline);
  void updateRows();
  bool setHovered(std::optional<std::size_t> item);
  Effect glyphChanged(const Uuid& id);
  Effect pairChanged(const Uuid& id);

  const ProjectManager& manager_;
  std::string text_;
  double fontSize_ = 48;
  PreviewMode mode_ = PreviewMode::none;

  bool layoutIsStale_ = true;
  TextLayout layout_;
  FontInfo font_; // that the layout was made with
  std::unordered_map<std::size_t, UsedGlyph> used_;
  std::vector<std::size_t> lineBegins_; // first of each line among the characters, and their number
  Rect ink_; // font units; around the outlines used and, since the layout, changed

  bool rowsAreStale_ = true;
  HitRows<CharacterInfo> glyphRows_;
  HitRows<CharacterPairInfo> pairRows_;
  std::optional<std::size_t> hovered_;
};

} // namespace quillery

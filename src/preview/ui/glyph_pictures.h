#pragma once

#include "preview/preview_scene.h"

#include <QCache>
#include <QColor>
#include <QPixmap>
#include <span>

class QPainter;

namespace quillery {

/// Paints glyphs of one size and colour, each within a quarter of a device pixel of its place, from
/// pictures that are kept as long as there is room. Glyphs too large for that are painted anew.
class GlyphPictures {
public:
  /// `scale` is view points in a font unit. The painter may be moved and scaled.
  void paint(QPainter& painter, std::span<const PreviewScene::PlacedGlyph> glyphs, double scale,
             const QColor& color);

  /// Lets go of all pictures.
  void clear() { pictures_.clear(); }

private:
  struct Key {
    Outline::Identity outline;
    QPoint step; // within the pixel of the origin

    friend bool operator==(const Key&, const Key&) = default;
    friend size_t qHash(const Key& key, size_t seed = 0) {
      return qHashMulti(seed, key.outline.commands, key.outline.moves, key.step.x(), key.step.y());
    }
  };
  struct Picture {
    Outline shape;  // keeps its identity
    QPixmap pixmap; // none: empty, or too large
    QPoint corner;  // from the pixel of the origin
    bool tooLarge = false;
  };

  const Picture& picture(const Outline& shape, QPoint step);

  static constexpr int kMostKilobytes = 64 * 1024;
  QCache<Key, Picture> pictures_{kMostKilobytes};
  double scale_ = 0; // device pixels in a font unit
  QColor color_;
};

} // namespace quillery

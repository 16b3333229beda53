#include "desktop/outline_painting.h"

#include "model/contours.h"

#include <QCache>
#include <QPainter>
#include <algorithm>

namespace quillery {
namespace {

constexpr double kMargin = 10;
constexpr int kMostKilobytes = 96 * 1024;
constexpr int kMostElements = 1'000'000; // of paths; 24 bytes each
constexpr double kFarthest = 1e9;        // font units

// An outline's identity tells it from all others as long as one of its copies lives; the cache's
// entries hold one.
struct Key {
  Outline::Identity outline;
  QSize size;
  qreal pixelRatio;
  QRgb color;

  friend bool operator==(const Key&, const Key&) = default;
};

size_t qHash(const Key& key, size_t seed = 0) {
  return qHashMulti(seed, key.outline.commands, key.outline.moves, key.size.width(),
                    key.size.height(), key.pixelRatio, key.color);
}

struct Entry {
  Outline outline;
  QPixmap picture;
};

QCache<Key, Entry>& cache() {
  static QCache<Key, Entry> entries(kMostKilobytes);
  return entries;
}

struct PathKey {
  Outline::Identity outline;

  friend bool operator==(const PathKey&, const PathKey&) = default;
  friend size_t qHash(const PathKey& key, size_t seed = 0) {
    return qHashMulti(seed, key.outline.commands, key.outline.moves);
  }
};

struct PathEntry {
  Outline outline;
  QPainterPath path;
};

QCache<PathKey, PathEntry>& paths() {
  static QCache<PathKey, PathEntry> entries(kMostElements);
  return entries;
}

QPainterPath makePath(const Outline& outline) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  const auto qt = [](Point p) { return QPointF(p.x, p.y); };
  for (const PathCommand& command : contoursOf(outline)) {
    const auto& p = command.points;
    switch (command.kind) {
    case PathCommand::Kind::moveTo:
      path.moveTo(qt(p[0]));
      break;
    case PathCommand::Kind::lineTo:
      path.lineTo(qt(p[0]));
      break;
    case PathCommand::Kind::curveTo:
      path.cubicTo(qt(p[0]), qt(p[1]), qt(p[2]));
      break;
    case PathCommand::Kind::closePath:
      path.closeSubpath();
      break;
    }
  }
  return path;
}

QPixmap paint(const Outline& outline, const Rect& box, QSize size, qreal pixelRatio,
              const QColor& color) {
  QPixmap picture(size * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  const double scale = std::min((size.width() - 2 * kMargin) / box.width,
                                (size.height() - 2 * kMargin) / box.height);
  if (!(scale > 0)) return picture;
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate((size.width() - box.width * scale) / 2 - box.minX() * scale,
                    size.height() -
                        ((size.height() - box.height * scale) / 2 - box.minY() * scale));
  painter.scale(scale, -scale);
  painter.fillPath(painterPath(outline), color);
  return picture;
}

} // namespace

QPainterPath shapePath(const Outline& shape) {
  if (shape.empty()) return {};
  const PathKey key{shape.identity()};
  if (const PathEntry* entry = paths().object(key)) return entry->path;
  QPainterPath path = makePath(shape);
  paths().insert(key, new PathEntry{shape, path}, path.elementCount() + 1);
  return path;
}

QPainterPath painterPath(const Outline& outline) {
  const auto [shape, shift] = outline.shape();
  if (shift == Point{}) return shapePath(shape);
  const bool isNear = std::abs(shift.x) < kFarthest && std::abs(shift.y) < kFarthest;
  // Far away the sum may be no number that a path can have.
  return isNear ? shapePath(shape).translated(shift.x, shift.y) : makePath(outline);
}

void forgetOutlinePictures() {
  paths().clear();
  cache().clear();
}

QPixmap outlinePicture(const Outline& outline, const Rect& box, QSize size, qreal pixelRatio,
                       const QColor& color) {
  const bool shown = !outline.empty() && box.width > 0 && box.height > 0 &&
                     isFinite({box.x, box.y}) && isFinite({box.width, box.height});
  if (!shown || size.isEmpty()) return {};
  // The box is centred, wherever the outline stands.
  const Key key{outline.shape().outline.identity(), size, pixelRatio, color.rgba()};
  if (const Entry* entry = cache().object(key)) return entry->picture;
  QPixmap picture = paint(outline, box, size, pixelRatio, color);
  const auto kilobytes = static_cast<int>(picture.width() * picture.height() * 4 / 1024 + 1);
  cache().insert(key, new Entry{outline, picture}, kilobytes);
  return picture;
}

} // namespace quillery

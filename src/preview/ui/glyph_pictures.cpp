#include "preview/ui/glyph_pictures.h"

#include "desktop/outline_painting.h"

#include <QPainter>
#include <cmath>

namespace quillery {
namespace {

// In a pixel. Spacing is judged by the eye across a line, hardly between lines.
constexpr int kSteps = 4;
constexpr int kStepsDown = 2;
// Pixels. Few larger glyphs fit on a screen, and no picture may be as large as the whole cache.
constexpr double kMostPixels = 512 * 512;
// Pixels from the origin. What reaches beyond is no drawing, and painting it takes forever.
constexpr double kFarthest = 1e6;

} // namespace

const GlyphPictures::Picture& GlyphPictures::picture(const Outline& shape, QPoint step) {
  const Key key{shape.identity(), step};
  if (const Picture* found = pictures_.object(key)) return *found;
  auto* const made = new Picture{shape, {}, {}, false};
  const QTransform place(scale_, 0, 0, -scale_, static_cast<double>(step.x()) / kSteps,
                         static_cast<double>(step.y()) / kStepsDown);
  const QPainterPath path = shapePath(shape);
  const QRectF box = place.mapRect(path.controlPointRect()).adjusted(-1, -1, 1, 1);
  int kilobytes = 1;
  made->tooLarge = !(box.width() * box.height() <= kMostPixels);
  if (!made->tooLarge && !path.isEmpty()) {
    const QRect pixels = box.toAlignedRect();
    made->corner = pixels.topLeft();
    made->pixmap = QPixmap(pixels.size());
    made->pixmap.fill(Qt::transparent);
    kilobytes += pixels.width() * pixels.height() * 4 / 1024;
    QPainter painter(&made->pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(place * QTransform::fromTranslate(-pixels.x(), -pixels.y()));
    painter.fillPath(path, color_);
  }
  pictures_.insert(key, made, kilobytes);
  return *made;
}

void GlyphPictures::paint(QPainter& painter, std::span<const PreviewScene::PlacedGlyph> glyphs,
                          double scale, const QColor& color) {
  const QTransform toDevice = painter.deviceTransform();
  const double pixelScale = scale * toDevice.m11();
  if (pixelScale != scale_ || color != color_) pictures_.clear();
  scale_ = pixelScale;
  color_ = color;

  painter.save();
  // Pictures are laid on device pixels, whatever the window's scale.
  painter.setWorldTransform(toDevice.inverted() * painter.worldTransform());
  const QTransform base = painter.worldTransform();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [glyph, origin] : glyphs) {
    const auto [shape, shift] = glyph->fontPath().shape();
    if (shape.empty()) continue;
    const QPointF pen =
        toDevice.map(QPointF(origin.x + shift.x * scale, origin.y - shift.y * scale));
    if (!(std::abs(pen.x()) < kFarthest && std::abs(pen.y()) < kFarthest)) continue;
    const QPoint steps(static_cast<int>(std::lround(pen.x() * kSteps)),
                       static_cast<int>(std::lround(pen.y() * kStepsDown)));
    // Floored, also left of and above the first pixel.
    const QPoint pixel(steps.x() >> 2, steps.y() >> 1);
    static_assert(kSteps == 1 << 2 && kStepsDown == 1 << 1);
    const Picture& shown =
        picture(shape, {steps.x() - pixel.x() * kSteps, steps.y() - pixel.y() * kStepsDown});
    if (!shown.tooLarge) {
      if (!shown.pixmap.isNull()) painter.drawPixmap(pixel + shown.corner, shown.pixmap);
      continue;
    }
    const QTransform place(pixelScale, 0, 0, -pixelScale, pen.x(), pen.y());
    const QPainterPath path = shapePath(shape);
    const QRectF box = place.mapRect(path.controlPointRect());
    if (!(std::max(box.width(), box.height()) < kFarthest)) continue;
    painter.setWorldTransform(place * base);
    painter.fillPath(path, color);
    painter.setWorldTransform(base);
  }
  painter.restore();
}

} // namespace quillery

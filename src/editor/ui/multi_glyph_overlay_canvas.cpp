#include "editor/ui/multi_glyph_overlay_canvas.h"

#include "desktop/canvas_layers.h"
#include "desktop/outline_painting.h"
#include "desktop/theme.h"
#include "editor/overlay_mapping.h"
#include "editor/ui/canvas_painting.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QTimerEvent>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

// So narrow that the panel shows whole beside the narrowest grid in the smallest window.
constexpr QSize kLeastSize(76, 240);
constexpr Role kColors[] = {Role::blue,   Role::red,  Role::green, Role::purple,
                            Role::orange, Role::pink, Role::cyan,  Role::yellow};
constexpr double kOpacity = 0.4;
constexpr qint64 kMoment = 12;           // ms
constexpr std::size_t kFew = 32;         // outlines that a moment is worth trying for
constexpr std::size_t kBetweenLooks = 4; // at the clock
constexpr double kDraftScale = 0.5;

struct Scene {
  const FontInfo& font;
  Size canvas;
  const QImage& outlines;
  double pixelRatio; // of the outlines
};

QColor guideColor(GuideRole role) {
  switch (role) {
  case GuideRole::baseline:
    return themeColor(Role::textSecondary, 0.3);
  case GuideRole::xHeight:
    return themeColor(Role::blue, 0.2);
  case GuideRole::capHeight:
    return themeColor(Role::green, 0.2);
  case GuideRole::ascender:
    return themeColor(Role::purple, 0.2);
  case GuideRole::descender:
    return themeColor(Role::red, 0.2);
  case GuideRole::origin:
    return themeColor(Role::blue, 0.6);
  default:
    return {};
  }
}

bool isShown(const OverlayMapping& mapping) {
  return mapping.pointsPerUnit() > 0 && std::isfinite(mapping.pointsPerUnit());
}

void paintBackground(QPainter& painter, const Scene& scene) {
  painter.fillRect(QRectF(0, 0, scene.canvas.width, scene.canvas.height), themeColor(Role::canvas));
}

void paintGuideLines(QPainter& painter, const Scene& scene) {
  if (!isShown(OverlayMapping(scene.font, scene.canvas))) return;
  paintGuides(painter, overlayGuides(scene.font, scene.canvas), scene.canvas, guideColor);
}

void paintOutlines(QPainter& painter, const Scene& scene) {
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QSizeF size = QSizeF(scene.outlines.size()) / scene.pixelRatio;
  painter.drawImage(QRectF(QPointF(0, 0), size), scene.outlines);
}

constexpr CanvasLayer<Scene> kLayers[] = {
    {"background", paintBackground}, {"guides", paintGuideLines}, {"outlines", paintOutlines}};

} // namespace

MultiGlyphOverlayCanvas::MultiGlyphOverlayCanvas(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), manager_(manager),
      watch_(manager, {{What::fontInfo, What::glyphs, What::glyphList}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  setObjectName(QStringLiteral("overlayCanvas"));
  setMinimumSize(kLeastSize);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  connect(&Theme::current(), &Theme::changed, this, &MultiGlyphOverlayCanvas::invalidate);
}

void MultiGlyphOverlayCanvas::invalidate() {
  stale_ = true;
  update();
}

void MultiGlyphOverlayCanvas::setGlyphs(const std::vector<Uuid>& glyphs) {
  glyphs_ = glyphs;
  setAccessibleName(tr("%1 outlines over each other").arg(glyphs.size()));
  takeOutlines();
  invalidate();
}

bool MultiGlyphOverlayCanvas::takeOutlines() {
  bool changed = outlines_.size() != glyphs_.size();
  outlines_.resize(glyphs_.size());
  for (std::size_t i = 0; i < glyphs_.size(); ++i) {
    const Glyph* const glyph = manager_.glyphWithId(glyphs_[i]);
    const Outline& outline = glyph ? glyph->fontPath() : Outline();
    if (outline.identity() == outlines_[i].identity()) continue;
    outlines_[i] = outline;
    changed = true;
  }
  return changed;
}

void MultiGlyphOverlayCanvas::refresh(const ProjectChanges& changes) {
  // Widths and side bearings leave the outlines alone.
  if (takeOutlines() || changes.has(What::fontInfo)) invalidate();
}

void MultiGlyphOverlayCanvas::Picture::clear(QSize canvas, double ratio) {
  const QSize pixels = (QSizeF(canvas) * ratio).toSize();
  if (image.size() != pixels) image = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  pixelRatio = ratio;
}

void MultiGlyphOverlayCanvas::makePictures() {
  stale_ = false;
  picture_.clear(size(), devicePixelRatioF());
  unpainted_ = outlines_.size();
  if (unpainted_ <= kFew) unpainted_ = paintDownwards(picture_, unpainted_);
  if (unpainted_ == 0) return idle_.stop();
  draft_.clear(size(), devicePixelRatioF() * kDraftScale);
  draft_.smooth = false;
  paintDownwards(draft_, outlines_.size());
  idle_.start(0, this);
}

// Paints for a moment, from the topmost of the unpainted outlines down, each below what is there.
// Returns how many are left.
std::size_t MultiGlyphOverlayCanvas::paintDownwards(Picture& picture, std::size_t unpainted) const {
  const OverlayMapping mapping(manager_.currentProject(), canvasSize(*this));
  if (picture.image.isNull() || !isShown(mapping)) return 0;
  QPainter painter(&picture.image);
  painter.setRenderHint(QPainter::Antialiasing, picture.smooth);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
  painter.scale(picture.pixelRatio, picture.pixelRatio);
  painter.setTransform(toView(mapping), true);
  QElapsedTimer clock;
  clock.start();
  while (unpainted > 0 && (unpainted % kBetweenLooks != 0 || clock.elapsed() < kMoment)) {
    --unpainted;
    painter.fillPath(painterPath(outlines_[unpainted]),
                     themeColor(kColors[unpainted % std::size(kColors)], kOpacity));
  }
  return unpainted;
}

void MultiGlyphOverlayCanvas::paintEvent(QPaintEvent*) {
  if (stale_ || picture_.pixelRatio != devicePixelRatioF()) makePictures();
  const Picture& shown = unpainted_ == 0 ? picture_ : draft_;
  QPainter painter(this);
  paintLayers<Scene>(painter, kLayers,
                     {manager_.currentProject(), canvasSize(*this), shown.image, shown.pixelRatio});
}

void MultiGlyphOverlayCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  invalidate();
}

void MultiGlyphOverlayCanvas::timerEvent(QTimerEvent* event) {
  if (event->timerId() != idle_.timerId()) return QWidget::timerEvent(event);
  // Nobody waits for the picture of what is out of sight or about to be painted anew.
  stale_ = stale_ || !isVisible();
  if (stale_) return idle_.stop();
  unpainted_ = paintDownwards(picture_, unpainted_);
  if (unpainted_ > 0) return;
  idle_.stop();
  update();
}

} // namespace quillery

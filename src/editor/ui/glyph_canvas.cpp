#include "editor/ui/glyph_canvas.h"

#include "desktop/canvas_layers.h"
#include "desktop/outline_painting.h"
#include "desktop/painting.h"
#include "desktop/theme.h"
#include "editor/ui/canvas_painting.h"
#include "editor/ui/value_slider_row.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

// So narrow that the panel shows whole beside the narrowest grid in the smallest window.
constexpr QSize kLeastSize(76, 240);
constexpr double kNudge = 1; // font units
constexpr double kLargeNudge = 10;

struct Scene {
  const FontInfo& font;
  const Glyph& glyph;
  Size canvas;
  CanvasMapping mapping;

  bool isShown() const {
    return mapping.pointsPerUnit() > 0 && std::isfinite(mapping.pointsPerUnit());
  }
};

QColor guideColor(GuideRole role) {
  switch (role) {
  case GuideRole::baseline:
  case GuideRole::origin:
    return themeColor(Role::blue);
  case GuideRole::xHeight:
    return themeColor(Role::green, 0.5);
  case GuideRole::capHeight:
    return themeColor(Role::orange, 0.5);
  case GuideRole::descender:
  case GuideRole::ascender:
    return themeColor(Role::grey, 0.3);
  case GuideRole::outlineLeftEdge:
  case GuideRole::outlineRightEdge:
    return themeColor(Role::purple, 0.5);
  case GuideRole::advance:
    return themeColor(Role::red, 0.5);
  }
  return {};
}

// Labels have the full colour of their line.
QColor labelColor(GuideRole role) {
  QColor color = guideColor(role);
  color.setAlpha(255);
  return color;
}

void paintBackground(QPainter& painter, const Scene& scene) {
  painter.fillRect(QRectF(0, 0, scene.canvas.width, scene.canvas.height), themeColor(Role::canvas));
}

void paintGuideLines(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  paintGuides(painter, glyphGuides(scene.font, scene.glyph, scene.canvas), scene.canvas,
              guideColor);
}

void paintOutline(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setTransform(toView(scene.mapping), true);
  painter.fillPath(painterPath(scene.glyph.fontPath()), themeColor(Role::canvasInk));
}

void paintLabels(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  painter.setFont(Theme::current().font(TextStyle::caption2));
  const QFontMetricsF metrics(painter.font());
  for (const GuideLabel& label : guideLabels(scene.font, scene.canvas)) {
    if (!std::isfinite(label.centre.y)) continue;
    const QString text = QString::fromStdString(label.text);
    QRectF place(0, 0, std::ceil(metrics.horizontalAdvance(text)) + 1, metrics.height());
    place.moveCenter({label.centre.x, label.centre.y});
    painter.setPen(labelColor(label.role));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, text);
  }
}

constexpr CanvasLayer<Scene> kLayers[] = {{"background", paintBackground},
                                          {"guides", paintGuideLines},
                                          {"outline", paintOutline},
                                          {"labels", paintLabels}};

} // namespace

GlyphCanvas::GlyphCanvas(ProjectManager& manager, QWidget* parent)
    : MouseTrackingView(parent), manager_(manager), drag_(manager),
      watch_(manager,
             {{What::fontInfo, What::glyphs, What::glyphList, What::history},
              [this](const Uuid& glyph) { return glyph == drag_.glyph(); }},
             [this](const ProjectChanges& changes) {
               if (changes.has(What::glyphList)) nameGlyph();
               tellGesture();
               update();
             }) {
  setObjectName(QStringLiteral("glyphCanvas"));
  setAccessibleDescription(tr("Drag with the left button to move the glyph, with the right button "
                              "to change its right side bearing, with the middle button to resize "
                              "it. Arrow keys move it by one unit, with Shift by ten."));
  setMinimumSize(kLeastSize);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  onMouseDown = [this](Point at, MouseButton button) { drag_.press(at, button); };
  onMouseDragged = [this](Point to) { drag_.drag(to, canvasSize(*this)); };
  onMouseUp = [this] {
    drag_.release();
    tellGesture();
  };
  onMouseCancelled = [this] {
    drag_.cancel();
    tellGesture();
  };
  connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void GlyphCanvas::setGlyph(const Uuid& glyph) {
  drag_.setGlyph(glyph);
  nameGlyph();
  update();
}

void GlyphCanvas::nameGlyph() {
  const Glyph* const glyph = manager_.glyphWithId(drag_.glyph());
  setAccessibleName(glyph ? tr("Outline of %1").arg(QString::fromStdString(glyph->name()))
                          : tr("Outline"));
}

void GlyphCanvas::tellGesture() {
  Q_EMIT gestureChanged(shownChanges(drag_.changes()));
}

bool GlyphCanvas::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return MouseTrackingView::event(event);
}

void GlyphCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Glyph* const glyph = manager_.glyphWithId(drag_.glyph());
  if (!glyph) return painter.fillRect(rect(), themeColor(Role::canvas));
  const FontInfo& font = manager_.currentProject();
  const Size size = canvasSize(*this);
  paintLayers<Scene>(painter, kLayers, {font, *glyph, size, CanvasMapping(font, size)});
  if (hasFocus()) painting::focusRing(painter, rect(), 0);
}

void GlyphCanvas::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool plain =
      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  const double by = shift ? kLargeNudge : kNudge;
  if (plain && !isTracking()) {
    switch (event->key()) {
    case Qt::Key_Left:
      return drag_.nudge({-by, 0});
    case Qt::Key_Right:
      return drag_.nudge({by, 0});
    case Qt::Key_Up:
      return drag_.nudge({0, by});
    case Qt::Key_Down:
      return drag_.nudge({0, -by});
    default:
      break;
    }
  }
  MouseTrackingView::keyPressEvent(event);
}

} // namespace quillery

#include "editor/ui/glyph_canvas.h"

#include "base/unicode.h"
#include "desktop/canvas_layers.h"
#include "desktop/painting.h"
#include "desktop/theme.h"
#include "editor/ui/glyph_canvas_painting.h"
#include "editor/ui/value_slider_row.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <utility>

namespace quillery {
namespace {

using What = ProjectChange::What;

// So narrow that the panel shows whole beside the narrowest grid in the smallest window.
constexpr QSize kLeastSize(76, 240);
constexpr double kNudge = 1; // font units
constexpr double kLargeNudge = 10;
constexpr const char* kStoredText = "spacingText";
// What one notch of the wheel does.
constexpr double kNotch = 120;
constexpr double kZoomOfNotch = 1.2;
constexpr double kScrollOfNotch = 48; // view points

} // namespace

GlyphCanvas::GlyphCanvas(ProjectManager& manager, QWidget* parent)
    : MouseTrackingView(parent), manager_(manager), drag_(manager), spacing_(manager),
      watch_(manager,
             {{What::fontInfo, What::glyphs, What::glyphList, What::kerningList, What::kerningPair,
               What::history},
              [this](const Uuid& glyph) { return showsValuesOf(glyph); }},
             [this](const ProjectChanges& changes) {
               if (changes.anotherProject()) view_.fit();
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
  onMouseDown = [this](Point at, MouseButton button) { press(at, button); };
  onMouseDragged = [this](Point to) { dragTo(to); };
  onMouseUp = [this] {
    const bool clicked = !drag_.isDragging();
    const bool panned = endPan();
    if (!panned) drag_.release();
    if (clicked && !panned) clickNeighbour();
    tellGesture();
  };
  onMouseCancelled = [this] {
    if (!endPan()) drag_.cancel();
    tellGesture();
  };
  connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
  const auto stored = manager.desktop().storedList(kStoredText);
  if (stored && stored->size() == 1) spacing_.setText(replaceInvalidUtf8(stored->front()));
}

bool GlyphCanvas::showsValuesOf(const Uuid& glyph) const {
  if (glyph == drag_.glyph()) return true;
  const Glyph* const found = manager_.glyphWithId(glyph);
  // One that has lost its character may still be shown.
  return isVisible() && (!found || !found->unicode() || spacing_.concerns(*found));
}

void GlyphCanvas::setSpacingText(const QString& text) {
  spacing_.setText(text.toStdString());
  manager_.desktop().storeList(kStoredText, {spacing_.text()});
  update();
}

void GlyphCanvas::clickNeighbour() {
  // A gesture that ends while the button is down was taken away, and is no click.
  const bool isHeld = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
  if (pressed_ != MouseButton::left || isHeld) return;
  const FontInfo& font = manager_.currentProject();
  const CanvasMapping mapping(font, canvasSize(*this), view_);
  const Point at = mapping.toFont(pointer_);
  if (!(at.y >= font.descender && at.y <= font.ascender)) return;
  const auto neighbour = spacing_.neighbourAt(at.x);
  if (!neighbour) return;
  spacing_.setPlace(neighbour->place);
  // What was clicked stays under the pointer; at the fit it comes to the middle.
  if (!view_.isFit()) scrollBy({neighbour->origin * mapping.pointsPerUnit(), 0});
  update();
  manager_.selectGlyph(neighbour->glyph);
}

void GlyphCanvas::setGlyph(const Uuid& glyph) {
  drag_.setGlyph(glyph);
  spacing_.setGlyph(glyph);
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

void GlyphCanvas::press(Point at, MouseButton button) {
  pointer_ = at;
  pressed_ = button;
  panning_ = spaceHeld_ && button == MouseButton::left;
  if (panning_)
    setCursor(Qt::ClosedHandCursor);
  else
    drag_.press(at, button);
}

void GlyphCanvas::dragTo(Point to) {
  if (panning_)
    scrollBy({to.x - pointer_.x, to.y - pointer_.y});
  else
    drag_.drag(to, canvasSize(*this), view_);
  pointer_ = to;
}

bool GlyphCanvas::endPan() {
  if (!std::exchange(panning_, false)) return false;
  setCursor(Qt::OpenHandCursor);
  return true;
}

void GlyphCanvas::zoomBy(double factor, QPointF around) {
  // What is being dragged keeps its scale.
  if (drag_.isDragging()) return;
  view_.zoomBy(factor, {around.x(), around.y()}, manager_.currentProject(), canvasSize(*this));
  update();
}

void GlyphCanvas::zoomIn() {
  zoomBy(CanvasView::kStep, QRectF(rect()).center());
}

void GlyphCanvas::zoomOut() {
  zoomBy(1 / CanvasView::kStep, QRectF(rect()).center());
}

void GlyphCanvas::zoomToFit() {
  if (drag_.isDragging()) return;
  view_.fit();
  update();
}

void GlyphCanvas::scrollBy(Point by) {
  if (drag_.isDragging()) return;
  view_.scrollBy(by, manager_.currentProject(), canvasSize(*this));
  update();
}

void GlyphCanvas::wheelEvent(QWheelEvent* event) {
  event->accept();
  const QPointF angle = event->angleDelta();
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    const double turned = angle.y() != 0 ? angle.y() : angle.x();
    return zoomBy(std::pow(kZoomOfNotch, turned / kNotch), event->position());
  }
  QPointF by = event->pixelDelta();
  if (by.isNull()) by = angle / kNotch * kScrollOfNotch;
  if (event->modifiers().testFlag(Qt::ShiftModifier) && by.x() == 0) by = {by.y(), 0};
  scrollBy({by.x(), by.y()});
}

bool GlyphCanvas::pinch(const QNativeGestureEvent& event) {
  if (event.gestureType() != Qt::ZoomNativeGesture) return false;
  zoomBy(1 + event.value(), event.position());
  return true;
}

bool GlyphCanvas::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::FocusOut:
    spaceHeld_ = false;
    [[fallthrough]];
  case QEvent::FocusIn:
    update();
    break;
  case QEvent::NativeGesture:
    if (pinch(*static_cast<QNativeGestureEvent*>(event))) return true;
    break;
  default:
    break;
  }
  return MouseTrackingView::event(event);
}

void GlyphCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Glyph* const glyph = manager_.glyphWithId(drag_.glyph());
  if (!glyph) return painter.fillRect(rect(), themeColor(Role::canvas));
  const FontInfo& font = manager_.currentProject();
  const Size size = canvasSize(*this);
  const QString values = drag_.isDragging() ? shownChanges(drag_.changes()) : QString();
  std::vector<NeighbourOutline> neighbours;
  for (const Neighbour& neighbour : spacing_.neighbours())
    neighbours.push_back({manager_.glyphWithId(neighbour.glyph), neighbour.origin});
  paintGlyphCanvas(painter, {font, *glyph, size, view_, CanvasMapping(font, size, view_),
                             std::move(neighbours), values, QPointF(pointer_.x, pointer_.y)});
  if (hasFocus()) painting::focusRing(painter, rect(), 0);
}

bool GlyphCanvas::zoomByKey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  const bool control = modifiers == Qt::ControlModifier;
  if (modifiers && !control) return false;
  switch (event.key()) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: // the same key without Shift
    zoomIn();
    return true;
  case Qt::Key_Minus:
    zoomOut();
    return true;
  case Qt::Key_0:
    if (control) zoomToFit();
    return control;
  default:
    return false;
  }
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
    case Qt::Key_Space:
      spaceHeld_ = true;
      return;
    default:
      break;
    }
  }
  if (zoomByKey(*event)) return;
  MouseTrackingView::keyPressEvent(event);
}

void GlyphCanvas::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) return MouseTrackingView::keyReleaseEvent(event);
  if (!event->isAutoRepeat()) spaceHeld_ = false;
}

} // namespace quillery

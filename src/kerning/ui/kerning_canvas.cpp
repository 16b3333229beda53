#include "kerning/ui/kerning_canvas.h"

#include "desktop/canvas_layers.h"
#include "desktop/painting.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "kerning/kerning_list.h"
#include "kerning/kerning_pairs.h"
#include "kerning/kerning_stage.h"
#include "kerning/ui/kerning_painting.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr QSize kLeastSize(240, 160);
constexpr QSize kUsualSize(640, 420);
constexpr double kSmallStep = 1; // font units
constexpr double kLargeStep = 10;

} // namespace

KerningCanvas::KerningCanvas(ProjectManager& manager, QWidget* parent)
    : MouseTrackingView(parent, Qt::LeftButton), manager_(manager), drag_(manager),
      watch_(manager,
             {{What::fontInfo, What::glyphList, What::glyphs, What::kerningList, What::kerningPair,
               What::history},
              [this](const Uuid& glyph) { return isVisible() && shows(glyph); },
              [this](const Uuid& pair) { return pair == pair_; }},
             [this](const ProjectChanges&) {
               tellGesture();
               update();
             }) {
  setObjectName(QStringLiteral("kerningCanvas"));
  setAccessibleName(tr("Kerning canvas"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
  onMouseDown = [this](Point p, MouseButton) { drag_.press(pair_, p); };
  onMouseDragged = [this](Point p) {
    const Rect canvas = stage();
    drag_.drag(p, {canvas.width, canvas.height});
  };
  onMouseUp = [this] {
    drag_.release();
    tellGesture();
  };
  onMouseCancelled = [this] {
    drag_.cancel();
    tellGesture();
  };
}

void KerningCanvas::setPair(const Uuid& pair) {
  if (pair_ != pair) drag_.release();
  pair_ = pair;
  update();
}

void KerningCanvas::tellGesture() {
  const KerningPair* const pair = manager_.kerningPairWithId(pair_);
  if (!pair || !drag_.isUnderWay()) return Q_EMIT gestureChanged({});
  // The difference of what is shown, which is rounded.
  const double by = std::round(pair->value) - std::round(drag_.startValue());
  Q_EMIT gestureChanged(
      tr("Kerning %1 (%2)").arg(shownText(kerningText(pair->value)), shownText(kerningText(by))));
}

QSize KerningCanvas::sizeHint() const {
  return kUsualSize;
}

QSize KerningCanvas::minimumSizeHint() const {
  return kLeastSize;
}

KerningScene KerningCanvas::scene() const {
  const KerningPair* pair = manager_.kerningPairWithId(pair_);
  if (!pair) return {};
  return {manager_.firstGlyphNamed(pair->leftGlyph), manager_.firstGlyphNamed(pair->rightGlyph),
          pair->value};
}

Rect KerningCanvas::stage() const {
  const KerningScene shown = scene();
  double depth = -manager_.currentProject().descender;
  for (const Glyph* glyph : {shown.left, shown.right})
    if (glyph && std::isfinite(glyph->boundingBox().minY()))
      depth = std::max(depth, -glyph->boundingBox().minY());
  const auto advance = [](const Glyph* glyph) { return glyph ? glyph->advanceWidth() : 0; };
  return kerningStage(advance(shown.left), advance(shown.right), depth, canvasSize(*this));
}

bool KerningCanvas::shows(const Uuid& glyph) const {
  const KerningScene shown = scene();
  return (shown.left && shown.left->id() == glyph) || (shown.right && shown.right->id() == glyph);
}

void KerningCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painting::box(painter, rect(), radius::card, themeColor(Role::canvas), themeColor(Role::border));
  painter.save();
  // A glyph may be larger than the canvas, or lie beside its advance.
  painter.setClipRect(rect().adjusted(1, 1, -1, -1));
  paintKerning(painter, scene(), stage(), width());
  painter.restore();
  if (!hasFocus()) return;
  QStyleOptionFocusRect ring;
  ring.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
}

void KerningCanvas::keyPressEvent(QKeyEvent* event) {
  const bool left = event->key() == Qt::Key_Left;
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool nudge = (left || event->key() == Qt::Key_Right) && !(modifiers & ~Qt::ShiftModifier);
  if (!nudge || isTracking()) return MouseTrackingView::keyPressEvent(event);
  const double step = modifiers & Qt::ShiftModifier ? kLargeStep : kSmallStep;
  drag_.nudge(pair_, left ? -step : step);
}

void KerningCanvas::focusInEvent(QFocusEvent* event) {
  MouseTrackingView::focusInEvent(event);
  update();
}

void KerningCanvas::focusOutEvent(QFocusEvent* event) {
  MouseTrackingView::focusOutEvent(event);
  update();
}

} // namespace quillery

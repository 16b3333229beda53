#include "preview/ui/vector_preview_view.h"

#include "desktop/painting.h"
#include "desktop/theme.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr double kHighlightFill = 0.2;
constexpr double kHighlightStroke = 0.6;
constexpr double kHighlightLine = 2;
// Points. Lines of a hundred thousand characters end before; advances gone astray do not.
constexpr double kLongestScroll = 4'000'000;

int scrollExtent(double length) {
  if (!std::isfinite(length)) return 0;
  return static_cast<int>(std::ceil(std::clamp(length, 0.0, kLongestScroll)));
}

} // namespace

VectorPreviewView::VectorPreviewView(ProjectManager& manager, QWidget* parent)
    : QAbstractScrollArea(parent), scene_(manager),
      watch_(
          manager,
          {{What::fontInfo, What::glyphList, What::glyphs, What::kerningList, What::kerningPair}},
          [this](const ProjectChanges& changes) { refresh(changes); }) {
  setObjectName(QStringLiteral("vectorPreview"));
  setAccessibleName(tr("Preview"));
  setAccessibleDescription(tr("The sample text, set in the glyphs of the font"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  connect(&Theme::current(), &Theme::changed, viewport(), qOverload<>(&QWidget::update));
}

void VectorPreviewView::setText(std::string text) {
  if (scene().setText(std::move(text))) layOut();
}

void VectorPreviewView::setFontSize(double points) {
  if (scene().setFontSize(points)) layOut();
}

void VectorPreviewView::setMode(PreviewMode mode) {
  repaint(scene().hoveredBounds());
  if (!scene().setMode(mode)) return;
  pressed_.reset();
  viewport()->unsetCursor();
  setAccessibleDescription(
      mode == PreviewMode::glyphs
          ? tr("The sample text. Left and Right choose a glyph, Return selects it")
      : mode == PreviewMode::kerning
          ? tr("The sample text. Left and Right choose a kerning pair, Return selects it")
          : tr("The sample text, set in the glyphs of the font"));
  if (pointer_ && isVisible()) pointTo(pointer_);
}

PreviewScene& VectorPreviewView::scene() {
  watch_.catchUp();
  return scene_;
}

void VectorPreviewView::refresh(const ProjectChanges& changes) {
  if (changes.anotherProject()) pictures_.clear();
  switch (scene_.projectChanged(changes)) {
  case PreviewScene::Effect::nothing:
    return;
  case PreviewScene::Effect::picture:
    return viewport()->update();
  case PreviewScene::Effect::layout:
    return layOut();
  }
}

void VectorPreviewView::layOut() {
  viewport()->update();
  if (isVisible()) updateScrollBars(); // or once it is
}

void VectorPreviewView::updateScrollBars() {
  const Size content = scene().layout().contentSize;
  const auto set = [&](QScrollBar* bar, double length, int shown) {
    bar->setRange(0, std::max(0, scrollExtent(length) - shown));
    bar->setPageStep(shown);
    bar->setSingleStep(grid::section);
  };
  set(horizontalScrollBar(), content.width, viewport()->width());
  set(verticalScrollBar(), content.height, viewport()->height());
}

QSize VectorPreviewView::minimumSizeHint() const {
  return {2 * grid::section, 2 * grid::section};
}

QRectF VectorPreviewView::viewportRect(const Rect& rect) const {
  return {rect.x - horizontalScrollBar()->value(), rect.y - verticalScrollBar()->value(),
          rect.width, rect.height};
}

bool VectorPreviewView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) pointTo(std::nullopt);
  return QAbstractScrollArea::viewportEvent(event);
}

void VectorPreviewView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (isVisible()) updateScrollBars();
}

void VectorPreviewView::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  updateScrollBars();
}

void VectorPreviewView::scrollContentsBy(int dx, int dy) {
  if (focusByKey_)
    viewport()->update(); // the ring stays where it is
  else
    viewport()->scroll(dx, dy);
  if (pointer_) pointTo(pointer_);
}

void VectorPreviewView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const QRect clip = event->rect();
  painter.fillRect(clip, themeColor(Role::field));
  const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
  painter.translate(-scrolled);
  // One pixel more on each side, for what smoothing spreads.
  const QRectF area = QRectF(clip.translated(scrolled)).adjusted(-1, -1, 1, 1);
  const auto glyphs = scene().glyphsIn({area.x(), area.y(), area.width(), area.height()});
  pictures_.paint(painter, glyphs, scene().layout().scale, themeColor(Role::text));
  painter.resetTransform();
  paintHighlight(painter);
  if (hasFocus() && focusByKey_) painting::focusRing(painter, viewport()->rect(), 0);
}

void VectorPreviewView::paintHighlight(QPainter& painter) {
  const auto bounds = scene().hoveredBounds();
  if (!bounds) return;
  // An edge beyond the viewport may lie anywhere there.
  constexpr double kBeyond = 64;
  const QRectF limits = QRectF(viewport()->rect()).adjusted(-kBeyond, -kBeyond, kBeyond, kBeyond);
  const QRectF frame = viewportRect(*bounds).intersected(limits);
  if (frame.isEmpty()) return;
  const Role role = scene().mode() == PreviewMode::glyphs ? Role::orange
                    : scene().hoveredPairExists()         ? Role::green
                                                          : Role::blue;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(themeColor(role, kHighlightStroke), kHighlightLine));
  painter.setBrush(themeColor(role, kHighlightFill));
  painter.drawRoundedRect(frame, radius::small, radius::small);
}

void VectorPreviewView::repaint(const std::optional<Rect>& highlight) {
  if (!highlight) return;
  const QRectF touched =
      viewportRect(*highlight)
          .adjusted(-kHighlightLine, -kHighlightLine, kHighlightLine, kHighlightLine)
          .intersected(QRectF(viewport()->rect()));
  viewport()->update(touched.toAlignedRect());
}

template <typename Act> void VectorPreviewView::rehover(Act act) {
  const auto before = scene().hoveredBounds();
  if (!act()) return;
  repaint(before);
  repaint(scene().hoveredBounds());
}

void VectorPreviewView::pointTo(std::optional<QPoint> position) {
  pointer_ = position;
  if (scene().mode() == PreviewMode::none) return;
  rehover([&] {
    if (!position) return scene().leave();
    return scene().hover({static_cast<double>(position->x() + horizontalScrollBar()->value()),
                          static_cast<double>(position->y() + verticalScrollBar()->value())});
  });
  if (position && scene().hovered())
    viewport()->setCursor(Qt::PointingHandCursor);
  else
    viewport()->unsetCursor();
}

void VectorPreviewView::mouseMoveEvent(QMouseEvent* event) {
  pointTo(event->position().toPoint());
}

void VectorPreviewView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
  pointTo(event->position().toPoint());
  pressed_ = scene().hovered();
}

void VectorPreviewView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mouseReleaseEvent(event);
  pointTo(event->position().toPoint());
  if (const auto pressed = std::exchange(pressed_, {}); pressed && pressed == scene().hovered())
    pick();
  if (!viewport()->rect().contains(event->position().toPoint())) pointTo(std::nullopt);
}

void VectorPreviewView::pick() {
  // Copies: what is called may change the project, and with it what is hovered.
  if (const CharacterPairInfo* pair = scene().hoveredPair()) {
    const std::string left = pair->leftGlyph;
    const std::string right = pair->rightGlyph;
    if (onPairClicked) onPairClicked(left, right);
  } else if (const CharacterInfo* glyph = scene().hoveredGlyph()) {
    const std::string name = glyph->glyphName;
    if (onGlyphClicked) onGlyphClicked(name);
  }
  repaint(scene().hoveredBounds()); // the pair exists now
}

void VectorPreviewView::scrollTo(const Rect& rect) {
  const auto reveal = [](QScrollBar* bar, double from, double to, int shown) {
    const auto low = scrollExtent(from - grid::margin);
    const auto high = scrollExtent(to + grid::margin) - shown;
    if (bar->value() > low || high - low > 0)
      bar->setValue(low);
    else if (bar->value() < high)
      bar->setValue(high);
  };
  reveal(horizontalScrollBar(), rect.minX(), rect.maxX(), viewport()->width());
  reveal(verticalScrollBar(), rect.minY(), rect.maxY(), viewport()->height());
}

void VectorPreviewView::keyPressEvent(QKeyEvent* event) {
  const bool plain =
      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (scene().mode() != PreviewMode::none && plain) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      pointer_.reset(); // scrolling must not hand the highlight back to a resting pointer
      rehover([&] { return scene().hoverNext(event->key() == Qt::Key_Left ? -1 : 1); });
      if (const auto bounds = scene().hoveredBounds()) scrollTo(*bounds);
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) pick();
      return;
    default:
      break;
    }
  }
  QAbstractScrollArea::keyPressEvent(event);
}

void VectorPreviewView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  focusByKey_ = event->reason() != Qt::MouseFocusReason;
  viewport()->update();
}

void VectorPreviewView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  if (!pointer_) rehover([&] { return scene().leave(); });
  if (std::exchange(focusByKey_, false)) viewport()->update();
}

} // namespace quillery

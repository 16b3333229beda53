#include "app/ui/glyph_card_area.h"
#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

// What the pointer and the keyboard do to the cards.

namespace quillery {
namespace {

constexpr int kTypingPause = 1000;  // ms after which typing begins anew
constexpr int kScrollInterval = 16; // ms, while a band reaches beyond what is in sight
constexpr int kScrollShare = 4;     // of the distance beyond, each time

bool hasCommand(Qt::KeyboardModifiers modifiers) {
  return modifiers.testFlag(Qt::ControlModifier);
}

std::optional<CardGrid::Move> moveOf(int key) {
  using enum CardGrid::Move;
  switch (key) {
  case Qt::Key_Left:
    return left;
  case Qt::Key_Right:
    return right;
  case Qt::Key_Up:
    return up;
  case Qt::Key_Down:
    return down;
  case Qt::Key_PageUp:
    return pageUp;
  case Qt::Key_PageDown:
    return pageDown;
  case Qt::Key_Home:
    return first;
  case Qt::Key_End:
    return last;
  default:
    return std::nullopt;
  }
}

} // namespace

bool GlyphCardArea::event(QEvent* event) {
  // Letters typed into the grid find glyphs; they are no shortcuts of the window.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() == Qt::ControlModifier && key->key() == Qt::Key_A) event->accept();
  }
  return QAbstractScrollArea::event(event);
}

// -- Pointer

void GlyphCardArea::mousePressEvent(QMouseEvent* event) {
  updateCards();
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
  const auto card = cardAt(event->position().toPoint());
  if (!card) return startBand(event);
  pointed_ = true;
  manager_.clickGlyph(
      displayed_[*card],
      {hasCommand(event->modifiers()), event->modifiers().testFlag(Qt::ShiftModifier)},
      displayed_.ids());
}

void GlyphCardArea::startBand(QMouseEvent* event) {
  using enum CardBand::Mode;
  bandEnd_ = event->position().toPoint();
  band_.emplace(contentPoint(bandEnd_),
                hasCommand(event->modifiers())                   ? toggle
                : event->modifiers().testFlag(Qt::ShiftModifier) ? add
                                                                 : replace,
                CardBand::Selection{manager_.selectedGlyphIds(), manager_.lastSelectedGlyphId()});
  dragBand(bandEnd_);
}

void GlyphCardArea::dragBand(QPoint to) {
  if (!band_) return;
  updateCards();
  viewport()->update(bandRect());
  bandEnd_ = to;
  band_->dragTo(contentPoint(to));
  viewport()->update(bandRect());
  pointed_ = true;
  CardBand::Selection selection = band_->selection(grid_, displayed_.ids());
  manager_.setSelection(std::move(selection.ids), selection.last);
}

void GlyphCardArea::mouseMoveEvent(QMouseEvent* event) {
  if (!band_) return QAbstractScrollArea::mouseMoveEvent(event);
  dragBand(event->position().toPoint());
  const bool beyond = bandEnd_.y() < 0 || bandEnd_.y() > viewport()->height();
  if (!beyond)
    scrolling_.stop();
  else if (!scrolling_.isActive())
    scrolling_.start(kScrollInterval, this);
}

void GlyphCardArea::timerEvent(QTimerEvent* event) {
  if (event->timerId() != scrolling_.timerId()) return QAbstractScrollArea::timerEvent(event);
  const int height = viewport()->height();
  const int beyond = bandEnd_.y() < 0 ? bandEnd_.y() : std::max(0, bandEnd_.y() - height);
  const int step = beyond / kScrollShare + (beyond > 0) - (beyond < 0);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + step);
  dragBand(bandEnd_);
}

void GlyphCardArea::mouseReleaseEvent(QMouseEvent* event) {
  if (band_ && event->button() == Qt::LeftButton) return endBand();
  QAbstractScrollArea::mouseReleaseEvent(event);
}

void GlyphCardArea::hideEvent(QHideEvent* event) {
  if (band_) endBand();
  QAbstractScrollArea::hideEvent(event);
}

void GlyphCardArea::endBand() {
  scrolling_.stop();
  band_.reset();
  viewport()->update();
}

void GlyphCardArea::cancelBand() {
  const CardBand::Selection before = band_->before();
  endBand();
  pointed_ = true;
  manager_.setSelection(before.ids, before.last);
}

QRect GlyphCardArea::bandRect() const {
  const Rect rect = band_->rect();
  return QRectF(rect.x + grid::margin, rect.y - verticalScrollBar()->value(), rect.width,
                rect.height)
      .toAlignedRect()
      .adjusted(-1, -1, 1, 1);
}

void GlyphCardArea::contextMenuEvent(QContextMenuEvent* event) {
  updateCards();
  const bool fromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  const auto card = fromKeyboard ? currentCard() : cardAt(event->pos());
  if (!card) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(QStringLiteral("glyphMenu"));
  const Uuid glyph = displayed_[*card];
  const std::size_t count = manager_.selectedGlyphIds().size();
  if (count < 2) {
    QAction* action = menu->addAction(icon(Symbol::trash, Role::danger), tr("Delete Glyph"));
    connect(action, &QAction::triggered, this, [this, glyph] { manager_.deleteGlyph(glyph); });
  } else {
    QAction* action =
        menu->addAction(icon(Symbol::trash, Role::danger), tr("Delete %1 Glyphs").arg(count));
    connect(action, &QAction::triggered, this, [this] { manager_.deleteSelectedGlyphs(); });
  }
  ofMenu_ = glyph;
  repaintCard(glyph);
  connect(menu, &QMenu::aboutToHide, this, [this, glyph] {
    if (ofMenu_ == glyph) ofMenu_.reset();
    repaintCard(glyph);
  });
  menu->popup(fromKeyboard ? viewport()->mapToGlobal(cardRect(*card).center())
                           : event->globalPos());
}

// -- Keyboard

void GlyphCardArea::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  if (cursor_) repaintCard(*cursor_);
}

void GlyphCardArea::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  if (cursor_) repaintCard(*cursor_);
}

void GlyphCardArea::selectCard(std::size_t index) {
  manager_.selectGlyph(displayed_[index]);
  scrollToCard(index);
}

void GlyphCardArea::moveSelection(std::size_t target, bool extend) {
  auto from = lastSelectedCard();
  if (!from) from = currentCard();
  if (!extend || !from) return selectCard(target);
  manager_.selectGlyphRange(displayed_[*from], displayed_[target], displayed_.ids());
  scrollToCard(target);
}

// Of a search, what is found.
void GlyphCardArea::selectAll() {
  updateCards();
  if (!search_) return manager_.selectAllGlyphs();
  const auto ids = displayed_.ids();
  if (!ids.empty()) manager_.setSelection({ids.begin(), ids.end()}, ids.back());
}

void GlyphCardArea::moveCursor(std::size_t target) {
  if (cursor_) repaintCard(*cursor_);
  cursor_ = displayed_[target];
  repaintCard(*cursor_);
  scrollToCard(target);
}

bool GlyphCardArea::moveByKey(QKeyEvent* event) {
  const auto move = moveOf(event->key());
  if (!move) return false;
  updateCards();
  const auto target = grid_.moved(currentCard(), *move, viewport()->height());
  const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
  if (!target) return true;
  if (hasCommand(event->modifiers()) && !extend)
    moveCursor(*target);
  else
    moveSelection(*target, extend);
  return true;
}

void GlyphCardArea::deleteSelected() {
  updateCards();
  const auto card = currentCard();
  manager_.deleteSelectedGlyphs();
  updateCards();
  // Keys go on from the card that took its place.
  if (card && displayed_.count() > 0) moveCursor(std::min(*card, displayed_.count() - 1));
}

void GlyphCardArea::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool selects = !manager_.selectedGlyphIds().empty();
  if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_A) return selectAll();
  if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_Space) {
    updateCards();
    if (const auto card = currentCard()) {
      moveCursor(*card);
      manager_.toggleGlyphSelection(displayed_[*card]);
    }
    return;
  }
  if (!(modifiers & (Qt::AltModifier | Qt::MetaModifier)) && moveByKey(event)) return;
  if (!(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
      return Q_EMIT editRequested();
    if (event->key() == Qt::Key_Delete && selects) return deleteSelected();
    if (event->key() == Qt::Key_Escape && band_) return cancelBand();
    if (event->key() == Qt::Key_Escape && selects) return manager_.clearSelection();
    if (findTyped(event->text())) return;
  }
  QAbstractScrollArea::keyPressEvent(event);
}

bool GlyphCardArea::findTyped(const QString& text) {
  if (text.isEmpty() || !text.at(0).isPrint()) return false;
  updateCards();
  typingPause_.start(kTypingPause);
  typed_ += text;
  const auto card = displayed_.find(typed_.toStdString());
  if (card) selectCard(*card);
  Q_EMIT typed(typed_, card.has_value());
  return true;
}

} // namespace quillery

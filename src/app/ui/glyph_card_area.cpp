#include "app/ui/glyph_card_area.h"

#include "app/ui/accessible_cards.h"
#include "app/ui/card_painter.h"
#include "desktop/painting.h"
#include "desktop/theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

} // namespace

GlyphCardArea::GlyphCardArea(ProjectManager& manager, QWidget* parent)
    : QAbstractScrollArea(parent), manager_(manager), grid_(0, 1, 1, 0),
      watch_(manager,
             {{What::glyphList, What::glyphs, What::selection, What::kerningList, What::file}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  [[maybe_unused]] static const bool installed = (installCardAccessibility(), true);
  setObjectName(QStringLiteral("glyphCards"));
  setAccessibleName(tr("Glyphs"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  connect(&Theme::current(), &Theme::changed, this, &GlyphCardArea::layOut);
  typingPause_.setSingleShot(true);
  connect(&typingPause_, &QTimer::timeout, this, [this] {
    typed_.clear();
    Q_EMIT typed({}, false);
  });
  placeCards();
  paintedSelection_ = manager.selectedGlyphIds();
}

void GlyphCardArea::setSortOrder(GlyphSortOrder order) {
  if (sortOrder_ == order) return;
  sortOrder_ = order;
  placeCards();
  revealLastSelected();
}

void GlyphCardArea::setSearch(const QString& text) {
  updateCards();
  searched_ = text;
  showCards();
  revealLastSelected();
}

void GlyphCardArea::setCardSize(int points) {
  cardSize_ = points;
  layOut();
  revealLastSelected();
}

const Glyph* GlyphCardArea::glyphOfCard(std::size_t index) const {
  return index < displayed_.count() ? manager_.glyphWithId(displayed_[index]) : nullptr;
}

bool GlyphCardArea::isSelected(std::size_t index) const {
  return manager_.selectedGlyphIds().contains(displayed_[index]);
}

QRect GlyphCardArea::cardRect(std::size_t index) const {
  const Rect card = grid_.card(index);
  const QRectF place(card.x + grid::margin, card.y - verticalScrollBar()->value(), card.width,
                     card.height);
  return place.toAlignedRect();
}

Point GlyphCardArea::contentPoint(QPoint position) const {
  return {static_cast<double>(position.x() - grid::margin),
          static_cast<double>(position.y() + verticalScrollBar()->value())};
}

std::optional<std::size_t> GlyphCardArea::cardAt(QPoint position) const {
  return grid_.cardAt(contentPoint(position));
}

void GlyphCardArea::scrollToCard(std::size_t index) {
  const Rect card = grid_.card(index);
  QScrollBar* bar = verticalScrollBar();
  const auto top = static_cast<int>(std::floor(card.minY() - CardGrid::kSpacing));
  const auto bottom = static_cast<int>(std::ceil(card.maxY() + CardGrid::kSpacing));
  // A card higher than the room for it shows its top.
  if (top < bar->value() || bottom - top > viewport()->height())
    bar->setValue(top);
  else if (bottom > bar->value() + viewport()->height())
    bar->setValue(bottom - viewport()->height());
}

void GlyphCardArea::refresh(const ProjectChanges& changes) {
  // Most that is undone leaves every card where it stands.
  const auto& values = changes.glyphs();
  const auto moves = [this](const Uuid& id) {
    const Glyph* glyph = manager_.glyphWithId(id);
    return glyph && displayed_.moves(*glyph);
  };
  const bool moved = changes.has(What::glyphList)
                         ? !displayed_.stands(manager_.currentProject().glyphs)
                         : std::any_of(values.begin(), values.end(), moves);
  if (moved)
    placeCards();
  else if (search_ && searchIsAffected(changes))
    showCards();
  if (changes.has(What::glyphList)) viewport()->update();
  for (const Uuid& id : values) repaintCard(id);
  if (changes.has(What::selection)) followSelection();
}

void GlyphCardArea::placeCards() {
  const Place place = currentPlace();
  displayed_.place(manager_.currentProject().glyphs, sortOrder_);
  applySearch();
  finishPlacing(place);
}

// Whoever is found may be others after each change of what the search looks at.
void GlyphCardArea::showCards() {
  const Place place = currentPlace();
  applySearch();
  finishPlacing(place);
}

void GlyphCardArea::applySearch() {
  if (searched_.isEmpty() && !search_) return;
  search_.emplace(manager_, searched_.toStdString());
  if (search_->empty()) search_.reset();
  displayed_.show(manager_.currentProject().glyphs,
                  search_ ? [this](const Glyph& glyph) { return search_->fits(glyph); }
                          : DisplayedGlyphs::Filter());
}

void GlyphCardArea::finishPlacing(const Place& place) {
  arrange();
  keepPlace(place);
  announceCards(*this);
  Q_EMIT cardsChanged();
}

bool GlyphCardArea::searchIsAffected(const ProjectChanges& changes) const {
  if (changes.everything() || changes.has(What::glyphList) || changes.has(What::kerningList) ||
      changes.has(What::file))
    return true;
  const auto& values = changes.glyphs();
  return std::any_of(values.begin(), values.end(), [this](const Uuid& id) {
    const Glyph* glyph = manager_.glyphWithId(id);
    return glyph && search_->fits(*glyph) != displayed_.cardOf(id).has_value();
  });
}

void GlyphCardArea::layOut() {
  const Place place = currentPlace();
  arrange();
  keepPlace(place);
}

void GlyphCardArea::arrange() {
  const int width = viewport()->width() - 2 * grid::margin;
  grid_ = CardGrid(displayed_.count(), width, cardSize_, CardLook{cardSize_}.textHeight());
  const auto height = static_cast<int>(std::ceil(grid_.contentHeight())) + grid::margin;
  verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(static_cast<int>(grid_.cardSize().height / 2));
  viewport()->update();
}

GlyphCardArea::Place GlyphCardArea::currentPlace() const {
  const int top = verticalScrollBar()->value();
  auto card = lastSelectedCard();
  if (!card || !cardRect(*card).intersects(viewport()->rect())) {
    const auto [first, end] = grid_.cardsBetween(top, top + 1.0 + CardGrid::kSpacing);
    if (first >= std::min(end, displayed_.count())) return {{}, 0};
    card = first;
  }
  return {displayed_[*card], grid_.card(*card).minY() - top};
}

void GlyphCardArea::keepPlace(const Place& place) {
  const auto card = displayed_.cardOf(place.glyph);
  if (!card) return;
  verticalScrollBar()->setValue(
      static_cast<int>(std::lround(grid_.card(*card).minY() - place.distance)));
  if (card == lastSelectedCard()) scrollToCard(*card);
}

void GlyphCardArea::revealLastSelected() {
  if (const auto card = lastSelectedCard()) scrollToCard(*card);
}

void GlyphCardArea::followSelection() {
  const auto& selection = manager_.selectedGlyphIds();
  const bool pointed = std::exchange(pointed_, false);
  if (cursor_ && cursor_ != manager_.lastSelectedGlyphId()) {
    repaintCard(*cursor_);
    cursor_.reset();
  }
  if (selection == paintedSelection_) return;
  for (const Uuid& id : paintedSelection_)
    if (!selection.contains(id)) repaintCard(id);
  for (const Uuid& id : selection)
    if (!paintedSelection_.contains(id)) repaintCard(id);
  paintedSelection_ = selection;
  const auto card = lastSelectedCard();
  if (!card && search_ && selection.size() == 1 && manager_.lastSelectedGlyphId())
    return Q_EMIT selectedIsHidden();
  if (!card) return;
  announceCurrentCard(*this, *card);
  // Selected from elsewhere, such as in the preview or by an import: it should be seen.
  if (selection.size() == 1 && !pointed) scrollToCard(*card);
}

void GlyphCardArea::repaintCard(const Uuid& id) {
  const auto card = displayed_.cardOf(id);
  if (!card) return;
  const QRect place = cardRect(*card);
  if (place.intersects(viewport()->rect())) viewport()->update(place);
}

std::optional<std::size_t> GlyphCardArea::lastSelectedCard() const {
  const auto& last = manager_.lastSelectedGlyphId();
  return last ? displayed_.cardOf(*last) : std::nullopt;
}

std::optional<std::size_t> GlyphCardArea::currentCard() const {
  const auto card = cursor_ ? displayed_.cardOf(*cursor_) : std::nullopt;
  return card ? card : lastSelectedCard();
}

bool GlyphCardArea::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto card = cardAt(static_cast<QHelpEvent*>(event)->pos());
    const Glyph* glyph = card ? glyphOfCard(*card) : nullptr;
    setToolTip(glyph && !glyph->hasBox() ? tr("No outline was found in the drawing") : QString());
  }
  return QAbstractScrollArea::viewportEvent(event);
}

void GlyphCardArea::paintEvent(QPaintEvent* event) {
  updateCards();
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  const int scrolled = verticalScrollBar()->value();
  const QRegion& region = event->region();
  for (const QRect& part : region) painter.fillRect(part, themeColor(Role::window));
  // Each once, however many parts it lies in: what is painted twice has darker edges.
  const QRect all = region.boundingRect();
  const auto [first, end] = grid_.cardsBetween(all.top() + scrolled, all.bottom() + 1 + scrolled);
  const CardLook look{cardSize_, devicePixelRatioF()};
  for (std::size_t i = first; i < end; ++i) {
    const Glyph* glyph = glyphOfCard(i);
    const QRect card = cardRect(i);
    if (!glyph || !region.intersects(card)) continue;
    paintCard(painter, card, *glyph, look, isSelected(i),
              ofMenu_ == displayed_[i]                 ? CardMark::menu
              : hasFocus() && cursor_ == displayed_[i] ? CardMark::cursor
                                                       : CardMark::none);
  }
  if (search_ && displayed_.count() == 0) {
    painter.setFont(Theme::current().font(TextStyle::body));
    painter.setPen(themeColor(Role::textSecondary));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("No glyph is found"));
  }
  if (band_)
    painting::box(painter, QRectF(bandRect()).adjusted(0.5, 0.5, -0.5, -0.5), radius::small,
                  themeColor(Role::accent, 0.15), themeColor(Role::accent));
}

void GlyphCardArea::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  layOut();
}

void GlyphCardArea::scrollContentsBy(int dx, int dy) {
  // The band reaches over cards that are still, so it can't be moved with them.
  band_ ? viewport()->update() : viewport()->scroll(dx, dy);
}

} // namespace quillery

#include "app/ui/glyph_card_area.h"

#include "app/ui/accessible_cards.h"
#include "base/unicode.h"
#include "desktop/icons.h"
#include "desktop/outline_painting.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr int kLargeCards = 140;      // above, the character is set larger
constexpr qint64 kTypingPause = 1000; // ms after which typing begins anew
constexpr qreal kBorder = 2;
constexpr int kMark = 24;

// Stands where the outline would be.
void paintMark(QPainter& painter, const QRect& preview) {
  QRect place(0, 0, kMark, kMark);
  place.moveCenter(preview.center());
  paintSymbol(painter, Symbol::exclamationTriangle, place, themeColor(Role::danger));
}

} // namespace

GlyphCardArea::GlyphCardArea(ProjectManager& manager, QWidget* parent)
    : QAbstractScrollArea(parent), manager_(manager), grid_(0, 1, 1, 0),
      watch_(manager, {{What::glyphList, What::glyphs, What::selection}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  [[maybe_unused]] static const bool installed = (installCardAccessibility(), true);
  setObjectName(QStringLiteral("glyphCards"));
  setAccessibleName(tr("Glyphs"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setViewportMargins(grid::margin, 0, 0, 0);
  viewport()->setAutoFillBackground(false);
  connect(&Theme::current(), &Theme::changed, this, &GlyphCardArea::layOut);
  placeCards();
  paintedSelection_ = manager.selectedGlyphIds();
}

void GlyphCardArea::setSortOrder(GlyphSortOrder order) {
  if (sortOrder_ == order) return;
  sortOrder_ = order;
  placeCards();
}

void GlyphCardArea::setCardSize(int points) {
  cardSize_ = points;
  layOut();
}

const Glyph* GlyphCardArea::glyphOfCard(std::size_t index) const {
  return index < displayed_.size() ? manager_.glyphWithId(displayed_[index]) : nullptr;
}

bool GlyphCardArea::isSelected(std::size_t index) const {
  return manager_.selectedGlyphIds().contains(displayed_[index]);
}

QRect GlyphCardArea::cardRect(std::size_t index) const {
  const Rect card = grid_.card(index);
  const QRectF place(card.x, card.y - verticalScrollBar()->value(), card.width, card.height);
  return place.toAlignedRect();
}

std::optional<std::size_t> GlyphCardArea::cardAt(QPoint position) const {
  return grid_.cardAt({static_cast<double>(position.x()),
                       static_cast<double>(position.y() + verticalScrollBar()->value())});
}

void GlyphCardArea::scrollToCard(std::size_t index) {
  const Rect card = grid_.card(index);
  QScrollBar* bar = verticalScrollBar();
  const auto top = static_cast<int>(std::floor(card.minY() - CardGrid::kSpacing));
  const auto bottom = static_cast<int>(std::ceil(card.maxY() + CardGrid::kSpacing));
  if (top < bar->value())
    bar->setValue(top);
  else if (bottom > bar->value() + viewport()->height())
    bar->setValue(bottom - viewport()->height());
}

void GlyphCardArea::refresh(const ProjectChanges& changes) {
  // Most that is undone leaves every card where it stands, and sorting takes much longer than to
  // find that out.
  const auto& values = changes.glyphs();
  const bool moved = changes.has(What::glyphList)
                         ? !standsAsDisplayed()
                         : std::any_of(values.begin(), values.end(),
                                       [&](const Uuid& id) { return movesCard(id); });
  if (moved) placeCards();
  if (changes.has(What::glyphList)) viewport()->update();
  for (const Uuid& id : values) repaintCard(id);
  if (changes.has(What::selection)) followSelection();
}

// Only the character decides where a card stands among those of the same names.
bool GlyphCardArea::movesCard(const Uuid& id) const {
  const auto card = cardOf_.find(id);
  const Glyph* glyph = manager_.glyphWithId(id);
  return card != cardOf_.end() && glyph && glyph->character() != characters_[card->second];
}

bool GlyphCardArea::standsAsDisplayed() const {
  const auto& glyphs = manager_.currentProject().glyphs;
  if (glyphs.size() != displayed_.size()) return false;
  for (std::size_t card = 0; card < displayed_.size(); ++card) {
    const Glyph& glyph = glyphs[positions_[card]];
    if (glyph.id() != displayed_[card] || glyph.character() != characters_[card] ||
        glyph.name() != names_[card])
      return false;
  }
  return true;
}

void GlyphCardArea::placeCards() {
  const auto& glyphs = manager_.currentProject().glyphs;
  positions_ = displayOrder(glyphs, sortOrder_);
  displayed_.clear();
  characters_.clear();
  names_.clear();
  cardOf_.clear();
  cardOf_.reserve(glyphs.size());
  for (const std::size_t position : positions_) {
    const Glyph& glyph = glyphs[position];
    cardOf_.emplace(glyph.id(), displayed_.size());
    displayed_.push_back(glyph.id());
    characters_.emplace_back(glyph.character());
    names_.push_back(glyph.name());
  }
  layOut();
  announceCards(*this);
}

int GlyphCardArea::textHeight() const {
  const Theme& theme = Theme::current();
  const TextStyle character = cardSize_ > kLargeCards ? TextStyle::title2 : TextStyle::body;
  return QFontMetrics(theme.font(character)).height() +
         QFontMetrics(theme.font(TextStyle::caption)).height() + grid::gap;
}

void GlyphCardArea::layOut() {
  const int width = viewport()->width() - grid::margin;
  grid_ = CardGrid(displayed_.size(), width, cardSize_, textHeight());
  const auto height = static_cast<int>(std::ceil(grid_.contentHeight())) + grid::margin;
  verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(static_cast<int>(grid_.cardSize().height / 2));
  viewport()->update();
}

void GlyphCardArea::followSelection() {
  const auto& selection = manager_.selectedGlyphIds();
  if (selection == paintedSelection_) return;
  for (const Uuid& id : paintedSelection_)
    if (!selection.contains(id)) repaintCard(id);
  for (const Uuid& id : selection)
    if (!paintedSelection_.contains(id)) repaintCard(id);
  paintedSelection_ = selection;
  const auto card = currentCard();
  if (!card) return;
  announceCurrentCard(*this, *card);
  // Selected from elsewhere, such as in the preview or by an import: it should be seen.
  if (selection.size() == 1 && !cardRect(*card).intersects(viewport()->rect())) scrollToCard(*card);
}

void GlyphCardArea::repaintCard(const Uuid& id) {
  const auto card = cardOf_.find(id);
  if (card == cardOf_.end()) return;
  const QRect place = cardRect(card->second);
  if (place.intersects(viewport()->rect())) viewport()->update(place);
}

bool GlyphCardArea::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto card = cardAt(static_cast<QHelpEvent*>(event)->pos());
    const Glyph* glyph = card ? glyphOfCard(*card) : nullptr;
    setToolTip(glyph && !glyph->hasBox() ? tr("No outline was found in the drawing") : QString());
  }
  return QAbstractScrollArea::viewportEvent(event);
}

bool GlyphCardArea::event(QEvent* event) {
  // Letters typed into the grid find glyphs; they are no shortcuts of the window.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() == Qt::ControlModifier && key->key() == Qt::Key_A) event->accept();
  }
  return QAbstractScrollArea::event(event);
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
  for (std::size_t i = first; i < end; ++i)
    if (region.intersects(cardRect(i))) paintCard(painter, i);
}

void GlyphCardArea::paintCard(QPainter& painter, std::size_t index) {
  const Glyph* glyph = glyphOfCard(index);
  if (!glyph) return;
  const QRect card = cardRect(index);
  const bool selected = isSelected(index);
  const QRectF frame = QRectF(card).adjusted(kBorder / 2, kBorder / 2, -kBorder / 2, -kBorder / 2);
  painter.setPen(selected ? QPen(themeColor(Role::accent), kBorder) : QPen(Qt::NoPen));
  painter.setBrush(themeColor(selected ? Role::selection : Role::card));
  painter.drawRoundedRect(frame, radius::card, radius::card);

  const QRect preview(card.x(), card.y(), card.width(), card.height() - textHeight());
  const QPixmap picture = outlinePicture(glyph->fontPath(), glyph->boundingBox(), preview.size(),
                                         devicePixelRatioF(), themeColor(Role::text));
  if (!picture.isNull()) painter.drawPixmap(preview.topLeft(), picture);
  if (!glyph->hasBox()) paintMark(painter, preview);

  const Theme& theme = Theme::current();
  const bool hasCharacter = glyph->unicode() && !glyph->unicode()->empty();
  QFont font = theme.font(cardSize_ > kLargeCards ? TextStyle::title2 : TextStyle::body);
  font.setBold(true);
  QRect line(card.x() + grid::half, preview.bottom(), card.width() - grid::unit,
             QFontMetrics(font).height());
  painter.setFont(font);
  painter.setPen(themeColor(hasCharacter ? Role::text : Role::textSecondary));
  painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine,
                   hasCharacter ? shownText(*glyph->unicode()) : QStringLiteral("—"));

  font = theme.font(TextStyle::caption);
  const QFontMetrics metrics(font);
  line = QRect(line.x(), line.bottom() + 1, line.width(), metrics.height());
  painter.setFont(font);
  painter.setPen(themeColor(Role::textSecondary));
  painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine,
                   metrics.elidedText(shownText(glyph->name()), Qt::ElideMiddle, line.width()));
}

void GlyphCardArea::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  layOut();
}

void GlyphCardArea::scrollContentsBy(int dx, int dy) {
  viewport()->scroll(dx, dy);
}

void GlyphCardArea::mousePressEvent(QMouseEvent* event) {
  updateCards();
  const auto card = cardAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !card)
    return QAbstractScrollArea::mousePressEvent(event);
  manager_.clickGlyph(displayed_[*card],
                      {event->modifiers().testFlag(Qt::ControlModifier),
                       event->modifiers().testFlag(Qt::ShiftModifier)},
                      displayed_);
}

void GlyphCardArea::contextMenuEvent(QContextMenuEvent* event) {
  updateCards();
  const bool fromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  const auto card = fromKeyboard ? currentCard() : cardAt(event->pos());
  if (!card) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(QStringLiteral("glyphMenu"));
  const std::size_t count = manager_.selectedGlyphIds().size();
  if (count < 2) {
    QAction* action = menu->addAction(icon(Symbol::trash, Role::danger), tr("Delete Glyph"));
    connect(action, &QAction::triggered, this,
            [this, id = displayed_[*card]] { manager_.deleteGlyph(id); });
  } else {
    QAction* action =
        menu->addAction(icon(Symbol::trash, Role::danger), tr("Delete %1 Glyphs").arg(count));
    connect(action, &QAction::triggered, this, [this] { manager_.deleteSelectedGlyphs(); });
  }
  menu->popup(fromKeyboard ? viewport()->mapToGlobal(cardRect(*card).center())
                           : event->globalPos());
}

std::optional<std::size_t> GlyphCardArea::currentCard() const {
  const auto& last = manager_.lastSelectedGlyphId();
  const auto card = last ? cardOf_.find(*last) : cardOf_.end();
  if (card == cardOf_.end()) return std::nullopt;
  return card->second;
}

void GlyphCardArea::moveSelection(CardGrid::Move move, bool extend) {
  updateCards();
  const auto from = currentCard();
  const auto target = grid_.moved(from, move, viewport()->height());
  if (!target) return;
  if (extend && from)
    manager_.selectGlyphRange(displayed_[*from], displayed_[*target], displayed_);
  else
    manager_.selectGlyph(displayed_[*target]);
  scrollToCard(*target);
}

void GlyphCardArea::selectCard(std::size_t index) {
  manager_.selectGlyph(displayed_[index]);
  scrollToCard(index);
}

void GlyphCardArea::keyPressEvent(QKeyEvent* event) {
  using Move = CardGrid::Move;
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  if (event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_A)
    return manager_.selectAllGlyphs();
  if (!(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
    switch (event->key()) {
    case Qt::Key_Left:
      return moveSelection(Move::left, shift);
    case Qt::Key_Right:
      return moveSelection(Move::right, shift);
    case Qt::Key_Up:
      return moveSelection(Move::up, shift);
    case Qt::Key_Down:
      return moveSelection(Move::down, shift);
    case Qt::Key_PageUp:
      return moveSelection(Move::pageUp, shift);
    case Qt::Key_PageDown:
      return moveSelection(Move::pageDown, shift);
    case Qt::Key_Home:
      return moveSelection(Move::first, shift);
    case Qt::Key_End:
      return moveSelection(Move::last, shift);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Q_EMIT editRequested();
    default:
      if (findTyped(event->text())) return;
    }
  }
  QAbstractScrollArea::keyPressEvent(event);
}

bool GlyphCardArea::findTyped(const QString& text) {
  if (text.isEmpty() || !text.at(0).isPrint()) return false;
  updateCards();
  if (!sinceTyped_.isValid() || sinceTyped_.elapsed() > kTypingPause) typed_.clear();
  sinceTyped_.restart();
  typed_ += text;
  // The character itself first, then names that begin so.
  const std::string typed = typed_.toStdString();
  auto found = std::find(characters_.begin(), characters_.end(), typed) - characters_.begin();
  if (static_cast<std::size_t>(found) == characters_.size()) {
    const std::string beginning = lowercased(typed);
    for (found = 0; static_cast<std::size_t>(found) < displayed_.size(); ++found)
      if (lowercased(glyphOfCard(static_cast<std::size_t>(found))->name()).starts_with(beginning))
        break;
  }
  const auto card = static_cast<std::size_t>(found);
  if (card < displayed_.size()) selectCard(card);
  return true;
}

} // namespace quillery

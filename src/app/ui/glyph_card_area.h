#pragma once

#include "app/card_grid.h"
#include "project/glyph_sort_order.h"
#include "project/project_watch.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <unordered_map>

namespace quillery {

/// The scrolling part of the glyph grid: every glyph as a card, in display order. Paints what is
/// visible only, and of that only what changed.
class GlyphCardArea : public QAbstractScrollArea {
  Q_OBJECT
public:
  GlyphCardArea(ProjectManager& manager, QWidget* parent);

  GlyphSortOrder sortOrder() const { return sortOrder_; }
  void setSortOrder(GlyphSortOrder order);
  /// Least width of a card, in points.
  void setCardSize(int points);

  std::size_t cardCount() const { return displayed_.size(); }
  /// The glyph of a card; null while the project is changing.
  const Glyph* glyphOfCard(std::size_t index) const;
  bool isSelected(std::size_t index) const;
  /// In viewport coordinates.
  QRect cardRect(std::size_t index) const;
  std::optional<std::size_t> cardAt(QPoint viewportPosition) const;
  /// The card that keys move from.
  std::optional<std::size_t> currentCard() const;
  /// Selects its glyph alone and shows it.
  void selectCard(std::size_t index);
  void scrollToCard(std::size_t index);
  /// Catches up with the project before the turn of the event loop is over.
  void updateCards() { watch_.catchUp(); }

Q_SIGNALS:
  /// Return was pressed on a glyph.
  void editRequested();

protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void refresh(const ProjectChanges& changes);
  bool standsAsDisplayed() const;
  void placeCards();
  bool movesCard(const Uuid& id) const;
  void layOut();
  void followSelection();
  void repaintCard(const Uuid& id);
  void paintCard(QPainter& painter, std::size_t index);
  void moveSelection(CardGrid::Move move, bool extend);
  bool findTyped(const QString& text);
  int textHeight() const;

  ProjectManager& manager_;
  GlyphSortOrder sortOrder_ = GlyphSortOrder::unicode;
  int cardSize_ = 120;
  CardGrid grid_;
  std::vector<Uuid> displayed_;
  // What the display order was made from, card by card.
  std::vector<std::size_t> positions_;
  std::vector<std::string> characters_;
  std::vector<std::string> names_;
  std::unordered_map<Uuid, std::size_t> cardOf_;
  std::unordered_set<Uuid> paintedSelection_;
  QString typed_;
  QElapsedTimer sinceTyped_;
  ProjectWatch watch_;
};

} // namespace quillery

#pragma once

#include "editor/card_grid.h"
#include "project/glyph_sort_order.h"
#include "project/project_manager.h"
#include "svg/svg_drop.h"

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
  /// Does what is pending after changes, before the next paint would.
  void updateCards();

Q_SIGNALS:
  /// Return was pressed on a glyph.
  void editRequested();

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  void projectChanged(const ProjectChange& change);
  void glyphChanged(const Uuid& id);
  void cardsAreStale();
  bool standsAsDisplayed() const;
  void layOut();
  void repaintSelectionChanges();
  void repaintCard(const Uuid& id);
  void paintCard(QPainter& painter, std::size_t index);
  void moveSelection(CardGrid::Move move, bool extend);
  bool findTyped(const QString& text);
  int textHeight() const;

  ProjectManager& manager_;
  SVGDropDelegate drops_;
  GlyphSortOrder sortOrder_ = GlyphSortOrder::unicode;
  int cardSize_ = 120;
  CardGrid grid_;
  bool stale_ = true;
  std::optional<GlyphSortOrder> displayedOrder_;
  std::vector<Uuid> displayed_;
  std::vector<std::string> characters_; // what the display order was made from
  std::unordered_map<Uuid, std::size_t> cardOf_;
  std::unordered_set<Uuid> paintedSelection_;
  QString typed_;
  QElapsedTimer sinceTyped_;
  Connection connection_;
};

} // namespace quillery

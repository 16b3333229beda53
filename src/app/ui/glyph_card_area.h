#pragma once

#include "app/card_band.h"
#include "app/displayed_glyphs.h"
#include "app/glyph_search.h"
#include "project/project_watch.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QTimer>

namespace quillery {

/// The scrolling part of the glyph grid: every glyph as a card, in display order. Paints what is
/// visible only, and of that only what changed. Whatever moves the cards, the one selected last
/// stays in sight, or else the first of those that were.
class GlyphCardArea : public QAbstractScrollArea {
  Q_OBJECT
public:
  GlyphCardArea(ProjectManager& manager, QWidget* parent);

  GlyphSortOrder sortOrder() const { return sortOrder_; }
  void setSortOrder(GlyphSortOrder order);
  /// Least width of a card, in points.
  void setCardSize(int points);

  /// Shows only the glyphs that this finds; all when it is empty.
  void setSearch(const QString& text);
  std::size_t cardCount() const { return displayed_.count(); }
  /// In display order.
  std::span<const Uuid> displayedGlyphs() const { return displayed_.ids(); }
  std::size_t glyphCount() const { return displayed_.countOfAll(); }
  /// The glyph of a card; null while the project is changing.
  const Glyph* glyphOfCard(std::size_t index) const;
  bool isSelected(std::size_t index) const;
  /// In viewport coordinates.
  QRect cardRect(std::size_t index) const;
  std::optional<std::size_t> cardAt(QPoint viewportPosition) const;
  /// The card that keys move from: where they went last, or the one selected last.
  std::optional<std::size_t> currentCard() const;
  /// Selects its glyph alone and shows it.
  void selectCard(std::size_t index);
  void scrollToCard(std::size_t index);
  /// Catches up with the project before the turn of the event loop is over.
  void updateCards() { watch_.catchUp(); }

Q_SIGNALS:
  /// Return was pressed on a glyph.
  void editRequested();
  /// Letters were typed to find a glyph, which is selected, or there is none; empty once it is
  /// over.
  void typed(const QString& text, bool found);
  /// Other cards are shown.
  void cardsChanged();
  /// What was selected from elsewhere is not among those that are shown.
  void selectedIsHidden();

protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void timerEvent(QTimerEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  // A card, and how far it is from the top of what is in sight.
  struct Place {
    Uuid glyph;
    double distance;
  };

  void refresh(const ProjectChanges& changes);
  void placeCards();
  void showCards();
  void applySearch();
  void finishPlacing(const Place& place);
  bool searchIsAffected(const ProjectChanges& changes) const;
  void layOut();
  void arrange();
  Place currentPlace() const;
  void keepPlace(const Place& place);
  void revealLastSelected();
  std::optional<std::size_t> lastSelectedCard() const;
  void followSelection();
  void repaintCard(const Uuid& id);
  Point contentPoint(QPoint viewportPosition) const;

  void startBand(QMouseEvent* event);
  void dragBand(QPoint to);
  void endBand();
  void cancelBand();
  QRect bandRect() const;
  bool moveByKey(QKeyEvent* event);
  void moveSelection(std::size_t target, bool extend);
  void moveCursor(std::size_t target);
  void selectAll();
  void deleteSelected();
  bool findTyped(const QString& text);

  ProjectManager& manager_;
  GlyphSortOrder sortOrder_ = GlyphSortOrder::unicode;
  int cardSize_ = 120;
  CardGrid grid_;
  DisplayedGlyphs displayed_;
  QString searched_;
  std::optional<GlyphSearch> search_; // while something is searched for
  std::unordered_set<Uuid> paintedSelection_;
  std::optional<Uuid> cursor_; // where Ctrl and the arrows went
  std::optional<Uuid> ofMenu_; // whose menu is open
  bool pointed_ = false;       // the pointer selected: nothing moves under it
  std::optional<CardBand> band_;
  QPoint bandEnd_; // in the viewport
  QBasicTimer scrolling_;
  QString typed_;
  QTimer typingPause_;
  ProjectWatch watch_;
};

} // namespace quillery

#include "app/ui/accessible_cards.h"

#include "app/ui/glyph_card_area.h"
#include "desktop/shown_text.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <unordered_map>

namespace quillery {
namespace {

QString describe(const Glyph& glyph) {
  const QString character = shownText(glyph.character());
  if (glyph.hasBox()) return character;
  const QString lack = GlyphCardArea::tr("no outline");
  return character.isEmpty() ? lack : QString(character + QStringLiteral(", ") + lack);
}

class AccessibleCard : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  AccessibleCard(GlyphCardArea& cards, std::size_t index) : cards_(&cards), index_(index) {}

  bool isValid() const override { return cards_ && cards_->glyphOfCard(index_); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(cards_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }

  QString text(QAccessible::Text kind) const override {
    const Glyph* glyph = isValid() ? cards_->glyphOfCard(index_) : nullptr;
    if (!glyph) return {};
    if (kind == QAccessible::Name) return shownText(glyph->name());
    if (kind == QAccessible::Description) return describe(*glyph);
    return {};
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect card = cards_->cardRect(index_);
    return {cards_->viewport()->mapToGlobal(card.topLeft()), card.size()};
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    state.selectable = true;
    state.multiSelectable = true;
    state.focusable = true;
    state.selected = cards_->isSelected(index_);
    state.focused = cards_->hasFocus() && cards_->currentCard() == index_;
    state.offscreen = !cards_->cardRect(index_).intersects(cards_->viewport()->rect());
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& action) override {
    if (isValid() && action == pressAction()) cards_->selectCard(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
  QPointer<GlyphCardArea> cards_;
  std::size_t index_;
};

class AccessibleCards : public QAccessibleWidget {
public:
  explicit AccessibleCards(GlyphCardArea* cards) : QAccessibleWidget(cards, QAccessible::List) {}
  ~AccessibleCards() override { forgetItems(); }

  int childCount() const override { return static_cast<int>(cards().cardCount()); }

  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    const auto [item, isNew] = items_.try_emplace(static_cast<std::size_t>(index), 0);
    if (isNew)
      item->second = QAccessible::registerAccessibleInterface(
          new AccessibleCard(cards(), static_cast<std::size_t>(index)));
    return QAccessible::accessibleInterface(item->second);
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    const auto card = cards().cardAt(cards().viewport()->mapFromGlobal(QPoint(x, y)));
    return card ? child(static_cast<int>(*card)) : nullptr;
  }

  QAccessibleInterface* focusChild() const override {
    const auto card = cards().currentCard();
    return card ? child(static_cast<int>(*card)) : nullptr;
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    for (const auto& [index, id] : items_)
      if (QAccessible::accessibleInterface(id) == child) return static_cast<int>(index);
    return -1;
  }

  // Which glyph a card shows may be another now.
  void forgetItems() {
    for (const auto& [index, id] : items_) QAccessible::deleteAccessibleInterface(id);
    items_.clear();
  }

private:
  GlyphCardArea& cards() const {
    auto& cards = *static_cast<GlyphCardArea*>(object());
    cards.updateCards();
    return cards;
  }

  mutable std::unordered_map<std::size_t, QAccessible::Id> items_; // those that were asked for
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* const cards = qobject_cast<GlyphCardArea*>(object);
  return cards ? new AccessibleCards(cards) : nullptr;
}

} // namespace

void installCardAccessibility() {
  QAccessible::installFactory(makeAccessible);
}

void announceCurrentCard(GlyphCardArea& cards, std::size_t card) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent selection(&cards, QAccessible::Selection);
  selection.setChild(static_cast<int>(card));
  QAccessible::updateAccessibility(&selection);
  if (!cards.hasFocus()) return;
  QAccessibleEvent focus(&cards, QAccessible::Focus);
  focus.setChild(static_cast<int>(card));
  QAccessible::updateAccessibility(&focus);
}

void announceCards(GlyphCardArea& cards) {
  // Asking for an interface would make one for a grid that nobody listens to.
  if (!QAccessible::isActive()) return;
  if (auto* const list =
          dynamic_cast<AccessibleCards*>(QAccessible::queryAccessibleInterface(&cards)))
    list->forgetItems();
  QAccessibleEvent reset(&cards, QAccessible::ObjectReorder);
  QAccessible::updateAccessibility(&reset);
}

} // namespace quillery

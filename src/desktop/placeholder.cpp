#include "desktop/placeholder.h"

#include "desktop/widgets.h"

#include <QBoxLayout>

namespace quillery {
namespace {

constexpr int kSymbolSize = 48;
constexpr int kTextWidth = 420;

} // namespace

Placeholder::Placeholder(Symbol symbol, const QString& title, QWidget* parent)
    : QWidget(parent), words_(new QVBoxLayout) {
  setAccessibleName(title);
  words_->setSpacing(grid::unit);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::margin, grid::margin, grid::margin, grid::margin);
  column->setSpacing(grid::margin);
  column->addStretch(2);
  column->addWidget(new SymbolLabel(symbol, kSymbolSize, Role::textSecondary, this), 0,
                    Qt::AlignHCenter);
  auto* middle = new QHBoxLayout;
  middle->addStretch(1);
  middle->addLayout(words_, 1000); // as wide as its texts may become
  middle->addStretch(1);
  column->addLayout(middle);
  // Above the middle, where the eye expects it.
  column->addStretch(3);
  addText(title, TextStyle::headline, Role::text);
}

TextLabel* Placeholder::addText(const QString& text, TextStyle style, Role role) {
  auto* label = new TextLabel(text, style, role, this);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  label->setMaximumWidth(kTextWidth);
  words_->addWidget(label);
  return label;
}

} // namespace quillery

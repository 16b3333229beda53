#include "desktop/notice_bar.h"

#include "desktop/widgets.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QPushButton>

namespace quillery {

NoticeBar::NoticeBar(QWidget* parent)
    : QWidget(parent), symbol_(new SymbolLabel(Symbol::infoCircleFill, grid::iconSize,
                                               Role::accentForeground, this)),
      sentence_(new ElidedLabel({}, TextStyle::body, Qt::ElideRight, Role::text, this)),
      controls_(new QHBoxLayout) {
  setBackgroundRole(QPalette::AlternateBase);
  setAutoFillBackground(true);
  sentence_->setObjectName(QStringLiteral("notice"));
  auto* close = new IconButton(Symbol::cross, tr("Close"), this);
  close->setObjectName(QStringLiteral("closeNotice"));
  close->setIconSize({grid::iconSize, grid::iconSize});
  connect(close, &QToolButton::clicked, this, &NoticeBar::closed);
  close_ = close;

  controls_->setSpacing(grid::unit);
  auto* row = new QHBoxLayout;
  row->setContentsMargins(grid::margin, grid::half, grid::unit, grid::half);
  row->setSpacing(grid::unit);
  row->addWidget(symbol_);
  row->addWidget(sentence_, 1);
  row->addLayout(controls_);
  row->addWidget(close);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(row);
  column->addWidget(makeSeparator(Qt::Horizontal, this));
  hide();
}

void NoticeBar::setNotice(Symbol symbol, Role role, const QString& sentence) {
  symbol_->setSymbol(symbol, role);
  sentence_->setText(sentence);
  setAccessibleName(sentence);
}

QPushButton* NoticeBar::addButton(const QString& objectName, const QString& title) {
  auto* button = new QPushButton(title, this);
  button->setObjectName(objectName);
  controls_->addWidget(button);
  setTabOrder(button, close_);
  return button;
}

QCheckBox* NoticeBar::addCheckBox(const QString& objectName, const QString& title) {
  auto* box = new QCheckBox(title, this);
  box->setObjectName(objectName);
  controls_->addWidget(box);
  setTabOrder(box, close_);
  return box;
}

} // namespace quillery

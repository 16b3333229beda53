#include "desktop/findings_card.h"

#include "desktop/style.h"
#include "desktop/widgets.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPushButton>

namespace quillery {
namespace {

constexpr int kPadding = 10;
constexpr int kSymbolSize = 14;

} // namespace

FindingsCard::FindingsCard(QWidget* parent) : QFrame(parent), rows_(new QVBoxLayout(this)) {
  rows_->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  rows_->setSpacing(grid::unit);
}

void FindingsCard::clear() {
  while (QLayoutItem* item = rows_->takeAt(0)) {
    // It may hold the button that is being clicked.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
}

void FindingsCard::add(bool critical, const QString& sentence, const std::vector<Link>& links) {
  auto* finding = new QWidget(this);
  auto* line = new QHBoxLayout(finding);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(grid::unit);
  auto* symbol =
      new SymbolLabel(critical ? Symbol::exclamationCircleFill : Symbol::exclamationTriangleFill,
                      kSymbolSize, critical ? Role::danger : Role::warning, finding);
  line->addWidget(symbol, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(grid::half);
  auto* title = new QLabel(sentence, finding);
  title->setTextFormat(Qt::PlainText);
  QFont font = Theme::current().font(TextStyle::caption);
  font.setWeight(QFont::Medium);
  title->setFont(font);
  title->setWordWrap(true);
  texts->addWidget(title);
  if (!links.empty()) {
    auto* indented = new QHBoxLayout; // so that the words stand under the title
    indented->setSpacing(grid::half);
    indented->addSpacing(-grid::half);
    for (const Link& link : links) {
      auto* button = new QPushButton(link.title, finding);
      button->setObjectName(link.objectName);
      setButtonKind(*button, ButtonKind::link);
      button->setCursor(Qt::PointingHandCursor);
      button->setFont(Theme::current().font(TextStyle::caption2));
      connect(button, &QPushButton::clicked, this, link.run);
      indented->addWidget(button);
    }
    indented->addStretch(1);
    texts->addLayout(indented);
  }
  line->addLayout(texts, 1);
  rows_->addWidget(finding);
  finding->show();
}

void FindingsCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(themeColor(Role::card));
  painter.drawRoundedRect(rect(), radius::card, radius::card);
}

} // namespace quillery

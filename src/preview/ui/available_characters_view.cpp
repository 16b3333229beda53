#include "preview/ui/available_characters_view.h"

#include "desktop/shown_text.h"
#include "desktop/theme.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace quillery {
namespace {

constexpr int kCellWidth = grid::section;

QFont cellFont() {
  return Theme::current().font(TextStyle::body);
}

} // namespace

AvailableCharactersView::AvailableCharactersView(ProjectManager& manager, QWidget* parent)
    : QAbstractScrollArea(parent), manager_(manager), characters_(manager),
      connection_(manager.changed.connect([this](const ProjectChange& change) {
        if (characters_.projectChanged(change)) update();
      })) {
  setObjectName(QStringLiteral("availableCharacters"));
  setAccessibleName(tr("Available Characters"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  connect(&Theme::current(), &Theme::changed, this, &AvailableCharactersView::update);
}

void AvailableCharactersView::update() {
  viewport()->update();
  // Qt merges these, so that many changes in one turn of the event loop cost one look.
  if (isVisible()) QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

QString AvailableCharactersView::text() const {
  const std::string text = availableCharacters(manager_.currentProject());
  return text.empty() ? tr("No characters assigned yet") : shownText(text);
}

int AvailableCharactersView::rowHeight() const {
  return QFontMetrics(cellFont()).height() + grid::half;
}

int AvailableCharactersView::columns(int width) const {
  return std::max(1, width / kCellWidth);
}

int AvailableCharactersView::heightFor(int width) {
  const auto count = static_cast<int>(characters_.list().size());
  const int rows = std::max(1, (count + columns(width) - 1) / columns(width));
  return rows * rowHeight();
}

QSize AvailableCharactersView::minimumSizeHint() const {
  return {kCellWidth, rowHeight()};
}

void AvailableCharactersView::updateScrollBar() {
  QScrollBar* bar = verticalScrollBar();
  // Measured as if the bar were there, so that its coming does not send it away.
  const int content = heightFor(viewport()->width());
  bar->setRange(0, std::max(0, content - viewport()->height()));
  bar->setPageStep(viewport()->height());
  bar->setSingleStep(rowHeight());
}

bool AvailableCharactersView::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    updateScrollBar();
    Q_EMIT contentChanged();
  }
  return QAbstractScrollArea::event(event);
}

void AvailableCharactersView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  updateScrollBar();
}

void AvailableCharactersView::scrollContentsBy(int dx, int dy) {
  viewport()->scroll(dx, dy);
}

void AvailableCharactersView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy))
    QGuiApplication::clipboard()->setText(text());
  else
    QAbstractScrollArea::keyPressEvent(event);
}

void AvailableCharactersView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setFont(cellFont());
  const auto& list = characters_.list();
  if (list.empty()) {
    painter.setPen(themeColor(Role::textSecondary));
    painter.drawText(viewport()->rect(), Qt::AlignLeft | Qt::AlignTop, text());
    return;
  }
  painter.setPen(themeColor(Role::text));
  const int height = rowHeight();
  const auto perRow = static_cast<std::size_t>(columns(viewport()->width()));
  const int scrolled = verticalScrollBar()->value();
  const auto firstRow =
      static_cast<std::size_t>(std::max(0, (event->rect().top() + scrolled) / height));
  const QFontMetrics metrics = painter.fontMetrics();
  for (std::size_t i = firstRow * perRow; i < list.size(); ++i) {
    const QRect cell(static_cast<int>(i % perRow) * kCellWidth,
                     static_cast<int>(i / perRow) * height - scrolled, kCellWidth, height);
    if (cell.top() > event->rect().bottom()) break;
    QString character = shownText(list[i]);
    if (character.size() > 1) character = metrics.elidedText(character, Qt::ElideRight, kCellWidth);
    painter.drawText(cell, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, character);
  }
}

} // namespace quillery

#include "preview/ui/available_characters_view.h"

#include "desktop/shown_text.h"
#include "desktop/theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace quillery {
namespace {

QFont textFont() {
  return Theme::current().font(TextStyle::body);
}

} // namespace

AvailableCharactersView::AvailableCharactersView(ProjectManager& manager, QWidget* parent)
    : QAbstractScrollArea(parent), manager_(manager), characters_(manager),
      watch_(manager, {{ProjectChange::What::glyphs, ProjectChange::What::glyphList}},
             [this](const ProjectChanges& changes) {
               if (characters_.projectChanged(changes)) refresh();
             }) {
  setObjectName(QStringLiteral("availableCharacters"));
  setAccessibleName(tr("Available Characters"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  connect(&Theme::current(), &Theme::changed, this, &AvailableCharactersView::refresh);
}

void AvailableCharactersView::refresh() {
  layOut();
  Q_EMIT contentChanged();
}

QString AvailableCharactersView::text() const {
  const std::string text = availableCharacters(manager_.currentProject());
  return text.empty() ? tr("No characters assigned yet") : shownText(text);
}

int AvailableCharactersView::rowHeight() const {
  return QFontMetrics(textFont()).height() + grid::half;
}

// A character wider than the view has a line of its own.
void AvailableCharactersView::breakUpTo(std::size_t line, Lines& lines) {
  const auto& list = characters_.list();
  const QFontMetricsF metrics(textFont());
  const qreal space = metrics.horizontalAdvance(QLatin1Char(' '));
  while (lines.begins.size() <= line + 1 && lines.begins.back() < list.size()) {
    std::size_t end = lines.begins.back();
    qreal used = 0;
    for (; end < list.size(); ++end) {
      used += metrics.horizontalAdvance(shownText(list[end])) + (used > 0 ? space : 0);
      if (used > lines.width && end > lines.begins.back()) break;
    }
    lines.begins.push_back(end);
  }
}

// Lines that nobody has looked at yet are about as long as those before.
std::size_t AvailableCharactersView::probableCount(const Lines& lines) {
  const std::size_t count = characters_.list().size();
  const std::size_t broken = lines.begins.size() - 1;
  const std::size_t held = lines.begins.back();
  if (held >= count) return std::max<std::size_t>(broken, 1);
  return broken + ((count - held) * broken + held - 1) / held;
}

int AvailableCharactersView::heightFor(int width, int most) {
  watch_.catchUp();
  Lines lines{width};
  const int row = rowHeight();
  breakUpTo(static_cast<std::size_t>(most / row) + 1, lines);
  const auto height = static_cast<qint64>(probableCount(lines)) * row;
  return static_cast<int>(std::min<qint64>(height, most));
}

QSize AvailableCharactersView::minimumSizeHint() const {
  return {grid::section, rowHeight()};
}

void AvailableCharactersView::layOut() {
  const int row = rowHeight();
  const auto seen = [&] {
    return static_cast<std::size_t>((verticalScrollBar()->value() + height()) / row) + 1;
  };
  // Whether the bar is there is decided without it, so that it can't send itself away.
  const bool fits = heightFor(width(), height() + 1) <= height();
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
  lines_ = {viewport()->width()};
  breakUpTo(seen(), lines_);
  QScrollBar* bar = verticalScrollBar();
  bar->setRange(0, std::max(0, static_cast<int>(probableCount(lines_)) * row - height()));
  bar->setPageStep(height());
  bar->setSingleStep(row);
  viewport()->update();
}

void AvailableCharactersView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  layOut();
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

QString AvailableCharactersView::line(std::size_t index) {
  const auto& list = characters_.list();
  if (lines_.begins[index + 1] == lines_.begins[index] + 1)
    return QFontMetrics(textFont())
        .elidedText(shownText(list[lines_.begins[index]]), Qt::ElideRight, lines_.width);
  QString text;
  for (std::size_t i = lines_.begins[index]; i < lines_.begins[index + 1]; ++i) {
    if (!text.isEmpty()) text += QLatin1Char(' ');
    text += shownText(list[i]);
  }
  return text;
}

void AvailableCharactersView::paintEvent(QPaintEvent* event) {
  watch_.catchUp();
  QPainter painter(viewport());
  painter.setFont(textFont());
  const QRect area = viewport()->rect();
  if (characters_.list().empty()) {
    painter.setPen(themeColor(Role::textSecondary));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignTop, text());
    return;
  }
  painter.setPen(themeColor(Role::text));
  const int row = rowHeight();
  const int scrolled = verticalScrollBar()->value();
  const auto first = static_cast<std::size_t>((event->rect().top() + scrolled) / row);
  const auto last = static_cast<std::size_t>((event->rect().bottom() + scrolled) / row);
  breakUpTo(last, lines_);
  verticalScrollBar()->setMaximum(
      std::max(0, static_cast<int>(probableCount(lines_)) * row - height()));
  for (std::size_t i = first; i <= last && i + 1 < lines_.begins.size(); ++i) {
    const QRect place(0, static_cast<int>(i) * row - scrolled, area.width(), row);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line(i));
  }
}

} // namespace quillery

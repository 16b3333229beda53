#include "desktop/gesture_line.h"

#include "desktop/painting.h"
#include "desktop/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr QSizeF kMouse(11, 15);
constexpr double kButtons = 6.5; // the part of the mouse's height that they take
constexpr int kLeastHeight = 28;

QFont lineFont() {
  return Theme::current().numberFont(TextStyle::caption);
}

// A mouse with one of its buttons dark.
void paintMouse(QPainter& painter, const QRectF& area, MouseButton button) {
  const QColor color = themeColor(Role::textSecondary);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath body;
  const double round = area.width() / 2;
  body.addRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), round - 0.5, round - 0.5);
  QRectF pressed(area.topLeft(), QSizeF(area.width() / 2, kButtons));
  if (button == MouseButton::right) pressed.moveRight(area.right());
  if (button == MouseButton::middle) {
    pressed = QRectF(0, 0, 3, kButtons - 2);
    pressed.moveCenter({area.center().x(), area.top() + kButtons / 2 + 1});
    painting::box(painter, pressed, 1.5, color);
  } else {
    painter.save();
    painter.setClipRect(pressed);
    painter.fillPath(body, color);
    painter.restore();
  }
  painter.setPen(QPen(color, 1));
  painter.drawPath(body);
  painter.restore();
}

} // namespace

GestureLine::GestureLine(std::vector<GestureHint> hints, QWidget* parent)
    : QWidget(parent), hints_(std::move(hints)) {
  setObjectName(QStringLiteral("gestureLine"));
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  QStringList all;
  for (const GestureHint& hint : hints_) {
    const QString button = !hint.button                         ? QString()
                           : *hint.button == MouseButton::left  ? tr("Left button: ")
                           : *hint.button == MouseButton::right ? tr("Right button: ")
                                                                : tr("Middle button: ");
    all += button + hint.text;
  }
  setToolTip(all.join(QStringLiteral("\n")));
  setAccessibleName(all.join(QStringLiteral(". ")));
  connect(&Theme::current(), &Theme::changed, this, [this] {
    updateGeometry();
    update();
  });
}

void GestureLine::setValues(const QString& values) {
  if (values_ == values) return;
  values_ = values;
  update();
}

QSize GestureLine::sizeHint() const {
  const int text = QFontMetrics(lineFont()).height() + grid::unit;
  return {0, std::max(kLeastHeight, text)};
}

std::vector<QString> GestureLine::fittingTexts(double width) const {
  const QFontMetricsF metrics(lineFont());
  const auto fits = [&](const std::vector<QString>& texts) {
    double needed = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i > 0) needed += grid::margin;
      if (hints_[i].button) needed += kMouse.width() + grid::half;
      needed += metrics.horizontalAdvance(texts[i]);
    }
    return needed <= width;
  };
  std::vector<QString> texts;
  for (const GestureHint& hint : hints_) texts.push_back(hint.text);
  while (!texts.empty() && !fits(texts) && !hints_[texts.size() - 1].button) texts.pop_back();
  if (fits(texts)) return texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = hints_[i].shortText;
  if (fits(texts)) return texts;
  std::fill(texts.begin(), texts.end(), QString());
  return texts;
}

void GestureLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(lineFont());
  const QFontMetricsF metrics(painter.font());
  const QRectF room = contentsRect();
  if (!values_.isEmpty()) {
    painter.setPen(themeColor(Role::text));
    QStringList lines(QString(values_).replace(u'\n', QStringLiteral("    ")));
    const bool fits = metrics.horizontalAdvance(lines.front()) <= room.width();
    if (!fits && 2 * metrics.height() <= room.height()) lines = values_.split(u'\n');
    for (QString& line : lines) line = metrics.elidedText(line, Qt::ElideRight, room.width());
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, lines.join(u'\n'));
    return;
  }
  painter.setPen(themeColor(Role::textSecondary));
  const std::vector<QString> texts = fittingTexts(room.width());
  double x = room.left();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (hints_[i].button) {
      QRectF mouse(QPointF(x, 0), kMouse);
      mouse.moveTop(std::round(room.center().y() - kMouse.height() / 2));
      paintMouse(painter, mouse, *hints_[i].button);
      x += kMouse.width() + (texts[i].isEmpty() ? 0 : grid::half);
    }
    const double width = metrics.horizontalAdvance(texts[i]);
    painter.drawText(QRectF(x, room.top(), width + 1, room.height()),
                     Qt::AlignVCenter | Qt::TextSingleLine, texts[i]);
    x += width + (texts[i].isEmpty() ? grid::half : grid::margin);
  }
}

} // namespace quillery

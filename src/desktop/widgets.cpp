#include "desktop/widgets.h"

#include "desktop/painting.h"

#include <QBoxLayout>
#include <QPainter>
#include <QStyle>
#include <cmath>

namespace quillery {

TextLabel::TextLabel(const QString& text, TextStyle style, Role role, QWidget* parent)
    : QLabel(text, parent), style_(style), role_(role) {
  setTextFormat(Qt::PlainText);
  follow();
  connect(&Theme::current(), &Theme::changed, this, &TextLabel::follow);
}

void TextLabel::setRole(Role role) {
  role_ = role;
  follow();
}

void TextLabel::follow() {
  setFont(Theme::current().font(style_));
  QPalette colors = palette();
  colors.setColor(QPalette::Active, QPalette::WindowText, themeColor(role_));
  colors.setColor(QPalette::Inactive, QPalette::WindowText, themeColor(role_));
  setPalette(colors);
}

ElidedLabel::ElidedLabel(const QString& text, TextStyle style, Qt::TextElideMode elision, Role role,
                         QWidget* parent)
    : TextLabel(text, style, role, parent), elision_(elision) {}

QString ElidedLabel::shown() const {
  return fontMetrics().elidedText(text(), elision_, width());
}

QSize ElidedLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 1, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
  return {0, fontMetrics().height()};
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) setToolTip(shown() == text() ? QString() : text());
  return TextLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, rect(), static_cast<int>(alignment()),
                        palette(), isEnabled(), shown(), foregroundRole());
}

SymbolLabel::SymbolLabel(Symbol symbol, int size, Role role, QWidget* parent)
    : QWidget(parent), symbol_(symbol), role_(role) {
  setFixedSize(size, size);
}

void SymbolLabel::setSymbol(Symbol symbol, Role role) {
  symbol_ = symbol;
  role_ = role;
  update();
}

void SymbolLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintSymbol(painter, symbol_, rect(), themeColor(role_));
}

SectionHeader::SectionHeader(const QString& title, QWidget* parent)
    : QWidget(parent), row_(new QHBoxLayout(this)) {
  auto* label = new TextLabel(title, TextStyle::headline, Role::text, this);
  label->setObjectName(QStringLiteral("title"));
  setAccessibleName(title);
  row_->setContentsMargins(0, 0, 0, 0);
  row_->addWidget(label, 1);
}

void SectionHeader::addTrailing(QWidget* control) {
  row_->addWidget(control);
}

IconButton::IconButton(Symbol symbol, const QString& title, QWidget* parent) : QToolButton(parent) {
  setAutoRaise(true);
  setFocusPolicy(Qt::TabFocus);
  setIconSize({grid::toolIconSize, grid::toolIconSize});
  setToolButtonStyle(Qt::ToolButtonIconOnly);
  setSymbol(symbol);
  setToolTip(title);
  setAccessibleName(title);
}

void IconButton::setSymbol(Symbol symbol, Role role) {
  setIcon(quillery::icon(symbol, role));
}

Badge::Badge(Symbol symbol, const QString& text, QWidget* parent)
    : QWidget(parent), symbol_(symbol), text_(text) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  animation_.setEasingCurve(QEasingCurve::OutCubic);
  connect(&animation_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    presence_ = value.toDouble();
    update();
  });
  connect(&Theme::current(), &Theme::changed, this, &QWidget::updateGeometry);
}

void Badge::setPresented(bool presented) {
  if (presented_ == presented) return;
  presented_ = presented;
  setAccessibleName(presented ? text_ : QString());
  animation_.stop();
  // A user who wants no motion gets none.
  animation_.setDuration(style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this));
  animation_.setStartValue(presence_);
  animation_.setEndValue(presented ? 1.0 : 0.0);
  animation_.start();
}

QSize Badge::sizeHint() const {
  const QFontMetrics metrics(Theme::current().font(TextStyle::caption));
  return {metrics.horizontalAdvance(text_) + grid::iconSize + grid::half + 2 * grid::unit + 2,
          std::max(metrics.height(), grid::iconSize) + grid::unit};
}

void Badge::paintEvent(QPaintEvent*) {
  if (presence_ <= 0) return;
  QPainter painter(this);
  painter.setOpacity(presence_);
  if (presence_ < 1) {
    const double scale = 0.85 + 0.15 * presence_;
    painter.translate(rect().center());
    painter.scale(scale, scale);
    painter.translate(-rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
  }
  painting::box(painter, rect(), height() / 2.0, themeColor(Role::successFill));
  QRectF text = QRectF(rect()).adjusted(grid::unit + 1, 0, -grid::unit - 1, 0);
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  QRectF square(0, 0, grid::iconSize, grid::iconSize);
  square.moveCenter(text.center());
  mirrored ? square.moveRight(text.right()) : square.moveLeft(text.left());
  paintSymbol(painter, symbol_, square, themeColor(Role::success));
  const double taken = grid::iconSize + grid::half;
  mirrored ? text.adjust(0, 0, -taken, 0) : text.adjust(taken, 0, 0, 0);
  painter.setFont(Theme::current().font(TextStyle::caption));
  painter.setPen(themeColor(Role::success));
  painter.drawText(text, Qt::AlignCenter | Qt::TextSingleLine, text_);
}

Spinner::Spinner(int size, QWidget* parent) : QWidget(parent), size_(size) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAccessibleName(tr("In progress"));
  turn_.setStartValue(0.0);
  turn_.setEndValue(1.0);
  turn_.setDuration(1000);
  turn_.setLoopCount(-1);
  connect(&turn_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

void Spinner::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double width = std::max(2.0, size_ / 11.0);
  const QRectF circle = QRectF(rect()).adjusted(width, width, -width, -width);
  painter.setPen(QPen(themeColor(Role::track), width));
  painter.drawEllipse(circle);
  painter.setPen(QPen(themeColor(Role::accent), width, Qt::SolidLine, Qt::RoundCap));
  const int start = static_cast<int>(std::lround(-turn_.currentValue().toDouble() * 360 * 16));
  painter.drawArc(circle, start + 90 * 16, -100 * 16);
}

void Spinner::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  turn_.start();
}

void Spinner::hideEvent(QHideEvent* event) {
  turn_.stop(); // nothing turns where nobody looks
  QWidget::hideEvent(event);
}

QFrame* makeSeparator(Qt::Orientation orientation, QWidget* parent) {
  auto* const line = new QFrame(parent);
  line->setFrameShape(orientation == Qt::Horizontal ? QFrame::HLine : QFrame::VLine);
  orientation == Qt::Horizontal ? line->setFixedHeight(1) : line->setFixedWidth(1);
  return line;
}

} // namespace quillery

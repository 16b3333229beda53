#include "desktop/segmented_control.h"

#include "desktop/painting.h"
#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>
#include <algorithm>

namespace quillery {
namespace {

constexpr int kInset = 2; // of the segments in the track
constexpr int kMarkHeight = 2;

/// A radio button by nature, which gives it keys and accessibility; only its face is another.
class Segment : public QRadioButton {
public:
  using QRadioButton::QRadioButton;

  QSize sizeHint() const override {
    const QFontMetrics metrics(boldFont());
    return {metrics.horizontalAdvance(text()) + 2 * grid::gap,
            std::max(metrics.height() + 6, grid::controlHeight - 2 * kInset)};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const bool under = underMouse() && isEnabled();
    if (isChecked())
      painting::box(painter, rect(), radius::small,
                    themeColor(isEnabled() ? Role::control : Role::controlDisabled),
                    themeColor(Role::border));
    else if (isDown() || under)
      painting::box(painter, rect(), radius::small,
                    themeColor(isDown() ? Role::pressed : Role::hover));
    painter.setFont(isChecked() ? boldFont() : font());
    // Fills alone tell the segments apart too faintly, above all in the dark.
    if (isChecked() && isEnabled()) paintMark(painter);
    painter.setPen(themeColor(!isEnabled()  ? Role::textDisabled
                              : isChecked() ? Role::text
                                            : Role::textSecondary));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine | Qt::TextHideMnemonic, text());
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange))
      painting::focusRing(painter, rect(), radius::small);
  }

private:
  void paintMark(QPainter& painter) const {
    QRectF mark(0, 0, QFontMetrics(painter.font()).horizontalAdvance(text()), kMarkHeight);
    mark.moveCenter({rect().center().x() + 0.5, 0});
    mark.moveBottom(height() - kInset - 1);
    painting::box(painter, mark, kMarkHeight / 2.0, themeColor(Role::accentForeground));
  }

  QFont boldFont() const {
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    return bold;
  }
};

} // namespace

SegmentedControl::SegmentedControl(const QString& accessibleName, const QStringList& titles,
                                   QWidget* parent)
    : QWidget(parent) {
  setAccessibleName(accessibleName);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kInset, kInset, kInset, kInset);
  row->setSpacing(kInset);
  for (const QString& title : titles) {
    const int index = static_cast<int>(segments_.size());
    auto* const segment = new Segment(title, this);
    segment->setObjectName(QStringLiteral("segment%1").arg(index));
    segment->setAttribute(Qt::WA_Hover);
    segment->setChecked(index == 0);
    row->addWidget(segment, 1);
    segments_.push_back(segment);
    connect(segment, &QRadioButton::toggled, this, [this, index](bool checked) {
      if (!checked || current_ == index) return;
      current_ = index;
      currentChanged(index);
    });
  }
  connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void SegmentedControl::setCurrent(int index) {
  if (index < 0 || index >= static_cast<int>(segments_.size())) return;
  current_ = index; // first: whoever sets it needs no telling
  segment(index)->setChecked(true);
}

void SegmentedControl::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painting::box(painter, rect(), radius::control, themeColor(Role::controlPressed));
}

} // namespace quillery

#include "editor/ui/value_slider_row.h"

#include "base/numbers.h"
#include "desktop/value_readout.h"
#include "desktop/widgets.h"
#include "editor/glyph_drag.h"
#include "editor/glyph_metrics.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kLongest = 1e9; // from here on, digits would push the panel's other parts away

QString metricLabel(const GlyphMetricInfo& info) {
  return QCoreApplication::translate("GlyphMetrics", info.label);
}

} // namespace

QString shownNumber(double value, int decimals) {
  if (!(std::fabs(value) < kLongest)) return QString::number(value, 'g', 3);
  const QString text = QString::fromStdString(formatFixed(value, decimals));
  return text == QStringLiteral("-0") ? QStringLiteral("0") : text;
}

QString shownChanges(const std::vector<MetricChange>& changes) {
  QStringList shown;
  for (const auto& [metric, from, to] : changes) {
    const bool isFactor = metric == GlyphMetric::scale;
    const double unit = isFactor ? 100 : 1;
    const QString sign = isFactor ? QStringLiteral("%") : QString();
    // The difference of what is shown, which is rounded.
    const QString by = shownNumber(std::round(to * unit) - std::round(from * unit));
    shown += QStringLiteral("%1 %2%4 (%3%4)")
                 .arg(metricLabel(infoOf(metric)), shownNumber(to * unit),
                      by.startsWith(u'-') ? by : u'+' + by, sign);
  }
  return shown.join(u'\n');
}

std::optional<double> parsePercent(const std::string& typed) {
  std::string number = typed;
  if (number.ends_with('%')) number.pop_back();
  while (number.ends_with(' ')) number.pop_back();
  const auto percent = numberFormat().parse(number);
  return percent ? std::optional(*percent / 100) : std::nullopt;
}

ValueSliderRow::ValueSliderRow(const GlyphMetricInfo& info, QWidget* parent) : QWidget(parent) {
  const QString label = metricLabel(info);
  const QString name = QString::fromLatin1(quillery::name(info.metric));
  readout_ = new ValueReadout(label, this);
  readout_->setObjectName(name + QStringLiteral("Value"));
  slider_ = new ValueSlider(info.least, info.greatest, info.step, this);
  slider_->setObjectName(name);
  slider_->setAccessibleName(label);
  if (info.origin) slider_->setOrigin(*info.origin);

  auto* const header = new QHBoxLayout;
  header->setSpacing(grid::unit);
  header->addWidget(new TextLabel(label, TextStyle::caption, Role::text, this), 1);
  header->addWidget(readout_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(header);
  column->addWidget(slider_);

  connect(slider_, &ValueSlider::gestureBegan, this, [this](GestureKind k) { beginGesture(k); });
  connect(slider_, &ValueSlider::moved, this, [this](double value) { change(value); });
  connect(slider_, &ValueSlider::gestureEnded, this, [this] { endGesture(); });
  connect(slider_, &ValueSlider::gestureCancelled, this, [this] { cancelGesture(); });
  connect(slider_, &ValueSlider::entryRequested, readout_, &ValueReadout::beginEntry);
  connect(readout_, &ValueReadout::entered, this, &ValueSliderRow::enter);
  connect(readout_, &ValueReadout::entryClosed, slider_, [this] {
    // Only where nothing else has taken the focus: leaving the field enters its value, too.
    const QWidget* const focused = window()->focusWidget();
    if (!focused || readout_->isAncestorOf(focused) || focused == readout_)
      slider_->setFocus(Qt::OtherFocusReason);
  });
}

std::optional<double> ValueSliderRow::parse(const std::string& typed) const {
  return numberFormat().parse(typed);
}

void ValueSliderRow::show(double sliderValue, const QString& text, Role role) {
  slider_->showValue(sliderValue);
  readout_->show(text, role);
}

void ValueSliderRow::enter(const QString& typed) {
  const auto value = parse(typed.trimmed().toStdString());
  if (!value || std::isnan(*value)) return;
  // Not by moving the slider: it may rest there already for a value beyond its range.
  beginGesture(GestureKind::steps);
  change(std::clamp(*value, slider_->least(), slider_->greatest()));
  endGesture();
}

} // namespace quillery

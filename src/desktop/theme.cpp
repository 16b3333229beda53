#include "desktop/theme.h"

#include "desktop/desktop_scheme.h"
#include "desktop/focused_keys.h"
#include "desktop/style.h"
#include "desktop/value_slider.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QToolTip>
#include <algorithm>

namespace quillery {
namespace {

Theme* living = nullptr;

struct Scale {
  double size; // of the desktop's font
  QFont::Weight weight;
};

Scale scaleOf(TextStyle style) {
  switch (style) {
  case TextStyle::caption2:
    return {0.83, QFont::Normal};
  case TextStyle::caption:
    return {0.90, QFont::Normal};
  case TextStyle::subheadline:
    return {0.95, QFont::Normal};
  case TextStyle::body:
    return {1.0, QFont::Normal};
  case TextStyle::headline:
    return {1.08, QFont::DemiBold};
  case TextStyle::title2:
    return {1.35, QFont::DemiBold};
  case TextStyle::title:
    return {1.6, QFont::Bold};
  case TextStyle::largeTitle:
    return {2.0, QFont::DemiBold};
  }
  return {1.0, QFont::Normal};
}

// Small print stays readable where the desktop's font is small.
constexpr double kSmallestPoints = 7.5;
constexpr double kSmallestPixels = 10;

std::optional<ColorScheme> schemeOfEnvironment() {
  const QString name = qEnvironmentVariable("QUILLERY_THEME");
  if (name == QLatin1String("light")) return ColorScheme::light;
  if (name == QLatin1String("dark")) return ColorScheme::dark;
  return std::nullopt;
}

} // namespace

Theme::Theme(QApplication& application)
    : application_(application), desktop_(std::make_unique<DesktopScheme>(application.palette())),
      override_(schemeOfEnvironment()) {
  Q_ASSERT(!living);
  living = this;
  application_.setStyle(new Style);
  connect(desktop_.get(), &DesktopScheme::changed, this, &Theme::apply);
  apply();
  application_.installEventFilter(this);
  giveKeysToWhatHasTheFocus(application_);
  installSliderAccessibility();
}

Theme::~Theme() {
  living = nullptr;
}

Theme& Theme::current() {
  Q_ASSERT(living);
  return *living;
}

QFont Theme::font(TextStyle style) const {
  QFont font = application_.font();
  const auto [scale, weight] = scaleOf(style);
  // A desktop gives its font in points or in pixels; the other measure is negative then.
  if (font.pointSizeF() > 0)
    font.setPointSizeF(
        std::max(font.pointSizeF() * scale, std::min(kSmallestPoints, font.pointSizeF())));
  else
    font.setPixelSize(static_cast<int>(std::max(font.pixelSize() * scale, kSmallestPixels) + 0.5));
  font.setWeight(weight);
  return font;
}

QFont Theme::numberFont(TextStyle style) const {
  QFont result = font(style);
  const QFontMetrics metrics(result);
  // Nearly every text font has digits of one width as they come; where it has not, the desktop's
  // font for fixed widths does.
  for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
    if (metrics.horizontalAdvance(QChar(digit)) == metrics.horizontalAdvance(u'0')) continue;
    result.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    break;
  }
  return result;
}

void Theme::setOverride(std::optional<ColorScheme> scheme) {
  override_ = scheme;
  apply();
}

void Theme::apply() {
  const ColorScheme wanted = override_.value_or(desktop_->scheme());
  const QPalette palette = Theme::palette(wanted);
  const bool same = wanted == scheme_ && application_.palette() == palette;
  if (same) return;
  scheme_ = wanted;
  application_.setPalette(palette);
  QToolTip::setPalette(palette);
  changed();
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &application_ && event->type() == QEvent::ApplicationFontChange) changed();
  return QObject::eventFilter(watched, event);
}

} // namespace quillery

#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <memory>
#include <optional>

class QApplication;
class QEvent;

namespace quillery {

/// What a colour is for. Views name these and never a colour itself.
enum class Role {
  // Surfaces
  window,  ///< behind everything
  sidebar, ///< panels beside the work area, header rows, the track of a segmented control
  card,    ///< raised above the window: cards, menus, lists, dialogs' insets
  field,   ///< where text is typed
  tooltip,
  // Text and icons, readable on all surfaces but the tooltip
  text,
  textSecondary,
  textPlaceholder,
  textDisabled,
  tooltipText,
  // Lines
  separator,   ///< between regions
  border,      ///< around controls that their text or fill gives away
  fieldBorder, ///< around controls that only their outline gives away
  // Controls
  control,
  controlHover,
  controlPressed,
  controlDisabled,
  track,   ///< the empty part of a slider or progress bar
  hover,   ///< translucent, over any surface under the pointer
  pressed, ///< translucent, over any surface while pressed
  scrollHandle,
  // The one accent
  accent, ///< fills
  accentHover,
  accentPressed,
  accentText,       ///< on an accent fill
  accentForeground, ///< text, links and icons in the accent colour on a surface
  selection,        ///< of rows and cards that keep their text colour
  focusRing,
  // Meaning: text and icons on surfaces, and the fill of a badge with its text
  success,
  warning, ///< icons only: an orange dark enough for text is a brown beside the red of danger
  danger,
  successFill,
  // Canvases. The hues are for guides and overlays, mostly translucent. Grey, blue, green and
  // orange
  // also name guides in words and are readable on every surface.
  canvas,
  canvasInk, ///< outlines
  grey,
  blue,
  red,
  green,
  purple,
  orange,
  pink,
  cyan,
  yellow,
};
inline constexpr int kRoleCount = static_cast<int>(Role::yellow) + 1;

/// The type scale. Sizes follow the desktop's own font.
enum class TextStyle { caption2, caption, subheadline, body, headline, title2, title, largeTitle };

/// Distances, in logical pixels. Eight is the unit; four is for what belongs together closely.
namespace grid {
inline constexpr int half = 4;
inline constexpr int unit = 8;
inline constexpr int gap = 12;     ///< between controls in a group
inline constexpr int margin = 16;  ///< around content, between groups
inline constexpr int section = 24; ///< between sections, around dialogs
inline constexpr int controlHeight = 32;
inline constexpr int largeControlHeight = 40;
inline constexpr int rowHeight = 32;
inline constexpr int iconSize = 16;
inline constexpr int toolIconSize = 20;
} // namespace grid

/// Corner radii, in logical pixels.
namespace radius {
inline constexpr qreal small = 4;   ///< check boxes, menu entries, inner parts
inline constexpr qreal control = 6; ///< buttons, fields
inline constexpr qreal card = 8;    ///< cards, panels
} // namespace radius

enum class ColorScheme { light, dark };

class DesktopScheme;

/// The look of the window: colours, fonts and the style that draws the controls. There is one, made
/// before the first widget. It follows the desktop's choice of light or dark; the environment
/// variable QUILLERY_THEME ("light", "dark") overrides that.
class Theme : public QObject {
  Q_OBJECT
public:
  explicit Theme(QApplication& application);
  ~Theme() override;

  /// The theme that lives. There must be one.
  static Theme& current();

  ColorScheme scheme() const { return scheme_; }
  bool isDark() const { return scheme_ == ColorScheme::dark; }

  QColor color(Role role) const { return color(role, scheme_); }
  /// The colour with its opacity multiplied.
  QColor color(Role role, double opacity) const;
  static QColor color(Role role, ColorScheme scheme);
  /// Every role of every group.
  static QPalette palette(ColorScheme scheme);

  QFont font(TextStyle style) const;
  /// With digits of one width where the font has them, for values that change.
  QFont numberFont(TextStyle style) const;

  /// Shows this scheme whatever the desktop says; nothing goes back to following the desktop.
  void setOverride(std::optional<ColorScheme> scheme);
  std::optional<ColorScheme> overridden() const { return override_; }

Q_SIGNALS:
  /// Colours or fonts have changed. Widgets that paint with the palette get it with their next
  /// event.
  void changed();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void apply();

  QApplication& application_;
  std::unique_ptr<DesktopScheme> desktop_;
  std::optional<ColorScheme> override_;
  ColorScheme scheme_ = ColorScheme::light;
};

/// The colour of a role now.
inline QColor themeColor(Role role) {
  return Theme::current().color(role);
}
inline QColor themeColor(Role role, double opacity) {
  return Theme::current().color(role, opacity);
}

} // namespace quillery

#include "desktop/icons.h"
#include "desktop/widgets.h"
#include "gui/desktop/gui_test.h"

#include <QSignalSpy>

using namespace quillery;
using namespace quillery::test;

namespace {

QByteArray pairName(int a, int b, ColorScheme scheme) {
  return QByteArray(scheme == ColorScheme::dark ? "dark " : "light ") + QByteArray::number(a) +
         " on " + QByteArray::number(b);
}

} // namespace

class ThemeTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }
  void cleanup() { Theme::current().setOverride(ColorScheme::light); }

  void textAndLinesStandOutFromEverySurface() {
    using R = Role;
    std::vector<std::tuple<R, R, double>> pairs;
    for (const R surface : {R::window, R::sidebar, R::card, R::field}) {
      for (const R text : {R::text, R::textSecondary, R::textPlaceholder, R::accentForeground,
                           R::success, R::warning, R::danger})
        pairs.emplace_back(text, surface, 4.5);
      for (const R line : {R::fieldBorder, R::focusRing, R::accent})
        pairs.emplace_back(line, surface, 2.9);
    }
    for (const R surface : {R::control, R::controlHover, R::controlPressed, R::selection})
      pairs.emplace_back(R::text, surface, 4.5);
    for (const R surface : {R::accent, R::accentHover, R::accentPressed})
      pairs.emplace_back(R::accentText, surface, 4.5);
    for (const auto& [text, surface] : {std::pair{R::danger, R::control},
                                        {R::textSecondary, R::selection},
                                        {R::success, R::successFill},
                                        {R::tooltipText, R::tooltip},
                                        {R::canvasInk, R::canvas}})
      pairs.emplace_back(text, surface, 4.5);
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark})
      for (const auto& [text, surface, least] : pairs)
        QVERIFY2(contrast(Theme::color(text, scheme), Theme::color(surface, scheme)) >= least,
                 pairName(int(text), int(surface), scheme));
  }

  void widgetsAndIconsFollowASwitchAtOnce() {
    Theme& theme = Theme::current();
    theme.setOverride(ColorScheme::light);
    TextLabel label(u"Glyphs"_s, TextStyle::body, Role::textSecondary);
    const QIcon trash = icon(Symbol::trash);
    const QImage lightIcon = trash.pixmap(16, 16).toImage();
    const QSignalSpy spy(&theme, &Theme::changed);
    theme.setOverride(ColorScheme::dark);
    theme.setOverride(ColorScheme::dark);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(QApplication::palette().color(QPalette::Window), themeColor(Role::window));
    QCOMPARE(label.palette().color(QPalette::WindowText), themeColor(Role::textSecondary));
    QVERIFY(trash.pixmap(16, 16).toImage() != lightIcon);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<ThemeTest>(argc, argv);
}

#include "theme_test.moc"

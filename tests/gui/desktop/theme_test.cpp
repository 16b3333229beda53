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

  // What is painted on what, in every pair of roles that a view uses.
  void textAndMarksStandOutFromEverySurface() {
    using R = Role;
    constexpr double kText = 4.5;
    constexpr double kMark = 3; // and large text
    struct Row {
      std::vector<Role> marks;
      std::vector<Role> surfaces;
      double least;
    };
    const std::vector<Role> surfaces = {R::window, R::sidebar, R::card, R::field, R::canvas};
    const Row rows[] = {
        {{R::text, R::textSecondary, R::textPlaceholder, R::accentForeground, R::success,
          R::danger},
         surfaces,
         kText},
        {{R::grey, R::blue, R::green, R::orange}, surfaces, kText}, // names of guides, "Multiple"
        {{R::warning, R::fieldBorder, R::focusRing, R::accent}, surfaces, kMark},
        {{R::red, R::purple, R::pink, R::cyan, R::yellow, R::canvasInk},
         {R::canvas, R::window},
         kMark},
        {{R::text}, {R::control, R::controlHover, R::controlPressed, R::selection}, kText},
        {{R::textSecondary, R::danger, R::accentForeground}, {R::control, R::selection}, kText},
        {{R::textSecondary}, {R::controlPressed, R::controlHover}, kText}, // a segment not chosen
        {{R::accentForeground}, {R::control, R::controlPressed}, kMark},   // under the one that is
        {{R::accentText}, {R::accent, R::accentHover, R::accentPressed}, kText},
        {{R::success}, {R::successFill}, kText},
        {{R::tooltipText}, {R::tooltip}, kText}};
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark})
      for (const auto& [marks, grounds, least] : rows)
        for (const Role mark : marks)
          for (const Role ground : grounds) {
            const double found = contrast(Theme::color(mark, scheme), Theme::color(ground, scheme));
            QVERIFY2(found >= least,
                     pairName(int(mark), int(ground), scheme) + ": " + QByteArray::number(found));
          }
  }

  void whatWarnsIsNotTakenForWhatIsCritical() {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
      const int apart = std::abs(Theme::color(Role::warning, scheme).hslHue() -
                                 Theme::color(Role::danger, scheme).hslHue());
      QVERIFY2(std::min(apart, 360 - apart) >= 25, QByteArray::number(apart));
    }
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

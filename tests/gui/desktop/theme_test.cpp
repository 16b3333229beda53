#include "desktop/icons.h"
#include "desktop/painting.h"
#include "desktop/widgets.h"
#include "gui/desktop/gui_test.h"

#include <QPainter>
#include <QSignalSpy>

using namespace quillery;
using namespace quillery::test;

namespace {

QByteArray pairName(int a, int b, ColorScheme scheme) {
  return QByteArray(scheme == ColorScheme::dark ? "dark " : "light ") + QByteArray::number(a) +
         " on " + QByteArray::number(b);
}

int inkIn(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y).alpha() > 127;
  return count;
}

} // namespace

class ThemeTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }
  void cleanup() { Theme::current().setOverride(ColorScheme::light); }

  void textStandsOutFromEverySurface() {
    const Role surfaces[] = {Role::window, Role::sidebar, Role::card, Role::field};
    const Role texts[] = {
        Role::text,    Role::textSecondary, Role::textPlaceholder, Role::accentForeground,
        Role::success, Role::warning,       Role::danger};
    std::vector<std::pair<Role, Role>> pairs = {
        {Role::accentText, Role::accent},        {Role::accentText, Role::accentHover},
        {Role::accentText, Role::accentPressed}, {Role::text, Role::control},
        {Role::text, Role::controlHover},        {Role::text, Role::controlPressed},
        {Role::danger, Role::control},           {Role::text, Role::selection},
        {Role::textSecondary, Role::selection},  {Role::textSecondary, Role::neutralFill},
        {Role::success, Role::successFill},      {Role::warning, Role::warningFill},
        {Role::danger, Role::dangerFill},        {Role::tooltipText, Role::tooltip},
        {Role::canvasInk, Role::canvas}};
    for (const Role text : texts)
      for (const Role surface : surfaces) pairs.emplace_back(text, surface);
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark})
      for (const auto& [text, surface] : pairs)
        QVERIFY2(contrast(Theme::color(text, scheme), Theme::color(surface, scheme)) >= 4.5,
                 pairName(int(text), int(surface), scheme));
  }

  void whatOnlyALineGivesAwayIsSeen() {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark})
      for (const Role line : {Role::fieldBorder, Role::focusRing, Role::accent})
        for (const Role surface : {Role::window, Role::card, Role::field, Role::sidebar})
          QVERIFY2(contrast(Theme::color(line, scheme), Theme::color(surface, scheme)) >= 2.9,
                   pairName(int(line), int(surface), scheme));
  }

  void everyPaletteGroupIsFilledAndReadable() {
    using P = QPalette;
    const std::pair<P::ColorRole, P::ColorRole> pairs[] = {
        {P::WindowText, P::Window},       {P::Text, P::Base},
        {P::Text, P::AlternateBase},      {P::ButtonText, P::Button},
        {P::PlaceholderText, P::Base},    {P::HighlightedText, P::Highlight},
        {P::ToolTipText, P::ToolTipBase}, {P::Link, P::Window},
        {P::LinkVisited, P::Base}};
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
      const QPalette palette = Theme::palette(scheme);
      for (const auto group : {P::Active, P::Inactive, P::Disabled})
        for (int role = 0; role < P::NColorRoles; ++role)
          QVERIFY2(role == P::NoRole || palette.isBrushSet(group, P::ColorRole(role)),
                   pairName(group, role, scheme));
      for (const auto& [text, surface] : pairs) {
        const auto ratio = [&, t = text, s = surface](P::ColorGroup group) {
          return contrast(palette.color(group, t), palette.color(group, s));
        };
        QVERIFY2(ratio(P::Active) >= 4.5, pairName(text, surface, scheme));
        QCOMPARE(ratio(P::Inactive), ratio(P::Active));
        // Disabled text can still be made out, and looks disabled.
        if (text == P::ToolTipText) continue;
        QVERIFY2(ratio(P::Disabled) >= 1.7, pairName(text, surface, scheme));
        QVERIFY2(ratio(P::Disabled) < ratio(P::Active) - 1, pairName(text, surface, scheme));
      }
    }
  }

  void widgetsAndIconsFollowASwitchAtOnce() {
    Theme& theme = Theme::current();
    theme.setOverride(ColorScheme::light);
    TextLabel label(QStringLiteral("Glyphs"), TextStyle::body, Role::textSecondary);
    const QIcon trash = icon(Symbol::trash);
    const QImage lightIcon = trash.pixmap(16, 16).toImage();
    const QSignalSpy spy(&theme, &Theme::changed);

    theme.setOverride(ColorScheme::dark);

    QCOMPARE(spy.count(), 1);
    QVERIFY(theme.isDark());
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             Theme::color(Role::window, ColorScheme::dark));
    QCOMPARE(label.palette().color(QPalette::WindowText),
             Theme::color(Role::textSecondary, ColorScheme::dark));
    QVERIFY(trash.pixmap(16, 16).toImage() != lightIcon);
    theme.setOverride(ColorScheme::dark);
    QCOMPARE(spy.count(), 1);
  }

  void theTypeScaleFollowsTheFontOfTheDesktop() {
    const QFont before = QApplication::font();
    const QSignalSpy spy(&Theme::current(), &Theme::changed);
    for (const double points : {8.0, 11.0, 16.0}) {
      QFont font = before;
      font.setPointSizeF(points);
      QApplication::setFont(font);
      double last = 0;
      for (const TextStyle style :
           {TextStyle::caption2, TextStyle::caption, TextStyle::body, TextStyle::headline,
            TextStyle::title2, TextStyle::title, TextStyle::largeTitle}) {
        const double size = Theme::current().font(style).pointSizeF();
        QVERIFY2(size >= last && size >= 7.5, QByteArray::number(size));
        last = size;
      }
      QCOMPARE(Theme::current().font(TextStyle::body).pointSizeF(), points);
    }
    QCOMPARE(spy.count(), 3);
    QApplication::setFont(before);
  }

  void everySymbolIsDrawnInTheColourOfItsRole() {
    for (int i = 0; i < kSymbolCount; ++i) {
      const QIcon symbol = icon(static_cast<Symbol>(i), Role::danger);
      for (const double ratio : {1.0, 1.5, 2.0}) {
        const QPixmap picture = symbol.pixmap(QSize(16, 16), ratio);
        QCOMPARE(picture.size(), QSize(16, 16) * ratio);
        QVERIFY2(inkIn(picture.toImage()) >= 8 * ratio, QByteArray::number(i));
      }
      const QImage large = symbolPixmap(static_cast<Symbol>(i), 48, 2, Qt::red).toImage();
      bool red = false;
      for (int x = 0; x < large.width() && !red; ++x)
        for (int y = 0; y < large.height() && !red; ++y)
          red = large.pixelColor(x, y) == QColor(Qt::red);
      QVERIFY2(red, QByteArray::number(i));
    }
    QVERIFY(icon(Symbol::plus).pixmap(16, 16, QIcon::Disabled).toImage() !=
            icon(Symbol::plus).pixmap(16, 16).toImage());
    QVERIFY(inkIn(applicationIcon().pixmap(64, 64).toImage()) > 2000);
  }

  void hairlinesAreWholeDevicePixels_data() {
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("thickness");
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.5") << 1.5 << 1;
    QTest::newRow("2") << 2.0 << 2;
  }
  void hairlinesAreWholeDevicePixels() {
    QFETCH(double, ratio);
    QFETCH(int, thickness);
    QImage image(QSize(60, 60) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    // 5 and 7 lie between device pixels at a ratio of 1.5.
    painting::box(painter, QRectF(5, 7, 41, 41), 0, Qt::white, Qt::black);
    painting::separator(painter, QRectF(0, 53, 60, 1), Qt::Horizontal);
    painter.end();
    const int column = static_cast<int>(25 * ratio);
    int lines = 0;
    int coloured = 0;
    for (int y = 0; y < image.height(); ++y) {
      const QColor here = image.pixelColor(column, y);
      const bool line = here == QColor(Qt::black) || here == themeColor(Role::separator);
      lines += line;
      coloured += here != QColor(Qt::white);
    }
    QCOMPARE(lines, 3 * thickness);
    QCOMPARE(coloured, lines); // nothing half covered
  }
};

int main(int argc, char** argv) {
  return runWithTheme<ThemeTest>(argc, argv);
}

#include "theme_test.moc"

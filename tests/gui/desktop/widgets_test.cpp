#include "desktop/painting.h"
#include "desktop/segmented_control.h"
#include "desktop/widgets.h"
#include "gui/desktop/gui_test.h"

#include <QAccessible>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace quillery;
using namespace quillery::test;

class WidgetsTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void aGuideIsAsWideAsItSaysAndSharpAtItsEdge() {
    for (const double scale : {1.0, 2.0}) {
      QImage image(40, 20, QImage::Format_RGB32);
      image.setDevicePixelRatio(scale);
      image.fill(Qt::white);
      QPainter painter(&image);
      painting::guide(painter, {7.3, 0}, {7.3, 20}, 1.5, Qt::black);
      painter.end();
      double ink = 0;
      int touched = 0;
      for (int x = 0; x < image.width(); ++x) {
        const double dark = 1 - image.pixelColor(x, 8).lightnessF();
        ink += dark;
        touched += dark > 0.02 ? 1 : 0;
      }
      QVERIFY2(std::abs(ink - 1.5 * scale) < 0.02, QByteArray::number(ink));
      QCOMPARE(touched, static_cast<int>(std::ceil(1.5 * scale)));
    }
  }

  void init() { failOnWarnings(); }

  void aSegmentIsTakenByMouseKeyAndCodeAndToldToScreenReaders() {
    SegmentedControl control(u"View"_s, {u"Glyphs"_s, u"Kerning"_s, u"Preview"_s});
    const QSignalSpy spy(&control, &SegmentedControl::currentChanged);
    control.show();
    QVERIFY(QTest::qWaitForWindowActive(&control));
    QTest::mouseClick(control.segment(1), Qt::LeftButton);
    QCOMPARE(control.current(), 1);
    control.segment(1)->setFocus();
    QTest::keyClick(control.segment(1), Qt::Key_Right);
    QCOMPARE(control.current(), 2);
    for (const int index : {0, 7, -1}) control.setCurrent(index);
    QCOMPARE(control.current(), 0);
    QCOMPARE(spy.count(), 2); // code needs no telling
    const auto* const group = QAccessible::queryAccessibleInterface(&control);
    QCOMPARE(group->child(1)->role(), QAccessible::RadioButton);
    QCOMPARE(group->child(1)->text(QAccessible::Name), u"Kerning"_s);
    QVERIFY(group->child(0)->state().checked);
  }

  void onlyTheKeyboardGetsAFocusRing() {
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    auto* const first = new QPushButton(u"First"_s);
    auto* const second = new QPushButton(u"Second"_s);
    column->addWidget(first);
    column->addWidget(second);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto ringed = [](QWidget* widget) {
      const QImage image = widget->grab().toImage();
      return image.pixelColor(image.width() / 2, 0) == themeColor(Role::focusRing);
    };
    QTest::mouseClick(first, Qt::LeftButton);
    QVERIFY(first->hasFocus());
    QVERIFY(!ringed(first));
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    QVERIFY(ringed(second));
    QVERIFY(!ringed(first));
    QTest::mouseClick(first, Qt::LeftButton); // the mouse is back
    QVERIFY(first->hasFocus());
    QVERIFY(!ringed(first));
  }

  void aScrollBarMovesNothingInAForm() {
    QScrollArea area;
    auto* const form = new QWidget;
    auto* const column = new QVBoxLayout(form);
    column->setContentsMargins(grid::margin, grid::margin, grid::margin, grid::margin);
    auto* const value = new QLabel(u"100"_s);
    column->addWidget(value, 0, Qt::AlignRight);
    auto* const rest = new QWidget;
    column->addWidget(rest);
    area.setWidget(form);
    area.setWidgetResizable(true);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.resize(280, 400);
    bringUp(area);
    const auto place = [&] { return value->mapTo(&area, QPoint(value->width(), 0)).x(); };
    const int before = place();
    for (const int height : {900, 20}) {
      rest->setFixedHeight(height);
      QTRY_COMPARE(area.verticalScrollBar()->isVisible(), height > 400);
      QCOMPARE(place(), before);
    }
    area.resize(240, 200); // in a window that gets narrower
    QTRY_COMPARE(place(), before - 40);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<WidgetsTest>(argc, argv);
}

#include "widgets_test.moc"

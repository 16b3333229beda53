#include "desktop/segmented_control.h"
#include "desktop/style.h"
#include "desktop/widgets.h"
#include "gui/desktop/gui_test.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace quillery;
using namespace quillery::test;

class WidgetsTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void aSegmentIsTakenByMouseKeyAndCode() {
    SegmentedControl control(
        QStringLiteral("View"),
        {QStringLiteral("Glyphs"), QStringLiteral("Kerning"), QStringLiteral("Preview")});
    const QSignalSpy spy(&control, &SegmentedControl::currentChanged);
    control.show();
    QVERIFY(QTest::qWaitForWindowActive(&control));
    QCOMPARE(control.current(), 0);
    QTest::mouseClick(control.segment(1), Qt::LeftButton);
    QCOMPARE(control.current(), 1);
    control.segment(1)->setFocus();
    QTest::keyClick(control.segment(1), Qt::Key_Right);
    QCOMPARE(control.current(), 2);
    control.setCurrent(0);
    control.setCurrent(7);
    control.setCurrent(-1);
    QCOMPARE(control.current(), 0);
    QCOMPARE(spy.count(), 3);
  }

  void aSegmentedControlTellsScreenReadersItsChoices() {
    SegmentedControl control(QStringLiteral("View"),
                             {QStringLiteral("Glyphs"), QStringLiteral("Kerning")});
    const auto* const group = QAccessible::queryAccessibleInterface(&control);
    QCOMPARE(group->text(QAccessible::Name), QStringLiteral("View"));
    QCOMPARE(group->childCount(), 2);
    QCOMPARE(group->child(1)->role(), QAccessible::RadioButton);
    QCOMPARE(group->child(1)->text(QAccessible::Name), QStringLiteral("Kerning"));
    QVERIFY(group->child(0)->state().checked);
  }

  void theTitleOfAnIconButtonIsItsNameAndToolTip() {
    IconButton button(Symbol::eye, QStringLiteral("Toggle Preview"));
    button.setTitle(QStringLiteral("Hide Preview"));
    QCOMPARE(button.toolTip(), QStringLiteral("Hide Preview"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name),
             QStringLiteral("Hide Preview"));
    QCOMPARE(button.sizeHint(), QSize(grid::controlHeight, grid::controlHeight));
  }

  void aBadgeFadesWithoutMovingItsNeighbours() {
    Badge badge(Symbol::check, QStringLiteral("Saved!"), Badge::Tone::success);
    badge.show();
    const QSize size = badge.sizeHint();
    const auto blank = [&] {
      const QImage image = badge.grab().toImage();
      return image.pixelColor(image.rect().center()) ==
             QApplication::palette().color(QPalette::Window);
    };
    QVERIFY(!blank());
    badge.setPresented(false);
    QTRY_VERIFY(blank());
    QCOMPARE(badge.sizeHint(), size);
    QVERIFY(badge.accessibleName().isEmpty());
    badge.setPresented(true);
    QTRY_VERIFY(!blank());
  }

  void controlsOfOneRowHaveOneHeight() {
    QPushButton button(QStringLiteral("Reset"));
    QLineEdit field;
    QComboBox box;
    QComboBox editable;
    editable.setEditable(true);
    QSpinBox number;
    const SegmentedControl segments(QString(), {QStringLiteral("A"), QStringLiteral("B")});
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             &button, &field, &box, &editable, &number, &segments})
      QCOMPARE(control->sizeHint().height(), grid::controlHeight);
  }

  void onlyTheKeyboardGetsAFocusRing() {
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    auto* const first = new QPushButton(QStringLiteral("First"));
    auto* const second = new QPushButton(QStringLiteral("Second"));
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
  }

  void aClickOnASliderOrAScrollBarGoesThere() {
    QSlider slider(Qt::Horizontal);
    slider.setRange(0, 100);
    slider.resize(216, 24);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(108, 12));
    QVERIFY2(std::abs(slider.value() - 50) <= 1, QByteArray::number(slider.value()));

    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 1000);
    bar.setPageStep(100);
    bar.resize(12, 200);
    bar.show();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(6, 190));
    QCOMPARE(bar.value(), 100);
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(6, 30));
    QTest::mouseMove(&bar, QPoint(6, 400));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(6, 400));
    QVERIFY(bar.value() > 100);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<WidgetsTest>(argc, argv);
}

#include "widgets_test.moc"

#include "desktop/gesture_line.h"
#include "desktop/value_readout.h"
#include "desktop/value_slider.h"
#include "editor/canvas_mapping.h"
#include "editor/multi_glyph.h"
#include "editor/selection_metric_edit.h"
#include "editor/ui/editor_area.h"
#include "editor/ui/glyph_canvas.h"
#include "editor/ui/multi_glyph_overlay_canvas.h"
#include "gui/desktop/gui_test.h"
#include "gui/desktop/window_desktop.h"
#include "support/projects.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QPushButton>
#include <QShortcut>

using namespace quillery;
using namespace quillery::test;

namespace {

// A window with an editor, of a project with glyphs of these names.
struct Editor : WindowProject {
  explicit Editor(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      Glyph glyph = makeGlyph(name, name);
      glyph.placeOutline({PathCommand::moveTo({0, 0}), PathCommand::lineTo({400, 0}),
                          PathCommand::lineTo({400, 700}), PathCommand::closePath()},
                         {0, 0, 400, 700});
      glyph.setRightSideBearing(50);
      ids.push_back(glyph.id());
      manager.editGlyphList([&](auto& glyphs) { glyphs.push_back(glyph); });
    }
    new QShortcut(Qt::CTRL | Qt::Key_Z, &window, [this] { manager.undo(); });
    new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &window, [this] { manager.redo(); });
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(area);
    window.resize(1080 + 281, 1080);
    bringUp(window);
  }

  void select(std::initializer_list<std::size_t> glyphs) {
    manager.clearSelection();
    for (const std::size_t glyph : glyphs) manager.toggleGlyphSelection(ids[glyph]);
    // The canvas shows a unit as a point.
    if (const auto* canvas = find<GlyphCanvas>("glyphCanvas"))
      window.resize(window.size() + QSize(1080, 1080) - canvas->size());
    settle();
  }
  const Glyph& glyph(std::size_t i = 0) const { return manager.currentProject().glyphs[i]; }
  std::string undoName() const { return manager.undoManager().undoActionName(); }

  std::vector<Uuid> ids;
  QWidget window;
  EditorArea* area = new EditorArea(manager, &window);
};

QString readout(const char* metric) {
  settle();
  return find<ValueReadout>((std::string(metric) + "Value").c_str())->text();
}

// Presses the middle of a slider or a canvas and drags from there.
void drag(QWidget* widget, Qt::MouseButton button, std::initializer_list<QPoint> offsets,
          bool release = true) {
  const QPoint middle = widget->rect().center();
  QTest::mousePress(widget, button, {}, middle);
  for (const QPoint by : offsets) {
    QMouseEvent move(QEvent::MouseMove, middle + by, widget->mapToGlobal(QPointF(middle + by)),
                     Qt::NoButton, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
  }
  if (release) QTest::mouseRelease(widget, button, {}, middle);
}

} // namespace

class EditorTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void theEditorFollowsTheSelection() {
    Editor editor{"A", "B", "C"};
    QVERIFY(find<QWidget>("noGlyphSelected"));
    editor.manager.selectGlyph(editor.ids[0]);
    editor.area->focusEditor();
    QVERIFY(editor.area->findChild<QWidget*>(u"loadingEditor"_s)->isVisible());
    QVERIFY(find<GlyphCanvas>("glyphCanvas"));
    QCOMPARE(find<QLabel>("glyphName")->text(), u"A"_s);
    editor.manager.selectGlyph(editor.ids[1]);
    QCOMPARE(find<QLabel>("glyphName")->text(), u"B"_s);
    editor.select({0, 2});
    QCOMPARE(find<QLabel>("selectionCount")->text(), u"2 selected"_s);
    QVERIFY(!find<GlyphCanvas>("glyphCanvas"));
    editor.manager.deleteGlyph(editor.ids[0]);
    QCOMPARE(find<QLabel>("glyphName")->text(), u"C"_s);
    editor.manager.newProject();
    QVERIFY(find<QWidget>("noGlyphSelected"));
  }

  void aGlyphIsRenamedInASheetThatKnowsTheOthers() {
    Editor editor{"A", "B"};
    editor.select({0});
    QTest::mouseClick(find<QAbstractButton>("renameGlyphButton"), Qt::LeftButton);
    auto* const field = find<QLineEdit>("newName");
    QVERIFY(field && field->selectedText() == u"A"_s);
    field->setText(u"B"_s);
    QVERIFY(!find<QPushButton>("rename")->isEnabled());
    QVERIFY(find<QLabel>("nameNote")->text().contains(u"B"_s));
    field->setText(u"Alpha"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(!find<QDialog>("renameGlyph"));
    QCOMPARE(find<QLabel>("glyphName")->text(), u"Alpha"_s);
    editor.manager.undo();
    QCOMPARE(find<QLabel>("glyphName")->text(), u"A"_s);
  }

  void buttonsDragWhatIsTheirs() {
    Editor editor{"A"};
    editor.select({0});
    auto* canvas = find<GlyphCanvas>("glyphCanvas");
    drag(canvas, Qt::LeftButton, {{30, -20}});
    QCOMPARE(editor.glyph().leftSideBearing(), 80.0);
    QCOMPARE(readout("verticalOffset"), u"20"_s);
    QCOMPARE(editor.undoName(), std::string("Drag Glyph Position"));
    drag(canvas, Qt::RightButton, {{100, 0}});
    QCOMPARE(editor.glyph().rightSideBearing(), 120.0);
    drag(canvas, Qt::MiddleButton, {{0, -250}});
    QCOMPARE(readout("scale"), u"125%"_s);
    auto* line = find<GestureLine>("gestureLine");
    drag(canvas, Qt::MiddleButton, {{0, -500}}, false);
    settle();
    QCOMPARE(line->values(), u"Scale 175% (+50%)"_s);
    QTest::keyClick(canvas, Qt::Key_Escape);
    QCOMPARE(line->values(), QString());
    QCOMPARE(editor.glyph().scale(), 1.25);
    QTest::keyClick(canvas, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(editor.glyph().leftSideBearing(), 70.0);
    settle();
    QCOMPARE(line->values(), u"Left Sidebearing 70 (-10)\nVertical Offset 20 (+0)"_s);
    editor.desktop.advance(2);
    settle();
    QCOMPARE(line->values(), QString());
  }

  void theViewZoomsAndMovesAndDragsFollowItsScale() {
    Editor editor{"A"};
    editor.select({0});
    auto* canvas = find<GlyphCanvas>("glyphCanvas");
    canvas->setFocus();
    const QPointF at(300, 700);
    const auto turn = [&](Qt::KeyboardModifiers modifiers) {
      QWheelEvent wheel(at, canvas->mapToGlobal(at), {}, QPoint(0, 120), Qt::NoButton, modifiers,
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(canvas, &wheel);
    };
    const auto place = [&](Point font) {
      const FontInfo& info = editor.manager.currentProject();
      return CanvasMapping(info, {1080, 1080}, canvas->view()).toView(font);
    };
    const Point held{260, 140}; // under the pointer
    for (int notch = 0; notch < 2; ++notch) turn(Qt::ControlModifier);
    QVERIFY(std::abs(canvas->view().zoom() - 1.44) < 1e-9);
    QVERIFY(std::abs(place(held).x - 300) < 1e-9 && std::abs(place(held).y - 700) < 1e-9);
    const QPointingDevice* device = QPointingDevice::primaryPointingDevice();
    QNativeGestureEvent pinch(Qt::ZoomNativeGesture, device, 2, at, at, canvas->mapToGlobal(at),
                              2 / 1.44 - 1, {});
    QCoreApplication::sendEvent(canvas, &pinch);
    QVERIFY(std::abs(canvas->view().zoom() - 2) < 1e-9);
    drag(canvas, Qt::LeftButton, {{30, -20}});
    QCOMPARE(editor.glyph().leftSideBearing(), 65.0);
    QCOMPARE(editor.glyph().verticalOffset(), 10.0);
    const Point before = place(held);
    turn({});
    QCOMPARE(place(held).y - before.y, 48.0);
    turn(Qt::ShiftModifier);
    QCOMPARE(place(held).x - before.x, 48.0);
    QTest::keyPress(canvas, Qt::Key_Space);
    drag(canvas, Qt::LeftButton, {{-10, 0}, {-48, -48}});
    QTest::keyRelease(canvas, Qt::Key_Space);
    QVERIFY(std::abs(place(held).x - before.x) < 1e-9 && std::abs(place(held).y - before.y) < 1e-9);
    QCOMPARE(editor.manager.undoManager().undoCount(), 1U);
    QTest::keyClick(canvas, Qt::Key_Minus);
    QTest::keyClick(canvas, Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(std::abs(canvas->view().zoom() - 2) < 1e-9);
    QTest::keyClick(canvas, Qt::Key_0, Qt::ControlModifier);
    QVERIFY(canvas->view().isFit());
    drag(canvas, Qt::LeftButton, {{10, 0}});
    QCOMPARE(editor.glyph().leftSideBearing(), 75.0);
  }

  void neighboursStandBesideTheGlyphAndAreSelectedByAClick() {
    Editor editor{"n", "H", "V"};
    editor.manager.editKerningList([](auto& pairs) { pairs = {makePair("H", "n", -60)}; });
    editor.select({1});
    auto* canvas = find<GlyphCanvas>("glyphCanvas");
    canvas->zoomOut();
    const auto place = [&](Point font) {
      const FontInfo& info = editor.manager.currentProject();
      const Point at = CanvasMapping(info, {1080, 1080}, canvas->view()).toView(font);
      return QPointF(at.x, at.y).toPoint();
    };
    // The outlines reach from the origin to 400, the advances to 450.
    const auto inkAt = [&](Point font) {
      settle();
      return canvas->grab().toImage().pixelColor(place(font));
    };
    QCOMPARE(inkAt({385, 100}), themeColor(Role::canvasInk));
    const QColor pale = inkAt({390 + 380, 100});
    QVERIFY(pale != themeColor(Role::canvas) && pale.lightness() > 150);
    QCOMPARE(inkAt({390 + 415, 100}), themeColor(Role::canvas));
    editor.manager.setKerningValue(editor.manager.currentProject().kerningPairs[0].id, Finite());
    QCOMPARE(inkAt({450 + 380, 100}), pale);

    QTest::mouseClick(canvas, Qt::LeftButton, {}, place({450 + 200, 100}));
    QVERIFY(editor.manager.selectedGlyphIds().contains(editor.ids[0]));
    QCOMPARE(canvas->spacing().place(), std::size_t(3));
    QVERIFY(!editor.manager.canUndo());
    QTest::mouseClick(canvas, Qt::RightButton, {}, place({-450 + 200, 100}));
    QVERIFY(editor.manager.selectedGlyphIds().contains(editor.ids[0]));

    canvas->zoomToFit();
    canvas->zoomOut();
    auto* field = find<QLineEdit>("spacingText");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, u"HVn"_s);
    QCOMPARE(inkAt({-450 + 380, 100}), pale); // the V
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(canvas->hasFocus());
    QCOMPARE(editor.desktop.stored["spacingText"], std::vector<std::string>{"HVn"});
    editor.area->setPreviewText([] { return u"first\nnV"_s; });
    QTest::keyClick(field, Qt::Key_Down);
    auto* menu = find<QMenu>("spacingTexts");
    for (QAction* action : menu->actions())
      if (action->text() == u"Line of the Preview"_s) action->trigger();
    menu->close();
    QCOMPARE(field->text(), u"nV"_s);
    QCOMPARE(inkAt({450 + 380, 100}), pale);
  }

  void whatIsLargeShowsItsPoints() {
    Editor editor{"A"};
    editor.select({0});
    auto* canvas = find<GlyphCanvas>("glyphCanvas");
    const auto markAt = [&](Point font) {
      const CanvasMapping mapping(editor.manager.currentProject(), {1080, 1080}, canvas->view());
      const Point at = mapping.toView(font);
      settle();
      const QImage picture = canvas->grab().toImage();
      return picture.pixelColor(static_cast<int>(at.x), static_cast<int>(at.y)) ==
             themeColor(Role::canvas);
    };
    QVERIFY(!markAt({399.5, 699}));
    canvas->zoomIn();
    QVERIFY(markAt({399.5, 699}) && !markAt({380, 600}));
  }

  // At a point to the unit: the baseline lies 240 points above the bottom, x = 0 at 40.
  void theCanvasShowsTheOutlineUprightAmongItsLines() {
    Editor editor{"A"};
    editor.select({0});
    auto* canvas = find<GlyphCanvas>("glyphCanvas");
    const CanvasMapping mapping(editor.manager.currentProject(), {1080, 1080});
    const auto pixel = [&](double x, double y) {
      settle();
      const QImage picture = canvas->grab().toImage();
      const Point at = mapping.toView({x, y});
      return picture.pixelColor(static_cast<int>(at.x), static_cast<int>(at.y));
    };
    const auto isInk = [&](double x, double y) {
      return pixel(x, y) == themeColor(Role::canvasInk);
    };
    editor.manager.editGlyph(editor.ids[0], [](Glyph& glyph) { // wide below, narrow above
      glyph.placeOutline({PathCommand::moveTo({0, 0}), PathCommand::lineTo({600, 0}),
                          PathCommand::lineTo({0, 600}), PathCommand::closePath()},
                         {0, 0, 600, 600});
    });
    QVERIFY(isInk(400, 100) && !isInk(400, 450) && isInk(50, 500) && !isInk(400, -50));
    QCOMPARE(pixel(900, 0.5), themeColor(Role::blue)); // the baseline
    editor.manager.editGlyph(editor.ids[0], [](Glyph& glyph) { glyph.placeOutline({}, {}); });
    QVERIFY(!isInk(400, 100));
    QCOMPARE(pixel(900, 0.5), themeColor(Role::blue));
  }

  // What is shown is rounded: typing it is a change, only looking at the field is none.
  void aTypedValueThatLooksLikeTheOldOneIsEntered() {
    Editor editor{"A"};
    editor.manager.editGlyph(editor.ids[0], [](Glyph& g) { g.setLeftSideBearing(50.4); });
    editor.select({0});
    auto* value = find<ValueReadout>("leftSideBearingValue");
    QTest::mouseDClick(value, Qt::LeftButton);
    QTest::keyClicks(find<QLineEdit>("entry"), u"\r"_s);
    QCOMPARE(editor.glyph().leftSideBearing(), 50.4);
    QTest::mouseDClick(value, Qt::LeftButton);
    QTest::keyClicks(find<QLineEdit>("entry"), u"50\r"_s);
    QCOMPARE(editor.glyph().leftSideBearing(), 50.0);
  }

  void stepsAreOneGestureUntilAPauseOrAnotherInput() {
    Editor editor{"A"};
    editor.select({0});
    auto* slider = find<ValueSlider>("leftSideBearing");
    slider->setFocus();
    std::vector<GestureKind> kinds;
    connect(slider, &ValueSlider::gestureBegan, this, [&](GestureKind k) { kinds.push_back(k); });
    const auto turn = [&] {
      const QPointF at = slider->rect().center();
      QWheelEvent wheel(at, slider->mapToGlobal(at), {}, QPoint(0, 120), Qt::NoButton, {},
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(slider, &wheel);
    };
    const auto steps = [&] { return editor.manager.undoManager().undoCount(); };
    auto* pause = slider->findChild<QTimer*>(u"stepPause"_s);
    const auto letItPass = [&] {
      QVERIFY(pause->isActive() && pause->interval() == 1000);
      pause->setInterval(0);
      QTRY_VERIFY(!pause->isActive());
      pause->setInterval(1000);
    };
    for (int notch = 0; notch < 3; ++notch) turn();
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(editor.glyph().leftSideBearing(), 54.0);
    QCOMPARE(steps(), 0U);
    letItPass();
    QCOMPARE(steps(), 1U);
    QTest::keyClick(slider, Qt::Key_Right);
    QTest::keyClick(slider, Qt::Key_Z, Qt::ControlModifier); // of what is under way
    QCOMPARE(editor.glyph().leftSideBearing(), 54.0);
    settle();
    QTest::keyClick(slider, Qt::Key_Right); // and what follows is a gesture again
    turn();
    QTest::mouseClick(find<GlyphCanvas>("glyphCanvas"), Qt::LeftButton);
    QCOMPARE(steps(), 2U);
    turn();
    QTest::keyClick(slider, Qt::Key_Escape);
    QCOMPARE(editor.glyph().leftSideBearing(), 56.0);
    turn();
    letItPass();
    drag(slider, Qt::LeftButton, {{9, 0}});
    QVERIFY(kinds.back() == GestureKind::pointer);
    kinds.pop_back();
    QCOMPARE(kinds, std::vector<GestureKind>(5, GestureKind::steps));
  }

  // A value that lies beyond the slider, which rests at its end.
  void anEntryReachesTheEndOfTheRange() {
    Editor editor{"A"};
    editor.manager.editGlyph(editor.ids[0], [](Glyph& g) { g.setRightSideBearing(640); });
    editor.select({0});
    QCOMPARE(readout("rightSideBearing"), u"640"_s);
    auto* slider = find<ValueSlider>("rightSideBearing");
    slider->setFocus();
    QTest::keyClicks(slider, u"3"_s);
    QTest::keyClicks(find<QLineEdit>("entry"), u"00\r"_s);
    QCOMPARE(editor.glyph().rightSideBearing(), 300.0);
  }

  void slidersAreFilledFromWhereNothingIsChanged() {
    Editor editor{"A", "B"};
    const auto isFilled = [&](const char* metric, double value) {
      settle();
      auto* slider = find<ValueSlider>(metric);
      const QPointF at(slider->placeOf(value), slider->height() / 2.0);
      return slider->grab().toImage().pixelColor(at.toPoint()) == themeColor(Role::accent);
    };
    editor.select({0}); // its left side bearing is 50
    QVERIFY(!isFilled("leftSideBearing", -50) && isFilled("leftSideBearing", 20));
    editor.manager.editGlyph(editor.ids[0], [](Glyph& g) { g.setLeftSideBearing(-90); });
    QVERIFY(isFilled("leftSideBearing", -30) && !isFilled("leftSideBearing", 20));
    editor.manager.editGlyph(editor.ids[0], [](Glyph& g) { g.setScale(1.6); });
    QVERIFY(!isFilled("scale", 0.6) && isFilled("scale", 1.2) && isFilled("advanceWidth", 150));
    editor.select({0, 1}); // which differ
    QVERIFY(!isFilled("leftSideBearing", -30) && !isFilled("scale", 1.2));
  }

  void theCharacterFieldKeepsOneCharacter() {
    Editor editor{"A", "B"};
    editor.select({0});
    auto* field = find<QLineEdit>("unicode");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, u"xy"_s);
    QCOMPARE(field->text(), u"x"_s);
    QVERIFY(editor.glyph().unicode() == "x");
    // Undo typed in the field is the document's, and shows there.
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    settle();
    QCOMPARE(field->text(), u"A"_s);
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    QCOMPARE(field->text(), u"x"_s);
    field->clear();
    QTest::keyClicks(field, u"z"_s);
    editor.select({1}); // enters what was typed for the glyph that it was typed for
    QVERIFY(editor.glyph(0).unicode() == "z");
    QVERIFY(editor.glyph(1).unicode() == "B");
    QCOMPARE(field->text(), u"B"_s);
  }

  void severalGlyphsShareASlider() {
    Editor editor{"A", "B", "C"};
    editor.manager.editGlyph(editor.ids[1], [](Glyph& g) { g.setLeftSideBearing(60); });
    editor.select({0, 1});
    QCOMPARE(readout("leftSideBearing"), u"Multiple"_s);
    QCOMPARE(readout("scale"), u"1.00"_s);
    auto* slider = find<ValueSlider>("leftSideBearing");
    QCOMPARE(slider->shownValue(), -100.0);
    drag(slider, Qt::LeftButton, {{5, 0}, {20, 0}});
    const double bearing = editor.glyph(0).leftSideBearing();
    QVERIFY(bearing > 100 && editor.glyph(1).leftSideBearing() == bearing);
    QCOMPARE(editor.glyph(2).leftSideBearing(), 50.0);
    QCOMPARE(readout("leftSideBearing"), QString::number(bearing, 'f', 0));
  }

  // Glyph by glyph in eight colours, as far as that takes more than a moment piece by piece.
  void theOverlayShowsEveryGlyph() {
    Editor editor{"A", "B"};
    editor.manager.editGlyph(editor.ids[1], [](Glyph& g) { g.setVerticalOffset(-3000); });
    editor.select({0, 1});
    auto* canvas = find<MultiGlyphOverlayCanvas>("overlayCanvas");
    const auto pixel = [&] { return canvas->grab().toImage().pixelColor(162 + 350, 700); };
    const QColor first = pixel();
    QVERIFY(first.blue() > first.red() + 20); // 40 % of blue on the canvas
    editor.manager.editGlyphList([&](std::vector<Glyph>& glyphs) {
      GlyphRecord record = glyphs[0].record();
      for (int i = 0; i < 600; ++i) glyphs.emplace_back((record.id = Uuid::random(), record));
    });
    editor.manager.selectAllGlyphs();
    QCoreApplication::processEvents();
    const QColor draft = pixel(); // coarse, but in its place
    QTRY_VERIFY(canvas->isComplete());
    QVERIFY(pixel() != first && std::abs(pixel().hue() - draft.hue()) < 3);
    QCOMPARE(canvas->grab().toImage().pixelColor(900, 700), themeColor(Role::canvas));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<EditorTest>(argc, argv);
}

#include "editor_test.moc"

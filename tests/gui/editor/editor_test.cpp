#include "desktop/value_readout.h"
#include "desktop/value_slider.h"
#include "editor/multi_glyph.h"
#include "editor/ui/editor_area.h"
#include "editor/ui/glyph_canvas.h"
#include "editor/ui/metrics_panel.h"
#include "editor/ui/multi_glyph_overlay_canvas.h"
#include "gui/desktop/gui_test.h"
#include "support/projects.h"
#include "support/scripted_desktop.h"

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QSignalSpy>

using namespace quillery;
using namespace quillery::test;

namespace {

// A window with an editor, of a project with glyphs of these names.
struct Editor {
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
    auto* undo = new QAction(&window);
    undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    QObject::connect(undo, &QAction::triggered, &window, [this] { manager.undo(); });
    auto* redo = new QAction(&window);
    redo->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    QObject::connect(redo, &QAction::triggered, &window, [this] { manager.redo(); });
    window.addActions({undo, redo});
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(area);
    window.resize(1080 + 281, 1080); // the canvas shows a unit as a point
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
  }

  void select(std::initializer_list<std::size_t> glyphs) {
    manager.clearSelection();
    for (const std::size_t glyph : glyphs) manager.toggleGlyphSelection(ids[glyph]);
    settle();
  }
  void settle() {
    QCoreApplication::processEvents();
    desktop.runPosted();
    QCoreApplication::processEvents();
  }
  const Glyph& glyph(std::size_t i = 0) const { return manager.currentProject().glyphs[i]; }
  std::string undoName() const { return manager.undoManager().undoActionName(); }

  ScriptedDesktop desktop;
  RecentProjectsManager recent{desktop};
  ProjectManager manager{desktop, recent};
  std::vector<Uuid> ids;
  QWidget window;
  EditorArea* area = new EditorArea(manager, &window);
};

QString readout(const char* metric) {
  return find<ValueReadout>((std::string(metric) + "Value").c_str())->text();
}

// Presses a slider in its middle and drags the handle.
void dragSlider(ValueSlider* slider, std::initializer_list<int> offsets, bool release = true) {
  const QPoint middle = slider->rect().center();
  QTest::mousePress(slider, Qt::LeftButton, {}, middle);
  for (const int x : offsets) {
    const QPoint at = middle + QPoint(x, 0);
    QMouseEvent move(QEvent::MouseMove, at, slider->mapToGlobal(QPointF(at)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &move);
  }
  if (release) QTest::mouseRelease(slider, Qt::LeftButton, {}, middle);
}

void dragCanvas(QWidget* canvas, Qt::MouseButton button, QPoint by, bool release = true) {
  const QPoint from(500, 500);
  QTest::mousePress(canvas, button, {}, from);
  const QPoint to = from + by;
  QMouseEvent move(QEvent::MouseMove, to, canvas->mapToGlobal(QPointF(to)), Qt::NoButton, button,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(canvas, &move);
  if (release) QTest::mouseRelease(canvas, button, {}, to);
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
    QCoreApplication::processEvents();
    QVERIFY(find<QWidget>("loadingEditor"));
    editor.settle();
    QVERIFY(find<GlyphCanvas>("glyphCanvas"));
    QCOMPARE(find<QLabel>("glyphName")->text(), QStringLiteral("A"));
    editor.manager.selectGlyph(editor.ids[1]);
    QCoreApplication::processEvents(); // no loading again
    QCOMPARE(find<QLabel>("glyphName")->text(), QStringLiteral("B"));
    QCOMPARE(find<GlyphCanvas>("glyphCanvas")->accessibleName(), QStringLiteral("Outline of B"));
    editor.select({0, 2});
    QCOMPARE(find<QLabel>("selectionCount")->text(), QStringLiteral("2 selected"));
    QVERIFY(!find<GlyphCanvas>("glyphCanvas"));
    editor.manager.deleteGlyph(editor.ids[0]);
    editor.settle();
    QCOMPARE(find<QLabel>("glyphName")->text(), QStringLiteral("C"));
    editor.manager.newProject();
    editor.settle();
    QVERIFY(find<QWidget>("noGlyphSelected"));
  }

  void buttonsDragWhatIsTheirs() {
    Editor editor{"A"};
    editor.select({0});
    auto* canvas = find<GlyphCanvas>("glyphCanvas");
    QCOMPARE(canvas->size(), QSize(1080, 1080));
    dragCanvas(canvas, Qt::LeftButton, {30, -20});
    QCOMPARE(editor.glyph().leftSideBearing(), 80.0);
    QCOMPARE(editor.glyph().verticalOffset(), 20.0);
    QCOMPARE(readout("verticalOffset"), QStringLiteral("20"));
    QCOMPARE(editor.undoName(), std::string("Drag Glyph Position"));
    dragCanvas(canvas, Qt::RightButton, {100, 0});
    QCOMPARE(editor.glyph().rightSideBearing(), 120.0);
    dragCanvas(canvas, Qt::MiddleButton, {0, -250});
    QCOMPARE(readout("scale"), QStringLiteral("125%"));
    dragCanvas(canvas, Qt::MiddleButton, {0, -500}, false);
    QTest::keyClick(canvas, Qt::Key_Escape);
    QCOMPARE(editor.glyph().scale(), 1.25);
    dragCanvas(canvas, Qt::LeftButton, {7, 0}, false);
    QTest::keyClick(&editor.window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor.glyph().leftSideBearing(), 80.0);
    QTest::mouseRelease(canvas, Qt::LeftButton);
    QCOMPARE(editor.undoName(), std::string("Drag Scale"));
    QTest::keyClick(canvas, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(editor.glyph().leftSideBearing(), 70.0);
  }

  void aSlidersGestureIsOneStep() {
    Editor editor{"A", "B"};
    editor.select({0});
    auto* slider = find<ValueSlider>("verticalOffset");
    dragSlider(slider, {10, 25, 40});
    QVERIFY(editor.glyph().verticalOffset() > 100);
    QCOMPARE(readout("verticalOffset"), QString::number(editor.glyph().verticalOffset(), 'f', 0));
    QCOMPARE(editor.undoName(), std::string("Change Vertical Offset"));
    editor.manager.undo();
    QCOMPARE(editor.glyph().verticalOffset(), 0.0);
    QCOMPARE(slider->shownValue(), 0.0);
    QVERIFY(!editor.manager.canUndo());
    dragSlider(slider, {10, 30}, false);
    QTest::keyClick(slider, Qt::Key_Escape);
    QCOMPARE(editor.glyph().verticalOffset(), 0.0);
    QVERIFY(!editor.manager.canUndo());
    // Another glyph arrives during a gesture.
    dragSlider(slider, {10, 30}, false);
    editor.select({1});
    QCOMPARE(editor.undoName(), std::string("Change Vertical Offset"));
    QCOMPARE(slider->shownValue(), 0.0);
    QTest::mouseRelease(slider, Qt::LeftButton);
    QCOMPARE(editor.glyph(1).verticalOffset(), 0.0);
  }

  void valuesCanBeTyped_data() {
    QTest::addColumn<QString>("metric");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* metric, const char* typed, const char* shown) {
      QTest::newRow(typed) << QString::fromLatin1(metric) << QString::fromLatin1(typed)
                           << QString::fromLatin1(shown);
    };
    row("leftSideBearing", "42.4", "42");
    row("leftSideBearing", "-9999", "-100");
    row("leftSideBearing", "inf", "300");
    row("leftSideBearing", "nan", "50");
    row("leftSideBearing", "four", "50");
    row("scale", "130", "130%");
    row("scale", "70 %", "70%");
    row("scale", "9000%", "200%");
  }

  void valuesCanBeTyped() {
    QFETCH(QString, metric);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    Editor editor{"A"};
    editor.select({0});
    const std::string name = metric.toStdString();
    auto* value = find<ValueReadout>((name + "Value").c_str());
    QTest::mouseDClick(value, Qt::LeftButton);
    auto* entry = find<QLineEdit>("entry");
    QVERIFY(entry && entry->hasFocus());
    QTest::keyClicks(entry, typed);
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(value->text(), shown);
    QVERIFY(find<ValueSlider>(name.c_str())->hasFocus());
    const QString before =
        metric == QStringLiteral("scale") ? QStringLiteral("100%") : QStringLiteral("50");
    QCOMPARE(editor.manager.canUndo(), shown != before);
    editor.manager.undo();
    QVERIFY(!editor.manager.canUndo());
    QCOMPARE(value->text(), before);
  }

  // A value that lies beyond the slider, which rests at its end.
  void anEntryReachesTheEndOfTheRange() {
    Editor editor{"A"};
    editor.manager.editGlyph(editor.ids[0], [](Glyph& g) { g.setRightSideBearing(640); });
    editor.select({0});
    QCOMPARE(readout("rightSideBearing"), QStringLiteral("640"));
    auto* slider = find<ValueSlider>("rightSideBearing");
    slider->setFocus();
    QTest::keyClicks(slider, QStringLiteral("3"));
    QTest::keyClicks(find<QLineEdit>("entry"), QStringLiteral("00"));
    QTest::keyClick(find<QLineEdit>("entry"), Qt::Key_Return);
    QCOMPARE(editor.glyph().rightSideBearing(), 300.0);
  }

  void theCharacterFieldKeepsOneCharacter() {
    Editor editor{"A", "B"};
    editor.select({0});
    auto* field = find<QLineEdit>("unicode");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("xy"));
    QCOMPARE(field->text(), QStringLiteral("x"));
    QVERIFY(editor.glyph().unicode() == "x");
    // Undo typed in the field is the document's, and shows there.
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(editor.glyph().unicode() == "A");
    QCOMPARE(field->text(), QStringLiteral("A"));
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field->text(), QStringLiteral("x"));
    field->clear();
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClicks(field, QStringLiteral("z"));
    editor.select({1}); // enters what was typed for the glyph that it was typed for
    QVERIFY(editor.glyph(0).unicode() == "z");
    QVERIFY(editor.glyph(1).unicode() == "B");
    QCOMPARE(field->text(), QStringLiteral("B"));
    QCOMPARE(editor.undoName(), std::string("Change Unicode"));
  }

  void oddValuesNeitherHangNorWidenAnything() {
    Editor editor{"A"};
    editor.select({0});
    const double inf = std::numeric_limits<double>::infinity();
    for (const double value : {1e308, -1e308, inf, std::nan(""), 1e15}) {
      editor.manager.editGlyph(editor.ids[0], [&](Glyph& g) {
        g.setAdvanceWidth(value);
        g.setVerticalOffset(value);
        g.setScale(value);
      });
      editor.manager.editFontInfo([&](FontInfo& font) { font.xHeight = value; });
      QVERIFY(!editor.area->grab().isNull());
      QCOMPARE(find<QWidget>("metricsPanel")->width(), 280);
      for (const char* metric : {"advanceWidth", "scale"})
        QVERIFY(find<ValueSlider>(metric)->width() < 280);
    }
    editor.manager.editFontInfo([](FontInfo& font) { font.ascender = font.descender; });
    QVERIFY(!editor.area->grab().isNull());
    UndoableLineEdit<double> field(
        {editor.manager, fontInfoBinding(editor.manager, &FontInfo::capHeight), numberFormat(), ""},
        nullptr);
    const QSize hint = field.sizeHint();
    for (const QString& typed : {QStringLiteral("inf"), QStringLiteral("nan"),
                                 QStringLiteral("-1e308"), QString(303, u'9')}) {
      field.selectAll();
      QTest::keyClicks(&field, typed);
      QVERIFY(!editor.area->grab().isNull());
      QCOMPARE(field.sizeHint(), hint);
    }
    field.enter();
    QVERIFY(field.text().size() > 300);
  }

  void severalGlyphsShareASlider() {
    Editor editor{"A", "B", "C"};
    editor.manager.editGlyph(editor.ids[1], [](Glyph& g) { g.setLeftSideBearing(60); });
    editor.select({0, 1});
    QCOMPARE(readout("leftSideBearing"), QStringLiteral("Multiple"));
    QCOMPARE(find<ValueSlider>("leftSideBearing")->shownValue(), -100.0);
    QCOMPARE(readout("scale"), QStringLiteral("1.00"));
    auto* slider = find<ValueSlider>("leftSideBearing");
    dragSlider(slider, {5, 20});
    const double bearing = editor.glyph(0).leftSideBearing();
    QVERIFY(bearing > 100 && editor.glyph(1).leftSideBearing() == bearing);
    QCOMPARE(editor.glyph(2).leftSideBearing(), 50.0);
    QCOMPARE(readout("leftSideBearing"), QString::number(bearing, 'f', 0));
    QCOMPARE(editor.undoName(), std::string("Apply Metrics to 2 Glyphs"));
    const std::size_t steps = editor.manager.undoManager().undoCount();
    QCOMPARE(steps, 3U); // the press moved it, too
    dragSlider(slider, {50, 60, 70}, false);
    QTest::keyClick(slider, Qt::Key_Escape);
    QCOMPARE(editor.glyph(0).leftSideBearing(), bearing);
    QCOMPARE(editor.manager.undoManager().undoCount(), steps);
    while (editor.manager.canUndo()) editor.manager.undo();
    QCOMPARE(readout("leftSideBearing"), QStringLiteral("Multiple"));
    QTest::mouseDClick(find<ValueReadout>("advanceWidthValue"), Qt::LeftButton);
    QTest::keyClicks(find<QLineEdit>("entry"), QStringLiteral("600\r"));
    QCOMPARE(editor.glyph(1).advanceWidth(), 600.0);
    QCOMPARE(editor.manager.undoManager().undoCount(), 1U);
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
    std::vector<Glyph> many(600, editor.glyph(0));
    editor.manager.editGlyphList([&](std::vector<Glyph>& glyphs) {
      for (Glyph& glyph : many) {
        GlyphRecord record = glyph.record();
        record.id = Uuid::random();
        glyphs.emplace_back(record);
      }
    });
    editor.manager.selectAllGlyphs();
    QCoreApplication::processEvents();
    const QColor draft = pixel(); // coarse, but in its place
    QTRY_VERIFY(canvas->isComplete());
    QVERIFY(pixel() != first);
    QVERIFY(std::abs(pixel().hue() - draft.hue()) < 3);
    QCOMPARE(canvas->grab().toImage().pixelColor(900, 700), themeColor(Role::canvas));
    // Nothing is painted anew for widths.
    applyAdvanceWidthToSelection(editor.manager, 777);
    QVERIFY(canvas->isComplete());
    applyMetricToSelection(editor.manager, GlyphMetric::scale, 0.5);
    QVERIFY(!canvas->isComplete());
  }

  void enterReachesTheEditor() {
    Editor editor{"A", "B"};
    editor.manager.selectGlyph(editor.ids[0]);
    editor.area->focusEditor();
    editor.settle();
    QVERIFY(find<GlyphCanvas>("glyphCanvas")->hasFocus());
    editor.select({0, 1});
    editor.area->focusEditor();
    QVERIFY(find<ValueSlider>("leftSideBearing")->hasFocus());
    for (QWidget* widget : editor.area->findChildren<QWidget*>())
      if (widget->focusPolicy() != Qt::NoFocus && widget->isVisible())
        QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<EditorTest>(argc, argv);
}

#include "editor_test.moc"

#include "gui/desktop/gui_test.h"
#include "kerning/kerning_pairs.h"
#include "kerning/ui/kerning_adjustment_view.h"
#include "kerning/ui/kerning_canvas.h"
#include "kerning/ui/kerning_editor_view.h"
#include "support/projects.h"
#include "support/scripted_desktop.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>

using namespace quillery;
using namespace quillery::test;

namespace {

Glyph makeBox(const char* name, double width) {
  GlyphRecord record;
  record.id = Uuid::random();
  record.name = name;
  record.advanceWidth = width;
  const auto point = [](PathCommand::Kind kind, double x, double y) {
    return PathCommand{kind, {Point{x, y}, {}, {}}};
  };
  record.fontPath =
      Outline{point(PathCommand::Kind::moveTo, 50, 0), point(PathCommand::Kind::lineTo, 400, 0),
              point(PathCommand::Kind::lineTo, 400, 700)};
  record.boundingBox = controlBox(record.fontPath);
  return Glyph(record);
}

// An editor in a window, with three pairs of which two have the same names.
struct Program {
  Program() {
    manager.editGlyphList([](auto& glyphs) {
      glyphs = {makeBox("A", 600), makeBox("T", 500), makeBox("V", 500), makeBox("a", 400)};
    });
    manager.editKerningList([](auto& pairs) {
      pairs = {makePair("V", "A", 25.4), makePair("A", "V", -80), makePair("A", "V")};
    });
    window.resize(1000, 700);
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
  }

  const KerningPair& pair(std::size_t i) const { return manager.currentProject().kerningPairs[i]; }
  bool canUndo() const { return manager.undoManager().canUndo(); }
  QListView* list() const { return window.findChild<QListView*>(QStringLiteral("pairList")); }
  QStringList rows() const {
    QStringList result;
    for (int row = 0; row < list()->model()->rowCount(); ++row)
      result += list()->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
    return result;
  }
  QString selectedRow() const {
    const auto selected = list()->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString()
                              : selected.front().data(Qt::AccessibleTextRole).toString();
  }
  QString title() const { return find<QLabel>("adjustTitle")->text(); }
  QString readout() const { return find<QWidget>("kerningValue")->findChild<QLabel*>()->text(); }
  void clickRow(int row) const {
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualRect(list()->model()->index(row, 0)).center());
  }
  void openSheet() {
    QTest::mouseClick(find<QAbstractButton>("addKerningPair"), Qt::LeftButton);
    auto* sheet = find<QWidget>("addKerningPairSheet");
    (void)QTest::qWaitForWindowExposed(sheet);
    sheet->activateWindow();
    (void)QTest::qWaitForWindowActive(sheet);
  }

  ScriptedDesktop desktop;
  RecentProjectsManager recent{desktop};
  ProjectManager manager{desktop, recent};
  KerningEditorView window{manager};
};

} // namespace

class KerningEditorTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void listAndSelectionFollowEachOther() {
    Program program;
    QVERIFY(find<QWidget>("noPairSelected"));
    QVERIFY(!find<QWidget>("deleteKerningPair"));
    QCOMPARE(program.rows(), QStringList({QStringLiteral("A V, -80"), QStringLiteral("A V, +0"),
                                          QStringLiteral("V A, +25")}));
    program.clickRow(1);
    QCOMPARE(program.manager.selectedKerningPairId(), std::optional(program.pair(2).id));
    QCOMPARE(program.readout(), QStringLiteral("+0"));
    QTest::keyClick(program.list(), Qt::Key_Down);
    QCOMPARE(program.title(), QStringLiteral("Adjust Kerning: V + A"));
    QCOMPARE(program.readout(), QStringLiteral("+25"));
    program.manager.selectKerningPair(program.pair(1).id);
    QCOMPARE(program.selectedRow(), QStringLiteral("A V, -80"));
    program.manager.selectKerningPair(Uuid::random());
    QCOMPARE(program.selectedRow(), QString());
    QVERIFY(find<QWidget>("noPairSelected"));
    program.manager.newProject();
    QVERIFY(find<QWidget>("noKerningPairs"));
    QVERIFY(!find<QPushButton>("generateCommonPairs")->isEnabled());
    QVERIFY(!find<QAbstractButton>("addKerningPair")->isEnabled());
    program.manager.editGlyphList([](auto& glyphs) { glyphs = {makeBox("T", 1)}; });
    QVERIFY(!find<QAbstractButton>("addKerningPair")->isEnabled());
    program.manager.editGlyphList([](auto& glyphs) { glyphs.push_back(makeBox("o", 1)); });
    QTest::mouseClick(find<QPushButton>("generateCommonPairs"), Qt::LeftButton);
    QCOMPARE(program.selectedRow(), QStringLiteral("T o, +0"));
  }

  void aSearchKeepsTheSelectedPair() {
    Program program;
    program.clickRow(0);
    const auto selected = program.manager.selectedKerningPairId();
    auto* search = find<QLineEdit>("pairSearch");
    QTest::keyClicks(search, QStringLiteral("x"));
    QCOMPARE(program.rows(), QStringList());
    QVERIFY(!find<QWidget>("noKerningPairs"));
    QCOMPARE(program.manager.selectedKerningPairId(), selected);
    QCOMPARE(program.title(), QStringLiteral("Adjust Kerning: A + V"));
    search->clear();
    QCOMPARE(program.selectedRow(), QStringLiteral("A V, -80"));
  }

  void deletingThePairClearsTheDetail() {
    Program program;
    program.clickRow(0);
    QTest::keyClick(program.list(), Qt::Key_Delete);
    QCOMPARE(program.rows().size(), 2);
    QVERIFY(find<QWidget>("noPairSelected"));
    QTest::keyClick(program.list(), Qt::Key_Delete);
    QCOMPARE(program.rows().size(), 2);
    program.clickRow(0);
    QTest::mouseClick(find<QPushButton>("deleteKerningPair"), Qt::LeftButton);
    QCOMPARE(program.rows(), QStringList(QStringLiteral("V A, +25")));
    KerningAdjustmentView alone(program.manager);
    alone.setPair(program.pair(0).id);
    alone.show();
    QVERIFY(!find<QWidget>("pairGone"));
    deleteKerningPair(program.manager, program.pair(0).id);
    QVERIFY(find<QWidget>("pairGone"));
  }

  void draggingTheCanvasIsOneStep() {
    Program program;
    program.clickRow(1);
    auto* canvas = find<KerningCanvas>("kerningCanvas");
    const double scale =
        std::min((canvas->height() - 80) / 1000.0, (canvas->width() - 80) / 1100.0);
    const auto drag = [&](Qt::MouseButton button, int to) {
      QTest::mousePress(canvas, button, {}, QPoint(200, 100));
      QTest::mouseMove(canvas, QPoint(200 + to, 150));
    };
    drag(Qt::RightButton, 30);
    QTest::mouseRelease(canvas, Qt::RightButton);
    QCOMPARE(program.pair(2).value, 0.0);
    drag(Qt::LeftButton, 30);
    QCOMPARE(program.pair(2).value, 30 / scale);
    QTest::mouseRelease(canvas, Qt::LeftButton);
    QCOMPARE(program.manager.undoManager().undoActionName(), std::string("Change Kerning A/V"));
    QCOMPARE(program.rows()[1], QStringLiteral("A V, ") + program.readout());
    program.manager.undo();
    QCOMPARE(program.readout(), QStringLiteral("+0"));
    drag(Qt::LeftButton, -30);
    QTest::keyClick(canvas, Qt::Key_Escape);
    QTest::mouseRelease(canvas, Qt::LeftButton);
    QVERIFY(!program.canUndo());
    QTest::keyClick(canvas, Qt::Key_Right);
    QTest::keyClick(canvas, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(program.pair(2).value, -9.0);
    program.manager.undo();
    QCOMPARE(program.pair(2).value, 1.0);
  }

  void theCanvasShowsWhatItsGlyphsAndValueAre() {
    Program program;
    program.manager.selectKerningPair(program.pair(1).id);
    auto* canvas = find<KerningCanvas>("kerningCanvas");
    const auto picture = [&] { return canvas->grab().toImage(); };
    const QImage before = picture();
    program.manager.setKerningValue(program.pair(1).id, 0);
    const QImage noKerning = picture();
    QVERIFY(noKerning != before);
    program.manager.editGlyph(program.manager.firstGlyphNamed("V")->id(),
                              [](Glyph& glyph) { glyph.setVerticalOffset(100); });
    const QImage raised = picture();
    QVERIFY(raised != noKerning);
    program.manager.editGlyphList([](auto& glyphs) { glyphs.pop_back(); });
    QCOMPARE(picture(), raised);
    program.manager.editGlyphList([](auto& glyphs) { glyphs.pop_back(); });
    QVERIFY(picture() != raised);
  }

  void sliderEntryAndResetAreStepsOfTheirOwn() {
    Program program;
    program.manager.selectKerningPair(program.pair(0).id);
    auto* slider = find<QWidget>("kerningSlider");
    QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(2, slider->height() / 2));
    QCOMPARE(program.pair(0).value, -200.0);
    QTest::mouseMove(slider, QPoint(slider->width() / 3, slider->height() / 2));
    const double dragged = program.pair(0).value;
    QVERIFY(dragged == std::round(dragged) && dragged > -199 && dragged < 0);
    QTest::mouseRelease(slider, Qt::LeftButton);
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(program.pair(0).value, dragged + 1);

    QTest::keyClicks(slider, QStringLiteral("9"));
    auto* entry = find<QLineEdit>("entry");
    QTest::keyClicks(entry, QStringLiteral("99.5"));
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(program.readout(), QStringLiteral("+200"));
    QVERIFY(slider->hasFocus());
    QTest::mouseDClick(find<QWidget>("kerningValue"), Qt::LeftButton);
    QTest::keyClicks(find<QLineEdit>("entry"), QStringLiteral("none"));
    QTest::keyClick(find<QLineEdit>("entry"), Qt::Key_Return);
    QCOMPARE(program.readout(), QStringLiteral("+200"));

    auto* reset = find<QPushButton>("resetKerning");
    QTest::mouseClick(reset, Qt::LeftButton);
    QTest::mouseClick(reset, Qt::LeftButton);
    QCOMPARE(program.readout(), QStringLiteral("+0"));
    for (const double value : {200.0, dragged + 1, dragged, 25.4}) {
      QCOMPARE(program.manager.undoManager().undoActionName(), std::string("Change Kerning V/A"));
      program.manager.undo();
      QCOMPARE(program.pair(0).value, value);
    }
    QVERIFY(!program.canUndo());
    QCOMPARE(program.rows().last(), QStringLiteral("V A, +25"));

    // An undo while the slider is held: what is dragged after it changes nothing.
    QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(2, slider->height() / 2));
    program.manager.undo();
    QTest::mouseMove(slider, QPoint(slider->width() / 3, slider->height() / 2));
    QTest::mouseRelease(slider, Qt::LeftButton);
    QCOMPARE(program.pair(0).value, 25.4);
  }

  void theSheetAddsThePairOfTheChosenNames() {
    Program program;
    find<QLineEdit>("pairSearch")->setText(QStringLiteral("T"));
    program.openSheet();
    auto* left = find<QLineEdit>("leftGlyphField");
    auto* right = find<QLineEdit>("rightGlyphField");
    const auto names = [](const char* list) { return find<QListView>(list)->model()->rowCount(); };
    QVERIFY(left->hasFocus());
    QCOMPARE(names("leftGlyphList"), 4);
    QTest::keyClicks(left, QStringLiteral("x"));
    QVERIFY(!find<QListView>("leftGlyphList"));
    QTest::keyClick(left, Qt::Key_Return);
    QVERIFY(left->hasFocus());
    QTest::keyClick(left, Qt::Key_Backspace);
    QTest::keyClicks(left, QStringLiteral("a"));
    QCOMPARE(names("leftGlyphList"), 2);
    QTest::keyClick(left, Qt::Key_Down);
    QTest::keyClick(left, Qt::Key_Return);
    QCOMPARE(left->text(), QStringLiteral("a"));
    QVERIFY(!find<QListView>("leftGlyphList"));
    QVERIFY(!find<QPushButton>("addPair")->isEnabled());
    QVERIFY(right->hasFocus());
    auto* list = find<QListView>("rightGlyphList");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(2, 0)).center());
    QCOMPARE(right->text(), QStringLiteral("V"));

    // Typing chooses nothing, and Return in the list adds nothing.
    left->setFocus();
    left->selectAll();
    QTest::keyClicks(left, QStringLiteral("T"));
    QTest::keyClick(left, Qt::Key_Tab);
    QVERIFY(right->hasFocus());
    QTest::keyClick(right, Qt::Key_Return);
    QCOMPARE(program.rows().size(), 0);
    QVERIFY(find<QPushButton>("addPair")->hasFocus());
    QTest::keyClick(find<QPushButton>("addPair"), Qt::Key_Return);
    QVERIFY(!find<QWidget>("addKerningPairSheet"));
    QCOMPARE(program.selectedRow(), QStringLiteral("a V, +0"));
    QVERIFY(!program.canUndo());

    program.openSheet();
    QTest::keyClick(find<QLineEdit>("leftGlyphField"), Qt::Key_Escape);
    QVERIFY(!find<QWidget>("addKerningPairSheet"));
    QCOMPARE(program.rows().size(), 4);
  }

  void aChangedValueRepaintsItsRowOnly() {
    Program program;
    program.manager.editKerningList([](auto& pairs) {
      for (int i = 0; i < 100; ++i) pairs.push_back(makePair("A", "V", i));
    });
    (void)program.window.grab(); // lays the rows out
    QCoreApplication::processEvents();
    struct Painted : QObject {
      QRegion region;
      bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return false;
      }
    } painted;
    program.list()->viewport()->installEventFilter(&painted);
    program.manager.setKerningValue(program.pair(1).id, 7);
    QCoreApplication::processEvents();
    QCOMPARE(painted.region.boundingRect(),
             program.list()->visualRect(program.list()->model()->index(0, 0)));
  }

  void everyControlHasANameForScreenReaders() {
    Program program;
    program.clickRow(0);
    program.openSheet();
    const auto widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
      if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
      const bool named =
          !widget->accessibleName().isEmpty() || !widget->property("text").toString().isEmpty();
      QVERIFY2(named, qPrintable(widget->objectName()));
    }
  }
};

int main(int argc, char** argv) {
  return runWithTheme<KerningEditorTest>(argc, argv);
}

#include "kerning_editor_test.moc"

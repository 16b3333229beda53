#include "desktop/gesture_line.h"
#include "gui/desktop/gui_test.h"
#include "gui/desktop/window_desktop.h"
#include "kerning/ui/kerning_canvas.h"
#include "kerning/ui/kerning_editor_view.h"
#include "support/projects.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

using namespace quillery;
using namespace quillery::test;

namespace {

Glyph makeBox(const char* name, double width) {
  Glyph glyph = makeGlyph(name, std::nullopt, width);
  const Outline outline{PathCommand::moveTo({50, 0}), PathCommand::lineTo({400, 0}),
                        PathCommand::lineTo({400, 700})};
  glyph.placeOutline(outline, controlBox(outline));
  return glyph;
}

// While a canvas shows glyphs 1,100 units wide together that need 200 below the baseline: with 40
// points around 1,000 units, but 8 below what hangs.
double pointsPerUnit(const QWidget& canvas) {
  return std::min({(canvas.height() - 80) / 1000.0, (canvas.height() - 48) / 1200.0,
                   (canvas.width() - 80) / 1100.0});
}

// An editor in a window, with three pairs of which two have the same names.
struct Program : WindowProject {
  Program() {
    manager.editGlyphList([](auto& glyphs) {
      glyphs = {makeBox("A", 600), makeBox("T", 500), makeBox("V", 500), makeBox("a", 400)};
    });
    manager.editKerningList([](auto& pairs) {
      pairs = {makePair("V", "A", 25.4), makePair("A", "V", -80), makePair("A", "V")};
    });
    window.resize(1000, 700);
    bringUp(window);
  }

  const KerningPair& pair(std::size_t i) const { return manager.currentProject().kerningPairs[i]; }
  QListView* list() const {
    settle();
    return window.findChild<QListView*>(u"pairList"_s);
  }
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

  KerningEditorView window{manager};
};

} // namespace

class KerningEditorTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void draggingTheCanvasIsOneStep() {
    Program program;
    program.clickRow(1);
    auto* canvas = find<KerningCanvas>("kerningCanvas");
    const double scale = pointsPerUnit(*canvas);
    const auto drag = [&](Qt::MouseButton button, int to) {
      QTest::mousePress(canvas, button, {}, QPoint(200, 100));
      QTest::mouseMove(canvas, QPoint(200 + to, 150));
    };
    drag(Qt::RightButton, 30);
    QTest::mouseRelease(canvas, Qt::RightButton);
    QCOMPARE(program.pair(2).value, 0.0);
    drag(Qt::LeftButton, 10);
    QTest::mouseClick(canvas, Qt::RightButton); // is nothing to this drag
    QTest::mouseMove(canvas, QPoint(230, 150));
    QTest::mouseRelease(canvas, Qt::LeftButton);
    QCOMPARE(program.pair(2).value, 30 / scale);
    QCOMPARE(program.manager.undoManager().undoCount(), 1U);
    QCOMPARE(program.rows()[1], u"A V, "_s + program.readout());
    program.manager.undo();
    QCOMPARE(program.readout(), u"+0"_s);
    drag(Qt::LeftButton, -30);
    auto* line = find<GestureLine>("gestureLine");
    QCOMPARE(line->values(), u"Kerning %1 (%1)"_s.arg(program.readout()));
    QTest::keyClick(canvas, Qt::Key_Escape);
    QCOMPARE(line->values(), QString());
    QTest::mouseRelease(canvas, Qt::LeftButton);
    QVERIFY(!program.manager.canUndo());
    QTest::keyClick(canvas, Qt::Key_Right);
    QTest::keyClick(canvas, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(program.pair(2).value, -9.0);
  }

  void init() { failOnWarnings(); }

  void listAndSelectionFollowEachOther() {
    Program program;
    QVERIFY(find<QWidget>("noPairSelected"));
    QCOMPARE(program.rows(), QStringList({u"A V, -80"_s, u"A V, +0"_s, u"V A, +25"_s}));
    program.clickRow(1);
    QCOMPARE(program.manager.selectedKerningPairId(), std::optional(program.pair(2).id));
    QCOMPARE(program.readout(), u"+0"_s);
    QTest::keyClick(program.list(), Qt::Key_Down);
    QCOMPARE(program.title(), u"Adjust Kerning: V + A"_s);
    program.manager.selectKerningPair(program.pair(1).id);
    QCOMPARE(program.selectedRow(), u"A V, -80"_s);
    program.manager.selectKerningPair(Uuid::random());
    QCOMPARE(program.selectedRow(), QString());
    QVERIFY(find<QWidget>("noPairSelected"));
    program.manager.newProject();
    QVERIFY(find<QWidget>("noKerningPairs"));
    QVERIFY(!find<QPushButton>("generateCommonPairs")->isEnabled());
    program.manager.editGlyphList([](auto& glyphs) { glyphs = {makeBox("T", 1)}; });
    QVERIFY(!find<QAbstractButton>("addKerningPair")->isEnabled());
    program.manager.editGlyphList([](auto& glyphs) { glyphs.push_back(makeBox("o", 1)); });
    QTest::mouseClick(find<QPushButton>("generateCommonPairs"), Qt::LeftButton);
    QCOMPARE(program.selectedRow(), u"T o, +0"_s);
  }

  void aSearchKeepsTheSelectedPair() {
    Program program;
    program.clickRow(0);
    const auto selected = program.manager.selectedKerningPairId();
    auto* search = find<QLineEdit>("pairSearch");
    search->setFocus();
    QTest::keyClicks(search, u"x"_s);
    QCOMPARE(program.rows(), QStringList());
    QVERIFY(!find<QWidget>("noKerningPairs"));
    QCOMPARE(program.manager.selectedKerningPairId(), selected);
    QCOMPARE(program.title(), u"Adjust Kerning: A + V"_s);
    QTest::keyClick(search, Qt::Key_Down); // into a list of nothing
    QVERIFY(search->hasFocus());
    QTest::keyClick(search, Qt::Key_Escape);
    QCOMPARE(search->text(), QString());
    QCOMPARE(program.selectedRow(), u"A V, -80"_s);
    QTest::keyClick(search, Qt::Key_Down);
    QVERIFY(program.list()->hasFocus());
  }

  void deletingThePairClearsTheDetail() {
    Program program;
    program.clickRow(0);
    for (int i = 0; i < 2; ++i) QTest::keyClick(program.list(), Qt::Key_Delete);
    QCOMPARE(program.rows().size(), 2); // the second key had nothing selected
    QVERIFY(find<QWidget>("noPairSelected"));
    program.clickRow(0);
    QTest::mouseClick(find<QPushButton>("deleteKerningPair"), Qt::LeftButton);
    QCOMPARE(program.rows(), QStringList(u"V A, +25"_s));
  }

  void everyControlSetsTheValueAsAStep() {
    Program program;
    program.clickRow(1);
    auto* canvas = find<KerningCanvas>("kerningCanvas");
    const double scale = pointsPerUnit(*canvas);
    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(200, 100));
    QTest::mouseMove(canvas, QPoint(230, 150));
    QTest::mouseRelease(canvas, Qt::LeftButton);
    QCOMPARE(program.pair(2).value, 30 / scale);
    QCOMPARE(program.rows()[1], u"A V, "_s + program.readout());
    auto* slider = find<QWidget>("kerningSlider");
    QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(2, slider->height() / 2));
    QTest::keyClick(canvas, Qt::Key_Right);
    QCOMPARE(program.pair(2).value, -199.0);
    for (int i = 0; i < 2; ++i)
      QTest::mouseClick(find<QPushButton>("resetKerning"), Qt::LeftButton);
    for (const double value : {-199.0, -200.0, 30 / scale, 0.0}) {
      program.manager.undo();
      QCOMPARE(program.pair(2).value, value);
    }
    QVERIFY(!program.manager.canUndo());
  }

  void theSpanOfTheKerningIsMarkedBesideAGlyphThatIsMissing() {
    Program program;
    program.manager.selectKerningPair(program.pair(1).id);
    program.manager.editGlyphList([](auto& glyphs) { glyphs.resize(2); }); // no V
    auto* canvas = find<KerningCanvas>("kerningCanvas");
    const QImage before = canvas->grab().toImage();
    program.manager.setKerningValue(program.pair(1).id, 150);
    const auto inAccent = [&](const QImage& image) {
      int count = 0;
      for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
          count += image.pixelColor(x, y) == themeColor(Role::accent) ? 1 : 0;
      return count;
    };
    settle();
    QVERIFY(inAccent(canvas->grab().toImage()) > inAccent(before) + 20);
  }

  void theSheetAddsThePairOfTheChosenNames() {
    Program program;
    find<QLineEdit>("pairSearch")->setText(u"T"_s);
    program.openSheet();
    auto* left = find<QLineEdit>("leftGlyphField");
    auto* right = find<QLineEdit>("rightGlyphField");
    auto* add = find<QPushButton>("addPair");
    QVERIFY(left->hasFocus());
    QTest::keyClicks(left, u"x\r"_s);
    QVERIFY(left->hasFocus());
    QCOMPARE(find<QListView>("leftGlyphList")->model()->rowCount(), 0); // which it says
    QTest::keyClick(left, Qt::Key_Backspace);
    QTest::keyClicks(left, u"a"_s);
    QCOMPARE(find<QListView>("leftGlyphList")->model()->rowCount(), 2);
    QTest::keyClick(left, Qt::Key_Down);
    QTest::keyClick(left, Qt::Key_Return);
    QCOMPARE(left->text(), u"a"_s);
    QVERIFY(!left->hasFocus() && !right->hasFocus() && !add->isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(right->hasFocus());
    auto* list = find<QListView>("rightGlyphList");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(2, 0)).center());
    QCOMPARE(right->text(), u"V"_s);
    // Typing over it gives up what was chosen, and leaving the field takes a whole name.
    QVERIFY(add->isEnabled());
    left->setFocus();
    left->selectAll();
    QTest::keyClicks(left, u"T"_s);
    QVERIFY(!add->isEnabled());
    QTest::keyClicks(left, u"x\t"_s);
    QVERIFY(right->hasFocus() && !add->isEnabled());
    left->setFocus();
    QTest::keyClick(left, Qt::Key_Backspace);
    QTest::keyClicks(left, u"\t"_s);
    QVERIFY(add->isEnabled());
    // Return in the list adds nothing.
    QTest::keyClick(right, Qt::Key_Return);
    QCOMPARE(program.rows().size(), 0);
    QTest::keyClick(find<QWidget>("addKerningPairSheet"), Qt::Key_Return);
    QVERIFY(!find<QWidget>("addKerningPairSheet"));
    QCOMPARE(program.selectedRow(), u"T V, +0"_s);
  }

  void aPairThatIsThereAlreadyIsOfferedInsteadOfASecondOne() {
    Program program;
    program.openSheet();
    QTest::keyClicks(find<QLineEdit>("leftGlyphField"), u"V\t"_s);
    QVERIFY(!find<QWidget>("pairExists"));
    QTest::keyClicks(find<QLineEdit>("rightGlyphField"), u"A\t"_s);
    QVERIFY(find<QWidget>("pairExists") && find<QPushButton>("addPair")->isEnabled());
    QTest::mouseClick(find<QPushButton>("showExisting"), Qt::LeftButton);
    QVERIFY(!find<QWidget>("addKerningPairSheet"));
    QCOMPARE(program.rows().size(), 3);
    QCOMPARE(program.selectedRow(), u"V A, +25"_s);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<KerningEditorTest>(argc, argv);
}

#include "kerning_editor_test.moc"

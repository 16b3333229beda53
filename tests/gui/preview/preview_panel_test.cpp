#include "desktop/shown_text.h"
#include "desktop/value_slider.h"
#include "gui/desktop/gui_test.h"
#include "gui/desktop/window_desktop.h"
#include "preview/text_presets.h"
#include "preview/ui/available_characters_view.h"
#include "preview/ui/plain_text_editor.h"
#include "preview/ui/preview_panel.h"
#include "preview/ui/vector_preview_view.h"
#include "support/projects.h"

#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <cmath>

using namespace quillery;
using namespace quillery::test;

namespace {

// A square from the baseline up.
Glyph square(const char* name, std::optional<std::string> unicode) {
  Glyph glyph = makeGlyph(name, std::move(unicode), 600);
  const Outline outline{PathCommand::moveTo({100, 0}), PathCommand::lineTo({500, 0}),
                        PathCommand::lineTo({500, 400}), PathCommand::lineTo({100, 400}),
                        PathCommand::closePath()};
  glyph.placeOutline(outline, controlBox(outline));
  return glyph;
}

// The panel over glyphs A, B, V and one without a character.
struct Preview : WindowProject {
  Preview() {
    manager.editGlyphList([](auto& glyphs) {
      glyphs = {square("A", "A"), square("B", "B"), square("V", "V"), square("n", std::nullopt)};
    });
    panel.resize(700, 500);
    bringUp(panel);
  }

  VectorPreviewView& view() { return *find<VectorPreviewView>("vectorPreview"); }
  MacTextEditor& editor() { return *find<MacTextEditor>("previewText"); }
  void type(const char* text) {
    editor().selectAll();
    QTest::keyClicks(&editor(), QLatin1String(text));
  }
  QPoint place(std::size_t glyph) {
    const TextLayout& layout = view().scene().layout();
    const SetCharacter& set = layout.characters[glyph];
    return view()
        .viewportRect({set.penX + 5, layout.rowTop(set.line) + 5, 0, 0})
        .topLeft()
        .toPoint();
  }
  void click(std::size_t glyph) {
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, place(glyph));
  }
  QString selectedPair() {
    for (const KerningPair& pair : manager.currentProject().kerningPairs)
      if (pair.id == manager.selectedKerningPairId())
        return QString::fromStdString(pair.leftGlyph + "/" + pair.rightGlyph);
    return {};
  }
  QString selectedGlyphs() {
    QString names;
    for (const Glyph& glyph : manager.currentProject().glyphs)
      if (manager.selectedGlyphIds().contains(glyph.id()))
        names += QString::fromStdString(glyph.name());
    return names;
  }

  QColor pixel(QPoint at) {
    const QImage picture = view().viewport()->grab().toImage();
    return picture.pixelColor(at * picture.devicePixelRatio());
  }

  PreviewPanel panel{manager, nullptr};
};

// Counts the paints of a widget, and remembers what the last one covered.
struct PaintWatch : QObject {
  explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      ++paints;
      area = static_cast<QPaintEvent*>(event)->rect();
    }
    return false;
  }
  int paints = 0;
  QRect area;
};

} // namespace

class PreviewPanelTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void typingSetsTheTextAndKeepsTheCaretAndItsOwnHistory() {
    Preview preview;
    preview.type("AVB");
    preview.editor().moveCursor(QTextCursor::Start);
    QTest::keyClicks(&preview.editor(), u"xy"_s);
    QCOMPARE(preview.view().scene().text(), std::string("xyAVB"));
    QCOMPARE(preview.editor().textCursor().position(), 2);
    QTest::keyClick(&preview.editor(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(preview.view().scene().text(), std::string("AVB"));
    // Back to the text that was there first, and no further.
    for (int i = 0; i < 3; ++i) QTest::keyClick(&preview.editor(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(preview.editor().text(), shownText(textPresets()[0].text));
    auto* const presets = find<QToolButton>("presetMenu");
    preview.type("AVB");
    presets->menu()->actions().at(7)->trigger();
    QTest::keyClick(&preview.editor(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(preview.view().scene().text(), std::string("AVB")); // what was typed is not lost
    presets->menu()->actions().at(1)->trigger();
    presets->menu()->actions().at(7)->trigger();
    QTest::keyClick(&preview.editor(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(presets->text(), shownText(textPresets()[1].name));
  }

  void aClickPicksAsTheTabSays() {
    Preview preview;
    preview.type("AV B");
    preview.click(1);
    QCOMPARE(preview.selectedGlyphs(), u"V"_s);
    preview.manager.setSelectedTab(1);
    preview.click(2); // no neighbours
    QCOMPARE(preview.selectedPair(), QString());
    for (int i = 0; i < 2; ++i) { // makes the pair, then finds it
      preview.manager.selectKerningPair(std::nullopt);
      preview.click(0);
      QCOMPARE(preview.selectedPair(), u"A/V"_s);
    }
    QCOMPARE(preview.manager.currentProject().kerningPairs.size(), 1U);
    preview.manager.clearSelection();
    preview.manager.setSelectedTab(2);
    preview.click(0);
    // A press that is let go over another item picks nothing.
    preview.manager.setSelectedTab(0);
    QTest::mousePress(preview.view().viewport(), Qt::LeftButton, {}, preview.place(0));
    QTest::mouseRelease(preview.view().viewport(), Qt::LeftButton, {}, preview.place(1));
    QCOMPARE(preview.selectedGlyphs(), QString());
  }

  void aHoverHighlightsTheItemAndRepaintsNoMore() {
    Preview preview;
    preview.type("AVB");
    auto* const viewport = preview.view().viewport();
    const QColor paper = preview.pixel(preview.place(0));
    QCoreApplication::processEvents();
    PaintWatch watch(viewport);
    QTest::mouseMove(viewport, preview.place(0));
    QCOMPARE(viewport->cursor().shape(), Qt::PointingHandCursor);
    QTRY_COMPARE(watch.paints, 1);
    QVERIFY(watch.area.width() < 40 && watch.area.height() < 70);
    const auto highlight = [&](Role role) {
      const QColor over = themeColor(role);
      const auto mixed = [](int under, int top) { return (under * 4 + top + 2) / 5; };
      return QColor(mixed(paper.red(), over.red()), mixed(paper.green(), over.green()),
                    mixed(paper.blue(), over.blue()));
    };
    const auto isHighlighted = [&](Role role) {
      settle();
      const QColor shown = preview.pixel(preview.place(0));
      const QColor meant = highlight(role);
      return std::abs(shown.red() - meant.red()) < 3 &&
             std::abs(shown.green() - meant.green()) < 3 &&
             std::abs(shown.blue() - meant.blue()) < 3;
    };
    QVERIFY(isHighlighted(Role::orange));
    QTest::mouseMove(viewport, QPoint(300, 5));
    QCOMPARE(viewport->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(preview.pixel(preview.place(0)), paper);
    preview.manager.setSelectedTab(1);
    QTest::mouseMove(viewport, preview.place(0));
    QVERIFY(isHighlighted(Role::blue)); // there is no such pair
    preview.click(0);
    QVERIFY(isHighlighted(Role::green));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(viewport, &leave);
    QCOMPARE(preview.pixel(preview.place(0)), paper);
  }

  // Ink is black on a coverage of the pixel: the sum along a line through the square tells where
  // its edges lie.
  void glyphsStandWithinAQuarterOfAPixelOfTheirPlace() {
    Preview preview;
    preview.type("AVBAVBAVB");
    const double scale = 47.0 / 1000;
    find<ValueSlider>("previewSize")->moveTo(46.6);
    QCOMPARE(preview.view().scene().fontSize(), 47.0);
    QCOMPARE(find<QLabel>("previewSizeLabel")->text(), u"47pt"_s);
    const QImage picture = preview.view().viewport()->grab().toImage();
    const double ratio = picture.devicePixelRatio();
    const TextLayout& layout = preview.view().scene().layout();
    for (const SetCharacter& set : layout.characters) {
      const double left = (set.penX + 100 * scale) * ratio;
      const double right = (set.penX + 500 * scale) * ratio;
      const auto line = static_cast<int>((layout.baseline(0) - 200 * scale) * ratio);
      double ink = 0;
      const double middle = std::floor((left + right) / 2);
      const double from = picture.pixelColor(0, 0).lightnessF();
      const double most = from - picture.pixelColor(static_cast<int>(middle), line).lightnessF();
      for (int x = static_cast<int>(left) - 3; x < static_cast<int>(middle); ++x)
        ink += (from - picture.pixelColor(x, line).lightnessF()) / most;
      QVERIFY2(std::abs(middle - ink - left) < 0.25, qPrintable(QString::number(set.penX)));
    }
  }

  // The part of a 1366 x 768 screen that the panel has, less, and more.
  void charactersAreListedWhereThereIsRoom() {
    Preview preview;
    auto* const list = find<AvailableCharactersView>("availableCharacters");
    QCOMPARE(list->text(), u"A B V"_s);
    QCOMPARE(preview.editor().cursorRect().topLeft(), QPoint(8, 8));
    for (const int height : {150, 213, 900}) {
      preview.panel.resize(700, height);
      settle();
      QCOMPARE(preview.editor().height(), 84);
      QVERIFY2(preview.view().height() >= (height < 200 ? 24 : 40), QByteArray::number(height));
      QCOMPARE(list->isVisible(), height >= 213);
    }
    preview.manager.editGlyphList([](auto& glyphs) {
      for (int i = 0; i < 3000; ++i) glyphs.push_back(makeGlyph("g" + std::to_string(i), "xi"));
      glyphs.push_back(makeGlyph("last", std::string(500, 'W')));
    });
    settle();
    QVERIFY(list->parentWidget()->height() <= 200 && list->parentWidget()->height() > 150);
    preview.manager.newProject();
    settle();
    QCOMPARE(list->text(), u"No characters assigned yet"_s);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<PreviewPanelTest>(argc, argv);
}

#include "preview_panel_test.moc"

#include "gui/app/program.h"
#include "support/fake_flattener.h"
#include "svg/window_import.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

using namespace quillery;
using namespace quillery::test;

namespace {

constexpr const char* kPlain = "<svg><path d=\"M0 0 L60 0 L60 70 Z\"/></svg>";
constexpr const char* kRelative = "<svg><path d=\"M0 0 l60 0 0 70 z\"/></svg>";
constexpr const char* kWithImage = "<svg><image/><path d=\"M0 0 l60 0 0 70 z\"/></svg>";
// Its id is taken for its data, which leaves no point.
constexpr const char* kPointless = "<svg><path d=\"M0 0 L9 0 L9 9 Z\" id=\"path7\"/></svg>";
constexpr const char* kBroken = "<svg><!-- broken --><path d=\"M0 0 l60 0 0 70 z\"/></svg>";

struct NotedProgram : Program {
  NotedProgram() {
    desktop.flattener = flattener;
    manager.announceImportProgress(); // the window looks anew
  }

  void import(std::initializer_list<std::pair<const char*, const char*>> drawings) {
    desktop.openAnswer.clear();
    for (const auto& [name, content] : drawings)
      desktop.openAnswer.push_back(folder.write(std::string(name) + ".svg", content));
    action("importDrawings")->trigger();
    finishImports();
  }
  void finishImports() {
    desktop.runPosted(); // the panel's answer
    desktop.runUntil([&] { return manager.imports().empty(); });
    settle();
  }
  static QString notice() {
    const auto* bar = find<QWidget>("notedDrawings");
    return bar ? bar->findChild<QLabel*>(u"notice"_s)->text() : QString();
  }
  static void press(const char* button) {
    QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
  }
  std::string pathOf(const char* glyph) const {
    return std::string(manager.firstGlyphNamed(glyph)->record().svgPath.view());
  }

  std::shared_ptr<TriangleFlattener> flattener = std::make_shared<TriangleFlattener>();
};

} // namespace

class NotedDrawingsTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void theBarSaysWhatWasNotReadAndConvertsIt() {
    NotedProgram program;
    program.import({{"A", kPlain}});
    QCOMPARE(NotedProgram::notice(), QString());
    program.import({{"B", kRelative}, {"C", kPlain}, {"D", kWithImage}});
    QCOMPARE(NotedProgram::notice(), u"2 of 4 drawings hold more than was read."_s);
    const Uuid plain = program.manager.firstGlyphNamed("C")->id();
    NotedProgram::press("convertNoted");
    program.finishImports();
    QCOMPARE(program.pathOf("B"), std::string(TriangleFlattener::kPath));
    QCOMPARE(program.manager.firstGlyphNamed("C")->id(), plain);
    // What the conversion lost is said, and can't be converted once more.
    QCOMPARE(NotedProgram::notice(), u"1 of 4 drawings lost something when it was converted."_s);
    QVERIFY(!find<QPushButton>("convertNoted"));
    program.manager.newProject();
    QCOMPARE(NotedProgram::notice(), QString());
  }

  void aClosedBarStaysAwayUntilThereIsSomethingNew() {
    NotedProgram program;
    program.import({{"A", kRelative}, {"B", kRelative}});
    QTest::mouseClick(find<QToolButton>("closeNotice"), Qt::LeftButton);
    QCOMPARE(NotedProgram::notice(), QString());
    program.import({{"C", kPlain}});
    QCOMPARE(NotedProgram::notice(), QString());
    program.import({{"D", kRelative}});
    QCOMPARE(NotedProgram::notice(), u"1 of 2 drawings holds more than was read."_s);
  }

  void withoutAFlattenerNothingIsOfferedThatCannotBeDone() {
    NotedProgram program;
    program.desktop.flattener = nullptr;
    program.import({{"A", kRelative}});
    QCOMPARE(NotedProgram::notice(), u"A.svg holds more than was read."_s);
    QVERIFY(!find<QPushButton>("convertNoted") && !find<QCheckBox>("alwaysConvert"));
    for (const char* command : {"importSheet", "alwaysConvert", "placeByArtboard"})
      QVERIFY2(!program.action(command)->isEnabled(), command);
    NotedProgram::press("showNoted");
    QVERIFY(find<QPushButton>("closeNoted") && !find<QPushButton>("convertTicked"));
  }

  void alwaysConvertIsRememberedAndTheSameInBarAndMenu() {
    NotedProgram program;
    program.import({{"A", kRelative}});
    QTest::mouseClick(find<QCheckBox>("alwaysConvert"), Qt::LeftButton);
    QVERIFY(program.action("alwaysConvert")->isChecked());
    program.import({{"B", kBroken}, {"C", kRelative}});
    QCOMPARE(program.pathOf("C"), std::string(TriangleFlattener::kPath));
    QVERIFY(!program.manager.firstGlyphNamed("B"));
    QVERIFY(find<QCheckBox>("alwaysConvert")->isChecked());
    program.action("alwaysConvert")->trigger();
    QVERIFY(!find<QCheckBox>("alwaysConvert")->isChecked());
    program.import({{"D", kRelative}});
    QVERIFY(program.pathOf("D") != TriangleFlattener::kPath);
  }

  void byArtboardThePageIsTheEm() {
    NotedProgram program;
    program.action("placeByArtboard")->trigger();
    program.import({{"A", kPlain}});
    const Glyph* glyph = program.manager.firstGlyphNamed("A");
    // The page is 100 by 80 and the em 1000.
    QCOMPARE(std::lround(glyph->advanceWidth()), 1250L);
    QCOMPARE(std::lround(glyph->boundingBox().minX()), 125L);
    QCOMPARE(std::lround(glyph->boundingBox().minY()), -200L);
  }

  void theSheetConvertsWhatIsTicked() {
    NotedProgram program;
    program.import({{"A", kRelative}, {"B", kRelative}, {"C", kBroken}});
    NotedProgram::press("showNoted");
    auto* list = find<QListView>("notedDrawingsList");
    QCOMPARE(list->model()->rowCount(), 3);
    QCOMPARE(find<QPushButton>("convertTicked")->text(), u"Convert 3 Drawings"_s);
    NotedProgram::press("selectNoNoted");
    QVERIFY(!find<QPushButton>("convertTicked")->isEnabled());
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    QCOMPARE(find<QPushButton>("convertTicked")->text(), u"Convert 1 Drawing"_s);
    const QRect first = list->visualRect(list->model()->index(0, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first.center()); // no tick there
    QCOMPARE(find<QPushButton>("convertTicked")->text(), u"Convert 1 Drawing"_s);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      {first.left() + 20, first.center().y()});
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      {first.left() + 20, first.center().y()});
    NotedProgram::press("convertTicked");
    program.finishImports();
    QCOMPARE(program.pathOf("B"), std::string(TriangleFlattener::kPath));
    QVERIFY(program.pathOf("A") != TriangleFlattener::kPath);
    QCOMPARE(NotedProgram::notice(), u"2 of 3 drawings hold more than was read."_s);
  }

  void picturesAreMadeOfTheRowsThatAreSeenOnly() {
    NotedProgram program;
    std::vector<NotedDrawing> noted;
    const auto file = program.folder.write("A.svg", kRelative);
    for (unsigned i = 0; i < 5000; ++i) { // so many names of one file
      std::string folder = file.parent_path().string();
      for (unsigned bit = 1; bit < 8192; bit *= 2) folder += (i & bit) != 0 ? "/." : "/";
      noted.push_back({folder + "/A.svg", {}, "arcs"});
    }
    program.import({{"B", kPlain}});
    program.manager.noteDrawings(noted);
    NotedProgram::press("showNoted");
    QVERIFY(find<QListView>("notedDrawingsList"));
    QVERIFY(QTest::qWaitFor([&] { return program.flattener->flattened > 0; }));
    program.desktop.runPosted();
    QVERIFY(program.flattener->flattened < 20);
    // It may be closed while pictures are being made.
    NotedProgram::press("closeNoted");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void glyphsWithoutAnOutlineAreMarkedConvertedOrRemoved() {
    NotedProgram program;
    program.import({{"A", kPlain}, {"B", kPointless}, {"C", kPointless}});
    QVERIFY(!program.manager.firstGlyphNamed("B")->hasBox());
    const auto* line = find<QWidget>("missingOutlines");
    const auto said = [&] {
      for (const QLabel* label : line->findChildren<QLabel*>())
        if (label->isVisible()) return label->text();
      return QString();
    };
    QVERIFY(said().startsWith(u"2 glyphs have no outline"_s));
    program.manager.deleteGlyph(program.manager.firstGlyphNamed("C")->id());
    settle();
    QVERIFY(said().startsWith(u"1 glyph has no outline"_s));
    NotedProgram::press("convertMissing");
    program.finishImports();
    QVERIFY(program.manager.firstGlyphNamed("B")->hasBox());
    QVERIFY(!find<QWidget>("missingOutlines"));

    program.import({{"C", kPointless}});
    program.click(0);
    NotedProgram::press("removeMissing");
    QVERIFY(!program.manager.firstGlyphNamed("C"));
    QCOMPARE(program.selected(), u"A"_s); // as it was
    program.action("undo")->trigger();
    QVERIFY(find<QWidget>("missingOutlines"));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<NotedDrawingsTest>(argc, argv);
}

#include "noted_drawings_test.moc"

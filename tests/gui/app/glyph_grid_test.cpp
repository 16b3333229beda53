#include "base/unicode.h"
#include "gui/app/program.h"
#include "kerning/kerning_pairs.h"
#include "support/projects.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QToolButton>

using namespace quillery;
using namespace quillery::test;

class GlyphGridTest : public QObject {
  Q_OBJECT

  // Glyphs g00 to g39 with the characters from the private use area on, in the opposite order.
  static void addMany(Program& program) {
    program.manager.editGlyphList([](std::vector<Glyph>& glyphs) {
      glyphs.clear();
      for (int i = 0; i < 40; ++i)
        glyphs.push_back(makeGlyph("g" + std::to_string(i / 10) + std::to_string(i % 10),
                                   scalarText(static_cast<char32_t>(0xE100 - i))));
    });
    program.window.resize(program.window.minimumSize() + QSize(0, 150));
    settle();
  }
  static bool isInSight(Program& program, std::size_t card) {
    settle();
    return program.cards().viewport()->rect().contains(program.cards().cardRect(card));
  }
  static std::size_t cardNamed(Program& program, const char* name) {
    settle();
    std::size_t card = 0;
    while (program.cards().glyphOfCard(card)->name() != name) ++card;
    return card;
  }
  static std::string nameInCorner(Program& program) {
    settle();
    return program.cards().glyphOfCard(*program.cards().cardAt({20, 20}))->name();
  }

private Q_SLOTS:
  void init() { failOnWarnings(); }

  void theTableShowsWhatTheCardsShow() {
    Program program{"A"};
    addMany(program);
    program.manager.selectGlyph(program.cards().glyphOfCard(cardNamed(program, "g03"))->id());
    find<QToolButton>("tableSwitch")->click();
    settle();
    auto* table = find<QTableView>("metricsTable");
    QVERIFY(table && !program.cards().isVisible());
    QCOMPARE(table->model()->rowCount(), 40);
    QCOMPARE(table->currentIndex().siblingAtColumn(0).data().toString(), u"g03"_s);
    find<QLineEdit>("glyphSearch")->setText(u"g2"_s);
    settle();
    QCOMPARE(table->model()->rowCount(), 10);
    find<QToolButton>("tableSwitch")->click();
    settle();
    QVERIFY(program.cards().isVisible());
  }

  void thePlaceIsKeptWhateverMovesTheCards() {
    Program program{"A"};
    addMany(program);
    const auto sort = [](const char* title) {
      for (QAction* action : find<QToolButton>("sortMenu")->menu()->actions())
        if (action->text() == QLatin1String(title)) return action->trigger();
      QFAIL("no such order");
    };
    auto* slider = find<QSlider>("cardSize");
    // Without a selection, the first row in sight.
    program.cards().verticalScrollBar()->setValue(1000);
    const std::string first = nameInCorner(program);
    for (const int size : {20, 8, 14}) {
      slider->setValue(size);
      const QRect row = program.cards().cardRect(cardNamed(program, first.c_str()));
      QVERIFY2(row.bottom() > 0 && row.top() < program.cards().height() / 2, first.c_str());
    }
    // With one, the glyph selected last.
    program.manager.selectGlyph(program.cards().glyphOfCard(cardNamed(program, "g03"))->id());
    QVERIFY(isInSight(program, cardNamed(program, "g03")));
    sort("Name");
    QVERIFY(isInSight(program, cardNamed(program, "g03")));
    slider->setValue(20);
    QVERIFY(isInSight(program, cardNamed(program, "g03")));
    program.window.resize(1400, 700);
    QVERIFY(isInSight(program, cardNamed(program, "g03")));
    sort("Unicode");
    QVERIFY(isInSight(program, cardNamed(program, "g03")));
  }

  void whatAnImportSelectsIsWhollyInSight() {
    Program program{"A"};
    addMany(program);
    auto* bar = program.cards().verticalScrollBar();
    importSVGFiles(program.manager,
                   {program.folder.write("g25.svg", "<path d=\"M0 0 L9 0 L9 9Z\"/>")});
    QVERIFY(isInSight(program, cardNamed(program, "g25")));
    // A part of the card is not enough.
    program.manager.clearSelection();
    bar->setValue(bar->value() + program.cards().cardRect(cardNamed(program, "g25")).bottom() - 20);
    QVERIFY(!isInSight(program, cardNamed(program, "g25")));
    importSVGFiles(program.manager,
                   {program.folder.write("g25.svg", "<path d=\"M0 0 L9 0 L9 9Z\"/>")});
    QVERIFY(isInSight(program, cardNamed(program, "g25")));
    // But nothing moves under the pointer.
    bar->setValue(bar->value() + 30);
    const int before = bar->value();
    program.click(*program.cards().cardAt({40, 10}));
    settle();
    QCOMPARE(bar->value(), before);
  }

  void aBandSelectsAndEscapeBringsBackWhatWasSelected() {
    Program program{"A", "B", "C", "D"};
    program.window.resize(1440, 900);
    program.click(3);
    QWidget* ground = program.cards().viewport();
    const QPoint corner = program.cards().cardRect(0).topLeft() - QPoint(6, 0);
    QTest::mousePress(ground, Qt::LeftButton, {}, corner);
    QCOMPARE(program.selected(), QString());
    QTest::mouseMove(ground, program.cards().cardRect(1).center());
    QCOMPARE(program.selected(), QStringLiteral("AB"));
    QTest::keyClick(&program.cards(), Qt::Key_Escape);
    QCOMPARE(program.selected(), QStringLiteral("D"));
    QTest::mouseRelease(ground, Qt::LeftButton, {}, corner);
    QTest::mousePress(ground, Qt::LeftButton, Qt::ShiftModifier, corner);
    QTest::mouseMove(ground, program.cards().cardRect(0).center());
    QTest::mouseRelease(ground, Qt::LeftButton, {}, program.cards().cardRect(0).center());
    QCOMPARE(program.selected(), QStringLiteral("AD"));
    // A click on empty ground is a band over nothing; with Ctrl it leaves all as it is.
    QTest::mouseClick(ground, Qt::LeftButton, Qt::ControlModifier, corner);
    QCOMPARE(program.selected(), QStringLiteral("AD"));
    QTest::mouseClick(ground, Qt::LeftButton, {}, corner);
    QCOMPARE(program.selected(), QString());
  }

  void aBandBeyondTheEdgeScrolls() {
    Program program{"A"};
    addMany(program);
    QWidget* ground = program.cards().viewport();
    QTest::mousePress(ground, Qt::LeftButton, {}, {4, 10});
    QTest::mouseMove(ground, {200, ground->height() + 400});
    auto* bar = program.cards().verticalScrollBar();
    QTRY_COMPARE(bar->value(), bar->maximum());
    QTest::mouseRelease(ground, Qt::LeftButton, {}, {200, ground->height() + 400});
    QCOMPARE(program.manager.selectedGlyphIds().size(), 40U);
  }

  void scatteredCardsArePickedAndDeletedByKeys() {
    Program program{"A", "B", "C", "D"};
    program.cards().setFocus();
    const auto press = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
      QTest::keyClick(&program.cards(), static_cast<Qt::Key>(key), modifiers);
    };
    press(Qt::Key_Home);
    press(Qt::Key_Right, Qt::ControlModifier);
    press(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(program.selected(), QStringLiteral("A"));
    press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(program.selected(), QStringLiteral("AC"));
    press(Qt::Key_Space, Qt::ControlModifier);
    press(Qt::Key_Space, Qt::ControlModifier);
    press(Qt::Key_Delete);
    QCOMPARE(program.cards().cardCount(), 2U);
    QVERIFY(program.action("undo")->isEnabled());
    // Keys go on from where the deleted card was.
    press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(program.selected(), QStringLiteral("D"));
    press(Qt::Key_Escape);
    QCOMPARE(program.selected(), QString());
    program.manager.undo();
    QCOMPARE(program.selected(), QStringLiteral("AC"));
  }

  void aSearchShowsWhatItFindsAndHowMany() {
    Program program{"A", "B", "a10", "exclam"};
    const auto shown = [&] {
      settle();
      QStringList names;
      for (std::size_t i = 0; i < program.cards().cardCount(); ++i)
        names << QString::fromStdString(program.cards().glyphOfCard(i)->name());
      return names.join(u' ');
    };
    auto* search = find<QLineEdit>("glyphSearch");
    auto* count = find<QLabel>("foundGlyphs");
    program.action("findGlyphs")->trigger();
    QVERIFY(search->hasFocus());
    QTest::keyClicks(search, QStringLiteral("a"));
    QCOMPARE(shown(), QStringLiteral("exclam A a10"));
    QCOMPARE(count->text(), QStringLiteral("3 of 4"));
    // Down goes to what is found; the keys stay among it.
    QTest::keyClick(search, Qt::Key_Down);
    QVERIFY(program.cards().hasFocus());
    QCOMPARE(program.selected(), QStringLiteral("exclam"));
    QTest::keyClick(&program.cards(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(program.manager.selectedGlyphIds().size(), 3U);
    // It follows what is edited.
    search->setText(QStringLiteral("changed"));
    QVERIFY(program.manager.saveProjectTo(program.folder / "x.fontproj").ok());
    QCOMPARE(shown(), QString());
    program.manager.editGlyph(program.manager.firstGlyphNamed("B")->id(),
                              [](Glyph& glyph) { glyph.setAdvanceWidth(777); });
    QCOMPARE(shown(), QStringLiteral("B"));
    search->setText(QStringLiteral("unkerned"));
    QCOMPARE(count->text(), QStringLiteral("4 of 4"));
    addKerningPair(program.manager, utf8("A"), utf8("B"));
    QCOMPARE(shown(), QStringLiteral("exclam a10"));
    // A glyph selected elsewhere ends a search that hides it.
    program.manager.selectGlyph(program.manager.firstGlyphNamed("B")->id());
    QCOMPARE(shown(), QStringLiteral("exclam A a10 B"));
    QVERIFY(search->text().isEmpty() && count->text().isEmpty());
    search->setText(QStringLiteral("nothing like it"));
    QCOMPARE(shown(), QString());
    search->setFocus();
    QTest::keyClick(search, Qt::Key_Escape);
    QCOMPARE(program.cards().cardCount(), 4U);
    // What is typed into the grid is shown as long as it counts.
    QTest::keyClick(search, Qt::Key_Escape);
    QTest::keyClicks(&program.cards(), QStringLiteral("a1"));
    QCOMPARE(search->placeholderText(), QStringLiteral("a1"));
    QCOMPARE(program.selected(), QStringLiteral("a10"));
    QTRY_COMPARE(search->placeholderText(), QStringLiteral("Search"));
  }

  void theCardOfAnOpenMenuIsMarked() {
    Program program{"A", "B"};
    program.cards().setFocus();
    QTest::keyClick(&program.cards(), Qt::Key_Home);
    settle();
    const auto picture = [&] {
      settle();
      return program.cards().viewport()->grab(program.cards().cardRect(1)).toImage();
    };
    const QImage before = picture();
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, program.cards().cardRect(1).center(),
        program.cards().viewport()->mapToGlobal(program.cards().cardRect(1).center()));
    QCoreApplication::sendEvent(program.cards().viewport(), &event);
    auto* menu = find<QMenu>("glyphMenu");
    QVERIFY(menu && picture() != before);
    menu->close();
    QCOMPARE(picture(), before);
    QCOMPARE(program.selected(), QStringLiteral("A"));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<GlyphGridTest>(argc, argv);
}

#include "glyph_grid_test.moc"

#include "gui/desktop/gui_test.h"
#include "gui/desktop/window_desktop.h"
#include "kerning/ui/kern_alike_sheet.h"
#include "support/projects.h"

#include <QListWidget>
#include <QPushButton>

using namespace quillery;
using namespace quillery::test;

class KernAlikeTest : public QObject {
  Q_OBJECT

private Q_SLOTS:
  void init() { failOnWarnings(); }

  void thePairsOfWhatIsTickedGetTheValue() {
    WindowProject p;
    std::vector<Glyph> made;
    for (const auto& [name, right] : {std::pair{"A", 500.0}, {"B", 500.0}, {"V", 420.0}}) {
      Glyph glyph = makeGlyph(name, name);
      glyph.placeOutline({PathCommand::moveTo({50, 0}), PathCommand::lineTo({right, 0}),
                          PathCommand::lineTo({right, 700}), PathCommand::closePath()},
                         {50, 0, right - 50, 700});
      made.push_back(glyph);
    }
    p.manager.editGlyphList([&](auto& glyphs) { glyphs = made; });
    p.manager.editKerningList([](auto& pairs) { pairs = {makePair("A", "V", -30)}; });
    KernAlikeSheet sheet(p.manager, p.manager.currentProject().kerningPairs[0].id, nullptr);
    bringUp(sheet);
    auto* lefts = find<QListWidget>("lookAlikesLeft");
    auto* rights = find<QListWidget>("lookAlikesRight");
    auto* kern = find<QPushButton>("kernAlike");
    QCOMPARE(lefts->count(), 2);
    QCOMPARE(rights->count(), 1);
    QCOMPARE(kern->text(), u"Kern 1 Pair"_s);
    lefts->item(1)->setCheckState(Qt::Unchecked);
    QVERIFY(!kern->isEnabled());
    lefts->item(1)->setCheckState(Qt::Checked);
    kern->click();
    QVERIFY(!sheet.isVisible());
    QCOMPARE(p.manager.firstKerningPair("B", "V")->value, Finite(-30));
    p.manager.undo();
    QVERIFY(!p.manager.firstKerningPair("B", "V"));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<KernAlikeTest>(argc, argv);
}

#include "kern_alike_test.moc"

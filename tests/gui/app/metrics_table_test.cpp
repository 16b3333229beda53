#include "app/ui/metrics_table.h"
#include "app/ui/metrics_table_model.h"
#include "desktop/widgets.h"
#include "gui/app/program.h"
#include "support/projects.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>

using namespace quillery;
using namespace quillery::test;

class MetricsTableTest : public QObject {
  Q_OBJECT

  struct Shown {
    Shown() {
      std::vector<Glyph> made;
      for (const char* name : {"b", "a", "c", "d"}) {
        Glyph glyph = makeGlyph(name, name);
        glyph.placeOutline({PathCommand::moveTo({0, 0}), PathCommand::lineTo({300, 500})},
                           {0, 0, 300, 500});
        made.push_back(glyph);
      }
      program.manager.editGlyphList([&](std::vector<Glyph>& glyphs) { glyphs = made; });
      for (const Glyph& glyph : made) ids.push_back(glyph.id());
      table.showGlyphs(ids);
      table.resize(700, 300);
      table.show();
      settle();
    }
    QTableView& cells() { return *table.findChild<QTableView*>(u"metricsTable"_s); }
    MetricsTableModel& model() { return static_cast<MetricsTableModel&>(*cells().model()); }
    void select(int top, int left, int bottom, int right) {
      cells().setCurrentIndex(model().index(top, left));
      cells().selectionModel()->select(
          QItemSelection(model().index(top, left), model().index(bottom, right)),
          QItemSelectionModel::ClearAndSelect);
      settle();
    }
    void paste(const char* text) {
      QApplication::clipboard()->setText(QString::fromUtf8(text));
      QTest::keyClick(&cells(), Qt::Key_V, Qt::ControlModifier);
      settle();
    }
    double bearing(std::size_t glyph) {
      return program.manager.glyphWithId(ids[glyph])->leftSideBearing();
    }
    QString note() { return table.findChild<TextLabel*>(u"metricsTableNote"_s)->text(); }

    Program program{"A"};
    std::vector<Uuid> ids;
    MetricsTable table{program.manager, nullptr};
  };

private Q_SLOTS:
  void init() { failOnWarnings(); }

  void cellsAreTypedInAndTakenBack() {
    Shown s;
    s.select(1, 2, 1, 2);
    QTest::keyClick(&s.cells(), Qt::Key_Return);
    auto* editor = s.cells().findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, u"=b+25"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    QCOMPARE(s.bearing(1), 75.0);
    s.program.manager.undo();
    QCOMPARE(s.bearing(1), 50.0);
    QVERIFY(!(s.model().flags(s.model().index(0, 0)) & Qt::ItemIsEditable));
  }

  void blocksAreCopiedAndPasted() {
    Shown s;
    s.select(0, 2, 1, 3);
    QTest::keyClick(&s.cells(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("50\t50\n50\t50\n"));
    s.select(1, 2, 1, 2);
    s.paste("1\t2\n3\t4\n");
    QCOMPARE(s.bearing(1), 1.0);
    QCOMPARE(s.bearing(2), 3.0);
    s.select(0, 2, 3, 2);
    s.paste("-7");
    QCOMPARE(s.bearing(0) + s.bearing(3), -14.0);
    QVERIFY(s.note().isEmpty());
    s.paste("=nobody");
    QVERIFY(s.note().contains(QLatin1String("nobody")));
    QCOMPARE(s.bearing(0), -7.0);
  }

  void theSelectionIsThatOfTheProjectBothWays() {
    Shown s;
    s.select(1, 3, 2, 4);
    QCOMPARE(s.program.manager.selectedGlyphIds(), (std::unordered_set{s.ids[1], s.ids[2]}));
    s.program.manager.selectGlyph(s.ids[3]);
    settle();
    QCOMPARE(s.cells().currentIndex().row(), 3);
    // Sorting takes the selected cells along, and the third click brings the grid's order back.
    s.cells().horizontalHeader()->setSortIndicator(0, Qt::DescendingOrder);
    settle();
    QCOMPARE(s.cells().currentIndex().row(), 0);
    QCOMPARE(s.model().glyphs().front(), s.ids[3]);
    s.cells().horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    settle();
    QCOMPARE(s.model().glyphs(), s.ids);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<MetricsTableTest>(argc, argv);
}

#include "metrics_table_test.moc"

#include "gui/app/program.h"
#include "support/fake_flattener.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

using namespace quillery;
using namespace quillery::test;

namespace {

struct SheetProgram : Program {
  // Letters of these names on one sheet.
  explicit SheetProgram(std::initializer_list<const char*> names) {
    for (const char* name : names)
      flattener->sheet.letters.push_back(
          {Utf8::mended(name), {Utf8::mended(TriangleFlattener::kPath), {{0, 0, 100, 80}, {}}, {}}});
    desktop.flattener = flattener;
    manager.announceImportProgress(); // the window looks anew
    desktop.openAnswer = {folder.write("Letters.svg", "<svg/>")};
    action("importSheet")->trigger();
    desktop.runPosted();
  }
  QListView* letters() {
    (void)QTest::qWaitFor([] { return find<QListView>("sheetLetters") != nullptr; });
    return find<QListView>("sheetLetters");
  }
  static QString names(const QListView& list) {
    QStringList names;
    for (int row = 0; row < list.model()->rowCount(); ++row)
      names << list.model()->index(row, 0).data().toString();
    return names.join(u' ');
  }

  std::shared_ptr<TriangleFlattener> flattener = std::make_shared<TriangleFlattener>();
};

} // namespace

class SheetImportTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void charactersNameTheLettersThatHaveNoNameInOrder() {
    SheetProgram program{"", "B", "", "", ""};
    QListView* list = program.letters();
    QVERIFY(list);
    const auto status = [] { return find<QLabel>("sheetStatus")->text(); };
    QCOMPARE(status(), u"4 letters without a name are left out"_s);
    QTest::keyClicks(find<QLineEdit>("sheetCharacters"), u"A c."_s);
    QCOMPARE(SheetProgram::names(*list), u"A B c . "_s);
    QCOMPARE(find<QPushButton>("importLetters")->text(), u"Import 4 Letters"_s);

    // One is named on its card; the characters go to the others.
    list->setFocus();
    list->setCurrentIndex(list->model()->index(2, 0));
    QTest::keyClicks(list->viewport(), u"B"_s);
    auto* field = find<QLineEdit>("letterName");
    QVERIFY(field);
    field->setText(u"B"_s);
    QTest::keyClick(field, Qt::Key_Return);
    settle();
    QCOMPARE(SheetProgram::names(*list), u"A B B c ."_s);
    QCOMPARE(status(), u"1 name stands twice: its last letter counts"_s);
    QTest::mouseClick(find<QPushButton>("importLetters"), Qt::LeftButton);
    QVERIFY(!find<QListView>("sheetLetters"));
    const auto& glyphs = program.manager.currentProject().glyphs;
    QCOMPARE(glyphs.size(), 4U);
    // The page is the em, and a point stands for itself whatever files are called.
    QCOMPARE(std::lround(glyphs.front().advanceWidth()), 1250L);
    QVERIFY(program.manager.glyphForCharacter("."));
  }

  void aSheetWithoutLettersIsSaid() {
    SheetProgram program{};
    QVERIFY(QTest::qWaitFor([&] { return !program.desktop.alerts.empty(); }));
    QCOMPARE(program.desktop.alerts.front().message,
             std::string("There is no letter in the drawing."));
    QVERIFY(!find<QListView>("sheetLetters"));
  }
};

int main(int argc, char** argv) {
  return runWithTheme<SheetImportTest>(argc, argv);
}

#include "sheet_import_test.moc"

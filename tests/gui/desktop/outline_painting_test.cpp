#include "desktop/outline_painting.h"
#include "gui/desktop/gui_test.h"
#include "support/outline_table.h"

using namespace quillery;
using namespace quillery::test;

class OutlinePaintingTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void whatADrawingLeavesOutIsReadByTheTable() {
    for (const OutlineRow& row : outlineTable())
      QVERIFY2(painterPath(row.outline).toSubpathPolygons() ==
                   painterPath(row.contours).toSubpathPolygons(),
               row.name.c_str());
  }

  void aPictureShowsTheWholeOutlineCentred() {
    // A box; in it a square of the same turn, which is no hole, and one of the other.
    const Outline outline{PathCommand::lineTo({100, 0}),
                          PathCommand::lineTo({500, 0}),
                          PathCommand::curveTo({500, 300}, {500, 500}, {500, 800}),
                          PathCommand::lineTo({100, 800}),
                          PathCommand::closePath(),
                          PathCommand::moveTo({200, 100}),
                          PathCommand::lineTo({300, 100}),
                          PathCommand::lineTo({300, 200}),
                          PathCommand::lineTo({200, 200}),
                          PathCommand::moveTo({200, 600}),
                          PathCommand::lineTo({200, 700}),
                          PathCommand::lineTo({300, 700}),
                          PathCommand::lineTo({300, 600})};
    const QImage picture =
        outlinePicture(outline, controlBox(outline), {100, 60}, 2, Qt::red).toImage();
    QCOMPARE(picture.size(), QSize(200, 120));
    // 40 points high between margins of 10, and so 20 wide; ten pixels to 100 units.
    const QRect box(80, 20, 40, 80);
    const QRect hole(90, 30, 10, 10);
    for (int x = 0; x < 200; ++x)
      for (int y = 0; y < 120; ++y)
        QCOMPARE(picture.pixelColor(x, y).alpha(),
                 box.contains(x, y) && !hole.contains(x, y) ? 255 : 0);
    QVERIFY(outlinePicture({}, {0, 0, 9, 9}, {100, 60}, 1, Qt::red).isNull());
    QVERIFY(outlinePicture(outline, {0, 0, 9, 0}, {100, 60}, 1, Qt::red).isNull());
  }
};

int main(int argc, char** argv) {
  return runWithTheme<OutlinePaintingTest>(argc, argv);
}

#include "outline_painting_test.moc"

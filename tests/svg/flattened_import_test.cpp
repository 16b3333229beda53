#include "support/document.h"
#include "support/fake_flattener.h"
#include "support/testing.h"
#include "svg/background_import.h"
#include "svg/svg_drop.h"
#include "svg/svg_import.h"

namespace quillery::test {
namespace {

const std::string kRelative = "<svg><path d=\"m1 1 l2 0 l0 2 z\"/></svg>";
const std::string kEmpty = "<svg><path d=\"M0 0 L1 1\" id=\"path7\"/></svg>";

struct FlattenedImportTest : ::testing::Test {
  Document d;
  std::shared_ptr<FakeFlattener> flattener = std::make_shared<FakeFlattener>();

  // A file that is flattened to this.
  fs::path drawing(const std::string& name, const std::string& pathData,
                   Artboard artboard = {{0, 0, 9, 9}, {}},
                   const std::vector<std::string>& notes = {}) {
    flattener->drawings[name] = flat(pathData, artboard, notes);
    return d.folder.write(name, name);
  }
  ImportOutcome import(const std::vector<fs::path>& files,
                       DrawingPlacement placement = DrawingPlacement::edges) {
    return importSVGFiles(d.manager, files, {.flattener = flattener, .placement = placement});
  }
  const Glyph& glyph(const std::string& name) const { return *d.manager.firstGlyphNamed(name); }
};

void expectBox(const Glyph& glyph, const Rect& box) {
  EXPECT_NEAR(glyph.boundingBox().x, box.x, 1e-9);
  EXPECT_NEAR(glyph.boundingBox().y, box.y, 1e-9);
  EXPECT_NEAR(glyph.boundingBox().width, box.width, 1e-9);
  EXPECT_NEAR(glyph.boundingBox().height, box.height, 1e-9);
}

TEST_F(FlattenedImportTest, HoldsThePathThatItDraws) {
  const auto outcome = import({drawing("A.png", "M10 0 L50 0 L50 100 Z", {{0, 0, 60, 100}, {}},
                                       {"it was traced", "an image was left out"}),
                               d.folder.write("b.svg", "?"), d.folder / "gone.svg"});
  EXPECT_EQ(outcome.imported, 1U);
  EXPECT_EQ(outcome.skipped, 2U);
  EXPECT_EQ(glyph("A").record().svgPath.view(), "M10 0 L50 0 L50 100 Z");
  EXPECT_EQ(glyph("A").character(), "A");
  expectBox(glyph("A"), {0, 0, 400, 1000});
  ASSERT_EQ(outcome.noted.size(), 3U);
  EXPECT_EQ(outcome.noted[2].reasons, "it could not be read");
  EXPECT_EQ(outcome.noted[0].reasons, "it was traced, an image was left out");
  EXPECT_EQ(outcome.noted[0].glyph, glyph("A").id());
  EXPECT_EQ(outcome.noted[1].reasons, "it is none");
  EXPECT_EQ(outcome.noted[1].glyph, Uuid());
  EXPECT_EQ(d.console.lines().size(), 1U) << "of the file that is not there";
}

TEST_F(FlattenedImportTest, TakesOverMetricsFromGlyphsThatHaveSome) {
  d.setGlyphs({makeGlyph("A", "Ä")});
  d.manager.editGlyph(glyph("A").id(), [](Glyph& g) { g.setLeftSideBearing(80); });
  importSVGFiles(d.manager, {d.folder.write("B.svg", kEmpty)});
  d.manager.editGlyph(glyph("B").id(), [](Glyph& g) { g.setUnicode(utf8("β")); });
  ASSERT_FALSE(std::isfinite(glyph("B").advanceWidth()));
  import({drawing("A.svg", "M0 0 L10 0 L10 100 Z"), drawing("B.svg", "M0 0 L10 0 L10 100 Z")});
  EXPECT_EQ(glyph("A").character(), "Ä");
  expectBox(glyph("A"), {30, 0, 100, 1000});
  EXPECT_EQ(glyph("B").character(), "β");
  expectBox(glyph("B"), {0, 0, 100, 1000});
  EXPECT_EQ(glyph("B").advanceWidth(), 200);
}

TEST_F(FlattenedImportTest, MakesTheArtboardTheEm) {
  d.manager.editFontInfo([](FontInfo& font) { font.descender = -200; });
  d.setGlyphs({makeGlyph("A", "Ä")});
  const auto place = [&](const Artboard& artboard) -> const Glyph& {
    import({drawing("A.svg", "M20 30 L60 30 L60 90 L20 90 Z", artboard)},
           DrawingPlacement::artboard);
    return glyph("A");
  };
  expectBox(place({{0, 0, 80, 100}, {}}), {200, -100, 400, 600});
  EXPECT_EQ(glyph("A").character(), "Ä");
  EXPECT_EQ(glyph("A").advanceWidth(), 800);
  EXPECT_NEAR(glyph("A").rightSideBearing(), 200, 1e-9);
  expectBox(place({{-10, 10, 160, 200}, {}}), {150, 400, 200, 300});
  EXPECT_EQ(glyph("A").scale(), 0.5);
  EXPECT_EQ(glyph("A").advanceWidth(), 800);
  expectBox(place({{0, 0, 80, 100}, 85}), {200, -50, 400, 600});
  // So close to 100 that a setter would take the difference for rounding.
  const double unit = 1000 / 100.05;
  expectBox(place({{0, 0, 80, 100.05}, 90}), {20 * unit, 0, 40 * unit, 60 * unit});
  EXPECT_EQ(glyph("A").advanceWidth(), 80 * unit);

  // Saved again in the same place and imported by its edges, it stands where it stood.
  const Rect stood = place({{-10, 10, 160, 200}, {}}).boundingBox();
  import({drawing("A.svg", "M20 30 L60 30 L60 90 L20 90 Z")});
  expectBox(glyph("A"), stood);
}

TEST_F(FlattenedImportTest, PlacesAnewWhenTheEmChangesMeanwhile) {
  startImport(d.manager, {drawing("A.svg", "M0 0 L10 0 L10 50 Z", {{0, 0, 20, 100}, 50})},
              {.flattener = flattener, .placement = DrawingPlacement::artboard});
  d.manager.editFontInfo([](FontInfo& font) { font.unitsPerEm = 2000; });
  d.desktop.runUntil([&] { return d.manager.imports().empty(); });
  expectBox(glyph("A"), {0, 0, 200, 1000});
  EXPECT_EQ(glyph("A").advanceWidth(), 400);
}

TEST_F(FlattenedImportTest, DrawingsThatHoldMoreStayNotedUntilTheyAreConverted) {
  const auto a = d.folder.write("a.svg", kRelative), b = d.folder.write("b.svg", kRelative);
  const auto c = d.folder.write("c.svg", "<svg><rect width=\"1\" height=\"1\"/></svg>");
  flattener->drawings[kRelative] =
      flat("M0 0 L1 0 L1 1 Z", {{0, 0, 1, 1}, {}}, {"a filter was left out"});
  const auto await = [&] { d.desktop.runUntil([&] { return d.manager.imports().empty(); }); };
  const auto noted = [&] {
    std::string names;
    for (const NotedDrawing& drawing : d.manager.notedDrawings())
      names += drawing.file.filename().string() + (drawing.glyph == Uuid() ? "-" : "+");
    return names;
  };
  d.desktop.openAnswer = {a, b, c,
                          d.folder.write("plain.svg", "<svg><path d=\"M0 0 L1 1\"/></svg>")};
  importSVG(d.manager);
  d.desktop.runPosted();
  await();
  EXPECT_EQ(noted(), "a.svg+b.svg+c.svg-");
  EXPECT_EQ(d.manager.notedDrawings()[0].reasons, "relative commands");

  SVGDropDelegate(d.manager).performDrop({a});
  await();
  EXPECT_EQ(noted(), "b.svg+c.svg-a.svg+")
      << "one note a file, and that by the name it was dropped under";

  HeardChanges heard(d.manager);
  ImportOutcome outcome;
  startImport(d.manager, {b, c}, {.flattener = flattener}, [&](const auto& o) { outcome = o; });
  await();
  EXPECT_EQ(outcome.noted.size(), 2U);
  EXPECT_EQ(noted(), "a.svg+b.svg+c.svg-") << "b lost a filter, c could not be converted";
  EXPECT_EQ(heard.kinds.back(), ProjectChange::What::imports);
  d.manager.newProject();
  EXPECT_EQ(noted(), "");
}

TEST_F(FlattenedImportTest, LeavesOutOnRequestWhatWouldKeepTheProjectFromBeingSaved) {
  const auto file = d.folder.write("A.svg", kEmpty);
  const auto huge =
      d.folder.write("B.svg", "<svg><path d=\"M0 0 L1" + std::string(400, '0') + " 0\"/></svg>");
  const auto outcome = importSVGFiles(d.manager, {file, huge}, {.leaveOutEmpty = true});
  EXPECT_EQ(outcome.skipped, 2U);
  EXPECT_EQ(outcome.noted[0].reasons, "no readable point");
  EXPECT_THAT(d.project().glyphs, IsEmpty());
  EXPECT_THAT(d.console.lines(), IsEmpty());
}

} // namespace
} // namespace quillery::test

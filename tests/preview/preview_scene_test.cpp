#include "preview/preview_scene.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using Effect = PreviewScene::Effect;

Glyph drawn(const char* name, std::optional<std::string> unicode, double advance) {
  Glyph glyph = makeGlyph(name, std::move(unicode), advance);
  const Outline outline{PathCommand::moveTo({0, -200}), PathCommand::lineTo({advance, 700}),
                        PathCommand::closePath()};
  glyph.placeOutline(outline, controlBox(outline));
  return glyph;
}

// A scene of glyphs A, V, B and .notdef at 100 points, 100 points to the line, that hears of every
// change of the project once a turn.
struct SceneTest : ::testing::Test {
  SceneTest() {
    d.setGlyphs({drawn(".notdef", std::nullopt, 300), drawn("A", "A", 600), drawn("B", "B", 500),
                 drawn("V", "V", 600), drawn("X", "X", 400)});
    d.manager.editFontInfo([](FontInfo& font) { font.lineGap = 0; });
    d.manager.editKerningList([](auto& pairs) {
      pairs = {makePair("A", "V", -80), makePair("A", "V", 500), makePair("X", "X", 5)};
    });
    scene.setFontSize(100);
    watch.catchUp();
  }

  Uuid glyph(const char* name) const { return d.manager.firstGlyphNamed(name)->id(); }
  Effect afterEdit(const char* name, const std::function<void(Glyph&)>& edit) {
    scene.layout();
    d.manager.editGlyph(glyph(name), edit);
    return afterTurn();
  }
  Effect afterKerning(std::size_t pair, double value) {
    scene.layout();
    d.manager.setKerningValue(d.project().kerningPairs[pair].id, finite(value));
    return afterTurn();
  }
  Effect afterTurn() {
    effect = Effect::nothing;
    watch.catchUp();
    return effect;
  }
  Rect bounds() { return scene.hoveredBounds().value_or(Rect{}); }
  void expectUpToDate(const char* after) {
    watch.catchUp();
    const TextLayout fresh = layoutText(scene.text(), d.project(), GlyphIndex(d.project().glyphs),
                                        KerningIndex(d.project().kerningPairs), scene.fontSize());
    const TextLayout& kept = scene.layout();
    EXPECT_EQ(kept.contentSize, fresh.contentSize) << after;
    EXPECT_EQ(characterInfos(kept, d.project()), characterInfos(fresh, d.project())) << after;
    EXPECT_EQ(characterPairInfos(kept, d.project()), characterPairInfos(fresh, d.project()))
        << after;
  }

  Document d;
  PreviewScene scene{d.manager};
  Effect effect = Effect::nothing;
  using What = ProjectChange::What;
  ProjectWatch watch{
      d.manager,
      {{What::fontInfo, What::glyphList, What::glyphs, What::kerningList, What::kerningPair,
        What::selection}},
      [this](const ProjectChanges& changes) { effect = scene.projectChanged(changes); }};
};

TEST_F(SceneTest, DoesNoMoreAfterAChangeThanTheTextNeeds) {
  scene.setText("AV B");
  const auto move = [](Glyph& glyph) { glyph.setVerticalOffset(30); };
  const auto widen = [](Glyph& glyph) { glyph.setAdvanceWidth(777); };
  EXPECT_EQ(afterEdit("A", move), Effect::picture);
  EXPECT_EQ(afterEdit("A", widen), Effect::layout);
  expectUpToDate("advance");
  EXPECT_EQ(afterEdit("X", move), Effect::nothing);
  EXPECT_EQ(afterEdit("X", widen), Effect::nothing);
  EXPECT_EQ(afterEdit("X", [](Glyph& glyph) { glyph.setUnicode(Utf8("q")); }), Effect::nothing);
  EXPECT_EQ(afterEdit("X", [](Glyph& glyph) { glyph.setUnicode(Utf8("B")); }), Effect::layout);
  expectUpToDate("a character taken over");
  EXPECT_EQ(afterEdit("B", [](Glyph& glyph) { glyph.setUnicode(Utf8("A")); }), Effect::layout);
  expectUpToDate("a character given up for another");
  EXPECT_EQ(afterEdit("B", [](Glyph& glyph) { glyph.setUnicode(std::nullopt); }), Effect::layout);
  expectUpToDate("a character given up");

  EXPECT_EQ(afterKerning(0, -100), Effect::layout);
  expectUpToDate("kerning");
  EXPECT_EQ(afterKerning(2, 99), Effect::nothing);
  scene.setText("XX");
  expectUpToDate("a pair changed while no text used it");
  scene.setText("AV");
  afterKerning(1, 9);
  expectUpToDate("a pair changed that an earlier one hides");

  d.manager.editFontInfo([](FontInfo& font) { font.name = "Other"; });
  EXPECT_EQ(afterTurn(), Effect::nothing);
  d.manager.editFontInfo([](FontInfo& font) { font.unitsPerEm = 2000; });
  EXPECT_EQ(afterTurn(), Effect::layout);
  d.manager.selectAllGlyphs();
  EXPECT_EQ(afterTurn(), Effect::nothing);
  d.manager.deleteGlyph(glyph("A"));
  expectUpToDate("a glyph gone");
  d.manager.newProject();
  expectUpToDate("another project");
}

TEST_F(SceneTest, ForgetsTheHoveredItemWithTheTextAndTheModeOnly) {
  scene.setText("AVB");
  EXPECT_FALSE(scene.hover({30, 30})); // no mode, nothing to pick
  scene.setMode(PreviewMode::kerning);
  EXPECT_TRUE(scene.hover({30, 30}));
  EXPECT_FALSE(scene.hover({40, 30}));
  ASSERT_TRUE(scene.hoveredPair());
  EXPECT_TRUE(scene.hoveredPairExists());
  afterKerning(0, -100);
  scene.setFontSize(200);
  EXPECT_EQ(bounds(), (Rect{20, 20, 220, 200}));
  d.manager.deleteGlyph(glyph("V")); // A and .notdef now
  watch.catchUp();
  EXPECT_FALSE(scene.hoveredPair());
  scene.setMode(PreviewMode::glyphs);
  EXPECT_TRUE(scene.hover({30, 30}));
  EXPECT_EQ(scene.hoveredGlyph()->glyphName, "A");
  scene.setText("A");
  EXPECT_FALSE(scene.hovered());
  scene.hover({30, 30});
  scene.setMode(PreviewMode::none);
  EXPECT_FALSE(scene.hoveredBounds());
}

TEST_F(SceneTest, FindsWhatHitTestingTheWholeListFinds) {
  std::mt19937 random(7);
  const auto pick = [&](std::initializer_list<double> values) {
    return values.begin()[random() % values.size()];
  };
  for (int round = 0; round < 60; ++round) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += "AVBX \n?"[random() % 7];
    scene.setText(text);
    scene.setFontSize(pick({0.5, 12, 48, 144}));
    d.manager.editFontInfo([&](FontInfo& font) {
      font.ascender = pick({800, 0, -300, 1e9});
      font.descender = pick({-200, 0, 500, -1e9, kNan});
      font.unitsPerEm = static_cast<std::int64_t>(pick({1000, 1000, 1000, 1, 0}));
    });
    for (const char* name : {"A", "V", "B"})
      d.manager.editGlyph(glyph(name), [&](Glyph& g) {
        g.setAdvanceWidth(pick({0, 1, 600, 600, -250, 1e308}));
      });
    watch.catchUp();
    for (const auto mode : {PreviewMode::glyphs, PreviewMode::kerning}) {
      scene.setMode(mode);
      const auto glyphs = characterInfos(scene.layout(), d.project());
      const auto pairs = characterPairInfos(scene.layout(), d.project());
      for (int i = 0; i < 50; ++i) {
        const Point point{static_cast<double>(random() % 900) / 2,
                          static_cast<double>(random() % 900) / 2 - 100};
        scene.hover(point);
        const auto place = [&](const auto& all) {
          const auto hit = std::find_if(all.begin(), all.end(), [&](const auto& info) {
            return info.bounds.contains(point);
          });
          return hit == all.end() ? std::nullopt : std::optional<std::size_t>(hit - all.begin());
        };
        ASSERT_EQ(scene.hovered(), mode == PreviewMode::glyphs ? place(glyphs) : place(pairs))
            << round << ": " << point.x << ", " << point.y;
      }
    }
  }
}

TEST_F(SceneTest, DrawsWhatReachesIntoAnAreaAtTheSamePlaceAsTheWholeText) {
  scene.setText("AVB\n\nVXA");
  const auto names = [&](const Rect& area) {
    std::string result;
    for (const auto& [glyph, origin] : scene.glyphsIn(area)) result += glyph->name();
    return result;
  };
  EXPECT_EQ(names({0, 0, 1000, 1000}), "AVBVXA");
  EXPECT_EQ(names({0, 0, 1000, 60}), "AVB");
  EXPECT_EQ(names({0, 250, 1000, 30}), "VXA");
  EXPECT_EQ(names({74, 50, 2, 10}), "AV"); // their ink overlaps
  EXPECT_EQ(scene.glyphsIn({0, 0, 1000, 60})[1].origin, (Point{72, 100}));
  d.manager.editFontInfo([](FontInfo& font) { font.unitsPerEm = 0; });
  watch.catchUp();
  EXPECT_EQ(names({0, 0, 1000, 1000}), "");
}

} // namespace
} // namespace quillery::test

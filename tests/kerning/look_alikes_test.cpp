#include "kerning/look_alikes.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

struct LookAlikesTest : ::testing::Test {
  // An edge of points from the bottom up on the right, straight on the left; and an accent above.
  Glyph drawn(const char* name, const char* character, std::vector<Point> edge,
              double advance = 600, double left = 50, bool accent = false) {
    Glyph glyph = makeGlyph(name, character);
    std::vector<PathCommand> path = {PathCommand::moveTo({left, edge.front().y})};
    for (const Point& point : edge) path.push_back(PathCommand::lineTo(point));
    path.push_back(PathCommand::lineTo({left, edge.back().y}));
    path.push_back(PathCommand::closePath());
    if (accent)
      for (const Point& point : {Point{250, 750}, {350, 750}, {350, 850}})
        path.push_back(path.size() % 100 == 0 || path.back().kind == PathCommand::Kind::closePath
                           ? PathCommand::moveTo(point)
                           : PathCommand::lineTo(point));
    glyph.placeOutline(Outline(path), {left, 0, advance - left, accent ? 850.0 : 700.0});
    GlyphPlacement placement = glyph.placement();
    placement.advanceWidth = advance;
    glyph.restore(placement);
    return glyph;
  }

  LookAlikesTest() {
    const std::vector<Point> slope = {{580, 0}, {350, 700}}, wall = {{550, 0}, {550, 700}};
    d.setGlyphs({drawn("A", "A", slope), drawn("Aacute", "Á", slope, 600, 50, true),
                 drawn("A.alt", "", {{586, 0}, {352, 700}}),
                 drawn("Agrave", "À", {{592, 0}, {360, 700}}), drawn("H", "H", wall),
                 drawn("M", "M", {{750, 0}, {750, 700}}, 800),
                 drawn("R", "R", {{550, 0}, {550, 690}, {560, 700}}), makeGlyph("space", " "),
                 drawn("low", "x", {{550, 0}, {550, 300}})});
  }

  std::string alike(const char* name, PairEdge edge) {
    std::string names;
    for (const Uuid& id : lookAlikes(d.manager, d.manager.firstGlyphNamed(name)->id(), edge))
      names += (names.empty() ? "" : " ") + d.manager.glyphWithId(id)->name();
    return names;
  }

  Document d;
};

TEST_F(LookAlikesTest, EdgesAreAlikeByTheirOutlines) {
  EXPECT_EQ(alike("A", PairEdge::right), "A Aacute A.alt Agrave");
  EXPECT_EQ(alike("A.alt", PairEdge::right), "A.alt A Aacute Agrave")
      << "a little off either, and not too much for strangers";
  EXPECT_EQ(alike("H", PairEdge::right), "H M R")
      << "whatever the advance; a short edge is another";
  EXPECT_EQ(alike("low", PairEdge::right), "low H M R") << "all of it is in theirs";
  EXPECT_EQ(alike("space", PairEdge::left), "space");
  EXPECT_EQ(lookAlikes(d.manager, Uuid::random(), PairEdge::left).size(), 0U);
}

TEST_F(LookAlikesTest, PairsOfThemAreKernedInOneStep) {
  const auto id = [&](const char* name) { return d.manager.firstGlyphNamed(name)->id(); };
  d.manager.editKerningList([](auto& pairs) {
    pairs = {makePair("A", "H", -40), makePair("A", "M", 0), makePair("gone", "H", 3)};
  });
  const auto before = d.project().kerningPairs;
  const std::vector<Uuid> lefts = {id("A"), id("Aacute")}, rights = {id("H"), id("M")};
  const auto pairs = unkernedPairs(d.manager, lefts, rights);
  EXPECT_EQ(pairs.size(), 3U) << "A H has a value that somebody gave it";
  kernAlike(d.manager, pairs, -25);
  EXPECT_EQ(d.project().kerningPairs.size(), 5U);
  EXPECT_EQ(d.manager.firstKerningPair("A", "H")->value, -40);
  EXPECT_EQ(d.manager.firstKerningPair("A", "M")->value, -25);
  EXPECT_EQ(d.manager.firstKerningPair("Aacute", "M")->value, -25);
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "Kern 3 Pairs");
  const auto after = d.project().kerningPairs;
  d.manager.undo();
  EXPECT_EQ(d.project().kerningPairs, before);
  d.manager.redo();
  EXPECT_EQ(d.project().kerningPairs, after);
}

} // namespace
} // namespace quillery::test

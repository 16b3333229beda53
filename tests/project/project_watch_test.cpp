#include "project/project_watch.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using What = ProjectChange::What;

struct Watched : Document {
  Watched() {
    setGlyphs({makeGlyph("A"), makeGlyph("B")});
    manager.editKerningList([](auto& pairs) { pairs = {makePair("A", "B"), makePair("B", "A")}; });
  }
  const Uuid& glyph(std::size_t i) const { return project().glyphs[i].id(); }
  const Uuid& pair(std::size_t i) const { return project().kerningPairs[i].id; }
  void widen(std::size_t i) {
    manager.editGlyph(glyph(i), [](Glyph& g) { g.setAdvanceWidth(g.advanceWidth() + 1); });
  }
};

TEST(ProjectWatch, RefreshesOnceATurnAndOnlyForWhatTheViewShows) {
  Watched d;
  std::vector<ProjectChanges> refreshes;
  ProjectWatch watch(d.manager,
                     {{What::glyphs, What::kerningPair, What::selection},
                      [shown = d.glyph(0)](const Uuid& id) { return id == shown; },
                      [shown = d.pair(1)](const Uuid& id) { return id == shown; }},
                     [&](const ProjectChanges& changes) { refreshes.push_back(changes); });
  d.widen(1);
  d.manager.setKerningValue(d.pair(0), 5);
  d.manager.setSelectedTab(1);
  d.desktop.runPosted();
  EXPECT_THAT(refreshes, IsEmpty());

  d.widen(0);
  d.widen(0);
  d.widen(1);
  d.manager.setKerningValue(d.pair(1), 5);
  d.desktop.runPosted();
  ASSERT_EQ(refreshes.size(), 1U);
  EXPECT_TRUE(refreshes[0].hasGlyph(d.glyph(0)) && refreshes[0].hasPair(d.pair(1)));
  EXPECT_FALSE(refreshes[0].hasGlyph(d.glyph(1)) || refreshes[0].hasPair(d.pair(0)));
  EXPECT_FALSE(refreshes[0].has(What::selection) || refreshes[0].everything());

  d.manager.clearSelection();
  d.manager.selectGlyph(d.glyph(0));
  watch.catchUp();
  EXPECT_EQ(refreshes.size(), 2U);
  d.desktop.runPosted(); // nothing is left of the turn
  EXPECT_EQ(refreshes.size(), 2U);
}

} // namespace
} // namespace quillery::test

#include "project/normalization.h"
#include "project/project_manager.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using What = ProjectChange::What;

TEST(Normalization, ComposesAndTruncatesCharactersAndSaysSo) {
  // The character before and after, and what is said of it.
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"A", "A", ""},
      {"AB", "A", "Truncated 'x': multi-char to 'A'"},
      {"A\u0308b", "\u00C4b", "Normalized 'x': U+0041 U+0308 U+0062 -> U+00C4 U+0062"},
      {"\u0958", "\u0915\u093C", "Normalized 'x': U+0958 -> U+0915 U+093C"},
      {"\u212B", "\u212B", ""},
      {"\u212Bb", "\u00C5", "Truncated 'x': multi-char to '\u00C5'"},
      {"🇩🇪🇫🇷", "🇩🇪", "Truncated 'x': multi-char to '🇩🇪'"},
      {"\r\n", "\r\n", ""},
      {"", "", ""}};
  for (const auto& [before, after, said] : rows) {
    ConsoleCapture console;
    FontProject project;
    project.glyphs = {makeGlyph("x", before), makeGlyph("A")};
    normalizeGlyphCharacters(project);
    EXPECT_EQ(project.glyphs[0].unicode(), after);
    EXPECT_EQ(project.glyphs[1].unicode(), std::nullopt);
    EXPECT_THAT(console.text(), ::testing::HasSubstr(said));
    EXPECT_EQ(console.lines().size(), *said == 0 ? 2U : *said == 'N' ? 4U : 3U) << before;
  }
}

// A document of the glyphs A, B, C and D, with their ids.
struct FourGlyphs : Document {
  FourGlyphs() {
    std::vector<Glyph> glyphs;
    for (const char* name : {"A", "B", "C", "D"}) {
      glyphs.push_back(makeGlyph(name));
      ids.push_back(glyphs.back().id());
    }
    setGlyphs(std::move(glyphs));
  }

  // The names of the selected glyphs, then the anchor's after a colon.
  std::string selection() const {
    const auto name = [&](const Uuid& id) {
      return manager.glyphWithId(id) ? manager.glyphWithId(id)->name().str() : "?";
    };
    std::string names;
    for (const Uuid& id : manager.selectedGlyphIds()) names += name(id);
    std::sort(names.begin(), names.end());
    return names + ":" +
           (manager.lastSelectedGlyphId() ? name(*manager.lastSelectedGlyphId()) : "");
  }

  std::vector<Uuid> ids;
};

TEST(Selection, FollowsClicks) {
  FourGlyphs d;
  // A letter per click: the glyph, with + for shift and ^ for command before it; 0 clears.
  const std::pair<const char*, const char*> rows[] = {
      {"A", "A:A"},         {"A +D", "ABCD:D"}, {"A +D +B", "ABCD:B"},   {"D +B", "BCD:B"},
      {"+C", "C:C"},        {"A ^C", "AC:C"},   {"A ^C ^C", "A:C"},      {"^A ^A", ":A"},
      {"A ^D +C", "ACD:C"}, {"A ^+D", "AD:D"},  {"B ^D ^D +C", "BCD:C"}, {"A +D C", "C:C"},
      {"B 0 +D", "D:D"},    {"B 0", ":"},       {"B +B", "B:B"}};
  for (const auto& [clicks, expected] : rows) {
    d.manager.clearSelection();
    ProjectManager::ClickModifiers modifiers;
    for (const char c : std::string_view(clicks)) {
      if (c == '+')
        modifiers.shift = true;
      else if (c == '^')
        modifiers.command = true;
      else if (c == '0')
        d.manager.clearSelection();
      else if (c != ' ') {
        d.manager.clickGlyph(d.ids[static_cast<std::size_t>(c - 'A')], modifiers, d.ids);
        modifiers = {};
      }
    }
    EXPECT_EQ(d.selection(), expected) << clicks;
  }
}

TEST(Selection, TakesRangesInTheDisplayedOrderAndAllInTheStoredOne) {
  FourGlyphs d;
  const std::vector<Uuid> displayed = {d.ids[2], d.ids[0], d.ids[3]};
  d.manager.selectGlyphRange(d.ids[2], d.ids[0], displayed);
  EXPECT_EQ(d.selection(), "AC:A");
  d.manager.selectGlyphRange(d.ids[0], d.ids[1], displayed); // B is not shown
  d.manager.selectGlyphRange(d.ids[1], d.ids[0], displayed);
  EXPECT_EQ(d.selection(), "AC:A");
  d.manager.selectAllGlyphs();
  EXPECT_EQ(d.selection(), "ABCD:D");
  d.setGlyphs({});
  d.manager.selectAllGlyphs();
  EXPECT_EQ(d.selection(), ":");
}

TEST(Deletion, OfTheSelectionIsOneStepWithoutRedo) {
  FourGlyphs d;
  d.manager.editKerningList([](auto& pairs) { pairs = {makePair("A", "D")}; });
  const FontProject before = d.project();
  for (const std::size_t i : {3U, 0U, 1U}) d.manager.toggleGlyphSelection(d.ids[i]);
  const HeardChanges heard(d.manager);
  d.manager.deleteSelectedGlyphs();
  EXPECT_EQ(glyphNames(d.project()), "C");
  EXPECT_EQ(d.project().kerningPairs, before.kerningPairs);
  EXPECT_EQ(d.selection(), ":?") << "the anchor stays";
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "Delete 3 Glyphs");
  EXPECT_THAT(heard.kinds, ElementsAre(What::glyphList, What::selection));
  d.manager.undo();
  EXPECT_EQ(d.project(), before);
  EXPECT_EQ(d.selection(), "ABD:B");
  EXPECT_EQ(heard.kinds.back(), What::everything);
  EXPECT_FALSE(d.manager.undoManager().canRedo() || d.manager.undoManager().canUndo());
}

TEST(Deletion, CountsSelectedIdsAndSortsOnUndo) {
  FourGlyphs d;
  d.manager.deleteSelectedGlyphs();
  EXPECT_FALSE(d.manager.undoManager().canUndo());
  d.setGlyphs({makeGlyph("b"), makeGlyph("a", "first"), makeGlyph("B"), makeGlyph("a", "second")});
  d.manager.selectGlyph(d.project().glyphs[1].id());
  d.manager.toggleGlyphSelection(Uuid::random());
  d.manager.deleteSelectedGlyphs();
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "Delete 2 Glyphs");
  d.manager.undo();
  EXPECT_EQ(glyphNames(d.project()), "B a a b");
  EXPECT_EQ(d.project().glyphs[1].unicode(), "second") << "what was put back comes last";
  d.manager.selectGlyph(d.project().glyphs[0].id());
  d.manager.deleteGlyph(d.project().glyphs[3].id());
  EXPECT_EQ(glyphNames(d.project()), "B a a");
  EXPECT_EQ(d.selection(), "B:B");
  EXPECT_FALSE(d.manager.undoManager().canUndo());
}

// Look-ups answer as a search of the list does, whatever edits came before.
TEST(LookUps, FollowEveryEdit) {
  Document d;
  std::mt19937 random(6);
  const std::string names[] = {"A", "B", "a", ".notdef"};
  const std::optional<std::string> texts[] = {"A", "B", "\u00C4", "A\u0308", std::nullopt};
  for (int i = 0; i < 2000; ++i) {
    const auto& glyphs = d.project().glyphs;
    const auto what = glyphs.empty() ? 0 : random() % 5;
    if (what == 0)
      d.manager.editGlyphList(
          [&](auto& list) { list.push_back(makeGlyph(names[random() % 4], texts[random() % 5])); });
    else if (what == 3)
      d.manager.undo();
    else {
      const Uuid id = glyphs[random() % glyphs.size()].id();
      if (what == 1) d.manager.deleteGlyph(id);
      if (what == 2) d.manager.toggleGlyphSelection(id), d.manager.deleteSelectedGlyphs();
      if (what == 4)
        d.manager.editGlyph(
            id, [&](Glyph& g) { g.setUnicode(makeGlyph("", texts[random() % 5]).unicode()); });
    }
    for (const Glyph& glyph : glyphs) ASSERT_EQ(d.manager.glyphWithId(glyph.id()), &glyph);
    for (const std::string& name : names) {
      const auto first = std::ranges::find(glyphs, name, &Glyph::name);
      ASSERT_EQ(d.manager.firstGlyphNamed(name), first == glyphs.end() ? nullptr : &*first);
    }
    for (const auto& text : texts) {
      if (!text) continue;
      const auto last = std::find_if(glyphs.rbegin(), glyphs.rend(),
                                     [&](const Glyph& g) { return g.unicode() == text; });
      ASSERT_EQ(d.manager.glyphForCharacter(*text), last == glyphs.rend() ? nullptr : &*last);
    }
  }
  EXPECT_EQ(d.manager.glyphWithId(Uuid::random()), nullptr);
}

} // namespace
} // namespace quillery::test

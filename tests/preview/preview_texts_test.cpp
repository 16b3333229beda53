#include "base/unicode.h"
#include "preview/available_characters.h"
#include "preview/text_presets.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(TextPresets, HoldEveryCharacterOfTheirRanges) {
  for (const auto& [preset, first, last] :
       {std::tuple{9U, U' ', U'~'}, std::tuple{10U, U'\x80', U'\xFF'}}) {
    const auto characters = scalars(textPresets().at(preset).text);
    EXPECT_EQ(characters.size(), last - first + 1U) << preset;
    EXPECT_EQ(characters.front(), first) << preset;
    EXPECT_EQ(characters.back(), last) << preset;
  }
}

TEST(AvailableCharacters, FollowTheGlyphsButNotTheirMetrics) {
  Document d;
  AvailableCharacters characters(d.manager);
  int changes = 0;
  ProjectWatch watch(
      d.manager, {{ProjectChange::What::glyphs, ProjectChange::What::glyphList}},
      [&](const ProjectChanges& heard) { changes += characters.projectChanged(heard) ? 1 : 0; });
  EXPECT_EQ(availableCharacters(d.project()), "");
  d.setGlyphs({makeGlyph("B", "B"), makeGlyph("none"), makeGlyph("A", "A")});
  watch.catchUp();
  EXPECT_EQ(availableCharacters(d.project()), "B A");
  EXPECT_THAT(characters.list(), ElementsAre("B", "A"));

  const Uuid id = d.project().glyphs[1].id();
  d.manager.editGlyph(id, [](Glyph& glyph) { glyph.setAdvanceWidth(1); });
  watch.catchUp();
  EXPECT_EQ(changes, 1);
  d.manager.editGlyph(id, [](Glyph& glyph) { glyph.setUnicode(Utf8("C")); });
  watch.catchUp();
  EXPECT_EQ(changes, 2);
  EXPECT_THAT(characters.list(), ElementsAre("B", "C", "A"));
}

} // namespace
} // namespace quillery::test

#include "base/unicode.h"
#include "preview/available_characters.h"
#include "preview/text_presets.h"
#include "support/document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillery::test {
namespace {

using ::testing::ElementsAre;

TEST(TextPresets, HoldEveryCharacterOfTheirRanges) {
  const auto& presets = textPresets();
  ASSERT_EQ(presets.size(), 11U);
  EXPECT_EQ(presets[8].text, "0123456789 \u0024\u20AC\u00A3\u00A5\n.,;:!?'\"()[]{}");
  for (const auto& [preset, name, first, last] :
       {std::tuple{9, "ASCII", U' ', U'~'}, std::tuple{10, "ASCII Extended", U'\x80', U'\xFF'}}) {
    const TextPreset& shown = presets[static_cast<std::size_t>(preset)];
    const auto characters = scalars(shown.text);
    EXPECT_EQ(shown.name, name);
    EXPECT_EQ(characters.size(), last - first + 1U) << name;
    EXPECT_EQ(characters.front(), first) << name;
    EXPECT_EQ(characters.back(), last) << name;
  }
}

TEST(AvailableCharacters, FollowTheGlyphsButNotTheirMetrics) {
  Document d;
  AvailableCharacters characters(d.manager);
  EXPECT_EQ(availableCharacters(d.project()), "");
  d.setGlyphs({makeGlyph("B", "B"), makeGlyph("none"), makeGlyph("A", "A")});
  EXPECT_TRUE(characters.projectChanged({ProjectChange::What::glyphList}));
  EXPECT_EQ(availableCharacters(d.project()), "B A");
  EXPECT_THAT(characters.list(), ElementsAre("B", "A"));

  const Uuid id = d.project().glyphs[1].id();
  const ProjectChange change{ProjectChange::What::glyph, id};
  d.manager.editGlyph(id, [](Glyph& glyph) { glyph.setAdvanceWidth(1); });
  EXPECT_FALSE(characters.projectChanged(change));
  d.manager.editGlyph(id, [](Glyph& glyph) { glyph.setUnicode("C"); });
  EXPECT_TRUE(characters.projectChanged(change));
  EXPECT_THAT(characters.list(), ElementsAre("B", "C", "A"));
}

} // namespace
} // namespace quillery::test

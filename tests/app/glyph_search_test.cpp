#include "app/displayed_glyphs.h"
#include "app/glyph_search.h"
#include "kerning/kerning_pairs.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(GlyphSearch, FindsByNameCharacterCodeAndWhatIsTheMatter) {
  Document d;
  d.manager.editGlyphList([](std::vector<Glyph>& glyphs) {
    glyphs = {makeGlyph("A", "A"),     makeGlyph("eacute", "é"),   makeGlyph("E9", "9"),
              makeGlyph("space", " "), makeGlyph("emptyset", "∅"), makeGlyph(".notdef")};
    GlyphRecord drawn;
    drawn.id = Uuid::random();
    drawn.name = utf8("Ö.alt");
    drawn.fontPath = {PathCommand::moveTo({0, 0}), PathCommand::lineTo({9, 9})};
    drawn.boundingBox = {0, 0, 9, 9};
    glyphs.push_back(Glyph(drawn));
  });
  addKerningPair(d.manager, utf8("A"), utf8("eacute"));
  const auto found = [&](std::string_view text) {
    const GlyphSearch search(d.manager, text);
    std::string names;
    for (const Glyph& glyph : d.project().glyphs)
      if (search.fits(glyph)) names += (names.empty() ? "" : " ") + glyph.name();
    return names;
  };
  const std::pair<const char*, const char*> rows[] = {{"EACUTE", "eacute"},
                                                      {"é", "eacute"},
                                                      {"É", "eacute"},
                                                      {"e9", "eacute E9"},
                                                      {"U+00E9", "eacute"},
                                                      {"u+2205", "emptyset"},
                                                      {"  e c ", "eacute space"},
                                                      {"ö", "Ö.alt"},
                                                      {"9", "E9"},
                                                      {"u+", ""},
                                                      {"U+FFFFFFFFFF", ""},
                                                      {"unkerned 9", "E9"},
                                                      {"zebra", ""}};
  for (const auto& [text, names] : rows) EXPECT_EQ(found(text), names) << text;
  EXPECT_TRUE(found("empty").find("Ö") == std::string::npos);
  EXPECT_EQ(found("unkerned").find("eacute"), std::string::npos);
  EXPECT_TRUE(GlyphSearch(d.manager, " \t ").empty());
  // Saved, all is as the file holds it but for what is edited.
  ASSERT_TRUE(d.manager.saveProjectTo(d.folder / "x.fontproj").ok());
  EXPECT_EQ(found("changed"), "");
  d.manager.editGlyph(d.project().glyphs[1].id(), [](Glyph& g) { g.setAdvanceWidth(777); });
  EXPECT_EQ(found("changed"), "eacute");
}

TEST(DisplayedGlyphs, FindsTypedLettersAmongThoseShownOnly) {
  const std::vector<Glyph> glyphs = {makeGlyph("exclam", "!"), makeGlyph("a10"),
                                     makeGlyph("A", "A"), makeGlyph("a9")};
  DisplayedGlyphs displayed;
  displayed.place(glyphs, GlyphSortOrder::name);
  const auto nameAt = [&](std::optional<std::size_t> card) -> std::string {
    for (const Glyph& glyph : glyphs)
      if (card && glyph.id() == displayed[*card]) return glyph.name();
    return {};
  };
  EXPECT_EQ(nameAt(displayed.find("!")), "exclam");
  EXPECT_EQ(nameAt(displayed.find("a")), "A");
  EXPECT_EQ(nameAt(displayed.find("A1")), "a10");
  displayed.show(glyphs, [](const Glyph& glyph) { return glyph.name() != "A"; });
  EXPECT_EQ(displayed.count(), 3U);
  EXPECT_EQ(nameAt(displayed.find("a")), "a9");
  EXPECT_EQ(displayed.cardOf(glyphs[2].id()), std::nullopt);
  // What is left out counts when the order is looked at.
  EXPECT_TRUE(displayed.stands(glyphs));
  EXPECT_FALSE(displayed.stands({glyphs.begin() + 1, glyphs.end()}));
}

} // namespace
} // namespace quillery::test

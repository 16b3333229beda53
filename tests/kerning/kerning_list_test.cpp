#include "kerning/glyph_name_search.h"
#include "kerning/kerning_list.h"
#include "kerning/kerning_pairs.h"
#include "project/kerning_index.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using Update = KerningList::Update;

std::string randomName(std::mt19937& random) {
  static const char* const kPieces[] = {"A", "a",  "V", "v", "é", "e\u0301",
                                        "É", "ch", "c", "ß", "."};
  std::string name;
  for (auto pieces = 1 + random() % 3; pieces > 0; --pieces)
    name += kPieces[random() % std::size(kPieces)];
  return name;
}

std::vector<Uuid> ids(const KerningList& list) {
  std::vector<Uuid> result;
  for (std::size_t row = 0; row < list.size(); ++row) result.push_back(list.id(row));
  return result;
}

TEST(KerningList, ShowsWhatFilteringTheProjectFinds) {
  std::mt19937 random(7);
  FontProject project;
  for (int i = 0; i < 300; ++i)
    project.kerningPairs.push_back(makePair(randomName(random), randomName(random), i));
  KerningList list;
  list.setFilter("e");
  EXPECT_EQ(list.follow(project), Update::rows);
  // Typed, extended, taken back, and changed in ways that are no extension.
  for (const char* text :
       {"e", "e\u0301", "e", "", "c", "ch", "chA", "A", "av", "AV", "é", "zz", ""}) {
    list.setFilter(text);
    std::vector<Uuid> expected;
    for (const KerningPair* pair : filteredKerningPairs(project, text))
      expected.push_back(pair->id);
    EXPECT_EQ(ids(list), expected) << text;
  }
  const KerningIndex index(project.kerningPairs);
  for (std::size_t row = 0; row < list.size(); ++row) {
    const KerningPair* pair = &project.kerningPairs[*index.withId(list.id(row))];
    EXPECT_EQ(list.leftGlyph(row) + list.rightGlyph(row), pair->leftGlyph + pair->rightGlyph);
    EXPECT_EQ(list.rowOf(pair->id), row);
  }
}

TEST(KerningList, FollowsEditsWithoutSortingForValues) {
  FontProject project;
  project.kerningPairs = {makePair("V", "A", 1), makePair("A", "V", 2), makePair("T", "o", 3)};
  auto& pairs = project.kerningPairs;
  KerningList list;
  list.follow(project);
  EXPECT_EQ(list.follow(project), Update::nothing);
  pairs[0].value = 5;
  EXPECT_EQ(list.followValue(pairs[0]), 2U);
  EXPECT_EQ(list.value(2), 5);
  EXPECT_EQ(list.follow(project), Update::nothing);
  pairs[1].value = 6;
  EXPECT_EQ(list.follow(project), Update::values);
  EXPECT_EQ(list.value(0), 6);

  list.setFilter("t");
  EXPECT_EQ(list.rowOf(pairs[1].id), std::nullopt);
  EXPECT_EQ(list.followValue(pairs[1]), std::nullopt) << "hidden";
  EXPECT_TRUE(list.contains(pairs[1].id));
  EXPECT_FALSE(list.setFilter("T")) << "the same rows";

  pairs.push_back(makePair("A", "T"));
  EXPECT_EQ(list.follow(project), Update::rows);
  EXPECT_THAT(ids(list), ElementsAre(pairs[3].id, pairs[2].id));
  pairs[2].rightGlyph = "a";
  EXPECT_EQ(list.follow(project), Update::rows) << "another name";
  std::swap(pairs[2].id, pairs[1].id);
  EXPECT_EQ(list.follow(project), Update::rows) << "another id";
  pairs.clear();
  list.follow(project);
  EXPECT_EQ(list.size(), 0U);
}

TEST(KerningText, IsWholeWithItsSign) {
  const std::pair<double, const char*> rows[] = {{0, "+0"},    {-80, "-80"}, {25.4, "+25"},
                                                 {-0.2, "-0"}, {2.5, "+2"},  {200, "+200"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(kerningText(value), text);
  EXPECT_EQ(kerningText(-std::numeric_limits<double>::max()).size(), 310U);
}

GlyphNameSearch::Glyphs glyphsOf(const FontProject& project) {
  return std::make_shared<const std::vector<NamedGlyph>>(sortedGlyphNames(project));
}

TEST(GlyphNameSearch, FindsNamesInTheirOrder) {
  FontProject project;
  for (const char* name : {"b", "Aring", "a", "V", "comma", "a"})
    project.glyphs.push_back(makeGlyph(name));
  GlyphNameSearch search(glyphsOf(project));
  const auto found = [&](const char* text) {
    search.setText(text);
    std::string result;
    for (std::size_t i = 0; i < search.size(); ++i) result += search[i].name + " ";
    return result;
  };
  EXPECT_EQ(search.size(), 5U);
  EXPECT_EQ(found("a"), "Aring a comma ");
  EXPECT_EQ(found("A"), "Aring a comma ");
  EXPECT_EQ(found("xyz"), "");
  EXPECT_EQ(found("om"), "comma ");
  EXPECT_EQ(found(""), "Aring V a b comma ");
}

TEST(GlyphNameSearch, FindsACharacterThatTheNameHides) {
  FontProject project;
  for (const auto& [name, character] : {std::pair{"uni0062", "b"},
                                        {"uni0076", "v"},
                                        {"uni00E9", "\u00E9"},
                                        {"v.alt", "w"},
                                        {"one", "1"},
                                        {"eins", "1"}})
    project.glyphs.push_back(makeGlyph(name, character));
  GlyphNameSearch search(glyphsOf(project));
  search.setText("v");
  ASSERT_EQ(search.size(), 2U);
  EXPECT_EQ(search[0].name, "uni0076"); // before the names
  EXPECT_EQ(search[1].name, "v.alt");
  search.setText("e\u0301"); // as some keyboards have it
  ASSERT_EQ(search.size(), 1U);
  EXPECT_EQ(search[0].name, "uni00E9");
  const auto meant = [&](const char* text) {
    const NamedGlyph* const glyph = search.meant(text);
    return glyph ? glyph->name : "";
  };
  EXPECT_EQ(meant("v"), "uni0076");
  EXPECT_EQ(meant("v.alt"), "v.alt");
  EXPECT_EQ(meant("V.alt"), "");
  EXPECT_EQ(meant("1"), ""); // one of two
  EXPECT_EQ(meant(""), "");
}

} // namespace
} // namespace quillery::test

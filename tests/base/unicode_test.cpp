#include "base/unicode.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using ::testing::ElementsAreArray;
using Texts = std::vector<std::string_view>;

TEST(Utf8, IsCheckedAndMended) {
  const std::pair<std::string, std::string> invalid[] = {
      {"a\xFFz", "a\uFFFDz"},
      {"\xC3", "\uFFFD"},
      {"\xC0\x80", "\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xFF\xFE"
       "A",
       "\uFFFD\uFFFD"
       "A"}};
  for (const auto& [bytes, mended] : invalid) {
    EXPECT_FALSE(isValidUtf8(bytes)) << ::testing::PrintToString(bytes);
    EXPECT_EQ(replaceInvalidUtf8(bytes), mended);
    EXPECT_TRUE(isValidUtf8(replaceInvalidUtf8(bytes)));
  }
  for (const std::string valid : {"", "abc", "ä€😀", "\uFFFD"}) {
    EXPECT_TRUE(isValidUtf8(valid));
    EXPECT_EQ(replaceInvalidUtf8(valid), valid);
  }
}

TEST(Characters, OfPlainTextAreTheSameOnTheQuickRoad) {
  std::mt19937 random(3);
  const std::string_view pieces[] = {"a", " ", "\r", "\n", "\t", "\u0308", "é", "🇩", "\x01", "-"};
  for (int i = 0; i < 5000; ++i) {
    std::string text;
    for (auto n = random() % 6; n > 0; --n) text += pieces[random() % std::size(pieces)];
    const std::string neverPlain = text + "\n€";
    Texts expected = characters(neverPlain);
    expected.pop_back();
    std::string joined;
    for (const auto character : characters(text)) joined += character;
    EXPECT_EQ(joined, text);
    EXPECT_EQ(firstCharacter(text), text.empty() ? "" : characters(text).front());
    if (text.ends_with('\r')) continue; // joins the line feed
    expected.pop_back();
    EXPECT_EQ(characters(text), expected) << ::testing::PrintToString(text);
  }
}

TEST(DisplayOrder, IsThatOfAFileManager) {
  const DisplayOrder order;
  Texts names = {"glyph10", "b", "Zebra", "glyph9", "á", "ab", "a", "GLYPH2", "apple"};
  std::sort(names.begin(), names.end(),
            [&](auto a, auto b) { return order.sortKey(a) < order.sortKey(b); });
  EXPECT_THAT(names, ElementsAreArray(
                         {"a", "á", "ab", "apple", "b", "GLYPH2", "glyph9", "glyph10", "Zebra"}));
  EXPECT_EQ(order.sortKey("Straße"), order.sortKey("STRAßE"));
  EXPECT_EQ(order.sortKey("A\u0308"), order.sortKey("ä"));
  EXPECT_NE(order.sortKey("a"), order.sortKey("ä"));
  EXPECT_TRUE(order.sortKey(std::string(10'000, 'x')) == order.sortKey(std::string(10'000, 'X')));
}

TEST(LocalizedFinder, DisregardsCaseOnly) {
  const std::pair<std::string_view, std::string_view> found[] = {
      {"", ""},        {"AV", "xavx"}, {"é", "É"},         {"É", "e\u0301b"},     {"c", "chi"},
      {"ß", "grosse"}, {"σ", "ΟΔΟΣ"},  {"ﬁ", "OFFICE fi"}, {"x", "\u00E9x"},      {"ạ̈", "Ạ\u0308"},
      {"각", "x각x"},  {"क", "का"},    {"\u212A", "kern"}, {"b", "\u00E9\u0301b"}};
  const std::pair<std::string_view, std::string_view> absent[] = {
      {"a", ""},        {"av", "A V"},         {"e", "é"},    {"e", "e\u0301"}, {"a", "\uFF21"},
      {"x", "x\u0304"}, {"\u0301", "e\u0301"}, {"abc", "ab"}, {"가", "각"},     {"e", "ｅ"},
      {"ae", "æ"},      {"\xC3", "é"}};
  for (const CaseRules rules : {CaseRules::common, CaseRules::lithuanian}) {
    for (const auto& [needle, haystack] : found)
      EXPECT_TRUE(LocalizedFinder(needle, rules).isIn(haystack)) << needle << " in " << haystack;
    for (const auto& [needle, haystack] : absent)
      EXPECT_FALSE(LocalizedFinder(needle, rules).isIn(haystack)) << needle << " in " << haystack;
  }
}

TEST(LocalizedFinder, KnowsTheCapitalsOfDottedAndDotlessLetters) {
  const auto finds = [](const char* language, std::string_view needle, std::string_view haystack) {
    return LocalizedFinder(needle, caseRules(language)).isIn(haystack);
  };
  for (const char* language : {"tr", "az_AZ"}) {
    EXPECT_TRUE(finds(language, "i", "DİL") && finds(language, "I", "fırın"));
    EXPECT_TRUE(finds(language, "İ", "fi") && finds(language, "I\u0307", "fi"));
    EXPECT_FALSE(finds(language, "i", "FIN") || finds(language, "I", "fin"));
  }
  for (const char* language : {"en", "da", "cs", "lt"}) {
    EXPECT_TRUE(finds(language, "i", "FIN") && finds(language, "I", "fin")) << language;
    EXPECT_FALSE(finds(language, "I", "fırın")) << language;
  }
  EXPECT_TRUE(finds("lt", "Ì", "i\u0307\u0300"));
  EXPECT_FALSE(finds("en", "Ì", "i\u0307\u0300"));
}

} // namespace
} // namespace quillery::test

#include "support/testing.h"
#include "svg/glyph_identity.h"

namespace quillery::test {
namespace {

TEST(GlyphIdentity, IsToldFromTheFileName) {
  // Names that stay what they are.
  const std::pair<const char*, const char*> rows[] = {{"A", "A"},
                                                      {"a_upper", "A"},
                                                      {"B.small", "b"},
                                                      {"x_lower_upper", "x"},
                                                      {"ss_UPPER", "S"},
                                                      {"q.Capital.old", "Q"},
                                                      {"exclam", "!"},
                                                      {"Space", " "},
                                                      {"Agrave", "\u00C0"},
                                                      {"AGRAVE", "\u00E0"},
                                                      {"Ae", "\u00E6"},
                                                      {"uni00E9", "\u00E9"},
                                                      {"UNI00e9", "\u00E9"},
                                                      {"U+1F600", "😀"},
                                                      {"u++41", "A"},
                                                      {"uniuni41", "A"},
                                                      {"u+uni41", "A"},
                                                      {"uni0041.small", "u"}};
  for (const auto& [name, character] : rows) {
    EXPECT_EQ(glyphNameForFileName(name), name);
    EXPECT_EQ(unicodeForFileName(name), character) << name;
  }
  for (const char* name :
       {"uni", "u+-41", "uni 41", "uni110000", "uni100000041", "uniD800", "my glyph", "-"}) {
    EXPECT_EQ(glyphNameForFileName(name), name);
    EXPECT_EQ(unicodeForFileName(name), std::nullopt) << name;
  }
  using Character = std::optional<std::string>;
  const std::tuple<const char*, const char*, Character> others[] = {
      {"", "glyph", {}},
      {"ä", "adieresis", "ä"},
      {"À", "uni00C0", "À"},
      {"€", "uni20AC", {}},
      {"€_upper", "uni20AC_upper", "€"},
      {"ß_upper", "germandbls_upper", "SS"},
      {"A\u0308", "uni0041", "A\u0308"},
      {"😀", "uni1F600", {}},
      {"ä ö", "adieresis odieresis", {}},
      {"Œ", "OE", "Œ"},
      {"\u212A", "uni212A", "\u212A"}};
  for (const auto& [fileName, name, character] : others) {
    EXPECT_EQ(glyphNameForFileName(fileName), name);
    EXPECT_EQ(unicodeForFileName(fileName), character) << fileName;
  }
}

} // namespace
} // namespace quillery::test

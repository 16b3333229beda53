#include "base/unicode.h"
#include "svg/glyph_identity.h"
#include "svg/glyph_name_tables.h"

#include <gtest/gtest.h>

namespace quillery::test {
namespace {

TEST(GlyphIdentity, IsToldFromTheFileName) {
  using Text = std::optional<std::string>;
  const std::tuple<const char*, const char*, Text> rows[] = {
      {"", "glyph", {}},
      {"A", "A", "A"},
      {"7", "7", "7"},
      {"a_upper", "a_upper", "A"},
      {"B.small", "B.small", "b"},
      {"x_lower_upper", "x_lower_upper", "x"},
      {"ss_UPPER", "ss_UPPER", "S"},
      {"q.Capital.old", "q.Capital.old", "Q"},
      {"exclam", "exclam", "!"},
      {"Space", "Space", " "},
      {"Agrave", "Agrave", "\u00C0"},
      {"AGRAVE", "AGRAVE", "\u00E0"},
      {"AE", "AE", "\u00C6"},
      {"Ae", "Ae", "\u00E6"},
      {"uni00E9", "uni00E9", "\u00E9"},
      {"UNI00e9", "UNI00e9", "\u00E9"},
      {"U+1F600", "U+1F600", "😀"},
      {"u++41", "u++41", "A"},
      {"uniuni41", "uniuni41", "A"},
      {"u+uni41", "u+uni41", "A"},
      {"uni0", "uni0", std::string(1, '\0')},
      {"uni", "uni", {}},
      {"u+-41", "u+-41", {}},
      {"uni 41", "uni 41", {}},
      {"uni110000", "uni110000", {}},
      {"uni100000041", "uni100000041", {}},
      {"union", "union", {}},
      {"uniD800", "uniD800", {}},
      {"uni0041.small", "uni0041.small", "u"},
      {"ä", "adieresis", "ä"},
      {"À", "uni00C0", "À"},
      {"€", "uni20AC", {}},
      {"€_upper", "uni20AC_upper", "€"},
      {"ß_upper", "germandbls_upper", "SS"},
      {"A\u0308", "uni0041", "A\u0308"},
      {"\u0308", "uni0308", "\u0308"},
      {"½", "uni00BD", "½"},
      {"😀", "uni1F600", {}},
      {"ä ö", "adieresis odieresis", {}},
      {"\r\nä", "\r\nadieresis", {}},
      {"my glyph", "my glyph", {}},
      {"-", "-", {}},
      {"Œ", "OE", "Œ"},
      {"\u212A", "uni212A", "\u212A"}};
  for (const auto& [fileName, name, character] : rows) {
    EXPECT_EQ(glyphNameForFileName(fileName), name);
    EXPECT_EQ(unicodeForFileName(fileName), character) << fileName;
  }
}

TEST(GlyphNameTables, LeadFromEveryCharacterToItsNameAndBack) {
  int names = 0;
  for (char32_t c = 0x80; c < 0x250; ++c)
    if (const auto name = glyphNameForCharacter(scalarText(c))) {
      ++names;
      const bool byNameToo = *name != "oe" && *name != "OE";
      EXPECT_EQ(characterForGlyphName(*name), byNameToo ? std::optional(c) : std::nullopt);
    }
  EXPECT_EQ(names, 28);
  // Accented letters: the capital's name begins with a capital.
  for (const char* letter :
       {"aacute",      "acircumflex", "adieresis",   "agrave",    "aring",  "atilde",
        "ccedilla",    "eacute",      "ecircumflex", "edieresis", "egrave", "eth",
        "iacute",      "icircumflex", "idieresis",   "igrave",    "ntilde", "oacute",
        "ocircumflex", "odieresis",   "ograve",      "oslash",    "otilde", "thorn",
        "uacute",      "ucircumflex", "udieresis",   "ugrave",    "yacute"}) {
    std::string capital = letter;
    capital[0] = static_cast<char>(capital[0] - 'a' + 'A');
    ASSERT_TRUE(characterForGlyphName(letter) && characterForGlyphName(capital)) << letter;
    EXPECT_EQ(uppercased(scalarText(*characterForGlyphName(letter))),
              scalarText(*characterForGlyphName(capital)));
  }
  const std::pair<const char*, char32_t> others[] = {
      {"zero", U'0'},        {"nine", U'9'},        {"hash", U'#'},     {"minus", U'-'},
      {"dot", U'.'},         {"pipe", U'|'},        {"tilde", U'~'},    {"singlequote", U'\''},
      {"quotedouble", U'"'}, {"exclamation", U'!'}, {"euro", U'€'},     {"bullet", U'•'},
      {"ellipsis", U'…'},    {"trademark", U'™'},   {"multiply", U'×'}, {"germandbls", U'ß'}};
  for (const auto& [name, character] : others)
    EXPECT_EQ(characterForGlyphName(name), character) << name;
  for (const char* name : {"divide", "ydieresis", "nbspace", "Euro", "", "a"})
    EXPECT_FALSE(characterForGlyphName(name)) << name;
}

} // namespace
} // namespace quillery::test

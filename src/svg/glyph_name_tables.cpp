#include "svg/glyph_name_tables.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillery {
namespace {

struct NameRow {
  std::string_view character;
  std::string_view name;
};

struct CharacterRow {
  std::string_view name;
  char32_t character;
};

// clang-format off

// By character.
constexpr std::array<NameRow, 28> kCharacterGlyphNames = {{
    {"\u00C4", "Adieresis"}, {"\u00C6", "AE"}, {"\u00D6", "Odieresis"}, {"\u00DC", "Udieresis"},
    {"\u00DF", "germandbls"}, {"\u00E0", "agrave"}, {"\u00E1", "aacute"},
    {"\u00E2", "acircumflex"}, {"\u00E4", "adieresis"}, {"\u00E6", "ae"}, {"\u00E7", "ccedilla"},
    {"\u00E8", "egrave"}, {"\u00E9", "eacute"}, {"\u00EA", "ecircumflex"}, {"\u00EC", "igrave"},
    {"\u00ED", "iacute"}, {"\u00EE", "icircumflex"}, {"\u00F1", "ntilde"}, {"\u00F2", "ograve"},
    {"\u00F3", "oacute"}, {"\u00F4", "ocircumflex"}, {"\u00F6", "odieresis"},
    {"\u00F9", "ugrave"}, {"\u00FA", "uacute"}, {"\u00FB", "ucircumflex"},
    {"\u00FC", "udieresis"}, {"\u0152", "OE"}, {"\u0153", "oe"},
}};

// By name.
constexpr std::array<CharacterRow, 148> kGlyphNameCharacters = {{
    {"AE", 0x00C6}, {"Aacute", 0x00C1}, {"Acircumflex", 0x00C2}, {"Adieresis", 0x00C4},
    {"Agrave", 0x00C0}, {"Aring", 0x00C5}, {"Atilde", 0x00C3}, {"Ccedilla", 0x00C7},
    {"Eacute", 0x00C9}, {"Ecircumflex", 0x00CA}, {"Edieresis", 0x00CB}, {"Egrave", 0x00C8},
    {"Eth", 0x00D0}, {"Iacute", 0x00CD}, {"Icircumflex", 0x00CE}, {"Idieresis", 0x00CF},
    {"Igrave", 0x00CC}, {"Ntilde", 0x00D1}, {"Oacute", 0x00D3}, {"Ocircumflex", 0x00D4},
    {"Odieresis", 0x00D6}, {"Ograve", 0x00D2}, {"Oslash", 0x00D8}, {"Otilde", 0x00D5},
    {"Thorn", 0x00DE}, {"Uacute", 0x00DA}, {"Ucircumflex", 0x00DB}, {"Udieresis", 0x00DC},
    {"Ugrave", 0x00D9}, {"Yacute", 0x00DD}, {"aacute", 0x00E1}, {"acircumflex", 0x00E2},
    {"acute", 0x00B4}, {"adieresis", 0x00E4}, {"ae", 0x00E6}, {"agrave", 0x00E0},
    {"ampersand", 0x0026}, {"aring", 0x00E5}, {"asciicircum", 0x005E}, {"asciitilde", 0x007E},
    {"asterisk", 0x002A}, {"at", 0x0040}, {"atilde", 0x00E3}, {"backslash", 0x005C},
    {"bar", 0x007C}, {"braceleft", 0x007B}, {"braceright", 0x007D}, {"bracketleft", 0x005B},
    {"bracketright", 0x005D}, {"brokenbar", 0x00A6}, {"bullet", 0x2022}, {"ccedilla", 0x00E7},
    {"cedilla", 0x00B8}, {"cent", 0x00A2}, {"colon", 0x003A}, {"comma", 0x002C},
    {"copyright", 0x00A9}, {"currency", 0x00A4}, {"degree", 0x00B0}, {"dieresis", 0x00A8},
    {"dollar", 0x0024}, {"dot", 0x002E}, {"doublequote", 0x0022}, {"eacute", 0x00E9},
    {"ecircumflex", 0x00EA}, {"edieresis", 0x00EB}, {"egrave", 0x00E8}, {"eight", 0x0038},
    {"ellipsis", 0x2026}, {"equal", 0x003D}, {"eth", 0x00F0}, {"euro", 0x20AC},
    {"exclam", 0x0021}, {"exclamation", 0x0021}, {"exclamdown", 0x00A1}, {"five", 0x0035},
    {"four", 0x0034}, {"germandbls", 0x00DF}, {"grave", 0x0060}, {"greater", 0x003E},
    {"guillemotleft", 0x00AB}, {"guillemotright", 0x00BB}, {"hash", 0x0023}, {"hyphen", 0x002D},
    {"iacute", 0x00ED}, {"icircumflex", 0x00EE}, {"idieresis", 0x00EF}, {"igrave", 0x00EC},
    {"less", 0x003C}, {"macron", 0x00AF}, {"micro", 0x00B5}, {"minus", 0x002D},
    {"multiply", 0x00D7}, {"nine", 0x0039}, {"notsign", 0x00AC}, {"ntilde", 0x00F1},
    {"numbersign", 0x0023}, {"oacute", 0x00F3}, {"ocircumflex", 0x00F4}, {"odieresis", 0x00F6},
    {"ograve", 0x00F2}, {"one", 0x0031}, {"onehalf", 0x00BD}, {"onequarter", 0x00BC},
    {"onesuperior", 0x00B9}, {"ordfeminine", 0x00AA}, {"ordmasculine", 0x00BA},
    {"oslash", 0x00F8}, {"otilde", 0x00F5}, {"paragraph", 0x00B6}, {"parenleft", 0x0028},
    {"parenright", 0x0029}, {"percent", 0x0025}, {"period", 0x002E}, {"periodcentered", 0x00B7},
    {"pipe", 0x007C}, {"plus", 0x002B}, {"plusminus", 0x00B1}, {"question", 0x003F},
    {"questiondown", 0x00BF}, {"quotedbl", 0x0022}, {"quotedouble", 0x0022},
    {"quotesingle", 0x0027}, {"registered", 0x00AE}, {"section", 0x00A7}, {"semicolon", 0x003B},
    {"seven", 0x0037}, {"singlequote", 0x0027}, {"six", 0x0036}, {"slash", 0x002F},
    {"space", 0x0020}, {"sterling", 0x00A3}, {"thorn", 0x00FE}, {"three", 0x0033},
    {"threequarters", 0x00BE}, {"threesuperior", 0x00B3}, {"tilde", 0x007E},
    {"trademark", 0x2122}, {"two", 0x0032}, {"twosuperior", 0x00B2}, {"uacute", 0x00FA},
    {"ucircumflex", 0x00FB}, {"udieresis", 0x00FC}, {"ugrave", 0x00F9}, {"underscore", 0x005F},
    {"yacute", 0x00FD}, {"yen", 0x00A5}, {"zero", 0x0030},
}};

// clang-format on

constexpr bool byCharacter(const NameRow& a, const NameRow& b) {
  return a.character < b.character;
}

constexpr bool byName(const CharacterRow& a, const CharacterRow& b) {
  return a.name < b.name;
}

// The look-ups search by halves.
static_assert(std::is_sorted(kCharacterGlyphNames.begin(), kCharacterGlyphNames.end(),
                             byCharacter));
static_assert(std::is_sorted(kGlyphNameCharacters.begin(), kGlyphNameCharacters.end(), byName));

} // namespace

std::optional<std::string_view> glyphNameForCharacter(std::string_view character) {
  const auto row = std::lower_bound(kCharacterGlyphNames.begin(), kCharacterGlyphNames.end(),
                                    NameRow{character, {}}, byCharacter);
  if (row == kCharacterGlyphNames.end() || row->character != character) return std::nullopt;
  return row->name;
}

std::optional<char32_t> characterForGlyphName(std::string_view name) {
  const auto row = std::lower_bound(kGlyphNameCharacters.begin(), kGlyphNameCharacters.end(),
                                    CharacterRow{name, 0}, byName);
  if (row == kGlyphNameCharacters.end() || row->name != name) return std::nullopt;
  return row->character;
}

} // namespace quillery

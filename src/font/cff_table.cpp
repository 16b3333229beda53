#include "base/parallel.h"
#include "font/cff_dictionary.h"
#include "font/cff_numbers.h"
#include "font/cff_strings.h"
#include "font/charstring.h"
#include "font/font_hints.h"
#include "font/outline_tables.h"
#include "font/stem_hints.h"
#include "font/subroutines.h"

#include <algorithm>
#include <cstdint>
#include <map>

namespace quillery::font {

namespace {

// Operators of the Top DICT and the Private DICT.
enum : DictOperator {
  dictVersion = 0x00,
  dictFullName = 0x02,
  dictFamilyName = 0x03,
  dictFontBBox = 0x05,
  dictCharset = 0x0F,
  dictCharStrings = 0x11,
  dictPrivate = 0x12,
  dictDefaultWidth = 0x14,
  dictNominalWidth = 0x15,
  dictIsFixedPitch = 0x0C01,
  dictItalicAngle = 0x0C02,
  dictFontMatrix = 0x0C07,
};

// The format's own limit, less the operand for the width; readers refuse longer ones.
constexpr std::size_t kLongestCharstring = 65535 - 3;
// Offsets within the table have 32 bits with a sign.
constexpr std::size_t kLargestTable = 0x7FFFFFFF;
constexpr std::size_t kGlyphsPerChunk = 128;

/// What the Private DICT says of advances: most glyphs have the default one, and the others say by
/// how much theirs differs from the nominal one.
struct Widths {
  int standard = 0;
  int nominal = 0;
};

Widths chooseWidths(const GlyphSet& glyphs) {
  std::map<int, std::size_t> counts;
  for (const FontGlyph& glyph : glyphs.glyphs) ++counts[glyph.advance];
  const auto most =
      std::max_element(counts.begin(), counts.end(), [](const auto& a, const auto& b) {
        return a.second < b.second; // the least advance of those that are equally frequent
      });
  const int standard = most->first;
  // A width has 16 bits with a sign, and advances go up to 65,535.
  const bool far = counts.rbegin()->first - standard > 32767 || standard > 32767;
  return {standard, far ? 32768 : standard};
}

struct Chunk {
  Charstrings charstrings;
  std::vector<std::optional<Box>> boxes;
  /// Of the first glyph with too long a charstring.
  std::optional<FontError> error;
};

Chunk encodeChunk(const GlyphSet& glyphs, const Widths& widths, const FontHints& hints,
                  std::size_t first, std::size_t end) {
  Chunk chunk;
  GridOutline outline;
  CharstringEncoder encoder(chunk.charstrings);
  StemFinder stems(hints.unitsPerEm);
  Bytes own;
  for (std::size_t i = first; i < end; ++i) {
    const FontGlyph& glyph = glyphs.glyphs[i];
    roundOutline(glyph.outline(), outline);
    chunk.boxes.push_back(outline.box);
    own.clear();
    if (glyph.advance != widths.standard) appendNumber(own, glyph.advance - widths.nominal);
    appendStemHints(own, stems.findHints(outline, hints.zones));
    const std::size_t start = chunk.charstrings.bytes.size() + own.size();
    encoder.begin(own);
    for (const GridContour& contour : outline.contours) encoder.contour(outline, contour);
    encoder.end();
    const std::size_t length = chunk.charstrings.bytes.size() - start;
    if (length > kLongestCharstring) {
      chunk.error = {"The drawing of " + glyph.label() + " has too many points: it takes " +
                     grouped(length) + " bytes, and a font holds " + grouped(kLongestCharstring) +
                     " for a glyph."};
      break;
    }
  }
  return chunk;
}

struct Encoded {
  Charstrings charstrings;
  std::vector<std::optional<Box>> boxes;
};

Result<Encoded, FontError> encodeGlyphs(const GlyphSet& glyphs, const Widths& widths,
                                        const FontHints& hints) {
  Encoded all;
  std::optional<FontError> error;
  const std::size_t count = glyphs.glyphs.size();
  produceInOrder((count + kGlyphsPerChunk - 1) / kGlyphsPerChunk,
                 [&](std::size_t i) {
                   const std::size_t first = i * kGlyphsPerChunk;
                   return encodeChunk(glyphs, widths, hints, first,
                                      std::min(count, first + kGlyphsPerChunk));
                 },
                 [&](std::size_t, Chunk chunk) {
                   all.charstrings.append(chunk.charstrings);
                   all.boxes.insert(all.boxes.end(), chunk.boxes.begin(), chunk.boxes.end());
                   error = std::move(chunk.error);
                   if (!error && all.charstrings.bytes.size() > kLargestTable / 2)
                     error = {"The drawings of the project have too many points for one font."};
                   return !error;
                 });
  if (error) return Failure{std::move(*error)};
  return all;
}

/// The name numbers of the glyphs after the first, as ranges or singly, what is shorter.
Bytes encodeCharset(const std::vector<std::uint32_t>& numbers) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> ranges; // the first, and how many more
  for (const std::uint32_t number : numbers) {
    if (!ranges.empty() && number == ranges.back().first + ranges.back().second + 1)
      ++ranges.back().second;
    else
      ranges.emplace_back(number, 0);
  }
  ByteWriter bytes;
  if (ranges.size() * 2 < numbers.size()) {
    bytes.u8(2);
    for (const auto& [first, more] : ranges) bytes.u16(first).u16(more);
  } else {
    bytes.u8(0);
    for (const std::uint32_t number : numbers) bytes.u16(number);
  }
  return std::move(bytes).release();
}

/// The entries of the Top DICT that say what the font is rather than where its parts are.
CffDictionary describeFont(const GlyphSet& glyphs, const Naming& naming, const OutlineStyle& style,
                           const Box& box, CffStrings& strings) {
  CffDictionary top;
  top.integer(strings.numberOf(naming.version())).op(dictVersion);
  const auto addText = [&](const std::string& text, DictOperator name) {
    // The strings of this table have no other characters.
    const bool ascii =
        std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
    if (ascii) top.integer(strings.numberOf(text)).op(name);
  };
  addText(naming.full(), dictFullName);
  addText(naming.family, dictFamilyName);
  if (isFixedPitch(glyphs)) top.integer(1).op(dictIsFixedPitch);
  // Counted to the left, as in the post table.
  if (style.slant != 0) top.real(-style.slant).op(dictItalicAngle);
  for (const int edge : {box.xMin, box.yMin, box.xMax, box.yMax}) top.integer(edge);
  top.op(dictFontBBox);
  if (style.unitsPerEm != 1000) {
    const double scale = 1.0 / style.unitsPerEm;
    top.real(scale).integer(0).integer(0).real(scale).integer(0).integer(0).op(dictFontMatrix);
  }
  return top;
}

CffIndex indexOf(std::string_view item) {
  CffIndex index;
  index.add(item);
  return index;
}

Bytes assemble(const GlyphSet& glyphs, const Naming& naming, const OutlineStyle& style,
               const Box& box, const CffDictionary& privateDict, const CffIndex& charstrings,
               const CffIndex& subroutines) {
  CffStrings strings;
  std::vector<std::uint32_t> names;
  for (std::size_t i = 1; i < glyphs.glyphs.size(); ++i)
    names.push_back(strings.numberOf(glyphs.glyphs[i].name));
  const Bytes charset = encodeCharset(names);
  CffDictionary top = describeFont(glyphs, naming, style, box, strings);

  // Each offset takes the same room, so the dictionary's size is known before what it says is.
  const std::size_t topSize = top.bytes().size() + 4 * kOffsetSize + 3;
  Bytes table("\x01\x00\x04\x04", 4);
  indexOf(naming.postscript).appendTo(table);
  const std::size_t charsetStart = table.size() + indexOf(Bytes(topSize, '\0')).size() +
                                   strings.own().size() + subroutines.size();
  const std::size_t privateStart = charsetStart + charset.size();
  const std::size_t privateSize = privateDict.bytes().size();
  top.offset(charsetStart).op(dictCharset);
  top.offset(privateStart + privateSize).op(dictCharStrings);
  top.offset(privateSize).offset(privateStart).op(dictPrivate);

  table.reserve(privateStart + privateSize + charstrings.size());
  indexOf(top.bytes()).appendTo(table);
  strings.own().appendTo(table);
  subroutines.appendTo(table);
  table += charset;
  table += privateDict.bytes();
  charstrings.appendTo(table);
  return table;
}

} // namespace

Result<OutlineTables, FontError> makeCffTables(const GlyphSet& glyphs, const Naming& naming,
                                               const OutlineStyle& style) {
  const Widths widths = chooseWidths(glyphs);
  const FontHints hints = findFontHints(glyphs, style.unitsPerEm);
  Result<Encoded, FontError> encoded = encodeGlyphs(glyphs, widths, hints);
  if (!encoded) return Failure{encoded.error()};
  const SharedCharstrings shared = shareSubroutines(encoded.value().charstrings);
  CffDictionary privateDict;
  hints.describe(privateDict);
  privateDict.integer(widths.standard).op(dictDefaultWidth);
  privateDict.integer(widths.nominal).op(dictNominalWidth);

  OutlineTables made;
  made.boxes = std::move(encoded.value().boxes);
  made.tables.push_back({"CFF ", assemble(glyphs, naming, style, unitedBox(made.boxes), privateDict,
                                          shared.charstrings, shared.subroutines)});
  ByteWriter maxp;
  maxp.u32(0x00005000).u16(static_cast<std::uint32_t>(glyphs.glyphs.size()));
  made.tables.push_back({"maxp", std::move(maxp).release()});
  return made;
}

} // namespace quillery::font

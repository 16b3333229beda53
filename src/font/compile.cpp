#include "font/compile.h"

#include "base/unicode.h"
#include "font/cmap.h"
#include "font/container.h"
#include "font/gdef.h"
#include "font/gpos.h"
#include "font/gsub.h"
#include "font/metrics.h"
#include "font/naming.h"

#include <algorithm>

namespace quillery::font {

namespace {

struct LayoutTables {
  std::vector<Table> tables;
  /// The greatest number of glyphs that a lookup considers.
  std::size_t longestContext = 1;
};

Result<LayoutTables, FontError> layOut(const FontDescription& description, const GlyphSet& glyphs) {
  const auto kerning = resolveKerning(description.pairs, glyphs);
  if (!kerning) return Failure{kerning.error()};
  LayoutTables layout;
  std::map<std::vector<int>, int> sequences;
  for (const auto& [text, glyph] : glyphs.characters.sequences) {
    std::vector<int> parts;
    for (const char32_t scalar : text) parts.push_back(glyphs.characters.scalars.at(scalar));
    sequences.insert_or_assign(std::move(parts), glyph);
    layout.longestContext = std::max(layout.longestContext, text.size());
  }
  const auto positions = encodeKerning(kerning.value());
  auto classes = makeGdef(glyphs, sequences);
  if (positions.empty() && sequences.empty() && !classes) return layout;
  const auto scripts = scriptTags(glyphs.characters);
  // Without a positioning table, text engines place marks by their own lights and drop advances.
  if (!positions.empty() || classes) {
    layout.tables.push_back(makeLayoutTable(kPairPositioning, scripts, positions));
    layout.longestContext = std::max<std::size_t>(layout.longestContext, 2);
  }
  if (!sequences.empty())
    layout.tables.push_back(
        makeLayoutTable(kLigatureSubstitution, scripts, encodeSequences(sequences)));
  if (classes) layout.tables.push_back(*std::move(classes));
  return layout;
}

Result<Bytes, FontError> pack(std::vector<Table> tables, FontFormat format, int brotliQuality) {
  switch (format) {
  case FontFormat::woff:
    return packWoff(std::move(tables));
  case FontFormat::woff2:
    return packWoff2(std::move(tables), brotliQuality);
  case FontFormat::otf:
  case FontFormat::ttf:
    break;
  }
  return packSfnt(std::move(tables));
}

} // namespace

std::optional<FontFormat> formatOfExtension(std::string_view extension) {
  const std::string lower = lowercased(extension);
  for (const auto& [known, format] :
       {std::pair(".otf", FontFormat::otf), std::pair(".ttf", FontFormat::ttf),
        std::pair(".woff", FontFormat::woff), std::pair(".woff2", FontFormat::woff2)})
    if (lower == known) return format;
  return std::nullopt;
}

Result<CompiledFont, FontError> compileFont(const FontDescription& description, FontFormat format,
                                            const CompileOptions& options) {
  const auto unitsPerEm = checkedUnitsPerEm(description);
  if (!unitsPerEm) return Failure{unitsPerEm.error()};
  auto glyphSet = buildGlyphSet(description);
  if (!glyphSet) return Failure{glyphSet.error()};
  GlyphSet& glyphs = glyphSet.value();
  const Naming naming = parseNaming(description.name, description.version);
  const bool isSloped = naming.slope != Naming::Slope::upright;
  auto measured = measure(description, unitsPerEm.value());
  if (!measured) return Failure{measured.error()};
  Measures& measures = measured.value();
  measures.slant = isSloped ? slantAngle(description) : 0;
  measures.isFixedPitch = isFixedPitch(glyphs);
  const bool isCff = format == FontFormat::otf;
  const OutlineStyle style = {measures.unitsPerEm, measures.slant};
  auto outlines = isCff ? makeCffTables(glyphs, naming, style) : makeTrueTypeTables(glyphs, style);
  if (!outlines) return Failure{outlines.error()};
  auto layout = layOut(description, glyphs);
  if (!layout) return Failure{layout.error()};
  auto names = makeNameTable(description, naming);
  if (!names) return Failure{names.error()};

  std::vector<Table> tables = std::move(outlines.value().tables);
  for (Table& table : layout.value().tables) tables.push_back(std::move(table));
  tables.push_back(makeHead(measures, naming, outlines.value(), options.date));
  tables.push_back(makeHhea(measures, glyphs, outlines.value()));
  tables.push_back(makeHmtx(glyphs, outlines.value()));
  tables.push_back(
      makeOs2(measures, naming, glyphs, outlines.value(), layout.value().longestContext));
  tables.push_back(makePost(measures, glyphs, !isCff));
  tables.push_back(std::move(names).value());
  tables.push_back(makeCmap(glyphs.characters));
  auto file = pack(std::move(tables), format, options.brotliQuality);
  if (!file) return Failure{file.error()};
  return CompiledFont{std::move(file).value(), std::move(glyphs.warnings)};
}

} // namespace quillery::font

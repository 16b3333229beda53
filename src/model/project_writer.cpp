#include "model/document_writer.h"
#include "model/project_file.h"

namespace quillery {
namespace {

constexpr NumberMember<FontInfo> kFontNumbers[] = {
    {"ascender", &FontInfo::ascender},   {"descender", &FontInfo::descender},
    {"capHeight", &FontInfo::capHeight}, {"xHeight", &FontInfo::xHeight},
    {"lineGap", &FontInfo::lineGap},
};
constexpr BoxMember kGlyphBoxes[] = {
    {"boundingBox", &GlyphRecord::boundingBox},
    {"viewBox", &GlyphRecord::viewBox},
};
constexpr NumberMember<GlyphRecord> kGlyphNumbers[] = {
    {"advanceWidth", &GlyphRecord::advanceWidth},
    {"leftSideBearing", &GlyphRecord::leftSideBearing},
    {"rightSideBearing", &GlyphRecord::rightSideBearing},
    {"verticalOffset", &GlyphRecord::verticalOffset},
    {"scale", &GlyphRecord::scale},
};

void writePair(JsonWriter& out, std::string_view key, double a, double b) {
  out.raw(key);
  out.number("[", a);
  out.number(", ", b);
  out.raw("]");
}

void writeBox(JsonWriter& out, std::string_view key, const Rect& box) {
  out.raw(key);
  writePair(out, "[", box.x, box.y);
  writePair(out, ", ", box.width, box.height);
  out.raw("]");
}

void writePoint(JsonWriter& out, std::string_view key, Point p) {
  writePair(out, key, p.x, p.y);
}

void writeCommand(JsonWriter& out, const PathCommand& command) {
  switch (command.kind) {
  case PathCommand::Kind::moveTo:
    writePoint(out, "        { \"moveTo\" : { \"_0\" : ", command.points[0]);
    break;
  case PathCommand::Kind::lineTo:
    writePoint(out, "        { \"lineTo\" : { \"_0\" : ", command.points[0]);
    break;
  case PathCommand::Kind::curveTo:
    writePoint(out, "        { \"curveTo\" : { \"_0\" : ", command.points[0]);
    writePoint(out, ", \"_1\" : ", command.points[1]);
    writePoint(out, ", \"_2\" : ", command.points[2]);
    break;
  case PathCommand::Kind::closePath:
    return out.raw("        { \"closePath\" : { } }");
  }
  out.raw(" } }");
}

void writeGlyph(JsonWriter& out, const GlyphRecord& glyph) {
  out.string("    {\n      \"id\" : ", glyph.id.toString());
  if (glyph.unicode) out.string(",\n      \"unicode\" : ", *glyph.unicode);
  out.string(",\n      \"name\" : ", glyph.name);
  out.string(",\n      \"svgPath\" : ", glyph.svgPath.view());
  writeBox(out, ",\n      \"viewBox\" : ", glyph.viewBox);
  writeNumbers(out, ",\n      \"", glyph, kGlyphNumbers);
  writeBox(out, ",\n      \"boundingBox\" : ", glyph.boundingBox);
  out.raw(",\n      \"fontPath\" : [");
  writeItems(out, glyph.fontPath.commands(), true,
             [&](const PathCommand& command) { writeCommand(out, command); });
  out.raw(glyph.fontPath.empty() ? "]\n    }" : "\n      ]\n    }");
}

void writeKerningPair(JsonWriter& out, const KerningPair& pair) {
  out.string("    {\n      \"id\" : ", pair.id.toString());
  out.string(",\n      \"leftGlyph\" : ", pair.leftGlyph);
  out.string(",\n      \"rightGlyph\" : ", pair.rightGlyph);
  out.number(",\n      \"value\" : ", pair.value);
  out.raw("\n    }");
}

JsonWriter fontInfo(const FontInfo& font) {
  JsonWriter out;
  out.string("{\n  \"id\" : ", font.id.toString());
  out.string(",\n  \"name\" : ", font.name);
  out.string(",\n  \"designer\" : ", font.designer);
  out.string(",\n  \"version\" : ", font.version);
  out.string(",\n  \"copyright\" : ", font.copyright);
  out.integer(",\n  \"unitsPerEm\" : ", font.unitsPerEm);
  writeNumbers(out, ",\n  \"", font, kFontNumbers);
  return out;
}

} // namespace

Result<void, Problem> encodeProject(const FontProject& project, const ByteSink& sink) {
  DocumentWriter document(sink);
  document.take(fontInfo(project));
  document.list(",\n  \"glyphs\" : ", project.glyphs, kGlyphsPerPiece,
                [](JsonWriter& out, const Glyph& glyph) { writeGlyph(out, glyph.record()); });
  document.list(",\n  \"kerningPairs\" : ", project.kerningPairs, kPairsPerPiece, writeKerningPair);
  document.take("\n}\n");
  if (document.isFinite()) return {};
  return Failure{Problem{placeOfNonFinite(project, {kFontNumbers, kGlyphBoxes, kGlyphNumbers}),
                         "The number is not finite"}};
}

Result<void, Problem> writeProjectFile(const std::filesystem::path& path,
                                       const FontProject& project) {
  auto replacement = FileReplacement::begin(path);
  if (!replacement) return Failure{replacement.error()};
  Result<void, Problem> written;
  const auto encoded = encodeProject(project, [&](std::string_view piece) {
    written = replacement.value().append(piece);
    return written.ok();
  });
  if (!encoded) return Failure{Problem{path.string(), encoded.error().description()}};
  if (written) written = replacement.value().commit();
  return written;
}

} // namespace quillery

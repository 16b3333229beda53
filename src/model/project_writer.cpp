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

void writePair(PieceWriter& out, std::string_view key, double a, double b) {
  out.raw(key);
  out.number("[", a);
  out.number(", ", b);
  out.raw("]");
}

void writeBox(PieceWriter& out, std::string_view key, const Rect& box) {
  out.raw(key);
  writePair(out, "[", box.x, box.y);
  writePair(out, ", ", box.width, box.height);
  out.raw("]");
}

void writePoint(PieceWriter& out, std::string_view key, Point p) {
  writePair(out, key, p.x, p.y);
}

void writeCommand(PieceWriter& out, const PathCommand& command) {
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

void writeGlyph(PieceWriter& out, const GlyphRecord& glyph) {
  out.text("    {\n      \"id\" : ", glyph.id.toString());
  if (glyph.unicode) out.text(",\n      \"unicode\" : ", *glyph.unicode);
  out.text(",\n      \"name\" : ", glyph.name);
  out.text(",\n      \"svgPath\" : ", glyph.svgPath.view());
  writeBox(out, ",\n      \"viewBox\" : ", glyph.viewBox);
  out.numbers(",\n      \"", glyph, kGlyphNumbers);
  writeBox(out, ",\n      \"boundingBox\" : ", glyph.boundingBox);
  out.raw(",\n      \"fontPath\" : [");
  out.items(glyph.fontPath, true, [&](const PathCommand& command) { writeCommand(out, command); });
  out.raw(glyph.fontPath.empty() ? "]\n    }" : "\n      ]\n    }");
}

void writeKerningPair(PieceWriter& out, const KerningPair& pair) {
  out.text("    {\n      \"id\" : ", pair.id.toString());
  out.text(",\n      \"leftGlyph\" : ", pair.leftGlyph);
  out.text(",\n      \"rightGlyph\" : ", pair.rightGlyph);
  out.number(",\n      \"value\" : ", pair.value);
  out.raw("\n    }");
}

PieceWriter::Piece fontInfo(const FontInfo& font) {
  PieceWriter out;
  out.text("{\n  \"id\" : ", font.id.toString());
  out.text(",\n  \"name\" : ", font.name);
  out.text(",\n  \"designer\" : ", font.designer);
  out.text(",\n  \"version\" : ", font.version);
  out.text(",\n  \"copyright\" : ", font.copyright);
  out.integer(",\n  \"unitsPerEm\" : ", font.unitsPerEm);
  out.numbers(",\n  \"", font, kFontNumbers);
  return out.finish();
}

} // namespace

Result<void, Problem> encodeProject(const FontProject& project, const ByteSink& sink) {
  DocumentWriter document(sink);
  document.take(fontInfo(project));
  document.list(",\n  \"glyphs\" : ", project.glyphs,
                [](PieceWriter& out, const Glyph& glyph) { writeGlyph(out, glyph.record()); });
  document.list(",\n  \"kerningPairs\" : ", project.kerningPairs, writeKerningPair);
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

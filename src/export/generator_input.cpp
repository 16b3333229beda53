#include "export/generator_input.h"

#include "base/console.h"
#include "base/file.h"
#include "base/numbers.h"
#include "base/unicode.h"
#include "base/uuid.h"
#include "model/document_writer.h"

#include <algorithm>

namespace quillery {
namespace {

namespace fs = std::filesystem;

constexpr NumberMember<FontInfo> kFontNumbers[] = {
    {"ascender", &FontInfo::ascender},
    {"descender", &FontInfo::descender},
    {"capHeight", &FontInfo::capHeight},
    {"xHeight", &FontInfo::xHeight},
};
constexpr NumberMember<GlyphRecord> kGlyphNumbers[] = {
    {"advanceWidth", &GlyphRecord::advanceWidth},
    {"leftSideBearing", &GlyphRecord::leftSideBearing},
    {"rightSideBearing", &GlyphRecord::rightSideBearing},
};

void writePoint(JsonWriter& out, std::string_view key, Point p) {
  out.raw(key);
  out.number(" : { \"x\" : ", p.x);
  out.number(", \"y\" : ", p.y);
  out.raw(" }");
}

void writeCommand(JsonWriter& out, const PathCommand& command) {
  switch (command.kind) {
  case PathCommand::Kind::moveTo:
    writePoint(out, "        { \"type\" : \"moveTo\", \"point\"", command.points[0]);
    break;
  case PathCommand::Kind::lineTo:
    writePoint(out, "        { \"type\" : \"lineTo\", \"point\"", command.points[0]);
    break;
  case PathCommand::Kind::curveTo:
    writePoint(out, "        { \"type\" : \"curveTo\", \"control1\"", command.points[0]);
    writePoint(out, ", \"control2\"", command.points[1]);
    writePoint(out, ", \"point\"", command.points[2]);
    break;
  case PathCommand::Kind::closePath:
    out.raw("        { \"type\" : \"closePath\"");
    break;
  }
  out.raw(" }");
}

void writeGlyph(JsonWriter& out, const GlyphRecord& glyph) {
  out.string("    {\n      \"name\" : ", glyph.name);
  if (glyph.unicode) out.string(",\n      \"unicode\" : ", *glyph.unicode);
  writeNumbers(out, ",\n      \"", glyph, kGlyphNumbers);
  out.raw(",\n      \"fontPath\" : [");
  writeItems(out, glyph.fontPath.commands(), true,
             [&](const PathCommand& command) { writeCommand(out, command); });
  out.raw(glyph.fontPath.empty() ? "]\n    }" : "\n      ]\n    }");
}

void writeKerningPair(JsonWriter& out, const KerningPair& pair) {
  out.string("    { \"leftGlyph\" : ", pair.leftGlyph);
  out.string(", \"rightGlyph\" : ", pair.rightGlyph);
  out.number(", \"value\" : ", pair.value);
  out.raw(" }");
}

JsonWriter fontInfo(const FontInfo& font) {
  JsonWriter out;
  out.string("{\n  \"name\" : ", font.name);
  out.string(",\n  \"designer\" : ", font.designer);
  out.string(",\n  \"version\" : ", font.version);
  out.string(",\n  \"copyright\" : ", font.copyright);
  out.integer(",\n  \"unitsPerEm\" : ", font.unitsPerEm);
  writeNumbers(out, ",\n  \"", font, kFontNumbers);
  return out;
}

// Hands the document to the sink piece by piece. Fails for a number that is not finite.
Result<void, Problem> writeDocument(const FontProject& project, const ByteSink& sink) {
  DocumentWriter document(sink);
  document.take(fontInfo(project));
  document.list(",\n  \"glyphs\" : ", project.glyphs, kGlyphsPerPiece,
                [](JsonWriter& out, const Glyph& glyph) { writeGlyph(out, glyph.record()); });
  document.list(",\n  \"kerningPairs\" : ", project.kerningPairs, kPairsPerPiece, writeKerningPair);
  document.take("\n}");
  if (document.isFinite()) return {};
  return Failure{Problem{placeOfNonFinite(project, {kFontNumbers, {}, kGlyphNumbers}),
                         "The number is not finite"}};
}

void printKerningPairs(const FontProject& project) {
  const LineBatch batch;
  printLine("\n=== Generator input document ===");
  printLine("Kerning pairs in project: " + std::to_string(project.kerningPairs.size()));
  for (const KerningPair& pair : project.kerningPairs)
    printLine("  " + pair.leftGlyph + " + " + pair.rightGlyph + " = " +
              formatShortestWithFraction(pair.value));
}

// The beginning of a document, as much of it as a preview may take: a megabyte of marks on one
// letter is none.
constexpr std::size_t kPreviewWindow = 1024 * 1024;

void printPreview(std::string_view document) {
  constexpr int kCharacters = 500;
  // Cut between two scalars.
  std::size_t window = std::min(document.size(), kPreviewWindow);
  while (window < document.size() && (document[window] & 0xC0) == 0x80) --window;
  std::string_view rest = document.substr(0, window);
  for (int i = 0; i < kCharacters; ++i) rest.remove_prefix(firstCharacter(rest).size());
  printLine("\nJSON preview (first " + std::to_string(kCharacters) + " chars):");
  printLine(document.substr(0, window - rest.size()));
}

} // namespace

Result<std::string, Problem> createJSONData(const FontProject& project) {
  printKerningPairs(project);
  std::string document;
  const auto written = writeDocument(project, [&](std::string_view piece) {
    document += piece;
    return true;
  });
  if (!written) return Failure{written.error()};
  if (isValidUtf8(document)) printPreview(document);
  return document;
}

Result<fs::path, Problem> writeGeneratorInput(const FontProject& project) {
  const auto folder = temporaryFolder();
  if (!folder) return Failure{folder.error()};
  const fs::path path = folder.value() / ("font_data_" + Uuid::random().toString() + ".json");
  printLine("   Creating JSON at: " + path.string());
  printKerningPairs(project);
  // Never whole in memory, where it would be the largest thing by far.
  auto file = NewFile::create(path);
  if (!file) return Failure{file.error()};
  Result<void, Problem> appended;
  std::string beginning;
  const auto written = writeDocument(project, [&](std::string_view piece) {
    if (beginning.size() <= kPreviewWindow) beginning += piece;
    appended = file.value().append(piece);
    return appended.ok();
  });
  if (!written) {
    std::error_code ignored;
    fs::remove(path, ignored);
    return Failure{written.error()};
  }
  if (appended) appended = file.value().close();
  if (!appended) return Failure{appended.error()};
  printPreview(beginning);
  printLine("✓ JSON written to: " + path.string());
  return path;
}

} // namespace quillery

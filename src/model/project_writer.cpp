#include "base/parallel.h"
#include "model/project_file.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

// Writes one run of the document into a text of its own.
class PieceWriter {
public:
  void fontInfo(const FontInfo& font);
  void glyph(const GlyphRecord& glyph);
  void pair(const KerningPair& pair);
  void raw(std::string_view text) { out_.raw(text); }

  struct Piece {
    std::string text;
    bool finite = true;
  };
  Piece finish() {
    out_.finish();
    return {std::move(text_), out_.isFinite()};
  }

private:
  void text(std::string_view key, std::string_view value) {
    out_.raw(key);
    out_.string(value);
  }
  void length(std::string_view key, double value) {
    out_.raw(key);
    out_.number(value);
  }
  void numbers(double a, double b) {
    out_.raw("[");
    out_.number(a);
    out_.raw(", ");
    out_.number(b);
    out_.raw("]");
  }
  void rect(std::string_view key, const Rect& r) {
    out_.raw(key);
    out_.raw("[");
    numbers(r.x, r.y);
    out_.raw(", ");
    numbers(r.width, r.height);
    out_.raw("]");
  }
  void point(std::string_view key, Point p) {
    out_.raw(key);
    numbers(p.x, p.y);
  }
  void command(const PathCommand& command);

  std::string text_;
  JsonWriter out_{[this](std::string_view piece) {
    text_ += piece;
    return true;
  }};
};

void PieceWriter::command(const PathCommand& command) {
  switch (command.kind) {
  case PathCommand::Kind::moveTo:
    point("        { \"moveTo\" : { \"_0\" : ", command.points[0]);
    break;
  case PathCommand::Kind::lineTo:
    point("        { \"lineTo\" : { \"_0\" : ", command.points[0]);
    break;
  case PathCommand::Kind::curveTo:
    point("        { \"curveTo\" : { \"_0\" : ", command.points[0]);
    point(", \"_1\" : ", command.points[1]);
    point(", \"_2\" : ", command.points[2]);
    break;
  case PathCommand::Kind::closePath:
    return out_.raw("        { \"closePath\" : { } }");
  }
  out_.raw(" } }");
}

void PieceWriter::glyph(const GlyphRecord& glyph) {
  text("    {\n      \"id\" : ", glyph.id.toString());
  if (glyph.unicode) text(",\n      \"unicode\" : ", *glyph.unicode);
  text(",\n      \"name\" : ", glyph.name);
  text(",\n      \"svgPath\" : ", glyph.svgPath.view());
  rect(",\n      \"viewBox\" : ", glyph.viewBox);
  length(",\n      \"advanceWidth\" : ", glyph.advanceWidth);
  length(",\n      \"leftSideBearing\" : ", glyph.leftSideBearing);
  length(",\n      \"rightSideBearing\" : ", glyph.rightSideBearing);
  length(",\n      \"verticalOffset\" : ", glyph.verticalOffset);
  length(",\n      \"scale\" : ", glyph.scale);
  rect(",\n      \"boundingBox\" : ", glyph.boundingBox);
  out_.raw(",\n      \"fontPath\" : [");
  std::string_view separator = "\n";
  for (const PathCommand& c : glyph.fontPath.commands()) {
    out_.raw(separator);
    separator = ",\n";
    command(c);
  }
  out_.raw(glyph.fontPath.empty() ? "]\n    }" : "\n      ]\n    }");
}

void PieceWriter::pair(const KerningPair& pair) {
  text("    {\n      \"id\" : ", pair.id.toString());
  text(",\n      \"leftGlyph\" : ", pair.leftGlyph);
  text(",\n      \"rightGlyph\" : ", pair.rightGlyph);
  length(",\n      \"value\" : ", pair.value);
  out_.raw("\n    }");
}

// Looks again for the member that can't be written.
std::string placeOfNonFinite(const FontProject& project) {
  const auto bad = [](double value) { return !std::isfinite(value); };
  const auto badRect = [&](const Rect& r) {
    return bad(r.x) || bad(r.y) || bad(r.width) || bad(r.height);
  };
  const auto badGlyphMember = [&](const GlyphRecord& g) -> std::string {
    // First, since the metrics of an outline without points follow its infinite box.
    if (badRect(g.boundingBox)) return "boundingBox";
    if (badRect(g.viewBox)) return "viewBox";
    if (bad(g.advanceWidth)) return "advanceWidth";
    if (bad(g.leftSideBearing)) return "leftSideBearing";
    if (bad(g.rightSideBearing)) return "rightSideBearing";
    if (bad(g.verticalOffset)) return "verticalOffset";
    if (bad(g.scale)) return "scale";
    const PlacedCommands commands = g.fontPath.commands();
    for (std::size_t i = 0; i < commands.size(); ++i)
      for (const Point p : commands[i].points)
        if (bad(p.x) || bad(p.y)) return "fontPath[" + std::to_string(i) + "]";
    return {};
  };
  if (bad(project.ascender)) return "ascender";
  if (bad(project.descender)) return "descender";
  if (bad(project.capHeight)) return "capHeight";
  if (bad(project.xHeight)) return "xHeight";
  if (bad(project.lineGap)) return "lineGap";
  for (std::size_t i = 0; i < project.glyphs.size(); ++i) {
    const GlyphRecord& glyph = project.glyphs[i].record();
    const std::string member = badGlyphMember(glyph);
    if (!member.empty())
      return "glyphs[" + std::to_string(i) + "]." + member + " of glyph \"" + glyph.name + "\"";
  }
  for (std::size_t i = 0; i < project.kerningPairs.size(); ++i)
    if (bad(project.kerningPairs[i].value)) return "kerningPairs[" + std::to_string(i) + "].value";
  return {};
}

void PieceWriter::fontInfo(const FontInfo& font) {
  text("  \"id\" : ", font.id.toString());
  text(",\n  \"name\" : ", font.name);
  text(",\n  \"designer\" : ", font.designer);
  text(",\n  \"version\" : ", font.version);
  text(",\n  \"copyright\" : ", font.copyright);
  out_.raw(",\n  \"unitsPerEm\" : ");
  out_.integer(font.unitsPerEm);
  length(",\n  \"ascender\" : ", font.ascender);
  length(",\n  \"descender\" : ", font.descender);
  length(",\n  \"capHeight\" : ", font.capHeight);
  length(",\n  \"xHeight\" : ", font.xHeight);
  length(",\n  \"lineGap\" : ", font.lineGap);
}

// Writes the pieces of the document in their order.
class DocumentWriter {
public:
  explicit DocumentWriter(const ByteSink& sink) : sink_(sink) {}

  void write(const FontProject& project) {
    PieceWriter head;
    head.raw("{\n");
    head.fontInfo(project);
    take(head.finish());
    list(",\n  \"glyphs\" : [", project.glyphs,
         [](PieceWriter& out, const Glyph& glyph) { out.glyph(glyph.record()); });
    list(",\n  \"kerningPairs\" : [", project.kerningPairs,
         [](PieceWriter& out, const KerningPair& pair) { out.pair(pair); });
    take({"\n}\n", true});
  }
  bool isFinite() const { return finite_; }

private:
  bool take(const PieceWriter::Piece& piece) {
    finite_ = finite_ && piece.finite;
    goesOn_ = goesOn_ && sink_(piece.text);
    return goesOn_ && finite_;
  }

  template <typename Item, typename Write>
  void list(std::string_view opening, const std::vector<Item>& items, Write write) {
    constexpr std::size_t kItemsPerPiece = 32;
    take({std::string(opening), true});
    produceInOrder((items.size() + kItemsPerPiece - 1) / kItemsPerPiece,
                   [&](std::size_t piece) {
                     PieceWriter out;
                     const std::size_t end = std::min(items.size(), (piece + 1) * kItemsPerPiece);
                     for (std::size_t i = piece * kItemsPerPiece; i < end; ++i) {
                       out.raw(i == 0 ? "\n" : ",\n");
                       write(out, items[i]);
                     }
                     return out.finish();
                   },
                   [&](std::size_t, const PieceWriter::Piece& piece) { return take(piece); });
    take({items.empty() ? "]" : "\n  ]", true});
  }

  const ByteSink& sink_;
  bool finite_ = true;
  bool goesOn_ = true;
};

} // namespace

Result<void, ProjectFormatError> encodeProject(const FontProject& project, const ByteSink& sink) {
  DocumentWriter writer(sink);
  writer.write(project);
  if (!writer.isFinite())
    return Failure{ProjectFormatError{placeOfNonFinite(project), "The number is not finite"}};
  return {};
}

Result<void, ProjectFileError> writeProjectFile(const std::filesystem::path& path,
                                                const FontProject& project) {
  auto replacement = FileReplacement::begin(path);
  if (!replacement) return Failure{ProjectFileError{path, replacement.error().reason}};
  Result<void, FileError> written;
  const auto encoded = encodeProject(project, [&](std::string_view piece) {
    written = replacement.value().append(piece);
    return written.ok();
  });
  if (!encoded) return Failure{ProjectFileError{path, encoded.error().description()}};
  if (written) written = replacement.value().commit();
  if (!written) return Failure{ProjectFileError{path, written.error().reason}};
  return {};
}

} // namespace quillery

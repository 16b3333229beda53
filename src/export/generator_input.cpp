#include "export/generator_input.h"

#include "base/console.h"
#include "base/json_writer.h"
#include "base/numbers.h"
#include "base/parallel.h"
#include "base/unicode.h"
#include "base/uuid.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fcntl.h>
#include <span>
#include <system_error>
#include <unistd.h>

namespace quillery {
namespace {

namespace fs = std::filesystem;

struct FontLength {
  std::string_view name;
  double FontInfo::*value;
};
constexpr FontLength kFontLengths[] = {
    {"ascender", &FontInfo::ascender},
    {"descender", &FontInfo::descender},
    {"capHeight", &FontInfo::capHeight},
    {"xHeight", &FontInfo::xHeight},
};

struct GlyphLength {
  std::string_view name;
  double (Glyph::*value)() const;
};
constexpr GlyphLength kGlyphLengths[] = {
    {"advanceWidth", &Glyph::advanceWidth},
    {"leftSideBearing", &Glyph::leftSideBearing},
    {"rightSideBearing", &Glyph::rightSideBearing},
};

// The first number, in the order of the document, that has no JSON form.
std::string placeOfNonFinite(const FontProject& project) {
  const auto glyphMember = [](const Glyph& glyph) -> std::string {
    for (const GlyphLength& length : kGlyphLengths)
      if (!std::isfinite((glyph.*length.value)())) return std::string(length.name);
    const PlacedCommands commands = glyph.fontPath().commands();
    for (std::size_t i = 0; i < commands.size(); ++i)
      for (const Point p : commands[i].points)
        if (!std::isfinite(p.x) || !std::isfinite(p.y))
          return "fontPath[" + std::to_string(i) + "]";
    return {};
  };
  for (const FontLength& length : kFontLengths)
    if (!std::isfinite(project.*length.value)) return std::string(length.name);
  for (std::size_t i = 0; i < project.glyphs.size(); ++i) {
    const Glyph& glyph = project.glyphs[i];
    if (const std::string member = glyphMember(glyph); !member.empty())
      return "glyphs[" + std::to_string(i) + "]." + member + " of glyph \"" + glyph.name() + "\"";
  }
  for (std::size_t i = 0; i < project.kerningPairs.size(); ++i)
    if (!std::isfinite(project.kerningPairs[i].value))
      return "kerningPairs[" + std::to_string(i) + "].value";
  return {};
}

class DocumentWriter {
public:
  Result<std::string, GeneratorInputError> write(const FontProject& project);

private:
  struct Piece {
    std::string text;
    bool isFinite;
  };

  void text(std::string_view key, std::string_view value) {
    out_.raw(key);
    out_.string(value);
  }
  void length(std::string_view indent, std::string_view name, double value) {
    out_.raw(indent);
    out_.raw(name);
    out_.raw("\" : ");
    out_.number(value);
  }
  void point(std::string_view name, Point p) {
    out_.raw(name);
    out_.raw(" : { \"x\" : ");
    out_.number(p.x);
    out_.raw(", \"y\" : ");
    out_.number(p.y);
    out_.raw(" }");
  }
  void command(const PathCommand& command);
  void glyph(const Glyph& glyph);
  bool glyphs(const std::vector<Glyph>& glyphs);
  void pair(const KerningPair& pair);
  template <typename List, typename Write>
  void items(std::string_view indent, const List& items, Write writeItem);
  template <typename List, typename Write>
  void list(std::string_view name, std::string_view indent, const List& items, Write writeItem);
  Piece finish() {
    out_.finish();
    return {std::move(document_), out_.isFinite()};
  }

  std::string document_;
  JsonWriter out_{[this](std::string_view piece) {
    document_.append(piece);
    return true;
  }};
};

template <typename List, typename Write>
void DocumentWriter::items(std::string_view indent, const List& items, Write writeItem) {
  bool first = true;
  for (const auto& item : items) {
    out_.raw(first ? "\n  " : ",\n  ");
    out_.raw(indent);
    first = false;
    writeItem(item);
  }
}

template <typename List, typename Write>
void DocumentWriter::list(std::string_view name, std::string_view indent, const List& items,
                          Write writeItem) {
  out_.raw(",\n");
  out_.raw(indent);
  out_.raw(name);
  out_.raw(" : [");
  this->items(indent, items, writeItem);
  if (!items.empty()) {
    out_.raw("\n");
    out_.raw(indent);
  }
  out_.raw("]");
}

void DocumentWriter::command(const PathCommand& command) {
  switch (command.kind) {
  case PathCommand::Kind::moveTo:
    point("{ \"type\" : \"moveTo\", \"point\"", command.points[0]);
    break;
  case PathCommand::Kind::lineTo:
    point("{ \"type\" : \"lineTo\", \"point\"", command.points[0]);
    break;
  case PathCommand::Kind::curveTo:
    point("{ \"type\" : \"curveTo\", \"control1\"", command.points[0]);
    point(", \"control2\"", command.points[1]);
    point(", \"point\"", command.points[2]);
    break;
  case PathCommand::Kind::closePath:
    out_.raw("{ \"type\" : \"closePath\"");
    break;
  }
  out_.raw(" }");
}

void DocumentWriter::glyph(const Glyph& glyph) {
  text("{\n      \"name\" : ", glyph.name());
  if (glyph.unicode()) text(",\n      \"unicode\" : ", *glyph.unicode());
  for (const GlyphLength& member : kGlyphLengths)
    length(",\n      \"", member.name, (glyph.*member.value)());
  list("\"fontPath\"", "      ", glyph.fontPath().commands(),
       [this](const PathCommand& c) { command(c); });
  out_.raw("\n    }");
}

// Writes the list on several threads, some glyphs a piece; false if a number was not finite.
bool DocumentWriter::glyphs(const std::vector<Glyph>& glyphs) {
  constexpr std::size_t kPiece = 64;
  bool isFinite = true;
  out_.raw(",\n  \"glyphs\" : [");
  produceInOrder((glyphs.size() + kPiece - 1) / kPiece,
                 [&](std::size_t piece) {
                   const std::size_t first = piece * kPiece;
                   DocumentWriter writer;
                   writer.items(
                       "  ",
                       std::span(glyphs).subspan(first, std::min(kPiece, glyphs.size() - first)),
                       [&](const Glyph& g) { writer.glyph(g); });
                   return writer.finish();
                 },
                 [&](std::size_t index, const Piece& piece) {
                   if (index > 0) out_.raw(",");
                   out_.raw(piece.text);
                   isFinite = isFinite && piece.isFinite;
                   return true;
                 });
  out_.raw(glyphs.empty() ? "]" : "\n  ]");
  return isFinite;
}

void DocumentWriter::pair(const KerningPair& pair) {
  text("{ \"leftGlyph\" : ", pair.leftGlyph);
  text(", \"rightGlyph\" : ", pair.rightGlyph);
  out_.raw(", \"value\" : ");
  out_.number(pair.value);
  out_.raw(" }");
}

Result<std::string, GeneratorInputError> DocumentWriter::write(const FontProject& project) {
  text("{\n  \"name\" : ", project.name);
  text(",\n  \"designer\" : ", project.designer);
  text(",\n  \"version\" : ", project.version);
  text(",\n  \"copyright\" : ", project.copyright);
  out_.raw(",\n  \"unitsPerEm\" : ");
  out_.integer(project.unitsPerEm);
  for (const FontLength& member : kFontLengths)
    length(",\n  \"", member.name, project.*member.value);
  const bool glyphsAreFinite = glyphs(project.glyphs);
  list("\"kerningPairs\"", "  ", project.kerningPairs, [this](const KerningPair& p) { pair(p); });
  out_.raw("\n}");
  Piece document = finish();
  if (!document.isFinite || !glyphsAreFinite)
    return Failure{GeneratorInputError{placeOfNonFinite(project), "The number is not finite"}};
  return std::move(document.text);
}

void printKerningPairs(const FontProject& project) {
  printLine("\n=== Generator input document ===");
  printLine("Kerning pairs in project: " + std::to_string(project.kerningPairs.size()));
  for (const KerningPair& pair : project.kerningPairs)
    printLine("  " + pair.leftGlyph + " + " + pair.rightGlyph + " = " +
              formatShortestWithFraction(pair.value));
}

void printPreview(std::string_view document) {
  constexpr int kCharacters = 500;
  // A megabyte of marks on one letter is no preview. Cut between two scalars.
  constexpr std::size_t kWindow = 1024 * 1024;
  std::size_t window = std::min(document.size(), kWindow);
  while (window < document.size() && (document[window] & 0xC0) == 0x80) --window;
  std::string_view rest = document.substr(0, window);
  for (int i = 0; i < kCharacters; ++i) rest.remove_prefix(firstCharacter(rest).size());
  printLine("\nJSON preview (first " + std::to_string(kCharacters) + " chars):");
  printLine(document.substr(0, window - rest.size()));
}

// Readable by its owner only: the folder for temporary files is everyone's.
std::error_code writeNewFile(const fs::path& path, std::string_view content) {
  const auto lastError = [] { return std::error_code(errno, std::generic_category()); };
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (file < 0) return lastError();
  std::error_code error;
  while (!content.empty() && !error) {
    const ssize_t written = write(file, content.data(), content.size());
    if (written >= 0)
      content.remove_prefix(static_cast<std::size_t>(written));
    else if (errno != EINTR)
      error = lastError();
  }
  if (close(file) != 0 && !error) error = lastError();
  return error;
}

} // namespace

std::string GeneratorInputError::description() const {
  return place + ": " + reason;
}

Result<std::string, GeneratorInputError> createJSONData(const FontProject& project) {
  printKerningPairs(project);
  auto document = DocumentWriter().write(project);
  if (document && isValidUtf8(document.value())) printPreview(document.value());
  return document;
}

Result<fs::path, GeneratorInputError> writeGeneratorInput(const FontProject& project) {
  std::error_code error;
  fs::path folder = fs::temp_directory_path(error);
  if (!error) folder = fs::absolute(folder, error);
  if (error) return Failure{GeneratorInputError{"The folder for temporary files", error.message()}};
  const fs::path file = folder / ("font_data_" + Uuid::random().toString() + ".json");
  printLine("   Creating JSON at: " + file.string());
  const auto document = createJSONData(project);
  if (!document) return Failure{document.error()};
  if ((error = writeNewFile(file, document.value())))
    return Failure{GeneratorInputError{file.string(), error.message()}};
  printLine("✓ JSON written to: " + file.string());
  return file;
}

} // namespace quillery

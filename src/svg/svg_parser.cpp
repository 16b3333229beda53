#include "svg/svg_parser.h"

#include "base/console.h"
#include "base/numbers.h"
#include "base/unicode.h"
#include "svg/glyph_identity.h"
#include "svg/path_converter.h"

#include <re2/re2.h>

namespace quillery::SVGParser {
namespace {

const RE2& pathPattern() {
  // Latin-1 makes every byte a character, which costs nothing: all bytes that matter are ASCII.
  static const RE2 pattern(R"re(<path[^>]*d="[^"]+")re", RE2::Latin1);
  return pattern;
}

// What stands between the numbers of path data that is read in full: command letters, commas and
// spaces.
constexpr bool isSeparator(char c) {
  switch (c) {
  case 'M':
  case 'm':
  case 'L':
  case 'l':
  case 'C':
  case 'c':
  case 'Z':
  case 'z':
  case ',':
  case ' ':
    return true;
  default:
    return false;
  }
}

} // namespace

std::optional<std::string_view> findPathData(std::string_view svg) {
  // Without a group to capture the engine gets by with its fast automaton. The value is what
  // stands between the last two quotes of the match.
  re2::StringPiece match;
  const re2::StringPiece text(svg.data(), svg.size());
  if (!pathPattern().Match(text, 0, text.size(), RE2::UNANCHORED, &match, 1)) return std::nullopt;
  std::string_view found(match.data(), match.size() - 1);
  return found.substr(found.rfind('"') + 1);
}

Rect computeViewBox(std::string_view pathData) {
  DrawnBox box;
  double x = 0;
  bool haveX = false;
  std::size_t begin = 0;
  while (begin < pathData.size()) {
    if (isSeparator(pathData[begin])) {
      ++begin;
      continue;
    }
    std::size_t end = begin + 1;
    while (end < pathData.size() && !isSeparator(pathData[end])) ++end;
    const auto number = parseDecimal(trimSpaces(pathData.substr(begin, end - begin)));
    begin = end;
    if (!number) continue;
    haveX = !haveX;
    if (haveX)
      x = *number;
    else
      box.add({x, *number});
  }
  return box.rect();
}

DrawnPath readPath(std::string_view pathData) {
  if (auto plain = readPlainPath(pathData)) return *std::move(plain);
  return {PathConverter::parsePathData(pathData), computeViewBox(pathData)};
}

Result<UnplacedDrawing, std::string> readDrawing(const std::filesystem::path& file,
                                                 FileBytes& buffer) {
  if (!readFile(file, buffer) || !isValidUtf8(buffer.view()))
    return Failure{"Failed to read SVG file: " + fileUrl(file)};
  const Utf8 fileName = Utf8::mended(file.stem().string());
  const auto pathData = findPathData(buffer.view());
  if (!pathData) return Failure{"Failed to extract path data from: " + fileName};
  GlyphRecord glyph;
  glyph.id = Uuid::random();
  if (const auto character = unicodeForFileName(fileName)) glyph.unicode = Utf8::mended(*character);
  glyph.name = Utf8::mended(glyphNameForFileName(fileName));
  glyph.svgPath = SharedText(Utf8::mended(*pathData)); // of a file that is UTF-8
  DrawnPath path = readPath(*pathData);
  glyph.viewBox = path.viewBox;
  return UnplacedDrawing{Glyph(std::move(glyph)), std::move(path.outline)};
}

std::optional<Glyph> parseSVGFile(const std::filesystem::path& file) {
  FileBytes buffer;
  auto drawing = readDrawing(file, buffer);
  if (drawing) return std::move(drawing).value().glyph;
  printLine(drawing.error());
  return std::nullopt;
}

} // namespace quillery::SVGParser

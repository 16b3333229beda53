#include "svg/svg_parser.h"

#include "base/console.h"
#include "base/numbers.h"
#include "base/unicode.h"
#include "svg/glyph_identity.h"
#include "svg/path_converter.h"

#include <algorithm>

namespace quillery::SVGParser {
namespace {

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
  constexpr std::string_view kElement = "<path";
  constexpr auto kNone = std::string_view::npos;
  std::size_t quote = 0; // never goes back, so that the time is linear
  for (std::size_t path = svg.find(kElement); path != kNone;) {
    const std::size_t begin = path + kElement.size();
    const std::size_t end = std::min(svg.find('>', begin), svg.size());
    std::optional<std::string_view> last;
    if (quote < begin) quote = svg.find('"', begin);
    while (quote < end) {
      const std::size_t next = svg.find('"', quote + 1); // perhaps behind a ">" in the value
      const bool opens = quote >= begin + 2 && svg[quote - 2] == 'd' && svg[quote - 1] == '=';
      if (opens && next != kNone && next > quote + 1)
        last = svg.substr(quote + 1, next - quote - 1);
      quote = next;
    }
    if (last) return last;
    path = svg.find(kElement, end); // another one before that has no more to offer
  }
  return std::nullopt;
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

std::string unreadable(const std::filesystem::path& file) {
  return "Failed to read SVG file: " + fileUrl(file);
}

UnplacedDrawing drawingOf(const Utf8& fileName, Utf8 pathData) {
  GlyphRecord glyph;
  glyph.id = Uuid::random();
  if (const auto character = unicodeForFileName(fileName)) glyph.unicode = Utf8::mended(*character);
  glyph.name = Utf8::mended(glyphNameForFileName(fileName));
  DrawnPath path = readPath(pathData);
  glyph.svgPath = SharedText(std::move(pathData));
  glyph.viewBox = path.viewBox;
  return {Glyph(std::move(glyph)), std::move(path.outline), path.isPlain};
}

Result<UnplacedDrawing, std::string> readDrawing(const std::filesystem::path& file,
                                                 std::string_view content) {
  if (!isValidUtf8(content)) return Failure{unreadable(file)};
  const auto pathData = findPathData(content);
  const Utf8 fileName = Utf8::mended(file.stem().string());
  if (!pathData) return Failure{"Failed to extract path data from: " + fileName};
  return drawingOf(fileName, Utf8::mended(*pathData)); // of a file that is UTF-8
}

std::optional<Glyph> parseSVGFile(const std::filesystem::path& file) {
  FileBytes buffer;
  const auto read = readFile(file, buffer);
  auto drawing = read ? readDrawing(file, buffer.view())
                      : Result<UnplacedDrawing, std::string>(Failure{unreadable(file)});
  if (drawing) return std::move(drawing).value().glyph;
  printLine(drawing.error());
  return std::nullopt;
}

} // namespace quillery::SVGParser

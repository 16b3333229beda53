#include "made_projects.h"

#include "base/unicode.h"
#include "svg/path_converter.h"
#include "svg/svg_parser.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <random>
#include <vector>

namespace quillery::bench {
namespace {

std::string nameOf(std::size_t number) {
  char text[16];
  std::snprintf(text, sizeof(text), "g%05zu", number);
  return text;
}

std::string characterOf(std::size_t number) {
  return scalarText(static_cast<char32_t>(0x4E00 + number));
}

} // namespace

std::string madePathData(unsigned number) {
  std::mt19937 random(number);
  std::uniform_real_distribution<double> at(0, 100);
  std::string data;
  char piece[160];
  const auto xy = [&] { return std::round(at(random) * 100) / 100; };
  for (int contour = 0; contour < 2; ++contour) {
    std::snprintf(piece, sizeof(piece), "M%.2f %.2f", xy(), xy());
    data += piece;
    for (int i = 0; i < 25; ++i) {
      if (i % 5 == 4)
        std::snprintf(piece, sizeof(piece), " L%.2f %.2f", xy(), xy());
      else
        std::snprintf(piece, sizeof(piece), " C%.2f %.2f %.2f %.2f %.2f %.2f", xy(), xy(), xy(),
                      xy(), xy(), xy());
      data += piece;
    }
    data += " Z ";
  }
  return data;
}

std::string madeLetterData(unsigned number) {
  constexpr int kCurves = 25;
  std::mt19937 random(number);
  std::uniform_real_distribution<double> roughness(0.94, 1.06);
  std::uniform_real_distribution<double> proportion(0.4, 0.75);
  const double width = 50 * proportion(random) + 10;
  const double counter = proportion(random);
  std::string data;
  char piece[160];
  for (const double size : {1.0, counter}) {
    std::vector<Point> points(kCurves);
    for (int i = 0; i < kCurves; ++i) {
      // The inner contour runs the other way round.
      const double angle = (size == 1 ? i : kCurves - i) * 2 * 3.141592653589793 / kCurves;
      const double radius = size * roughness(random);
      points[static_cast<std::size_t>(i)] = {50 + width * radius * std::cos(angle),
                                             50 + 45 * radius * std::sin(angle)};
    }
    const auto at = [&](int i) {
      return points[static_cast<std::size_t>((i + kCurves) % kCurves)];
    };
    std::snprintf(piece, sizeof(piece), "M%.2f %.2f", at(0).x, at(0).y);
    data += piece;
    for (int i = 0; i < kCurves; ++i) {
      const auto [p, a, b, n] = std::array{at(i - 1), at(i), at(i + 1), at(i + 2)};
      std::snprintf(piece, sizeof(piece), " C%.2f %.2f %.2f %.2f %.2f %.2f", a.x + (b.x - p.x) / 6,
                    a.y + (b.y - p.y) / 6, b.x - (n.x - a.x) / 6, b.y - (n.y - a.y) / 6, b.x, b.y);
      data += piece;
    }
    data += " Z ";
  }
  return data;
}

FontProject madeProject(std::size_t glyphs, std::size_t pairs, MakePathData drawing) {
  FontProject project;
  for (std::size_t i = 0; i < glyphs; ++i) {
    GlyphRecord record;
    record.id = Uuid::random();
    record.name = Utf8::mended(nameOf(i));
    record.unicode = Utf8::mended(characterOf(i));
    const std::string data = drawing(static_cast<unsigned>(i));
    record.svgPath = SharedText(Utf8::mended(data));
    record.viewBox = SVGParser::computeViewBox(data);
    const auto placed = PathConverter::convertToFontCoordinates(data, record.viewBox, 1000);
    record.fontPath = placed.fontPath;
    record.boundingBox = placed.boundingBox;
    project.glyphs.push_back(Glyph(std::move(record)));
  }
  for (std::size_t i = 0; i < pairs; ++i) {
    KerningPair pair;
    pair.leftGlyph = Utf8::mended(nameOf(i % glyphs));
    pair.rightGlyph = Utf8::mended(nameOf((i * 7 + i / glyphs) % glyphs));
    pair.value = -static_cast<int>(i % 100);
    project.kerningPairs.push_back(pair);
  }
  return project;
}

DrawingFolder::DrawingFolder(std::size_t drawings)
    : path_(std::filesystem::temp_directory_path() /
            ("quillery-drawings-" + Uuid::random().toString())) {
  std::filesystem::create_directories(path_);
  for (std::size_t i = 0; i < drawings; ++i) {
    std::ofstream(path_ / (nameOf(i) + ".svg"))
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 100 100\">\n  <path "
           "fill=\"#000\" d=\""
        << madePathData(static_cast<unsigned>(i)) << "\"/>\n</svg>\n";
  }
}

DrawingFolder::~DrawingFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

} // namespace quillery::bench

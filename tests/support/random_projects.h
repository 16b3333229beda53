#pragma once

#include "support/projects.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace quillery::test {

// Makes projects of every value that a document can hold.
struct RandomProjects {
  std::mt19937_64 random{5};

  double number() {
    if (random() % 2 == 0) return static_cast<double>(random() % 4'000'000) / 1000 - 2000;
    const auto any = std::bit_cast<double>(random());
    return std::isfinite(any) ? any : -0.0;
  }

  Point point() { return {number(), number()}; }
  Rect rect() { return {number(), number(), number(), number()}; }

  std::string text() {
    const std::string_view pieces[] = {"A",      "\"", "\\", "/", "\n", "\x01", "ä",    "😀",
                                       "\u2028", "{[", "]}", ",", ":",  " ",    "\x7F", {"\0", 1}};
    std::string result;
    for (auto n = random() % 12; n > 0; --n) result += pieces[random() % std::size(pieces)];
    return result;
  }

  Glyph glyph() {
    GlyphRecord g{{number(), number(), number(), number(), number(), rect(), {}},
                  Uuid::random(),
                  {},
                  utf8(text()),
                  SharedText(utf8(text())),
                  rect()};
    if (random() % 3 != 0) g.unicode = utf8(text());
    g.fontPath = {PathCommand::moveTo(point()), PathCommand::lineTo(point()),
                  PathCommand::curveTo(point(), point(), point()), PathCommand::closePath()};
    return Glyph(g);
  }

  FontProject next() {
    FontProject project;
    for (Utf8* member : {&project.name, &project.designer, &project.version, &project.copyright})
      *member = utf8(text());
    project.unitsPerEm = static_cast<std::int64_t>(random());
    for (double* length : {&project.ascender, &project.descender, &project.capHeight,
                           &project.xHeight, &project.lineGap})
      *length = number();
    for (auto n = random() % 8; n > 0; --n) project.glyphs.push_back(glyph());
    for (auto n = random() % 8; n > 0; --n)
      project.kerningPairs.push_back(makePair(text(), text(), number()));
    return project;
  }
};

} // namespace quillery::test

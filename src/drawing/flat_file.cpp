#include "drawing/flat_file.h"

#include "base/numbers.h"

#include <cmath>
#include <string_view>

namespace quillery {
namespace {

// The reader of such files takes no exponents. What would need one is nothing or beyond every font.
std::string plainNumber(double value) {
  std::string text = formatShortest(value);
  if (text.find('e') == text.npos) return text;
  return std::fabs(value) < 1 ? "0" : formatFixed(value);
}

// Path data of letters and pairs of numbers, with x and y put elsewhere.
std::string moved(std::string_view pathData, Point origin, double scale) {
  std::string out;
  out.reserve(pathData.size() * 2);
  bool isX = true;
  for (std::size_t i = 0; i < pathData.size();) {
    double value = 0;
    const char* const begin = pathData.data() + i;
    const char* const end = readPlainDecimal(begin, pathData.data() + pathData.size(), value);
    if (!end) {
      out += pathData[i++];
      continue;
    }
    out += plainNumber((value - (isX ? origin.x : origin.y)) * scale);
    isX = !isX;
    i += static_cast<std::size_t>(end - begin);
  }
  return out;
}

} // namespace

std::string flatFile(const FlatDrawing& drawing, FlatFit fit) {
  constexpr double kHeight = 100;
  Rect page = drawing.artboard.page;
  std::string pathData = drawing.pathData;
  if (fit == FlatFit::artboard) {
    const double scale = kHeight / page.height;
    pathData = moved(pathData, {page.x, page.y}, scale);
    page = {0, 0, page.width * scale, kHeight};
  }
  std::string box;
  for (const double number : {page.x, page.y, page.width, page.height})
    box += (box.empty() ? "" : " ") + plainNumber(number);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"" + box + "\"><path d=\"" + pathData +
         "\"/></svg>\n";
}

} // namespace quillery

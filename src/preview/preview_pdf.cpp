#include "model/contours.h"
#include "preview/preview_document.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

namespace quillery {
namespace {

constexpr int kDecimals = 10;
constexpr double kLargestPage = 14400; // units; larger pages have larger units

// Numbers of this format have no exponents.
std::string plain(double value) {
  std::array<char, 400> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::fixed, kDecimals);
  std::string text(digits.data(), end);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string row(std::initializer_list<double> numbers) {
  std::string text;
  for (const double number : numbers) text += plain(number) + " ";
  return text;
}

// Empty when there is nothing to draw.
std::string pathData(const Outline& outline) {
  std::string data;
  for (const PathCommand& command : contoursOf(outline)) {
    const auto& p = command.points;
    switch (command.kind) {
    case PathCommand::Kind::moveTo:
      data += row({p[0].x, p[0].y}) + "m\n";
      break;
    case PathCommand::Kind::lineTo:
      data += row({p[0].x, p[0].y}) + "l\n";
      break;
    case PathCommand::Kind::curveTo:
      data += row({p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y}) + "c\n";
      break;
    case PathCommand::Kind::closePath:
      data += "h\n";
      break;
    }
  }
  return data.empty() ? data : data + "f\n";
}

// Objects written one after the other, and the table that says where each begins.
class PdfFile {
public:
  void add(const std::string& object) {
    begins_.push_back(bytes_.size());
    bytes_ += std::to_string(begins_.size()) + " 0 obj\n" + object + "\nendobj\n";
  }
  void addStream(const std::string& entries, const std::string& data) {
    add("<<" + entries + " /Length " + std::to_string(data.size()) + ">>\nstream\n" + data +
        "endstream");
  }
  std::string finish() {
    const std::string size = std::to_string(begins_.size() + 1);
    const std::size_t table = bytes_.size();
    bytes_ += "xref\n0 " + size + "\n0000000000 65535 f \n";
    for (const std::size_t begin : begins_) {
      const std::string offset = std::to_string(begin);
      bytes_.append(10 - offset.size(), '0').append(offset).append(" 00000 n \n");
    }
    bytes_ += "trailer\n<</Size " + size + " /Root 1 0 R>>\nstartxref\n" + std::to_string(table) +
              "\n%%EOF\n";
    return std::move(bytes_);
  }

private:
  std::string bytes_ = "%PDF-1.6\n";
  std::vector<std::size_t> begins_;
};

} // namespace

std::string previewPdf(const TextLayout& layout, const FontProject& project) {
  const Size page = layout.contentSize;
  const double unit = std::max(1.0, std::ceil(std::max(page.width, page.height) / kLargestPage));
  const std::string paper = row({0, 0, page.width / unit, page.height / unit});

  constexpr std::size_t kFirstOutline = 5;
  std::map<std::size_t, std::size_t> objects;      // by glyph; 0 for one that draws nothing
  std::vector<std::pair<Rect, std::string>> forms; // boxes and path data of the objects
  std::string content = "1 g " + paper + "re f 0.067 g\n";
  for (const SetCharacter& set : layout.characters) {
    const Point origin{set.penX, page.height - layout.baseline(set.line)};
    if (!isFinite(origin)) continue;
    const auto [object, added] = objects.try_emplace(set.glyph, 0);
    if (added) {
      const Outline& outline = project.glyphs[set.glyph].fontPath();
      std::string data = pathData(outline);
      if (!data.empty()) {
        object->second = kFirstOutline + forms.size();
        forms.emplace_back(controlBox(outline), std::move(data));
      }
    }
    if (object->second == 0) continue;
    const double scale = layout.scale / unit;
    content += "q " + row({scale, 0, 0, scale, origin.x / unit, origin.y / unit}) + "cm /G" +
               std::to_string(object->second) + " Do Q\n";
  }

  PdfFile file;
  file.add("<</Type /Catalog /Pages 2 0 R>>");
  file.add("<</Type /Pages /Kids [3 0 R] /Count 1>>");
  std::string resources;
  for (std::size_t i = 0; i < forms.size(); ++i) {
    const std::string object = std::to_string(kFirstOutline + i);
    resources += "/G" + object + " " + object + " 0 R ";
  }
  file.add("<</Type /Page /Parent 2 0 R /MediaBox [" + paper + "] /UserUnit " + plain(unit) +
           " /Contents 4 0 R /Resources <</XObject <<" + resources + ">>>>>>");
  file.addStream("", content);
  for (const auto& [box, data] : forms)
    file.addStream("/Type /XObject /Subtype /Form /BBox [" +
                       row({box.minX(), box.minY(), box.maxX(), box.maxY()}) + "]",
                   data);
  return file.finish();
}

} // namespace quillery

#include "drawing/convert/painted_shapes.h"

#include "drawing/convert/matrix.h"
#include "drawing/convert/stroke_outline.h"
#include "drawing/convert/xml_tree.h"

#include <charconv>
#include <optional>
#include <unordered_map>

namespace quillery {
namespace {

using Element = XmlTree::Element;

// Paint of which every channel is above this is white to a reader: it is paper.
constexpr double kPaper = 0.9;

struct Paint {
  double red = 0, green = 0, blue = 0;
  double opacity = 1;
  /// White or clear in places.
  bool fades = false;

  bool isLight() const { return std::min({red, green, blue}) > kPaper; }
  bool isSeenOnPaper() const {
    return 1 - opacity * (1 - std::min({red, green, blue})) <= kPaper && opacity > 1 - kPaper;
  }
  bool hidesInk() const { return isLight() && opacity >= kPaper; }
};

// The numbers in a text, whatever stands between them.
std::vector<double> numbersIn(std::string_view text) {
  std::vector<double> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    double value = 0;
    const auto [next, error] = std::from_chars(at, end, value);
    if (error == std::errc()) {
      numbers.push_back(std::isfinite(value) ? value : 0);
      at = next;
    } else {
      ++at;
    }
  }
  return numbers;
}

double number(std::string_view text, double otherwise) {
  const auto numbers = numbersIn(text);
  return numbers.empty() ? otherwise : numbers[0];
}

Matrix matrixOf(std::string_view text) {
  const auto n = numbersIn(text);
  return n.size() == 6 ? Matrix{n[0], n[1], n[2], n[3], n[4], n[5]} : Matrix{};
}

// "surface5" of "#surface5" and of "url(#surface5)".
std::string_view idOf(std::string_view reference) {
  const std::size_t hash = reference.find('#');
  if (hash == reference.npos) return {};
  return reference.substr(hash + 1, reference.find(')', hash) - hash - 1);
}

// Path data as cairo writes it.
Contours readPath(std::string_view data, const Matrix& matrix) {
  Contours contours;
  Point pen, first;
  bool isOpen = false; // a contour that can be added to
  const char* at = data.data();
  const char* const end = at + data.size();
  const auto readPoint = [&] {
    double value[2] = {0, 0};
    for (double& coordinate : value) {
      while (at != end && *at == ' ') ++at;
      at = std::from_chars(at, end, coordinate).ptr;
      if (!std::isfinite(coordinate)) coordinate = 0;
    }
    return matrix({value[0], value[1]});
  };
  const auto add = [&](const Segment& segment) {
    if (!isOpen) contours.emplace_back().closed = false;
    isOpen = true;
    contours.back().segments.push_back(segment);
    pen = segment.end;
  };
  while (at != end) {
    switch (*at++) {
    case 'M':
      pen = first = readPoint();
      isOpen = false;
      break;
    case 'L':
      add(Segment::line(pen, readPoint()));
      break;
    case 'C': {
      const Point c1 = readPoint();
      const Point c2 = readPoint();
      add(Segment::curve(pen, c1, c2, readPoint()));
      break;
    }
    case 'Z':
      if (!isOpen) add(Segment::line(pen, pen));
      contours.back().closed = true;
      isOpen = false;
      pen = first;
      break;
    default:
      break;
    }
  }
  return contours;
}

class PageReader {
public:
  PageReader(const XmlTree& tree, double scale) : tree_(tree), scale_(scale) {
    for (std::size_t i = 0; i < tree.elements.size(); ++i) {
      const std::string_view id = tree.elements[i].attribute("id");
      if (!id.empty()) byId_.emplace(id, i);
    }
  }

  PaintedPage read() {
    if (!tree_.elements.empty()) readChildren(0, {{scale_, 0, 0, scale_, 0, 0}, 1, {}, {}, 0});
    const bool anyInk = std::any_of(page_.shapes.begin(), page_.shapes.end(),
                                    [](const PaintedShape& shape) { return shape.isInk; });
    page_.isAllLight = !anyInk && !page_.shapes.empty();
    if (page_.isAllLight)
      for (PaintedShape& shape : page_.shapes) {
        shape.isInk = true;
        page_.seen.include(boxOf(shape.contours));
      }
    else
      std::erase_if(page_.shapes, [](const PaintedShape& shape) { return shape.isFaint; });
    return std::move(page_);
  }

private:
  using Clips = std::vector<std::shared_ptr<const ClipArea>>;
  struct Context {
    Matrix matrix;
    double opacity = 1;
    Clips clips;
    std::string_view style; // of the group around
    int depth = 0;
  };

  const Element& element(std::size_t i) const { return tree_.elements[i]; }

  std::size_t find(std::string_view reference) const {
    const auto found = byId_.find(idOf(reference));
    return found == byId_.end() ? XmlTree::kNone : found->second;
  }

  template <typename Visit> void forEachChild(std::size_t parent, const Visit& visit) const {
    for (std::size_t i = parent + 1; i < element(parent).end; i = element(i).end) visit(i);
  }

  void readChildren(std::size_t parent, const Context& context) {
    forEachChild(parent, [&](std::size_t i) { readElement(i, context); });
  }

  void readElement(std::size_t i, const Context& outer) {
    constexpr int kDeepest = 2000;
    const Element& e = element(i);
    if (outer.depth > kDeepest || e.name == "defs") return;
    if (e.name == "image") page_.hasImages = true;
    const bool isGroup = e.name == "g" || e.name == "use" || e.name == "symbol";
    if (!isGroup && e.name != "path" && e.name != "rect") return;

    Context context = outer;
    ++context.depth;
    if (const auto transform = e.attribute("transform"); !transform.empty())
      context.matrix = context.matrix * matrixOf(transform);
    if (const auto mask = e.attribute("mask"); !mask.empty()) context.opacity *= opacityOf(mask);
    if (const auto clip = e.attribute("clip-path"); !clip.empty())
      context.clips.push_back(clipArea(clip, e.attribute("clip-rule"), context.matrix));
    if (e.name == "use") {
      const Matrix shift{1, 0, 0, 1, number(e.attribute("x"), 0), number(e.attribute("y"), 0)};
      context.matrix = context.matrix * shift;
      const std::size_t target = find(e.attribute("href"));
      if (target == XmlTree::kNone) return;
      if (element(target).name == "image")
        page_.hasImages = true;
      else
        readElement(target, context);
    } else if (isGroup) {
      if (const auto style = e.attribute("style"); !style.empty()) context.style = style;
      readChildren(i, context);
    } else {
      paint(e, context);
    }
  }

  Contours outlineOf(const Element& e, const Matrix& matrix) const {
    if (e.name != "rect") return readPath(e.attribute("d"), matrix);
    const double x = number(e.attribute("x"), 0), y = number(e.attribute("y"), 0);
    const double w = number(e.attribute("width"), 0), h = number(e.attribute("height"), 0);
    const Point corners[] = {matrix({x, y}), matrix({x + w, y}), matrix({x + w, y + h}),
                             matrix({x, y + h})};
    Contour contour;
    for (std::size_t i = 0; i < 4; ++i)
      contour.segments.push_back(Segment::line(corners[i], corners[(i + 1) % 4]));
    return {contour};
  }

  std::shared_ptr<const ClipArea> clipArea(std::string_view reference, std::string_view rule,
                                           const Matrix& matrix) const {
    auto area = std::make_shared<ClipArea>();
    area->rule = rule == "evenodd" ? FillRule::evenOdd : FillRule::nonZero;
    if (const std::size_t clip = find(reference); clip != XmlTree::kNone)
      forEachChild(clip, [&](std::size_t i) {
        for (const Contour& contour :
             outlineOf(element(i), matrix * matrixOf(element(i).attribute("transform"))))
          addFilled(area->contours, contour);
      });
    return area;
  }

  // cairo masks a group by a rectangle of its opacity.
  double opacityOf(std::string_view mask) const {
    const std::size_t i = find(mask);
    if (i == XmlTree::kNone) return 1;
    for (std::size_t at = i + 1; at < element(i).end; ++at)
      if (const auto opacity = element(at).style("fill-opacity"); !opacity.empty())
        return number(opacity, 1);
    return 1;
  }

  static void addFilled(Contours& to, const Contour& contour) {
    Contour closed = filled(contour, kLeastLength);
    if (!closed.segments.empty()) to.push_back(std::move(closed));
  }

  // The paint of a fill or a stroke; nothing where there is none.
  std::optional<Paint> paintOf(std::string_view value, double opacity) const {
    if (value.empty() || value == "none") return std::nullopt;
    Paint paint;
    if (value.starts_with("rgb(")) {
      const auto n = numbersIn(value); // in percent
      if (n.size() == 3) paint = {n[0] / 100, n[1] / 100, n[2] / 100, 1, false};
    } else if (const std::size_t server = find(value); server != XmlTree::kNone) {
      paint = paintOfServer(server);
    }
    paint.opacity *= opacity;
    return paint;
  }

  // A gradient is the mean of its colours, a pattern is black.
  Paint paintOfServer(std::size_t server) const {
    std::vector<Paint> stops;
    forEachChild(server, [&](std::size_t i) {
      if (element(i).name != "stop") return;
      if (const auto stop =
              paintOf(element(i).style("stop-color"), number(element(i).style("stop-opacity"), 1)))
        stops.push_back(*stop);
    });
    Paint mean;
    mean.fades = element(server).name == "pattern";
    if (stops.empty()) return mean;
    const auto count = static_cast<double>(stops.size());
    const bool allLight =
        std::all_of(stops.begin(), stops.end(), [](const Paint& stop) { return stop.isLight(); });
    mean = {0, 0, 0, 0, false};
    for (const Paint& stop : stops) {
      mean.red += stop.red / count;
      mean.green += stop.green / count;
      mean.blue += stop.blue / count;
      mean.opacity += stop.opacity / count;
      mean.fades |= !allLight && !stop.isSeenOnPaper();
    }
    return mean;
  }

  void paint(const Element& e, const Context& context) {
    const auto style = [&](std::string_view name) {
      const std::string_view own = e.style(name);
      return own.empty() ? styleProperty(context.style, name) : own;
    };
    const auto opacity = [&](std::string_view name) {
      return number(style(name), 1) * context.opacity;
    };
    if (const auto fill = paintOf(style("fill"), opacity("fill-opacity"))) {
      Contours outline;
      for (const Contour& contour : outlineOf(e, context.matrix)) addFilled(outline, contour);
      const auto rule = style("fill-rule") == "evenodd" ? FillRule::evenOdd : FillRule::nonZero;
      if (!tile(find(style("fill")), {outline, rule}, context))
        add(std::move(outline), rule, *fill, context.clips);
    }
    if (const auto stroke = paintOf(style("stroke"), opacity("stroke-opacity"))) {
      Contours outline = strokeOutline(outlineOf(e, {}), strokeStyle(style, context.matrix));
      Contours placed;
      for (Contour& contour : outline) {
        for (Segment& s : contour.segments)
          for (Point* p : {&s.start, &s.c1, &s.c2, &s.end}) *p = context.matrix(*p);
        addFilled(placed, contour);
      }
      add(std::move(placed), FillRule::nonZero, *stroke, context.clips);
    }
  }

  // Paints an area with the tiles of a pattern; false when it is none, or has too many.
  bool tile(std::size_t pattern, const ClipArea& area, const Context& context) {
    if (pattern == XmlTree::kNone || element(pattern).name != "pattern") return false;
    constexpr double kMostTiles = 2500;
    const Element& e = element(pattern);
    const double width = number(e.attribute("width"), 0), height = number(e.attribute("height"), 0);
    const Matrix matrix = context.matrix * matrixOf(e.attribute("patternTransform"));
    const double size = matrix.determinant();
    const Box box = boxOf(area.contours);
    if (!(width > 0 && height > 0) || !(std::abs(size) > 0) || box.isEmpty()) return false;
    Box tiles; // in tiles
    for (const Point corner : {Point{box.minX, box.minY}, Point{box.maxX, box.minY},
                               Point{box.minX, box.maxY}, Point{box.maxX, box.maxY}}) {
      const Point p = corner - Point{matrix.e, matrix.f};
      tiles.add(Point{(matrix.d * p.x - matrix.c * p.y) / size / width,
                      (matrix.a * p.y - matrix.b * p.x) / size / height});
    }
    const double left = std::floor(tiles.minX), right = std::ceil(tiles.maxX);
    const double top = std::floor(tiles.minY), bottom = std::ceil(tiles.maxY);
    if (!((right - left) * (bottom - top) <= kMostTiles)) return false;
    Context inside = context;
    ++inside.depth;
    inside.clips.push_back(std::make_shared<ClipArea>(area));
    for (double y = top; y < bottom; ++y)
      for (double x = left; x < right; ++x) {
        inside.matrix = matrix * Matrix{1, 0, 0, 1, x * width, y * height};
        readChildren(pattern, inside);
      }
    return true;
  }

  template <typename Style>
  static StrokeStyle strokeStyle(const Style& style, const Matrix& matrix) {
    constexpr double kTolerance = kPageGrid * 2e-5;
    StrokeStyle result;
    result.tolerance = kTolerance / std::sqrt(std::max(std::abs(matrix.determinant()), 1e-12));
    result.width = number(style("stroke-width"), 1);
    const std::string_view cap = style("stroke-linecap"), join = style("stroke-linejoin");
    if (cap == "round") result.cap = StrokeStyle::Cap::round;
    if (cap == "square") result.cap = StrokeStyle::Cap::square;
    if (join == "round") result.join = StrokeStyle::Join::round;
    if (join == "bevel") result.join = StrokeStyle::Join::bevel;
    result.miterLimit = number(style("stroke-miterlimit"), result.miterLimit);
    result.dashes = numbersIn(style("stroke-dasharray"));
    if (result.dashes.size() % 2 != 0) // each takes the place of a gap the second time
      for (std::size_t i = 0, count = result.dashes.size(); i < count; ++i)
        result.dashes.push_back(result.dashes[i]);
    result.dashOffset = number(style("stroke-dashoffset"), 0);
    return result;
  }

  void add(Contours contours, FillRule rule, const Paint& paint, const Clips& clips) {
    if (contours.empty()) return;
    page_.hasFades |= paint.fades;
    constexpr double kNothing = 0.02; // a gradient can be as clear in the mean, and dark in places
    if (!paint.isLight() && paint.opacity > kNothing) page_.seen.include(boxOf(contours));
    if (paint.opacity <= 1 - kPaper) return;
    const double least = std::min({paint.red, paint.green, paint.blue});
    page_.hasPaperInk |= paint.hidesInk() && least < 0.999;
    const bool isFaint = !paint.isSeenOnPaper() && !paint.hidesInk();
    page_.shapes.push_back({std::move(contours), rule, clips, paint.isSeenOnPaper(), isFaint});
  }

  static constexpr double kLeastLength = 1.0 / 64;

  const XmlTree& tree_;
  const double scale_;
  std::unordered_map<std::string_view, std::size_t> byId_;
  PaintedPage page_;
};

} // namespace

Result<PaintedPage, std::string> readPaintedPage(std::string_view svg, double scale) {
  const auto tree = XmlTree::parse(svg);
  if (!tree) return Failure{tree.error()};
  return PageReader(tree.value(), scale).read();
}

Result<PaintedPage, std::string> paintedOn(PageSource& source) {
  double scale = 1;
  const auto written = writePage(source, scale);
  if (!written) return Failure{written.error()};
  return readPaintedPage(written.value(), scale);
}

} // namespace quillery

#include "drawing/convert/svg_document.h"

#include "base/numbers.h"
#include "base/unicode.h"
#include "drawing/convert/plain_bytes.h"
#include "svg/glyph_identity.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <set>

namespace quillery {
namespace {

using Element = XmlTree::Element;
using Kind = DrawingSheet::Guide::Kind;

// A length in pixels (CSS Values 3, 1in = 96px); nothing for none, for one of no extent and for one
// that depends on what is around.
std::optional<double> pixels(std::string_view text) {
  text = trimmed(text);
  const std::size_t unitAt = text.find_first_not_of("0123456789.+-eE");
  std::string_view digits = text.substr(0, unitAt);
  std::string_view unit = text.substr(std::min(text.size(), unitAt));
  if (digits.ends_with('e') || digits.ends_with('E')) { // of "em" and "ex"
    unit = text.substr(digits.size() - 1);
    digits.remove_suffix(1);
  }
  static constexpr std::array<std::pair<std::string_view, double>, 10> kUnits = {
      {{"", 1},
       {"px", 1},
       {"pt", 96 / 72.0},
       {"pc", 16},
       {"mm", 96 / 25.4},
       {"cm", 96 / 2.54},
       {"in", 96},
       {"em", 16},
       {"ex", 8},
       {"Q", 96 / 101.6}}};
  for (const auto& [name, size] : kUnits)
    if (unit == name) {
      const auto value = parseDecimal(digits);
      if (value && *value > 0 && std::isfinite(*value)) return *value * size;
    }
  return std::nullopt;
}

std::vector<double> numbers(std::string_view text) {
  std::vector<double> result;
  while (!text.empty()) {
    const std::size_t end = std::min(text.size(), text.find_first_of(", \t\r\n"));
    if (end > 0) {
      const auto value = parseDecimal(text.substr(0, end));
      if (!value || !std::isfinite(*value)) return {};
      result.push_back(*value);
    }
    text.remove_prefix(std::min(text.size(), end + 1));
  }
  return result;
}

std::optional<Rect> viewBoxOf(const Element& root) {
  const auto n = numbers(root.attribute("viewBox"));
  if (n.size() != 4 || n[2] <= 0 || n[3] <= 0) return std::nullopt;
  return Rect{n[0], n[1], n[2], n[3]};
}

// Where a view box comes to lie in a page (SVG 2, 8.6: preserveAspectRatio). One scale for both
// axes, also for "none": letters keep the proportions of their own units then.
Matrix userFromPixels(const Rect& viewBox, Size page, std::string_view aspect) {
  const double sx = page.width / viewBox.width, sy = page.height / viewBox.height;
  if (aspect.find("none") != aspect.npos) return {1 / sy, 0, 0, 1 / sy, viewBox.x, viewBox.y};
  const double s = aspect.find("slice") != aspect.npos ? std::max(sx, sy) : std::min(sx, sy);
  const auto share = [&](std::string_view least, std::string_view most) {
    return aspect.find(least) != aspect.npos ? 0.0 : aspect.find(most) != aspect.npos ? 1.0 : 0.5;
  };
  const double left = (page.width - viewBox.width * s) * share("xMin", "xMax");
  const double top = (page.height - viewBox.height * s) * share("YMin", "YMax");
  return {1 / s, 0, 0, 1 / s, viewBox.x - left / s, viewBox.y - top / s};
}

// Which line of letters a name means.
std::optional<Kind> guideKind(std::string_view name) {
  std::string plain;
  for (const char c : lowercased(std::string(name)))
    if (c >= 'a' && c <= 'z') plain += c;
  if (plain == "baseline" || plain == "base") return Kind::baseline;
  if (plain == "xheight") return Kind::xHeight;
  if (plain == "capheight" || plain == "capsheight") return Kind::capHeight;
  if (plain == "ascender" || plain == "ascenders") return Kind::ascender;
  if (plain == "descender" || plain == "descenders") return Kind::descender;
  return std::nullopt;
}

// Some programs write what an identifier may not hold as its code, "_x41_" for "A", and number
// those that there are several of, "A_1_".
std::string withoutEscapes(std::string_view name) {
  static constexpr std::string_view kHexadecimal = "0123456789ABCDEFabcdef";
  std::string result;
  while (!name.empty()) {
    const std::size_t end = name.find('_', 2);
    const std::string_view code = end == name.npos ? "" : name.substr(2, end - 2);
    std::uint32_t character = 0;
    if (name.starts_with("_x") && !code.empty() && code.size() <= 6 &&
        code.find_first_not_of(kHexadecimal) == code.npos &&
        std::from_chars(code.data(), code.data() + code.size(), character, 16).ec == std::errc() &&
        character < 0xD800) {
      result += scalarText(character);
      name.remove_prefix(end + 1);
    } else {
      result += name.front();
      name.remove_prefix(1);
    }
  }
  if (result.size() > 3 && result.ends_with('_')) {
    const std::size_t before = result.find_last_not_of("0123456789", result.size() - 2);
    if (before != result.npos && before > 0 && before < result.size() - 2 && result[before] == '_')
      result.resize(before);
  }
  return result;
}

bool isDrawn(std::string_view name) {
  static const std::set<std::string_view> kDrawn = {
      "g",    "path",     "rect", "circle", "ellipse", "line", "polygon",
      "text", "polyline", "use",  "svg",    "switch",  "a"};
  return kDrawn.contains(name);
}

} // namespace

Result<SvgDocument, std::string> SvgDocument::parse(std::string_view file) {
  auto text = plainBytes(file);
  if (!text) return Failure{text.error()};
  SvgDocument document;
  document.text_ = std::move(text).value();
  auto tree = XmlTree::parse(document.text_);
  if (!tree) return Failure{tree.error()};
  document.tree_ = std::move(tree).value();
  if (document.root().name != "svg") return Failure{std::string("it is no SVG drawing")};
  document.readSize();
  document.readGuides();
  document.readNotes();
  return document;
}

void SvgDocument::readSize() {
  const auto width = pixels(root().attribute("width"));
  const auto height = pixels(root().attribute("height"));
  const auto viewBox = viewBoxOf(root());
  if (width && height)
    size_ = Size{*width, *height};
  else if (viewBox && width)
    size_ = Size{*width, *width * viewBox->height / viewBox->width};
  else if (viewBox && height)
    size_ = Size{*height * viewBox->width / viewBox->height, *height};
  else if (viewBox)
    size_ = Size{viewBox->width, viewBox->height};
  if (!viewBox || !size_) return;
  const double side = std::max(size_->width, size_->height);
  constexpr double kSide = 1000; // of a page that is drawn larger or smaller than any screen
  if (side < 1 || side > 100 * kSide)
    size_ = Size{size_->width * kSide / side, size_->height * kSide / side};
  userFromPixels_ =
      quillery::userFromPixels(*viewBox, *size_, root().attribute("preserveAspectRatio"));
  // Path data has seven decimals and no exponents.
  const double units = std::max(viewBox->width, viewBox->height);
  if (units >= 0.01 && units <= 1e9) return;
  const double factor = 100 / units;
  userFromPixels_ = Matrix{factor, 0, 0, factor, 0, 0} * userFromPixels_;
  notes_.push_back(Utf8("its page is 100 units large, as its own can't be written"));
}

void SvgDocument::readGuides() {
  for (std::size_t i = 1; i < tree_.elements.size(); ++i) {
    const Element& e = tree_.elements[i];
    const auto named = [&](std::string_view attribute) {
      return guideKind(e.attribute(attribute));
    };
    if (e.name == "guide") {
      // Its position is counted from the lower left corner of the page, upwards.
      const auto kind = named("label");
      const auto position = numbers(e.attribute("position"));
      const auto direction = numbers(e.attribute("orientation"));
      const bool isLevel = direction.size() == 2 && direction[0] == 0 && direction[1] != 0;
      if (!kind || position.size() != 2 || !isLevel || !size_) continue;
      const Point corner = userFromPixels_({0, size_->height});
      guides_.push_back({*kind, corner.y - position[1]});
      continue;
    }
    if (!isDrawn(e.name)) continue;
    std::optional<Kind> kind = named("label");
    if (!kind) kind = named("id");
    if (!kind) kind = named("data-name");
    for (std::size_t k = i + 1; !kind && k < e.end && k < i + 2; ++k)
      if (tree_.elements[k].name == "title") kind = guideKind(trimmed(tree_.elements[k].text));
    if (!kind) continue;
    guideLayers_.push_back({*kind, i});
    i = e.end - 1; // what lies within goes with it
  }
}

void SvgDocument::readNotes() {
  std::size_t images = 0;
  bool masks = false, filters = false, external = false;
  std::string set;
  for (const Element& e : tree_.elements) {
    images += e.name == "image";
    masks |= !e.style("mask").empty() && e.style("mask") != "none";
    filters |= !e.style("filter").empty() && e.style("filter") != "none";
    hasText_ |= e.name == "text";
    if (e.name == "text" || e.name == "tspan") set += trimmed(e.text);
    const std::string_view link = e.attribute("href");
    if (e.name == "use" && !link.empty() && !link.starts_with('#')) external = true;
  }
  if (images > 0)
    notes_.push_back(images == 1 ? Utf8("an image was left out")
                                 : Utf8::mended(std::to_string(images) + " images were left out"));
  if (masks) notes_.push_back(Utf8("a mask was left out"));
  if (filters) notes_.push_back(Utf8("a filter was left out"));
  if (external) notes_.push_back(Utf8("a part that stands in another file was left out"));
  if (hasText_) {
    constexpr std::size_t kShown = 24;
    if (set.size() > kShown) set = set.substr(0, kShown) + "...";
    notes_.push_back(Utf8::mended("text is set in the fonts at hand: \"" + set + "\""));
  }
}

std::string SvgDocument::framed(Size page, double margin, const std::vector<std::size_t>& named,
                                bool withGuideLayers) const {
  struct Edit {
    std::size_t begin;
    std::size_t end;
    std::string text;
  };
  std::vector<Edit> edits;
  for (const std::size_t i : named) {
    const Element& e = tree_.elements[i];
    if (e.attribute("id").empty())
      edits.push_back({e.nameEndByte, e.nameEndByte, " id=\"" + reference(i).substr(1) + "\""});
  }
  if (!withGuideLayers)
    for (const GuideLayer& layer : guideLayers_)
      edits.push_back(
          {tree_.elements[layer.element].beginByte, tree_.elements[layer.element].endByte, ""});
  std::sort(edits.begin(), edits.end(),
            [](const Edit& a, const Edit& b) { return a.begin < b.begin; });

  const auto text = [](double value) { return formatShortest(value); };
  std::string result = text_.substr(0, root().beginByte);
  result += "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"quillery-frame\" viewBox=\"" +
            text(-margin) + " " + text(-margin) + " " + text(page.width + 2 * margin) + " " +
            text(page.height + 2 * margin) + "\">";
  std::size_t at = root().beginByte;
  for (const Edit& edit : edits) {
    if (edit.begin < at) continue; // within what was cut
    result.append(text_, at, edit.begin - at);
    result += edit.text;
    at = edit.end;
  }
  result.append(text_, at, root().endByte - at);
  return result + "</svg>";
}

std::string SvgDocument::reference(std::size_t element) const {
  const std::string_view id = tree_.elements[element].attribute("id");
  return "#" + (id.empty() ? "quillery-" + std::to_string(element) : std::string(id));
}

std::vector<SvgDocument::Part> SvgDocument::parts() const {
  const auto& elements = tree_.elements;
  std::vector<Utf8> names(elements.size());
  std::vector<bool> holdsNames(elements.size());
  for (std::size_t i = elements.size(); i-- > 1;) {
    if (isDrawn(elements[i].name)) names[i] = glyphFileName(i);
    if (!names[i].empty() || holdsNames[i]) holdsNames[elements[i].parent] = true;
  }
  std::vector<Part> parts;
  const auto isGuide = [&](std::size_t i) {
    return std::any_of(guideLayers_.begin(), guideLayers_.end(),
                       [i](const GuideLayer& layer) { return layer.element == i; });
  };
  const auto drawnChildren = [&](std::size_t parent) {
    std::vector<std::size_t> children;
    for (std::size_t i = parent + 1; i < elements[parent].end; i = elements[i].end)
      if (isDrawn(elements[i].name) && !isGuide(i)) children.push_back(i);
    return children;
  };
  std::vector<std::size_t> waiting = {0}; // groups to look into, the next one last
  while (!waiting.empty()) {
    const auto children = drawnChildren(waiting.back());
    waiting.pop_back();
    std::vector<std::size_t> inside;
    for (const std::size_t i : children) {
      const bool isGroup = elements[i].name == "g" || elements[i].name == "svg" ||
                           elements[i].name == "a" || elements[i].name == "switch";
      const bool isLayer = elements[i].attribute("groupmode") == "layer";
      if (names[i].empty() && isGroup && (holdsNames[i] || isLayer || children.size() == 1))
        inside.push_back(i);
      else
        parts.push_back({i, names[i]});
    }
    waiting.insert(waiting.end(), inside.rbegin(), inside.rend());
  }
  return parts;
}

Utf8 SvgDocument::glyphFileName(std::size_t i) const {
  const Element& e = tree_.elements[i];
  std::string_view title;
  if (i + 1 < e.end && tree_.elements[i + 1].name == "title")
    title = trimmed(tree_.elements[i + 1].text);
  for (const std::string_view given :
       {e.attribute("label"), e.attribute("data-name"), title, e.attribute("id")}) {
    const std::string name = withoutEscapes(given);
    if (!name.empty() && unicodeForFileName(name)) return Utf8::mended(name);
  }
  return {};
}

} // namespace quillery

#include "svg/drawn_shapes.h"

#include "svg/shape_style.h"

#include <algorithm>
#include <array>
#include <expat.h>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillery {
namespace {

// What of an element's content is drawn where it stands.
enum class Element { container, definition, shape, styleSheet };

constexpr std::array<std::string_view, 10> kShapes = {
    "path", "rect", "circle", "ellipse", "line", "polyline", "polygon", "use", "text", "image"};
constexpr std::array<std::string_view, 16> kDefinitions = {
    "defs",   "clipPath", "mask",     "marker",         "symbol",         "pattern",
    "filter", "font",     "metadata", "linearGradient", "radialGradient", "foreignObject",
    "title",  "desc",     "script",   "glyph"};

Element kindOf(std::string_view name) {
  const auto isIn = [&](const auto& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  if (isIn(kShapes)) return Element::shape;
  if (name == "style") return Element::styleSheet;
  // Elements of other programs (their guides, their settings) have a prefix.
  if (isIn(kDefinitions) || name.find(':') != name.npos) return Element::definition;
  return Element::container;
}

class Attributes {
public:
  explicit Attributes(const char** pairs) : pairs_(pairs) {}

  std::string_view operator[](std::string_view name) const {
    for (const char** pair = pairs_; *pair; pair += 2)
      if (pair[0] == name) return pair[1];
    return {};
  }

  void applyTo(ShapeStyle& style) const {
    for (const char** pair = pairs_; *pair; pair += 2) style.set(pair[0], pair[1]);
    style.setAll((*this)["style"]); // counts more than attributes
  }

private:
  const char** pairs_;
};

bool hasArea(std::string_view name, const Attributes& attributes) {
  if (name == "path") return !attributes["d"].empty();
  if (name != "rect") return true;
  const auto isNothing = [](std::string_view size) { return size.empty() || size == "0"; };
  return !isNothing(attributes["width"]) && !isNothing(attributes["height"]);
}

class Walk {
public:
  Walk(std::string_view svg, std::optional<std::size_t> taken)
      : svg_(svg), taken_(taken), hasUses_(svg.find("use") != svg.npos) {}

  DrawnShapes run() {
    // The reader takes the bytes for UTF-8, whatever the drawing says of itself.
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-8"), &XML_ParserFree);
    parser_ = parser.get();
    if (!parser_) return {.readable = false};
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, &Walk::begin, &Walk::end);
    XML_SetDefaultHandler(parser_, [](void*, const char*, int) {}); // entities stay as they are
    if (!parse()) shapes_.readable = takenIsBehind_ && !mentionsShapes(errorOffset());
    finish();
    return shapes_;
  }

private:
  struct Frame {
    ShapeStyle style;
    bool isDefinition = false;
    std::string id;
    std::size_t shapesBefore = 0;
  };

  // The library counts in int.
  bool parse() {
    constexpr std::size_t kPiece = 1 << 20;
    std::size_t at = 0;
    do {
      const std::size_t size = std::min(kPiece, svg_.size() - at);
      const bool isLast = at + size == svg_.size();
      if (XML_Parse(parser_, svg_.data() + at, static_cast<int>(size), isLast) == XML_STATUS_ERROR)
        return false;
      at += size;
    } while (at < svg_.size());
    return true;
  }

  std::size_t errorOffset() const {
    const XML_Index index = XML_GetCurrentByteIndex(parser_);
    return index < 0 ? 0 : static_cast<std::size_t>(index);
  }

  bool mentionsShapes(std::size_t from) const {
    const std::string_view rest = svg_.substr(std::min(from, svg_.size()));
    for (std::size_t tag = rest.find('<'); tag != rest.npos; tag = rest.find('<', tag + 1))
      for (const std::string_view shape : kShapes)
        if (rest.substr(tag + 1).starts_with(shape)) return true;
    return false;
  }

  static void begin(void* walk, const char* name, const char** attributes) {
    static_cast<Walk*>(walk)->begin(name, Attributes(attributes));
  }
  static void end(void* walk, const char*) { static_cast<Walk*>(walk)->end(); }

  void begin(std::string_view name, const Attributes& attributes) {
    if (frames_.empty())
      if (const std::size_t colon = name.find(':'); colon != name.npos)
        prefix_ = name.substr(0, colon + 1);
    if (!prefix_.empty() && name.starts_with(prefix_)) name.remove_prefix(prefix_.size());
    Frame frame;
    if (!frames_.empty()) {
      frame.style = frames_.back().style;
      frame.isDefinition = frames_.back().isDefinition;
    }
    attributes.applyTo(frame.style);
    if (hasUses_) frame.id = attributes["id"];
    frame.shapesBefore = allShapes_;
    const Element kind = kindOf(name);
    frame.isDefinition = frame.isDefinition || kind == Element::definition;
    frames_.push_back(std::move(frame));
    if (kind == Element::shape) beginShape(name, attributes);
    if (kind == Element::styleSheet)
      XML_SetCharacterDataHandler(parser_, [](void* walk, const char* text, int size) {
        static_cast<Walk*>(walk)->sheet_.append(text, static_cast<std::size_t>(size));
      });
  }

  void end() {
    XML_SetCharacterDataHandler(parser_, nullptr);
    const Frame& frame = frames_.back();
    if (!frame.id.empty()) shapesIn_[frame.id] = allShapes_ - frame.shapesBefore;
    frames_.pop_back();
  }

  bool isTaken() const {
    if (!taken_) return false;
    const std::size_t begin = errorOffset();
    const auto size = static_cast<std::size_t>(std::max(0, XML_GetCurrentByteCount(parser_)));
    return *taken_ >= begin && *taken_ - begin < size;
  }

  void beginShape(std::string_view name, const Attributes& attributes) {
    const ShapeStyle& style = frames_.back().style;
    const bool taken = isTaken();
    if (taken) take(style);
    if (!hasArea(name, attributes)) return;
    ++allShapes_;
    if (frames_.back().isDefinition || style.removed || !style.visible) return;
    const bool isUse = name == "use";
    const bool isPainted =
        isUse || name == "image" || style.hasStroke() || (style.filled && name != "line");
    if (!isPainted) return;
    if (isUse) use(attributes, style);
    if (taken) shapes_.pathIsDrawn = true;
    const bool isWhite = !isUse && style.white && !style.hasStroke();
    if (isWhite && ink_ == 0) {
      ++paper_;
      if (taken) takenIsPaper_ = true;
      return;
    }
    ++ink_;
    shapes_.white = shapes_.white || isWhite;
    shapes_.strokes = shapes_.strokes || style.hasStroke();
    shapes_.clipPath = shapes_.clipPath || style.clipped;
    shapes_.mask = shapes_.mask || style.masked;
    shapes_.filter = shapes_.filter || style.filtered;
    shapes_.markers = shapes_.markers || style.marked;
  }

  void take(const ShapeStyle& style) {
    takenIsBehind_ = true;
    shapes_.takesPath = true;
    shapes_.pathIsTransformed = style.transformed;
    shapes_.pathIsEvenOdd = style.evenOdd;
    for (const Frame& frame : frames_)
      if (!frame.id.empty()) idsAroundTaken_.push_back(frame.id);
  }

  void use(const Attributes& attributes, const ShapeStyle& style) {
    std::string_view target = attributes["href"];
    if (target.empty()) target = attributes["xlink:href"];
    if (target.starts_with('#')) target.remove_prefix(1);
    uses_.push_back({std::string(target), style.transformed});
  }

  void finish() {
    for (const auto& [target, transformed] : uses_) {
      if (const auto content = shapesIn_.find(target); content != shapesIn_.end())
        ink_ += std::max<std::size_t>(1, content->second) - 1;
      const bool showsTaken = std::find(idsAroundTaken_.begin(), idsAroundTaken_.end(), target) !=
                              idsAroundTaken_.end();
      if (!showsTaken || shapes_.pathIsDrawn) continue;
      shapes_.pathIsDrawn = true;
      shapes_.pathIsTransformed = shapes_.pathIsTransformed || transformed;
    }
    // A drawing that is all light is ink; with ink in it, what is light beneath is paper.
    const bool takenCounts = shapes_.pathIsDrawn && !(takenIsPaper_ && ink_ > 0);
    shapes_.white = shapes_.white || (takenIsPaper_ && ink_ > 0);
    shapes_.further = (ink_ > 0 ? ink_ : paper_) - (takenCounts ? 1 : 0);
    shapes_.styleSheet = styleSheetMatters(sheet_);
  }

  struct Use {
    std::string target;
    bool transformed;
  };

  const std::string_view svg_;
  const std::optional<std::size_t> taken_;
  const bool hasUses_;
  XML_Parser parser_ = nullptr;
  DrawnShapes shapes_;
  std::string prefix_; // of the drawing's own elements
  std::vector<Frame> frames_;
  std::vector<std::string> idsAroundTaken_;
  std::vector<Use> uses_;
  std::unordered_map<std::string, std::size_t> shapesIn_; // elements with an id
  std::size_t allShapes_ = 0;
  std::size_t ink_ = 0;
  std::size_t paper_ = 0;
  bool takenIsPaper_ = false;
  bool takenIsBehind_ = false;
  std::string sheet_;
};

} // namespace

DrawnShapes drawnShapes(std::string_view svg, std::optional<std::size_t> taken) {
  return Walk(svg, taken).run();
}

} // namespace quillery

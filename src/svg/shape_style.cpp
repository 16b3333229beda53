#include "svg/shape_style.h"

#include "base/numbers.h"

#include <cstddef>
#include <optional>
#include <string>

namespace quillery {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kSpace);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kSpace) - begin + 1);
}

bool isPaintless(std::string_view paint) {
  return paint == "none" || paint == "transparent";
}

// White and what the eye takes for it, as colours are usually written.
bool isWhite(std::string_view paint) {
  if (paint == "white") return true;
  if (paint.starts_with("rgb(")) {
    std::string text;
    for (const char c : paint)
      if (c != ' ') text += c;
    return text == "rgb(255,255,255)" || text == "rgb(100%,100%,100%)";
  }
  if (!paint.starts_with('#') || (paint.size() != 4 && paint.size() != 7)) return false;
  const std::size_t step = paint.size() / 3;
  for (std::size_t i = 1; i < paint.size(); i += step)
    if (paint[i] != 'f' && paint[i] != 'F') return false;
  return true;
}

// The number that a length or a share begins with.
std::optional<double> leadingNumber(std::string_view text) {
  double value = 0;
  if (!readPlainDecimal(text.data(), text.data() + text.size(), value)) return std::nullopt;
  return value;
}

// A shift leaves the reader's result as it is: it puts every drawing's edges to one place.
bool isOnlyAShift(std::string_view transform) {
  std::size_t at = 0;
  while (true) {
    at = transform.find_first_not_of(" \t\r\n,", at);
    if (at == std::string_view::npos) return true;
    const std::size_t end = transform.find(')', at);
    if (end == std::string_view::npos) return false;
    std::string function;
    for (const char c : transform.substr(at, end - at)) function += c == ',' ? ' ' : c;
    const bool shifts = function.starts_with("translate") ||
                        function.starts_with("matrix(1 0 0 1 ") || function == "matrix(1 0 0 1";
    if (!shifts) return false;
    at = end + 1;
  }
}

bool isReference(std::string_view value) {
  return !value.empty() && value != "none" && value != "inherit";
}

} // namespace

void ShapeStyle::set(std::string_view property, std::string_view given) {
  const std::string_view value = trimmed(given);
  if (value == "inherit") return;
  if (property == "fill") {
    filled = !isPaintless(value);
    white = isWhite(value);
  } else if (property == "stroke") {
    stroked = !isPaintless(value);
  } else if (property == "stroke-width") {
    strokeHasWidth = leadingNumber(value) != 0.0;
  } else if (property == "fill-rule") {
    evenOdd = value == "evenodd";
  } else if (property == "display") {
    removed = removed || value == "none";
  } else if (property == "opacity") {
    removed = removed || leadingNumber(value) == 0.0;
  } else if (property == "fill-opacity") {
    filled = filled && leadingNumber(value) != 0.0;
  } else if (property == "visibility") {
    visible = value == "visible";
  } else if (property == "transform") {
    transformed = transformed || (value != "none" && !isOnlyAShift(value));
  } else if (property == "clip-path") {
    clipped = clipped || isReference(value);
  } else if (property == "mask") {
    masked = masked || isReference(value);
  } else if (property == "filter") {
    filtered = filtered || isReference(value);
  } else if (property.starts_with("marker")) {
    marked = marked || isReference(value);
  }
}

void ShapeStyle::setAll(std::string_view declarations) {
  while (!declarations.empty()) {
    const std::size_t end = declarations.find(';');
    const std::string_view declaration = declarations.substr(0, end);
    if (const std::size_t colon = declaration.find(':'); colon != std::string_view::npos)
      set(trimmed(declaration.substr(0, colon)), declaration.substr(colon + 1));
    declarations.remove_prefix(end == std::string_view::npos ? declarations.size() : end + 1);
  }
}

bool styleSheetMatters(std::string_view text) {
  for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1))
    if (!text.substr(at).starts_with("@font-face") && !text.substr(at).starts_with("@charset"))
      return true;
  std::size_t open = text.find('{');
  while (open != std::string_view::npos) {
    const std::size_t close = text.find('}', open);
    ShapeStyle style;
    style.setAll(text.substr(open + 1, close == std::string_view::npos ? close : close - open - 1));
    style.strokeHasWidth = true; // of strokes that are not there
    if (style != ShapeStyle()) return true;
    open = close == std::string_view::npos ? close : text.find('{', close);
  }
  return false;
}

} // namespace quillery

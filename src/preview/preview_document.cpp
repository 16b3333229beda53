#include "preview/preview_document.h"

#include "base/json_writer.h"
#include "base/numbers.h"
#include "model/contours.h"

#include <map>

namespace quillery {
namespace {

void writeBounds(JsonWriter& out, const Rect& bounds) {
  out.number("\"bounds\": [", bounds.x);
  out.number(", ", bounds.y);
  out.number(", ", bounds.width);
  out.number(", ", bounds.height);
  out.raw("]}");
}

std::string coordinates(Point p) {
  return formatShortest(p.x) + " " + formatShortest(p.y);
}

// Empty when there is nothing to draw.
std::string pathData(const Outline& outline) {
  std::string data;
  for (const PathCommand& command : contoursOf(outline)) {
    const auto& p = command.points;
    switch (command.kind) {
    case PathCommand::Kind::moveTo:
      data += "M" + coordinates(p[0]);
      break;
    case PathCommand::Kind::lineTo:
      data += "L" + coordinates(p[0]);
      break;
    case PathCommand::Kind::curveTo:
      data += "C" + coordinates(p[0]) + " " + coordinates(p[1]) + " " + coordinates(p[2]);
      break;
    case PathCommand::Kind::closePath:
      data += "Z";
      break;
    }
  }
  return data;
}

} // namespace

std::string previewJson(const TextLayout& layout, const FontProject& project) {
  JsonWriter out;
  out.number("{\n  \"width\": ", layout.contentSize.width);
  out.number(",\n  \"height\": ", layout.contentSize.height);
  out.raw(",\n  \"glyphs\": [");
  const auto glyphs = characterInfos(layout, project);
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    out.raw(i == 0 ? "\n" : ",\n");
    out.string("    {\"char\": ", glyphs[i].character);
    out.string(", \"glyphName\": ", glyphs[i].glyphName);
    out.number(", \"x\": ", layout.characters[i].penX);
    out.number(", \"baseline\": ", layout.baseline(layout.characters[i].line));
    out.raw(", ");
    writeBounds(out, glyphs[i].bounds);
  }
  out.raw("\n  ],\n  \"pairs\": [");
  bool first = true;
  for (const CharacterPairInfo& pair : characterPairInfos(layout, project)) {
    out.raw(first ? "\n" : ",\n");
    first = false;
    out.string("    {\"leftGlyph\": ", pair.leftGlyph);
    out.string(", \"rightGlyph\": ", pair.rightGlyph);
    out.raw(", ");
    writeBounds(out, pair.bounds);
  }
  out.raw("\n  ]\n}\n");
  return std::string(out.view());
}

std::string previewSvg(const TextLayout& layout, const FontProject& project) {
  const std::string width = formatShortest(layout.contentSize.width);
  const std::string height = formatShortest(layout.contentSize.height);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" +
                    height + "\" viewBox=\"0 0 " + width + " " + height + "\">\n" +
                    "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n<defs>\n";
  std::map<std::size_t, bool> isDrawn; // by glyph
  for (const SetCharacter& set : layout.characters) {
    const auto [glyph, added] = isDrawn.try_emplace(set.glyph, false);
    if (!added) continue;
    const std::string data = pathData(project.glyphs[set.glyph].fontPath());
    if (data.empty()) continue;
    glyph->second = true;
    svg += "<path id=\"g" + std::to_string(set.glyph) + "\" d=\"" + data + "\"/>\n";
  }
  svg += "</defs>\n<g fill=\"#111\">\n";
  const std::string scale = formatShortest(layout.scale);
  for (const SetCharacter& set : layout.characters) {
    const Point origin{set.penX, layout.baseline(set.line)};
    if (!isDrawn.at(set.glyph) || !isFinite(origin)) continue;
    svg.append("<use href=\"#g").append(std::to_string(set.glyph));
    svg.append("\" transform=\"translate(").append(coordinates(origin));
    svg.append(") scale(").append(scale).append(" -").append(scale).append(")\"/>\n");
  }
  return svg + "</g>\n</svg>\n";
}

} // namespace quillery

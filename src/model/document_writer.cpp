#include "model/document_writer.h"

#include <cmath>

namespace quillery {
namespace {

std::string memberNotFinite(const GlyphRecord& glyph, const NumberMembers& members) {
  for (const BoxMember& box : members.boxes) {
    const Rect& r = glyph.*box.value;
    if (!isFinite(Point{r.x, r.y}) || !isFinite(Point{r.width, r.height}))
      return std::string(box.name);
  }
  for (const auto& length : members.lengths)
    if (!std::isfinite(glyph.*length.value)) return std::string(length.name);
  std::size_t i = 0;
  for (const PathCommand& command : glyph.fontPath.commands()) {
    if (!std::all_of(command.points.begin(), command.points.end(), isFinite))
      return "fontPath[" + std::to_string(i) + "]";
    ++i;
  }
  return {};
}

} // namespace

std::string placeOfNonFinite(const FontProject& project, const NumberMembers& members) {
  for (const auto& member : members.font)
    if (!std::isfinite(project.*member.value)) return std::string(member.name);
  for (std::size_t i = 0; i < project.glyphs.size(); ++i) {
    const GlyphRecord& glyph = project.glyphs[i].record();
    if (const std::string member = memberNotFinite(glyph, members); !member.empty())
      return "glyphs[" + std::to_string(i) + "]." + member + " of glyph \"" + glyph.name + "\"";
  }
  for (std::size_t i = 0; i < project.kerningPairs.size(); ++i)
    if (!std::isfinite(project.kerningPairs[i].value))
      return "kerningPairs[" + std::to_string(i) + "].value";
  return {};
}

bool DocumentWriter::take(const JsonWriter& piece) {
  finite_ = finite_ && piece.isFinite();
  return take(piece.view());
}

bool DocumentWriter::take(std::string_view text) {
  goesOn_ = goesOn_ && sink_(text);
  return goesOn_ && finite_;
}

} // namespace quillery

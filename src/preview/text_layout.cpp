#include "preview/text_layout.h"

#include "base/unicode.h"

#include <algorithm>
#include <optional>

namespace quillery {
namespace {

// Of an em, for a space without a glyph.
constexpr double kSpaceWidth = 0.25;
// Points; keeps glyphs without an advance within reach of the pointer.
constexpr double kLeastHitSize = 1;

double hitHeight(const TextLayout& layout) {
  return std::max(kLeastHitSize, layout.lineHeight);
}

} // namespace

TextLayout layoutText(std::string_view text, const FontProject& project, const GlyphIndex& glyphs,
                      const KerningIndex& kerning, double fontSize) {
  const auto unitsPerEm = static_cast<double>(project.unitsPerEm);
  TextLayout layout;
  layout.scale = fontSize / unitsPerEm;
  layout.lineHeight = layout.scale * (project.ascender - project.descender + project.lineGap);
  layout.ascent = layout.scale * project.ascender;
  const double spaceAdvance = unitsPerEm * kSpaceWidth * layout.scale;
  const std::optional<std::size_t> notdef = glyphs.named(".notdef");

  const std::vector<std::string_view> textLines = lines(text);
  double widest = 0;
  for (std::size_t line = 0; line < textLines.size(); ++line) {
    const std::vector<std::string_view> lineCharacters = characters(textLines[line]);
    double pen = TextLayout::kMargin;
    double width = 0;
    const auto advance = [&](double by) {
      pen += by;
      width += by;
    };
    auto mapped =
        lineCharacters.empty() ? std::nullopt : glyphs.forCharacter(lineCharacters.front());
    for (std::size_t i = 0; i < lineCharacters.size(); ++i) {
      const auto position = mapped ? mapped : notdef;
      mapped =
          i + 1 < lineCharacters.size() ? glyphs.forCharacter(lineCharacters[i + 1]) : std::nullopt;
      if (!position) {
        if (lineCharacters[i] == " ") advance(spaceAdvance);
        continue;
      }
      layout.characters.push_back({std::string(lineCharacters[i]), *position, line, i, pen});
      const Glyph& glyph = project.glyphs[*position];
      const auto pair =
          mapped ? kerning.named(glyph.name(), project.glyphs[*mapped].name()) : std::nullopt;
      const double kern = pair ? project.kerningPairs[*pair].value : Finite();
      advance(layout.scale * (glyph.advanceWidth() + kern));
    }
    widest = std::max(widest, width);
  }
  layout.contentSize = {widest + 2 * TextLayout::kMargin,
                        static_cast<double>(textLines.size()) * layout.lineHeight +
                            2 * TextLayout::kMargin};
  return layout;
}

std::vector<CharacterInfo> characterInfos(const TextLayout& layout, const FontProject& project) {
  std::vector<CharacterInfo> infos;
  infos.reserve(layout.characters.size());
  for (const SetCharacter& set : layout.characters) {
    const Glyph& glyph = project.glyphs[set.glyph];
    const double width = std::max(kLeastHitSize, layout.scale * glyph.advanceWidth());
    infos.push_back({set.character,
                     glyph.name(),
                     {set.penX, layout.rowTop(set.line), width, hitHeight(layout)}});
  }
  return infos;
}

std::vector<CharacterPairInfo> characterPairInfos(const TextLayout& layout,
                                                  const FontProject& project) {
  std::vector<CharacterPairInfo> infos;
  const auto& set = layout.characters;
  for (std::size_t i = 0; i + 1 < set.size(); ++i) {
    const SetCharacter& left = set[i];
    const SetCharacter& right = set[i + 1];
    if (left.line != right.line || right.indexInLine != left.indexInLine + 1) continue;
    const Glyph& rightGlyph = project.glyphs[right.glyph];
    const bool hasNext = i + 2 < set.size() && set[i + 2].line == left.line;
    const double end =
        hasNext ? set[i + 2].penX : right.penX + layout.scale * rightGlyph.advanceWidth();
    infos.push_back({left.character,
                     right.character,
                     project.glyphs[left.glyph].name(),
                     rightGlyph.name(),
                     {left.penX, layout.rowTop(left.line), std::max(kLeastHitSize, end - left.penX),
                      hitHeight(layout)}});
  }
  return infos;
}

} // namespace quillery

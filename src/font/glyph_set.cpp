#include "font/glyph_set.h"

#include "base/unicode.h"
#include "font/glyph_names.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace quillery::font {

namespace {

constexpr std::size_t kMostGlyphs = 65535;
constexpr int kWidestAdvance = 65535;

// The project's own glyph for missing characters: the one the preview shows, else one whose name
// says the same in other letters.
const DescribedGlyph* notdefOf(const std::vector<DescribedGlyph>& glyphs) {
  const DescribedGlyph* alike = nullptr;
  for (const DescribedGlyph& glyph : glyphs) {
    if (glyph.name == kNotdef) return &glyph;
    if (alike == nullptr && glyph.name.size() <= 2 * kNotdef.size()) {
      const std::string name = lowercased(glyph.name);
      if (name == kNotdef || name == kNotdef.substr(1)) alike = &glyph;
    }
  }
  return alike;
}

Contour polygon(std::initializer_list<Point> points) {
  Contour contour{*points.begin(), {}};
  for (const Point& point : points)
    if (&point != points.begin()) contour.segments.push_back({false, {}, {}, point});
  return contour;
}

// An upright frame as high as the capitals; as wide as every glyph if all are equally wide.
DescribedGlyph defaultNotdef(const FontDescription& description) {
  const double em = description.unitsPerEm;
  const auto isSensible = [em](double size) { return em / 8 <= size && size <= em * 2; };
  std::set<double> advances;
  for (const DescribedGlyph& glyph : description.glyphs)
    if (glyph.advance != 0 && advances.size() < 2) advances.insert(glyph.advance);
  double advance = advances.size() == 1 ? *advances.begin() : em / 2;
  if (!isSensible(advance)) advance = em / 2;
  const double height = isSensible(description.capHeight) ? description.capHeight : em * 0.7;
  const double left = advance * 0.1, right = advance * 0.9, stem = advance * 0.1;
  const Outline frame = {polygon({{left, 0}, {right, 0}, {right, height}, {left, height}}),
                         polygon({{left + stem, stem},
                                  {left + stem, height - stem},
                                  {right - stem, height - stem},
                                  {right - stem, stem}})};
  return {std::string(kNotdef), std::nullopt, advance, frame};
}

// A legal name for every glyph. Glyphs that characters map to choose first, since their names say
// which characters they are.
void nameGlyphs(std::vector<FontGlyph>& glyphs, const CharacterMap& characters) {
  GlyphNames names;
  glyphs.front().name = kNotdef;
  for (const auto& [scalar, index] : characters.drawn) {
    FontGlyph& glyph = glyphs[static_cast<std::size_t>(index)];
    glyph.name = names.take(nameForCharacter(scalar, glyph.source->name));
  }
  for (std::size_t i = 0; i < glyphs.size(); ++i)
    if (glyphs[i].name.empty())
      glyphs[i].name = names.take(nameForProjectName(glyphs[i].source->name, i));
}

// How a warning calls a glyph.
std::string caption(const FontGlyph& glyph) {
  return glyph.source->name.empty() ? glyph.label() : glyph.source->name;
}

void warnAboutCharacters(GlyphSet& set) {
  const auto glyph = [&](int index) -> const FontGlyph& {
    return set.glyphs[static_cast<std::size_t>(index)];
  };
  for (const auto& [index, winner] : set.characters.overruled)
    set.warnings.push_back(
        {caption(glyph(index)), glyph(winner).label() + " comes later and has the same character"});
  for (const int index : set.characters.unmapped)
    set.warnings.push_back({caption(glyph(index)), "its text can't be typed with the font, which "
                                                   "lacks a glyph for a part of it"});
}

bool hasShape(const Outline& outline) {
  return std::any_of(outline.begin(), outline.end(), [](const Contour& contour) {
    const auto isAway = [&](Point p) {
      return roundHalfUp(p.x) != roundHalfUp(contour.start.x) ||
             roundHalfUp(p.y) != roundHalfUp(contour.start.y);
    };
    return std::any_of(contour.segments.begin(), contour.segments.end(), [&](const Segment& s) {
      return isAway(s.end) || (s.isCurve && (isAway(s.control1) || isAway(s.control2)));
    });
  });
}

std::vector<std::optional<std::u32string_view>> textsOf(const std::vector<FontGlyph>& glyphs) {
  std::vector<std::optional<std::u32string_view>> texts(glyphs.size());
  for (std::size_t i = 1; i < glyphs.size(); ++i)
    if (glyphs[i].source->text) texts[i] = *glyphs[i].source->text;
  return texts;
}

} // namespace

Result<GlyphSet, FontError> buildGlyphSet(const FontDescription& description) {
  GlyphSet set;
  const auto add = [&](DescribedGlyph glyph) -> const DescribedGlyph* {
    return set.added.emplace_back(std::make_unique<const DescribedGlyph>(std::move(glyph))).get();
  };
  const auto numberOf = [&](const DescribedGlyph& glyph) {
    return static_cast<std::size_t>(&glyph - description.glyphs.data()) + 1;
  };
  const DescribedGlyph* notdef = notdefOf(description.glyphs);
  set.glyphs.reserve(description.glyphs.size() + 2);
  set.glyphs.push_back({"", notdef != nullptr ? notdef : add(defaultNotdef(description)),
                        notdef != nullptr ? numberOf(*notdef) : 0, 0});
  // A character can't map to glyph 0, which means that the font lacks it: a missing-glyph glyph
  // that stands for a character as well is therefore there twice.
  for (const DescribedGlyph& glyph : description.glyphs)
    if (&glyph != notdef || (glyph.text && !glyph.text->empty()))
      set.glyphs.push_back({"", &glyph, numberOf(glyph), 0});
  set.characters = mapCharacters(textsOf(set.glyphs));

  // The preview advances a quarter em for a space that nobody drew, unless it has a glyph for
  // missing characters: then that is what it shows, and so does a font without a space.
  if (!set.characters.scalars.contains(U' ')) {
    if (notdef != nullptr && notdef->name == kNotdef) {
      set.warnings.push_back({"space", "there is no space glyph, so a space shows .notdef"});
    } else if (set.glyphs.size() < kMostGlyphs) {
      const auto* space = add({"space", U" ", description.unitsPerEm / 4, {}});
      set.glyphs.push_back({"", space, 0, 0});
      set.characters = mapCharacters(textsOf(set.glyphs));
    }
  }
  if (set.glyphs.size() > kMostGlyphs)
    return Failure{FontError{"The project makes " + grouped(set.glyphs.size()) +
                             " glyphs with .notdef, and a font holds at most " +
                             grouped(kMostGlyphs) + "."}};
  warnAboutCharacters(set);
  nameGlyphs(set.glyphs, set.characters);
  for (FontGlyph& glyph : set.glyphs) {
    const double advance = glyph.source->advance;
    // Compared before rounding, which numbers of any size have to pass through.
    if (!(advance >= -0.5 && advance < kWidestAdvance + 0.5))
      return Failure{FontError{"The advance width of " + glyph.label() + " is " + plain(advance) +
                               ", and a font holds 0 to " + std::to_string(kWidestAdvance) + "."}};
    glyph.advance = roundHalfUp(advance);
  }
  if (notdef != nullptr && !hasShape(notdef->outline))
    set.warnings.push_back({notdef->name, "has no drawing, so missing characters stay invisible"});
  return set;
}

bool isFixedPitch(const GlyphSet& glyphs) {
  int width = 0;
  std::size_t count = 0;
  for (std::size_t i = 1; i < glyphs.glyphs.size(); ++i) {
    const int advance = glyphs.glyphs[i].advance;
    if (advance == 0) continue;
    if (count++ > 0 && advance != width) return false;
    width = advance;
  }
  return count > 1;
}

} // namespace quillery::font

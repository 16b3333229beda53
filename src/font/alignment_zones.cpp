#include "font/alignment_zones.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillery::font {

namespace {

/// The letters that end at a height, flat and round.
struct Height {
  bool isUpper;
  std::u32string_view flat;
  std::u32string_view round;
};

// The more letters a line of text has that end there, the earlier: of heights too close to each
// other the first one counts.
constexpr std::array<Height, 6> kHeights = {{
    {false, U"HEFIKLMNTXZhiklmnrxzНИПТнипт", U"OCGSUoecsbОСЭосэ"},
    {true, U"xzvwyuнипт", U"oecsanmосэ"},
    {true, U"HEFIKLMNTXZНИПТ", U"OCGQSОСЭ"},
    {true, U"bdhkl", U"f"},
    {false, U"pqр", U"gjy"},
    {true, U"1457", U"023689"},
}};

// In parts of an em: how far apart ends may lie that are meant to be at one height, how high a zone
// may be (it must be less than a pixel in all sizes in which overshoots are suppressed), and how
// far zones must be from each other, which is more than rasterizers widen them by.
constexpr int kAgreement = 100, kHighest = 40, kApart = 300;

using Ends = std::vector<int>;

/// The least and the greatest of those that agree with most; nothing when few do.
std::optional<AlignmentZone> agreed(Ends ends, int unitsPerEm) {
  if (ends.size() < 2) return std::nullopt;
  std::sort(ends.begin(), ends.end());
  const int middle = ends[ends.size() / 2], tolerance = unitsPerEm / kAgreement;
  const auto first = std::lower_bound(ends.begin(), ends.end(), middle - tolerance);
  const auto last = std::upper_bound(first, ends.end(), middle + tolerance);
  if ((last - first) * 2 <= static_cast<std::ptrdiff_t>(ends.size())) return std::nullopt;
  return AlignmentZone{*first, *(last - 1)};
}

std::optional<AlignmentZone> zoneOf(const std::optional<AlignmentZone>& flat,
                                    const std::optional<AlignmentZone>& round, bool isUpper,
                                    int unitsPerEm) {
  const int highest = unitsPerEm / kHighest;
  if (!flat || !round) {
    const std::optional<AlignmentZone>& only = flat ? flat : round;
    return only && only->top - only->bottom <= highest ? only : std::nullopt;
  }
  const AlignmentZone both{std::min(flat->bottom, round->bottom), std::max(flat->top, round->top)};
  // What is drawn round overshoots; where it falls short the flat ends alone are at one height.
  const bool overshoots = isUpper ? round->top >= flat->top : round->bottom <= flat->bottom;
  if (overshoots && both.top - both.bottom <= highest) return both;
  return flat->top - flat->bottom <= highest ? flat : std::nullopt;
}

} // namespace

std::vector<std::size_t> referenceGlyphs(const GlyphSet& glyphs) {
  std::vector<std::size_t> result;
  for (const Height& height : kHeights)
    for (const std::u32string_view letters : {height.flat, height.round})
      for (const char32_t letter : letters)
        if (const auto found = glyphs.characters.scalars.find(letter);
            found != glyphs.characters.scalars.end())
          result.push_back(static_cast<std::size_t>(found->second));
  std::sort(result.begin(), result.end());
  result.erase(std::unique(result.begin(), result.end()), result.end());
  return result;
}

AlignmentZones findAlignmentZones(const GlyphSet& glyphs,
                                  const std::vector<std::optional<Box>>& boxes, int unitsPerEm) {
  AlignmentZones zones;
  const auto endsOf = [&](std::u32string_view letters, bool isUpper) {
    Ends ends;
    for (const char32_t letter : letters) {
      const auto found = glyphs.characters.scalars.find(letter);
      if (found == glyphs.characters.scalars.end()) continue;
      if (const std::optional<Box>& box = boxes[static_cast<std::size_t>(found->second)])
        ends.push_back(isUpper ? box->yMax : box->yMin);
    }
    return ends;
  };
  const int apart = std::max(unitsPerEm / kApart, 3);
  std::vector<AlignmentZone> all;
  for (const Height& height : kHeights) {
    const auto zone = zoneOf(agreed(endsOf(height.flat, height.isUpper), unitsPerEm),
                             agreed(endsOf(height.round, height.isUpper), unitsPerEm),
                             height.isUpper, unitsPerEm);
    if (!zone && all.empty()) return {};
    const bool free = zone && std::none_of(all.begin(), all.end(), [&](const AlignmentZone& other) {
                        return zone->bottom < other.top + apart && zone->top > other.bottom - apart;
                      });
    if (!free) continue;
    all.push_back(*zone);
    // Descenders end below the baseline and all else above it, or they are none.
    const bool isAbove = zone->bottom >= all.front().top;
    if (all.size() > 1 && isAbove != height.isUpper) continue;
    (height.isUpper ? zones.upper : zones.lower).push_back(*zone);
  }
  const auto lower = [](const AlignmentZone& a, const AlignmentZone& b) {
    return a.bottom < b.bottom;
  };
  std::sort(zones.lower.begin(), zones.lower.end(), lower);
  std::sort(zones.upper.begin(), zones.upper.end(), lower);
  return zones;
}

} // namespace quillery::font

#include "drawing/convert/ink.h"

#include "drawing/convert/area_arithmetic.h"
#include "drawing/convert/arrangement.h"

#include <algorithm>
#include <numeric>

namespace quillery {
namespace {

bool isFilledBy(FillRule rule, int winding) {
  return rule == FillRule::evenOdd ? winding % 2 != 0 : winding != 0;
}

struct Layer {
  Area area;
  bool isInk;
};

// What is left of a shape within an area that it is seen through.
std::optional<Area> seenThrough(const Area& shape, const ClipArea& clip) {
  const Box box = boxOf(shape.contours);
  if (clip.contours.empty() || !boxOf(clip.contours).overlaps(box)) return Area{};
  const bool isOneRectangle =
      clip.contours.size() == 1 && clip.contours[0].segments.size() == 4 &&
      std::all_of(clip.contours[0].segments.begin(), clip.contours[0].segments.end(),
                  [](const Segment& s) {
                    return !s.isCurve && (s.start.x == s.end.x || s.start.y == s.end.y);
                  });
  Box room = boxOf(clip.contours);
  constexpr double kRounding = 1; // the page's writer rounds such a box to whole units
  room.add({room.minX - kRounding, room.minY - kRounding});
  room.add({room.maxX + kRounding, room.maxY + kRounding});
  if (isOneRectangle && room.contains(box)) return shape;

  std::vector<LayeredContour> stack;
  for (const Contour& contour : shape.contours) stack.push_back({contour, 0});
  for (const Contour& contour : clip.contours) stack.push_back({contour, 1});
  auto bounds = boundsByNesting(stack, 2, [&](std::span<const int> windings) {
    return isFilledBy(shape.rule, windings[0]) && isFilledBy(clip.rule, windings[1]);
  });
  if (!bounds) bounds = combine(shape, {clip.contours, clip.rule}, AreaOperation::intersect);
  if (!bounds) return std::nullopt;
  return Area{*std::move(bounds), FillRule::nonZero};
}

// Groups that lie apart from each other: the contours of each, as (layer, contour).
using Members = std::vector<std::pair<std::size_t, std::size_t>>;

std::vector<Members> groupsApart(const std::vector<Layer>& layers) {
  struct Placed {
    std::size_t layer;
    std::size_t contour;
    Box box;
  };
  std::vector<Placed> all;
  for (std::size_t l = 0; l < layers.size(); ++l)
    for (std::size_t c = 0; c < layers[l].area.contours.size(); ++c)
      all.push_back({l, c, layers[l].area.contours[c].box()});
  std::sort(all.begin(), all.end(),
            [](const Placed& a, const Placed& b) { return a.box.minX < b.box.minX; });
  std::vector<std::size_t> parent(all.size());
  std::iota(parent.begin(), parent.end(), std::size_t{0});
  const auto root = [&](std::size_t i) {
    while (parent[i] != i) i = parent[i] = parent[parent[i]];
    return i;
  };
  std::vector<std::size_t> active;
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::erase_if(active, [&](std::size_t k) { return all[k].box.maxX < all[i].box.minX; });
    for (const std::size_t k : active)
      if (all[k].box.overlaps(all[i].box)) parent[root(k)] = root(i);
    active.push_back(i);
  }
  std::vector<Members> groups;
  std::vector<std::size_t> groupOf(all.size(), all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::size_t& group = groupOf[root(i)];
    if (group == all.size()) {
      group = groups.size();
      groups.emplace_back();
    }
    groups[group].emplace_back(all[i].layer, all[i].contour);
  }
  for (Members& members : groups) std::sort(members.begin(), members.end());
  return groups;
}

// The layers of a group alone, without light ones under all ink, which hide nothing.
std::vector<Layer> layersOf(const Members& members, const std::vector<Layer>& layers) {
  std::vector<Layer> own;
  std::size_t last = layers.size();
  for (const auto& [layer, contour] : members) {
    if (layer != last) {
      if (!own.empty() || layers[layer].isInk)
        own.push_back({{{}, layers[layer].area.rule}, layers[layer].isInk});
      last = layer;
    }
    if (!own.empty()) own.back().area.contours.push_back(layers[layer].area.contours[contour]);
  }
  return own;
}

// A layer whose windings are never negative, so that others can be laid over it.
std::optional<Contours> laidFlat(const Area& area) {
  std::vector<LayeredContour> stack;
  for (const Contour& contour : area.contours) stack.push_back({contour, 0});
  if (auto bounds = boundsByNesting(stack, 1, [&](std::span<const int> windings) {
        return isFilledBy(area.rule, windings[0]);
      }))
    return bounds;
  if (area.rule == FillRule::nonZero) {
    Contours turned = area.contours;
    const double size =
        std::accumulate(turned.begin(), turned.end(), 0.0, [](double sum, const Contour& contour) {
          return sum + signedArea(contour);
        });
    if (size < 0)
      for (Contour& contour : turned) contour = reversed(contour);
    if (neverWindsBackwards(turned)) return turned;
  }
  return simplified(area);
}

std::optional<Contours> inkOfGroup(const std::vector<Layer>& layers) {
  if (layers.empty()) return Contours{};
  if (layers.size() == 1 && layers[0].area.rule == FillRule::nonZero)
    return layers[0].area.contours;
  std::vector<LayeredContour> stack;
  for (std::size_t l = 0; l < layers.size(); ++l)
    for (const Contour& contour : layers[l].area.contours) stack.push_back({contour, l});
  const auto isInk = [&](std::span<const int> windings) {
    for (std::size_t l = layers.size(); l-- > 0;)
      if (isFilledBy(layers[l].area.rule, windings[l])) return layers[l].isInk;
    return false;
  };
  if (auto bounds = boundsByNesting(stack, layers.size(), isInk)) return bounds;

  Contours ink;
  for (const Layer& layer : layers) {
    if (layer.isInk) {
      const auto flat = laidFlat(layer.area);
      if (!flat) return std::nullopt;
      ink.insert(ink.end(), flat->begin(), flat->end());
    } else {
      auto rest = combine({ink, FillRule::nonZero}, layer.area, AreaOperation::subtract);
      if (!rest) return std::nullopt;
      ink = *std::move(rest);
    }
  }
  return ink;
}

} // namespace

std::optional<Contours> inkOf(const PaintedPage& page) {
  std::vector<Layer> layers;
  for (const PaintedShape& shape : page.shapes) {
    Area area{shape.contours, shape.rule};
    for (const auto& clip : shape.clips) {
      auto seen = seenThrough(area, *clip);
      if (!seen) return std::nullopt;
      area = *std::move(seen);
    }
    if (!area.contours.empty()) layers.push_back({std::move(area), shape.isInk});
  }
  Contours ink;
  for (const Members& members : groupsApart(layers)) {
    const auto part = inkOfGroup(layersOf(members, layers));
    if (!part) return std::nullopt;
    ink.insert(ink.end(), part->begin(), part->end());
  }
  return ink;
}

} // namespace quillery

#include "kerning/look_alikes.h"

#include "base/unicode.h"
#include "model/contours.h"
#include "project/action_names.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_set>

namespace quillery {

namespace {

constexpr double kNone = std::numeric_limits<double>::infinity();
constexpr int kHeights = 96;    // at which edges are compared
constexpr int kCurveSteps = 12; // chords of a curve
// In parts of an em: how much edges may differ.
constexpr double kStrangers = 1.0 / 100, kRelatives = 1.0 / 40;

/// How far the ink is from the advance width or the origin, height by height from the bottom up;
/// kNone where there is none.
using Profile = std::array<double, kHeights>;

struct Band {
  double bottom;
  double step;

  explicit Band(const FontProject& project) {
    const double em = static_cast<double>(std::max<std::int64_t>(project.unitsPerEm, 1));
    // Half an em beyond what the font calls its own, where accents and tails are.
    bottom = std::min(project.descender, 0.0) - em / 4;
    step = (std::max(project.ascender, em / 2) + em / 4 - bottom) / kHeights;
  }
};

class ProfileMaker {
public:
  ProfileMaker(const Band& band, PairEdge edge, double advance)
      : band_(band), edge_(edge), advance_(advance) {
    profile_.fill(kNone);
  }

  void addLine(Point from, Point to) {
    if (from.y > to.y) std::swap(from, to);
    const auto place = [&](double y) { return (y - band_.bottom) / band_.step - 0.5; };
    const double first = std::max(std::ceil(place(from.y)), 0.0);
    const double last = std::min(std::floor(place(to.y)), kHeights - 1.0);
    for (double i = first; i <= last; ++i) {
      const double y = band_.bottom + (i + 0.5) * band_.step;
      const double t = to.y > from.y ? (y - from.y) / (to.y - from.y) : 0;
      const double x = from.x + t * (to.x - from.x);
      double& distance = profile_[static_cast<std::size_t>(i)];
      distance = std::min(distance, edge_ == PairEdge::left ? x : advance_ - x);
    }
  }

  void addCurve(Point from, Point control1, Point control2, Point to) {
    Point last = from;
    for (int i = 1; i <= kCurveSteps; ++i) {
      const double t = static_cast<double>(i) / kCurveSteps, u = 1 - t;
      const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
      const Point next = {a * from.x + b * control1.x + c * control2.x + d * to.x,
                          a * from.y + b * control1.y + c * control2.y + d * to.y};
      addLine(last, next);
      last = next;
    }
  }

  const Profile& profile() const { return profile_; }

private:
  const Band& band_;
  PairEdge edge_;
  double advance_;
  Profile profile_;
};

Profile profileOf(const Glyph& glyph, const Band& band, PairEdge edge) {
  ProfileMaker maker(band, edge, glyph.advanceWidth());
  Point start, pen;
  for (const PathCommand& command : contoursOf(glyph.fontPath())) switch (command.kind) {
    case PathCommand::Kind::moveTo:
      start = pen = command.points[0];
      break;
    case PathCommand::Kind::lineTo:
      maker.addLine(pen, command.points[0]);
      pen = command.points[0];
      break;
    case PathCommand::Kind::curveTo:
      maker.addCurve(pen, command.points[0], command.points[1], command.points[2]);
      pen = command.points[2];
      break;
    case PathCommand::Kind::closePath:
      maker.addLine(pen, start);
      pen = start;
      break;
    }
  return maker.profile();
}

bool isAlike(const Profile& a, const Profile& b, double tolerance) {
  const double nearest =
      std::min(*std::min_element(a.begin(), a.end()), *std::min_element(b.begin(), b.end()));
  std::size_t shared = 0, inkOfA = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool hasA = a[i] != kNone, hasB = b[i] != kNone;
    inkOfA += hasA ? 1 : 0;
    if (hasA && hasB) {
      ++shared;
      if (std::fabs(a[i] - b[i]) > tolerance) return false;
    } else if ((hasA || hasB) && std::min(a[i], b[i]) < nearest - tolerance) {
      return false;
    }
  }
  // Nearly all of the edge is compared; what is left may be an accent of the other one.
  return inkOfA > 0 && shared * 10 >= inkOfA * 9;
}

std::optional<char32_t> baseOf(const Glyph& glyph) {
  return firstScalar(decomposed(glyph.character()));
}

// The list of pairs, put back as a whole: pairs are small and share nothing with the glyphs.
class KerningListStep : public UndoStep {
public:
  explicit KerningListStep(std::vector<KerningPair> pairs) : pairs_(std::move(pairs)) {}

  void swap(ProjectManager& manager) override {
    manager.editKerningList([&](std::vector<KerningPair>& pairs) { pairs.swap(pairs_); });
  }
  bool changesAnything(const ProjectManager& manager) const override {
    return manager.currentProject().kerningPairs != pairs_;
  }
  std::size_t size(const ProjectManager&) const override {
    return sizeof(*this) + pairs_.size() * sizeof(KerningPair);
  }

private:
  std::vector<KerningPair> pairs_;
};

} // namespace

std::vector<Uuid> lookAlikes(const ProjectManager& manager, const Uuid& glyph, PairEdge edge) {
  const Glyph* const model = manager.glyphWithId(glyph);
  if (!model) return {};
  std::vector<Uuid> alike = {glyph};
  const FontProject& project = manager.currentProject();
  const Band band(project);
  const Profile profile = profileOf(*model, band, edge);
  const double em = static_cast<double>(project.unitsPerEm);
  const auto nearestOf = [edge](const Glyph& one) {
    return edge == PairEdge::left ? one.boundingBox().minX()
                                  : one.advanceWidth() - one.boundingBox().maxX();
  };
  const auto base = baseOf(*model);
  for (const Glyph& other : project.glyphs) {
    if (other.id() == glyph || other.fontPath().empty() || !other.hasBox()) continue;
    const bool isRelative = base && baseOf(other) == base;
    const double tolerance = em * (isRelative ? kRelatives : kStrangers);
    // Most differ in their boxes already; controls may lie outside, for relatives to overlook.
    if (!isRelative && std::fabs(nearestOf(other) - nearestOf(*model)) > 4 * tolerance) continue;
    if (isAlike(profile, profileOf(other, band, edge), tolerance)) alike.push_back(other.id());
  }
  return alike;
}

std::vector<LookAlikePair> unkernedPairs(const ProjectManager& manager, std::span<const Uuid> lefts,
                                         std::span<const Uuid> rights) {
  std::vector<LookAlikePair> pairs;
  for (const Uuid& left : lefts)
    for (const Uuid& right : rights) {
      const Glyph* const first = manager.glyphWithId(left);
      const Glyph* const second = manager.glyphWithId(right);
      if (!first || !second) continue;
      const KerningPair* const known = manager.firstKerningPair(first->name(), second->name());
      if (!known || known->value == 0) pairs.push_back({left, right});
    }
  return pairs;
}

void kernAlike(ProjectManager& manager, std::span<const LookAlikePair> pairs, Finite value) {
  auto step = std::make_unique<KerningListStep>(manager.currentProject().kerningPairs);
  std::unordered_set<Uuid> changed; // pairs that are there
  std::vector<KerningPair> added;
  for (const LookAlikePair& pair : pairs) {
    const Glyph* const left = manager.glyphWithId(pair.left);
    const Glyph* const right = manager.glyphWithId(pair.right);
    if (!left || !right) continue;
    if (const KerningPair* known = manager.firstKerningPair(left->name(), right->name())) {
      changed.insert(known->id);
      continue;
    }
    KerningPair& made = added.emplace_back();
    made.leftGlyph = left->name();
    made.rightGlyph = right->name();
    made.value = value;
  }
  if (changed.empty() && added.empty()) return;
  manager.endEdit();
  manager.editKerningList([&](std::vector<KerningPair>& all) {
    for (KerningPair& pair : all)
      if (changed.contains(pair.id)) pair.value = value;
    all.insert(all.end(), added.begin(), added.end());
  });
  manager.addUndoStep(action::kernPairs(changed.size() + added.size()), std::move(step));
}

} // namespace quillery

#pragma once

#include "project/project_manager.h"

#include <span>
#include <vector>

namespace quillery {

// Glyphs that turn the same edge to their neighbours kern alike: A and Á, O and Q. They are found
// by their outlines, whoever drew them and whatever they are called.

/// The edge that a glyph turns to its neighbour in a pair.
enum class PairEdge {
  right, ///< of the pair's left glyph
  left,  ///< of its right glyph
};

/// The glyphs whose edge is that of this one, itself first and the others in project order: where
/// both have ink at a height, it ends equally far from the advance (or the origin), and what one of
/// them has beside that, an accent say, comes no nearer. Letters of the same base (Unicode's
/// decomposition) may differ a little more than strangers. Glyphs without an outline have none.
std::vector<Uuid> lookAlikes(const ProjectManager& manager, const Uuid& glyph, PairEdge edge);

/// A pair that could be kerned as another is.
struct LookAlikePair {
  Uuid left;
  Uuid right;
};

/// Every left glyph with every right one, less the pairs that have a value already.
std::vector<LookAlikePair> unkernedPairs(const ProjectManager& manager, std::span<const Uuid> lefts,
                                         std::span<const Uuid> rights);

/// Gives all these pairs the value: those that are there are changed, those that are not are added.
/// One undo step.
void kernAlike(ProjectManager& manager, std::span<const LookAlikePair> pairs, Finite value);

} // namespace quillery

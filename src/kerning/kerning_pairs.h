#pragma once

#include "project/project_manager.h"

#include <array>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace quillery {

/// The pairs that Latin fonts commonly kern, by glyph name, left and right.
extern const std::array<std::pair<std::string_view, std::string_view>, 53> kCommonKerningPairs;

/// Appends a pair with value 0, also when one of these names is there already.
Uuid addKerningPair(ProjectManager& manager, Utf8 leftGlyph, Utf8 rightGlyph);

/// Appends the common pairs whose glyphs both exist and that are missing, with value 0, and
/// selects the first one added.
void generateCommonKerningPairs(ProjectManager& manager);

/// Clears the selected pair and removes every pair with this id.
void deleteKerningPair(ProjectManager& manager, const Uuid& id);

/// Changes a pair's value as one undo step; nothing happens for an equal value or an absent pair.
void changeKerningValue(ProjectManager& manager, const Uuid& id, Finite value);

/// The step that brings back a value of a pair.
std::unique_ptr<UndoStep> kerningValueStep(ProjectManager& manager, const Uuid& id, Finite value);

/// The pairs whose left or right name contains the text, case aside, sorted by left name and right
/// name run together. The pointers are good until the next edit.
std::vector<const KerningPair*> filteredKerningPairs(const FontProject& project,
                                                     std::string_view filterText);

} // namespace quillery

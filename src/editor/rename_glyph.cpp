#include "editor/rename_glyph.h"

#include "project/action_names.h"

#include <vector>

namespace quillery {
namespace {

// A pair that names the glyph, on one side or on both.
struct Follower {
  Uuid pair;
  bool left;
  bool right;
};

std::vector<Follower> followersOf(const ProjectManager& manager, const Uuid& id) {
  std::vector<Follower> followers;
  const Glyph* const glyph = manager.glyphWithId(id);
  if (!glyph || manager.firstGlyphNamed(glyph->name()) != glyph) return followers;
  for (const KerningPair& pair : manager.currentProject().kerningPairs) {
    const bool left = pair.leftGlyph == glyph->name();
    const bool right = pair.rightGlyph == glyph->name();
    if (left || right) followers.push_back({pair.id, left, right});
  }
  return followers;
}

// The name that the glyph does not have, and the pairs that follow it. Pairs are kept by id: which
// of those that have the name by then were meant, names alone would not say.
class RenameStep : public UndoStep {
public:
  RenameStep(const ProjectManager& manager, const Uuid& glyph, Utf8 name)
      : glyph_(glyph), name_(std::move(name)), followers_(followersOf(manager, glyph)) {}

  void swap(ProjectManager& manager) override {
    const auto position = manager.glyphIndex().withId(glyph_);
    if (!position) return; // it was deleted for good
    const Utf8 name = std::exchange(name_, manager.currentProject().glyphs[*position].name());
    manager.editGlyphList([&](std::vector<Glyph>& glyphs) {
      GlyphRecord record = glyphs[*position].record();
      record.name = name;
      glyphs[*position] = Glyph(std::move(record));
    });
    if (followers_.empty()) return;
    std::vector<std::pair<std::size_t, const Follower*>> places;
    for (const Follower& follower : followers_)
      if (const auto place = manager.kerningIndex().withId(follower.pair))
        places.emplace_back(*place, &follower);
    manager.editKerningList([&](std::vector<KerningPair>& pairs) {
      for (const auto& [place, follower] : places) {
        if (follower->left) pairs[place].leftGlyph = name;
        if (follower->right) pairs[place].rightGlyph = name;
      }
    });
  }
  bool changesAnything(const ProjectManager& manager) const override {
    const Glyph* const glyph = manager.glyphWithId(glyph_);
    return glyph && glyph->name() != name_;
  }
  std::size_t size(const ProjectManager&) const override {
    return sizeof(*this) + name_.str().size() + followers_.size() * sizeof(Follower);
  }

private:
  Uuid glyph_;
  Utf8 name_;
  std::vector<Follower> followers_;
};

} // namespace

NameFault faultOfName(const ProjectManager& manager, const Uuid& id, std::string_view name) {
  const Glyph* const glyph = manager.glyphWithId(id);
  if (!glyph) return NameFault::gone;
  if (glyph->name() == name) return NameFault::none;
  if (name.empty()) return NameFault::empty;
  return manager.firstGlyphNamed(name) ? NameFault::taken : NameFault::none;
}

std::size_t pairsThatFollow(const ProjectManager& manager, const Uuid& glyph) {
  return followersOf(manager, glyph).size();
}

NameFault renameGlyph(ProjectManager& manager, const Uuid& id, const Utf8& name) {
  const Uuid glyph = id; // the caller's may lie in the glyph
  manager.endEdit();
  const NameFault fault = faultOfName(manager, glyph, name);
  if (fault != NameFault::none || manager.glyphWithId(glyph)->name() == name) return fault;
  auto step = std::make_unique<RenameStep>(manager, glyph, name);
  step->swap(manager);
  manager.addUndoStep(action::kRenameGlyph, std::move(step));
  return fault;
}

} // namespace quillery

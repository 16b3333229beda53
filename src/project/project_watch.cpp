#include "project/project_watch.h"

#include <algorithm>
#include <utility>

namespace quillery {

using What = ProjectChange::What;

ProjectWatch::ProjectWatch(ProjectManager& manager, Shows shows,
                           std::function<void(const ProjectChanges&)> refresh)
    : manager_(manager), shows_(std::move(shows)), refresh_(std::move(refresh)),
      connection_(manager.changed.connect([this](const ProjectChange& c) { hear(c); })) {
  shows_.kinds.add(What::project);
  shows_.kinds.add(What::everything);
}

void ProjectWatch::hear(const ProjectChange& change) {
  if (!shows_.kinds.contains(change.what)) return;
  const bool first = pending_.kinds_.empty();
  // Adds the ids that are shown; false when there are none.
  const auto addShown = [&](const std::function<bool(const Uuid&)>& isShown,
                            std::unordered_set<Uuid>& to) {
    const std::size_t before = to.size();
    for (const Uuid& id : change.ids)
      if (!isShown || isShown(id)) to.insert(id);
    return to.size() > before;
  };
  if (change.what == What::glyphs && !addShown(shows_.glyph, pending_.glyphs_)) return;
  if (change.what == What::kerningPair && !addShown(shows_.pair, pending_.pairs_)) return;
  pending_.kinds_.add(change.what);
  if (first) manager_.desktop().postToMain(lifetime_.guard([this] { catchUp(); }));
}

void ProjectWatch::catchUp() {
  // Taken first: what the refresh changes is for the next turn.
  const ProjectChanges changes = std::exchange(pending_, {});
  if (!changes.kinds_.empty()) refresh_(changes);
}

} // namespace quillery

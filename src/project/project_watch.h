#pragma once

#include "project/project_manager.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <unordered_set>

namespace quillery {

/// A set of kinds of change.
class ChangeKinds {
public:
  using What = ProjectChange::What;

  constexpr ChangeKinds() = default;
  constexpr ChangeKinds(std::initializer_list<What> kinds) {
    for (const What kind : kinds) add(kind);
  }
  constexpr void add(What kind) { bits_ |= bit(kind); }
  constexpr bool contains(What kind) const { return (bits_ & bit(kind)) != 0; }
  constexpr bool empty() const { return bits_ == 0; }

private:
  static constexpr std::uint32_t bit(What kind) { return 1U << static_cast<unsigned>(kind); }
  std::uint32_t bits_ = 0;
};

/// What has changed since a view was refreshed last, of that which it shows.
class ProjectChanges {
public:
  /// Another project, or an undo or redo: anything may be different, and all questions are
  /// answered by true.
  bool everything() const {
    return kinds_.contains(ProjectChange::What::project) ||
           kinds_.contains(ProjectChange::What::everything);
  }
  bool anotherProject() const { return kinds_.contains(ProjectChange::What::project); }
  bool has(ProjectChange::What what) const { return everything() || kinds_.contains(what); }
  /// Values of this glyph may have changed, or the glyph come or gone.
  bool hasGlyph(const Uuid& glyph) const {
    return has(ProjectChange::What::glyphList) || glyphs_.contains(glyph);
  }
  /// The value of this pair may have changed, or the pair come or gone.
  bool hasPair(const Uuid& pair) const {
    return has(ProjectChange::What::kerningList) || pairs_.contains(pair);
  }
  /// The glyphs and the pairs whose values changed. Not complete after `everything`.
  const std::unordered_set<Uuid>& glyphs() const { return glyphs_; }
  const std::unordered_set<Uuid>& pairs() const { return pairs_; }

private:
  friend class ProjectWatch;
  ChangeKinds kinds_;
  std::unordered_set<Uuid> glyphs_;
  std::unordered_set<Uuid> pairs_;
};

/// What a view shows of a project.
struct Shows {
  ChangeKinds kinds;
  /// With `glyphs` among the kinds: whether it shows the values of this one. Without: of all.
  std::function<bool(const Uuid&)> glyph = nullptr;
  /// Likewise for `kerningPair`.
  std::function<bool(const Uuid&)> pair = nullptr;
};

/// Keeps a view in step with a project: the view says what it shows and how it is refreshed, and
/// is refreshed once a turn of the main loop in which some of that changed, however often. Another
/// project and an undo concern every view and need not be named.
class ProjectWatch {
public:
  ProjectWatch(ProjectManager& manager, Shows shows,
               std::function<void(const ProjectChanges&)> refresh);
  ProjectWatch(const ProjectWatch&) = delete;
  ProjectWatch& operator=(const ProjectWatch&) = delete;

  /// Refreshes now, if there is anything to refresh: for a view that is asked before the turn of
  /// the main loop is over.
  void catchUp();

private:
  void hear(const ProjectChange& change);

  ProjectManager& manager_;
  Shows shows_;
  std::function<void(const ProjectChanges&)> refresh_;
  ProjectChanges pending_;
  Lifetime lifetime_;
  Connection connection_;
};

} // namespace quillery

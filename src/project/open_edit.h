#pragma once

#include "project/undo_step.h"

#include <memory>
#include <string>

namespace quillery {

/// An edit that is under way and no undo step yet: a field being typed in, a slider or an outline
/// being dragged. It changes the document live; when it ends, the whole of it becomes one step.
///
/// A project has at most one open edit, which it keeps (ProjectManager::beginEdit); this is what
/// the control holds that began it. Whatever needs the history to be complete, such as an undo,
/// ends it, and then it is not open any more.
class OpenEdit {
public:
  /// Not open.
  OpenEdit() = default;

  bool isOpen() const { return !edit_.expired(); }
  /// The name of the step that it becomes.
  void rename(std::string actionName);
  /// Becomes a step if something has changed. Nothing happens when it is not open.
  void end();
  /// Puts the values back and ends without a step. Nothing happens when it is not open.
  void cancel();

private:
  friend class ProjectManager;
  struct State {
    ProjectManager& manager;
    std::string actionName;
    std::unique_ptr<UndoStep> before; // holds the values that it began with
  };
  explicit OpenEdit(const std::shared_ptr<State>& edit) : edit_(edit) {}

  std::weak_ptr<State> edit_;
};

} // namespace quillery

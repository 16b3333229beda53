#pragma once

namespace quillery {

/// An edit that is under way and no undo step yet: a field being typed in, a slider or an outline
/// being dragged. It changes the document live; when it ends, the whole of it becomes one step.
///
/// A project has at most one open edit (ProjectManager::beginEdit). Whatever needs the history to
/// be complete, such as an undo, ends it first.
class OpenEdit {
public:
  OpenEdit() = default;
  OpenEdit(const OpenEdit&) = delete;
  OpenEdit& operator=(const OpenEdit&) = delete;
  virtual ~OpenEdit() = default;

  /// Ending it now would register a step.
  virtual bool hasChanged() const = 0;
  /// Registers the step if something changed. Nothing happens when it has ended before.
  virtual void end() = 0;
};

} // namespace quillery

#pragma once

#include <cstddef>

namespace quillery {

class ProjectManager;

/// A change of the document that can be taken back, as the values that it put aside.
class UndoStep {
public:
  UndoStep() = default;
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;
  virtual ~UndoStep() = default;

  /// Puts the values that it holds into the document and holds those that stood there, so that
  /// doing it twice changes nothing.
  virtual void swap(ProjectManager& manager) = 0;
  /// False while the document has the values that it holds.
  virtual bool changesAnything(const ProjectManager& manager) const = 0;
  /// The memory that it keeps occupied, in bytes; what it shares with the document or with another
  /// step counts once.
  virtual std::size_t size(const ProjectManager& manager) const = 0;
  /// Once undone, it is kept to be redone.
  virtual bool canBeRedone() const { return true; }
};

} // namespace quillery

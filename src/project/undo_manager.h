#pragma once

#include "base/signal.h"
#include "project/undo_step.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

namespace quillery {

/// The undo and redo stacks of a document. They occupy at most a budget of memory: past it, the
/// oldest steps are forgotten.
class UndoManager {
public:
  /// `budget` is in bytes; the newest step is kept even if it alone is larger.
  explicit UndoManager(std::size_t budget = defaultBudget());
  UndoManager(const UndoManager&) = delete;
  UndoManager& operator=(const UndoManager&) = delete;

  /// A tenth of the machine's memory, at most 256 MB.
  static std::size_t defaultBudget();

  /// Adds a step that was done, which empties the redo stack.
  void add(std::string actionName, std::unique_ptr<UndoStep> step, const ProjectManager& manager);

  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  /// Empty when there is nothing to undo or redo.
  std::string undoActionName() const { return undo_.empty() ? "" : undo_.back().name; }
  std::string redoActionName() const { return redo_.empty() ? "" : redo_.back().name; }
  /// Takes the last step back, and does the last undone one again. Nothing happens when there is
  /// none.
  void undo(ProjectManager& manager);
  void redo(ProjectManager& manager);

  void removeAllActions();
  /// How many steps can be undone.
  std::size_t undoCount() const { return undo_.size(); }
  /// Tells the steps added until now from those to come.
  std::uint64_t mark() const { return added_; }
  /// The memory that the steps occupy, in bytes.
  std::size_t size() const { return size_; }
  /// Forgets the steps added since `mark`, for an edit that was abandoned and puts its values back
  /// itself.
  void forgetSince(std::uint64_t mark);

  /// What can be undone or redone has changed.
  Signal<> changed;

private:
  struct Action {
    std::string name;
    std::unique_ptr<UndoStep> step;
    std::size_t size;
    std::uint64_t number; // counted from 1 as they were added
  };
  using Stack = std::deque<Action>; // the last is the newest

  void perform(Stack& from, Stack& to, ProjectManager& manager);
  void forget(Stack& stack);

  std::size_t budget_;
  std::size_t size_ = 0;
  std::uint64_t added_ = 0;
  Stack undo_;
  Stack redo_;
};

} // namespace quillery

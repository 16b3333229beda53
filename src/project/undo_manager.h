#pragma once

#include "base/signal.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillery {

/// The undo and redo stacks of a document.
///
/// A step is registered as the function that reverses it. While a step is undone, what it
/// registers goes to the redo stack, and the other way round: a step that registers no inverse
/// leaves nothing to redo. A step outside any group is a group of its own.
class UndoManager {
public:
  using Step = std::function<void()>;

  UndoManager() = default;
  UndoManager(const UndoManager&) = delete;
  UndoManager& operator=(const UndoManager&) = delete;

  /// Opens a group: its steps are undone together, last first. Groups nest; only the outermost
  /// counts. A group without steps leaves no trace.
  void beginGroup();
  void endGroup();

  /// Adds a step. Outside of undo and redo this empties the redo stack.
  void registerUndo(Step step);

  /// Names the group that is open, or else the one made last.
  void setActionName(std::string name);

  bool canUndo() const { return !undo_.empty() && depth_ == 0; }
  bool canRedo() const { return !redo_.empty() && depth_ == 0; }
  /// Empty when there is nothing to undo or redo.
  std::string undoActionName() const { return undo_.empty() ? "" : undo_.back().name; }
  std::string redoActionName() const { return redo_.empty() ? "" : redo_.back().name; }

  /// Reverses the last group, and the last undone one. Nothing happens when there is none, while a
  /// group is open or from within a step.
  void undo();
  void redo();

  void removeAllActions();

  /// How many groups can be undone.
  std::size_t undoCount() const { return undo_.size(); }
  /// Forgets what was registered since undoCount() was `count`, without undoing it: for an edit
  /// that was abandoned and has put its values back itself. Nothing happens while a group is open.
  void forgetSince(std::size_t count);

  /// What can be undone or redone may have changed. Silent while steps are performed.
  Signal<> changed;

private:
  struct Group {
    std::string name;
    std::vector<Step> steps;
  };
  enum class Mode { recording, undoing, redoing };

  void perform(std::vector<Group>& from, Mode mode);
  std::vector<Group>& receiving() { return mode_ == Mode::undoing ? redo_ : undo_; }

  std::vector<Group> undo_;
  std::vector<Group> redo_;
  Group open_;
  int depth_ = 0;
  Mode mode_ = Mode::recording;
};

} // namespace quillery

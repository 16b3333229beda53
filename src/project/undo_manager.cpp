#include "project/undo_manager.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace quillery {

void UndoManager::beginGroup() {
  if (depth_++ == 0) open_ = {};
}

void UndoManager::endGroup() {
  assert(depth_ > 0);
  if (--depth_ > 0 || open_.steps.empty()) return;
  receiving().push_back(std::exchange(open_, {}));
  if (mode_ == Mode::recording) changed.emit();
}

void UndoManager::registerUndo(Step step) {
  if (mode_ == Mode::recording) redo_.clear();
  if (depth_ > 0) {
    open_.steps.push_back(std::move(step));
  } else {
    receiving().push_back({"", {}});
    receiving().back().steps.push_back(std::move(step));
    if (mode_ == Mode::recording) changed.emit();
  }
}

void UndoManager::setActionName(std::string name) {
  if (depth_ > 0)
    open_.name = std::move(name);
  else if (!receiving().empty())
    receiving().back().name = std::move(name);
}

void UndoManager::undo() {
  if (canUndo() && mode_ == Mode::recording) perform(undo_, Mode::undoing);
}

void UndoManager::redo() {
  if (canRedo() && mode_ == Mode::recording) perform(redo_, Mode::redoing);
}

void UndoManager::perform(std::vector<Group>& from, Mode mode) {
  const Group group = std::move(from.back());
  from.pop_back();
  mode_ = mode;
  beginGroup();
  open_.name = group.name;
  std::for_each(group.steps.rbegin(), group.steps.rend(), [](const Step& step) { step(); });
  endGroup();
  mode_ = Mode::recording;
  changed.emit();
}

void UndoManager::removeAllActions() {
  undo_.clear();
  redo_.clear();
  open_.steps.clear();
  changed.emit();
}

void UndoManager::forgetSince(std::size_t count) {
  if (depth_ > 0 || count >= undo_.size()) return;
  undo_.resize(count);
  changed.emit();
}

} // namespace quillery

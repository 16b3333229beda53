#include "project/undo_manager.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace quillery {

UndoManager::UndoManager(std::size_t budget) : budget_(budget) {}

std::size_t UndoManager::defaultBudget() {
  constexpr std::size_t kMost = 256U << 20;
  const long pages = sysconf(_SC_PHYS_PAGES);
  const long pageSize = sysconf(_SC_PAGESIZE);
  if (pages <= 0 || pageSize <= 0) return kMost;
  return std::min(kMost, static_cast<std::size_t>(pages) / 10 * static_cast<std::size_t>(pageSize));
}

void UndoManager::add(std::string actionName, std::unique_ptr<UndoStep> step,
                      const ProjectManager& manager) {
  forget(redo_);
  const std::size_t size = step->size(manager);
  size_ += size;
  undo_.push_back({std::move(actionName), std::move(step), size, ++added_});
  while (size_ > budget_ && undo_.size() > 1) {
    size_ -= undo_.front().size;
    undo_.pop_front();
  }
  changed.emit();
}

void UndoManager::undo(ProjectManager& manager) {
  perform(undo_, redo_, manager);
}

void UndoManager::redo(ProjectManager& manager) {
  perform(redo_, undo_, manager);
}

void UndoManager::perform(Stack& from, Stack& to, ProjectManager& manager) {
  if (from.empty()) return;
  Action action = std::move(from.back());
  from.pop_back();
  action.step->swap(manager);
  if (action.step->canBeRedone())
    to.push_back(std::move(action));
  else
    size_ -= action.size;
  changed.emit();
}

void UndoManager::forget(Stack& stack) {
  for (const Action& action : stack) size_ -= action.size;
  stack.clear();
}

void UndoManager::removeAllActions() {
  forget(undo_);
  forget(redo_);
  undo_.shrink_to_fit();
  redo_.shrink_to_fit();
  changed.emit();
}

void UndoManager::forgetSince(std::uint64_t mark) {
  const std::size_t before = undo_.size();
  while (!undo_.empty() && undo_.back().number > mark) {
    size_ -= undo_.back().size;
    undo_.pop_back();
  }
  if (undo_.size() != before) changed.emit();
}

} // namespace quillery

#include "project/open_edit.h"

#include "project/project_manager.h"

#include <utility>

namespace quillery {

void OpenEdit::rename(std::string actionName) {
  if (const auto edit = edit_.lock()) edit->actionName = std::move(actionName);
}

void OpenEdit::end() {
  if (const auto edit = edit_.lock()) edit->manager.endEdit();
}

void OpenEdit::cancel() {
  if (const auto edit = edit_.lock()) edit->manager.cancelEdit();
}

} // namespace quillery

#include "project/saved_state.h"

#include <utility>

namespace quillery {

void SavedState::keep(const FontProject& project) {
  saved_ = project;
  changed_ = mayBeBack_ = false;
}

bool SavedState::differsFrom(const FontProject& project) const {
  if (std::exchange(mayBeBack_, false) && changed_) changed_ = project != saved_;
  return changed_;
}

} // namespace quillery

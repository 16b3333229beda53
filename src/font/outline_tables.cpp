#include "font/outline_tables.h"

#include <algorithm>

namespace quillery::font {

Box unitedBox(const std::vector<std::optional<Box>>& boxes) {
  std::optional<Box> all;
  for (const std::optional<Box>& box : boxes) {
    if (!box) continue;
    if (!all) all = box;
    all = Box{std::min(all->xMin, box->xMin), std::min(all->yMin, box->yMin),
              std::max(all->xMax, box->xMax), std::max(all->yMax, box->yMax)};
  }
  return all.value_or(Box{});
}

} // namespace quillery::font

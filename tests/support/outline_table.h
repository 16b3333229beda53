#pragma once

#include "model/outline.h"

#include <string>
#include <vector>

namespace quillery::test {

/// An outline as a drawing may have it, and the contours that it is drawn as.
struct OutlineRow {
  std::string name;
  Outline outline;
  Outline contours;
};

/// The table that all who draw outlines are held against, the font generator too.
std::vector<OutlineRow> outlineTable();

} // namespace quillery::test

#pragma once

#include "project/import_task.h"

#include <QString>
#include <vector>

namespace quillery {

/// True for a drawing of which the plain reader left something out.
inline bool isUnread(const NotedDrawing& noted) {
  return !noted.converted;
}

/// What is to be said of noted drawings, of which there is at least one, in one sentence.
QString sentenceFor(const std::vector<NotedDrawing>& noted, std::size_t lookedAt);

} // namespace quillery

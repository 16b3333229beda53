#pragma once

#include "drawing/worker_messages.h"
#include "project/drawing_flattener.h"

#include <optional>

namespace quillery {

// A flat drawing and a sheet as fields of a message. What is read is looked at as any stranger's
// data: nothing for text that is no UTF-8, numbers that aren't finite, path data without a point.

void appendFields(Fields& fields, const FlatDrawing& drawing);
void appendFields(Fields& fields, const DrawingSheet& sheet);

/// Reads from the field at `at`, which moves behind what was read.
std::optional<FlatDrawing> readFlatDrawing(const Fields& fields, std::size_t& at);
std::optional<DrawingSheet> readDrawingSheet(const Fields& fields, std::size_t& at);

} // namespace quillery

#pragma once

#include "font/json_members.h"
#include "font/outline.h"

#include <optional>

namespace quillery::font {

/// The outline of a list of path commands. Contours left open are closed; a segment that follows a
/// closed contour starts at the same point as that did, and one with nothing before it at the first
/// point that it names. Contours of a single point are kept.
Reading<Outline> readOutline(const simdjson::dom::array& commands);

/// Why a font can't hold an outline, said of its drawing; nothing when it can.
std::optional<std::string> unfitness(const Outline& outline);

} // namespace quillery::font

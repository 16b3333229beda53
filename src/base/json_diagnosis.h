#pragma once

#include "base/problem.h"

#include <string_view>

namespace quillery {

/// Finds where and why a text is not JSON. `fallback` is the reason when the text is JSON after
/// all (nested too deeply, say); the place is empty then.
Problem diagnoseJson(std::string_view text, std::string_view fallback);

} // namespace quillery

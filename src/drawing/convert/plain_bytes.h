#pragma once

#include "base/result.h"

#include <string>
#include <string_view>

namespace quillery {

/// The text of a drawing's file in an encoding that extends ASCII: what was compressed is
/// decompressed, UTF-16 becomes UTF-8 and a byte-order mark goes. The error says what is wrong.
Result<std::string, std::string> plainBytes(std::string_view file);

} // namespace quillery

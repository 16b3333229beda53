#pragma once

#include "base/result.h"
#include "preview/text_layout.h"

#include <string>

namespace quillery {

/// A layout of finite, positive size as the bytes of a PNG file, dark on white, a view point being
/// a pixel. Says why where that would be too large. Needs neither a screen nor an application.
Result<std::string, std::string> previewPng(const TextLayout& layout, const FontProject& project);

} // namespace quillery

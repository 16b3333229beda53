#pragma once

#include "base/uuid.h"

#include <string>
#include <vector>

namespace quillery {

/// A text to try a font with.
struct TextPreset {
  Uuid id = Uuid::random();
  std::string name;
  /// Lines are parted by line feeds.
  std::string text;
};

/// The texts that the preview offers, in the order in which it lists them. Made on first use.
const std::vector<TextPreset>& textPresets();

} // namespace quillery

#pragma once

#include <array>

namespace quillery {

/// A kind of font file that can be written. The generator takes the format from the extension of
/// the file that it is to write; nothing else carries it.
struct ExportFormat {
  /// Without its dot.
  const char* extension;
  const char* title;
};

/// In the order in which they are offered; the first is the default.
inline constexpr std::array<ExportFormat, 4> kExportFormats = {{
    {"otf", "OpenType (.otf)"},
    {"ttf", "TrueType (.ttf)"},
    {"woff", "Web Open Font Format (.woff)"},
    {"woff2", "Web Open Font Format 2 (.woff2)"},
}};

} // namespace quillery

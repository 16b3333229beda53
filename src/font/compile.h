#pragma once

#include "base/result.h"
#include "font/bytes.h"
#include "font/description.h"
#include "font/glyph_set.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillery::font {

/// The kinds of font files. OTF has the drawing's cubic curves; TTF has quadratic ones, and so have
/// WOFF and WOFF2: browsers rasterize unhinted quadratic outlines evenly on every system, and WOFF2
/// has a form of its own for their points.
enum class FontFormat { otf, ttf, woff, woff2 };

/// The format of a file name's extension, in any case; nothing for other names.
std::optional<FontFormat> formatOfExtension(std::string_view extension);

struct CompileOptions {
  /// 0 to 11; of WOFF2 only.
  int brotliQuality = 11;
  /// Of creation and change, in seconds since 1970. The same project gives the same bytes.
  std::int64_t date = 1704067200; // 1 January 2024
};

struct CompiledFont {
  Bytes file;
  std::vector<Warning> warnings;
};

/// The font file of a description. Fails for what a font can't hold.
Result<CompiledFont, FontError> compileFont(const FontDescription& description, FontFormat format,
                                            const CompileOptions& options);

} // namespace quillery::font

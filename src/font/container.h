#pragma once

#include "base/result.h"
#include "font/bytes.h"
#include "font/font_error.h"

#include <vector>

namespace quillery::font {

// Font files of finished tables, head among them. Tables are stored by tag, each padded to four
// bytes; head is given its checkSumAdjustment.

/// An OpenType file: the version is "OTTO" with a CFF table and 1.0 with a glyf table.
Bytes packSfnt(std::vector<Table> tables);

/// WOFF 1.0 (W3C): each table compressed by itself where that makes it smaller.
Bytes packWoff(std::vector<Table> tables);

/// WOFF 2.0 (W3C) of a font with a glyf table. `brotliQuality` is 0 to 11. Fails when the library
/// can't make it.
Result<Bytes, FontError> packWoff2(std::vector<Table> tables, int brotliQuality);

} // namespace quillery::font

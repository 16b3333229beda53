#pragma once

#include "base/result.h"
#include "base/utf8.h"
#include "drawing/convert/page_source.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// A page that is no SVG.
struct ForeignPage {
  std::unique_ptr<PageSource> page;
  /// It has no outlines, only pixels.
  bool isPicture = false;
  /// What is lost with it.
  std::vector<Utf8> notes;
};

/// Opens a PDF or EPS page, or a PNG or JPEG picture; nothing when the file is none of them.
std::optional<Result<ForeignPage, std::string>> openForeignPage(std::string_view file);

} // namespace quillery

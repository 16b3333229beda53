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

/// A page that another program turned into SVG.
struct PageAsSvg {
  std::string svg;
  /// What is lost with it.
  std::vector<Utf8> notes;
};

/// The first page of a PDF or EPS file, by programs of the system; nothing when the file is
/// neither.
std::optional<Result<PageAsSvg, std::string>> pageAsSvg(std::string_view file);

/// A PNG or JPEG picture, which has no outlines; nothing when the file is neither.
std::optional<Result<std::unique_ptr<PageSource>, std::string>> openPicture(std::string_view file);

} // namespace quillery

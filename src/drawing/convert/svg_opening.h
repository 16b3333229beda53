#pragma once

#include "base/result.h"
#include "drawing/convert/svg_document.h"
#include "drawing/convert/svg_page.h"

#include <memory>
#include <string>
#include <vector>

namespace quillery {

// How far beside its page the ink of a document is looked for, in pages.
inline constexpr double kFarBeside = 16;
inline constexpr double kNearBeside = 1;

/// Opens a document with as much room around its page as its ink takes, up to `most` pages. The
/// elements `named` can be drawn alone. Without a size of its own, its page ends where its ink
/// does.
Result<std::unique_ptr<SvgPage>, std::string> openSvg(const SvgDocument& document,
                                                      const std::vector<std::size_t>& named = {},
                                                      double most = kFarBeside);

/// Where the guides of a document lie and the layers that stand for guides, from top to bottom, in
/// the document's units. `page` is its page.
std::vector<DrawingSheet::Guide> guidesOf(const SvgDocument& document, Size page);

} // namespace quillery

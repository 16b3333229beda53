#pragma once

#include "base/result.h"
#include "drawing/convert/page_source.h"

#include <string>

namespace quillery {

/// What share of its ink a page and the contours made of it differ by, where that can be seen: 0
/// for none. Both are drawn and compared; the edges, where both are grey, don't count.
Result<double, std::string> differenceFromPage(PageSource& source, const Contours& contours,
                                               const Box& painted, bool isAllLight);

} // namespace quillery

#pragma once

class QScrollArea;

namespace quillery {

/// Keeps a form that scrolls only up and down as wide as its area, whether there is a scroll bar or
/// not: the bar lies over the form's margin, and no value moves when it comes. Areas that scroll
/// sideways are left as they are.
void keepFormWidth(QScrollArea& area);

} // namespace quillery

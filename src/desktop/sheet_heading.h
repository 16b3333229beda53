#pragma once

#include "desktop/theme.h"

class QDialog;

namespace quillery {

class TextLabel;

/// The heading at the top of a sheet, which is also what assistive technology calls it. The frame
/// that the desktop may put around the sheet says the program's name: a heading stands once.
TextLabel* makeSheetHeading(const QString& heading, QDialog& sheet,
                            TextStyle style = TextStyle::title);

} // namespace quillery

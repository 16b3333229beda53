#include "desktop/sheet_heading.h"

#include "desktop/widgets.h"

#include <QDialog>

namespace quillery {

TextLabel* makeSheetHeading(const QString& heading, QDialog& sheet, TextStyle style) {
  sheet.setWindowTitle(QStringLiteral("Quillery"));
  sheet.setAccessibleName(heading);
  return new TextLabel(heading, style, Role::text, &sheet);
}

} // namespace quillery

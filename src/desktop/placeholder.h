#pragma once

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QWidget>

class QVBoxLayout;

namespace quillery {

class TextLabel;

/// What stands in the middle of an area that has nothing to show: a large symbol, a title and words
/// about what to do. Texts wrap at a readable width.
class Placeholder : public QWidget {
  Q_OBJECT
public:
  Placeholder(Symbol symbol, const QString& title, QWidget* parent = nullptr);

  /// Adds a paragraph below.
  TextLabel* addText(const QString& text, TextStyle style = TextStyle::body,
                     Role role = Role::textSecondary);

private:
  QVBoxLayout* words_;
};

} // namespace quillery

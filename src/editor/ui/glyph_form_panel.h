#pragma once

#include "desktop/widgets.h"

class QVBoxLayout;

namespace quillery {

/// The form beside a canvas: sections of rows, scrolling where it is low.
class GlyphFormPanel : public QWidget {
  Q_OBJECT
public:
  static constexpr int kWidth = 280;

  explicit GlyphFormPanel(QWidget* parent);

protected:
  /// Rows added later stand in this section.
  void addSection(const QString& title);
  /// A label with its control or text at the end of the row.
  void addRow(const QString& label, QWidget* value, int stretch = 0);
  void addRow(QWidget* row);

private:
  QVBoxLayout* sections_;
  QVBoxLayout* rows_ = nullptr;
};

} // namespace quillery

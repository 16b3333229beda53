#pragma once

#include "svg/svg_drop.h"

#include <QWidget>

namespace quillery {

/// What the window shows while the project has no glyphs. Takes dropped drawings.
class EmptyStateView : public QWidget {
  Q_OBJECT
public:
  EmptyStateView(ProjectManager& manager, QWidget* parent);

protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  SVGDropDelegate drops_;
};

} // namespace quillery

#pragma once

#include "project/project_manager.h"

#include <QWidget>

namespace quillery {

/// What the window shows while the project has no glyphs.
class EmptyStateView : public QWidget {
  Q_OBJECT
public:
  EmptyStateView(ProjectManager& manager, QWidget* parent);
};

} // namespace quillery

#pragma once

#include <QToolBar>

namespace quillery {

class Badge;
class ElidedLabel;
class IconButton;
class ProjectManager;
class SegmentedControl;

/// The title of the project, the badge that says it was saved, the choice of tab and the switch of
/// the preview. The title gives way where there is little room.
class ProjectToolBar : public QToolBar {
  Q_OBJECT
public:
  ProjectToolBar(ProjectManager& manager, QWidget* parent);

  void setTitle(const QString& title);
  void setSaved(bool saved);
  /// The tabs are shown only where there are glyphs.
  void showTabs(bool shown, int tab);
  void showPreviewAs(bool shown);
  const QWidget* tabs() const;

Q_SIGNALS:
  void previewToggled();

private:
  ElidedLabel* title_;
  Badge* savedBadge_;
  SegmentedControl* tabs_;
  IconButton* previewSwitch_;
};

} // namespace quillery

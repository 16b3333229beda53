#pragma once

#include "app/ui/commands_table.h"
#include "app/ui/pane_focus.h"
#include "project/project_watch.h"
#include "project/recent_projects_manager.h"

#include <QMainWindow>

class QMenu;
class QStackedWidget;

namespace quillery {

class Badge;
class ElidedLabel;
class EmptyStateView;
class GlyphGridView;
class GlyphSplitView;
class IconButton;
class KerningEditorView;
class ResizableSplitView;
class SegmentedControl;
class WatchBar;

/// The one window: sidebar, work area, tool bar and menus.
class MainWindow : public QMainWindow {
  Q_OBJECT
public:
  MainWindow(ProjectManager& manager, RecentProjectsManager& recentProjects,
             ExportFlow& exportFlow);

  GlyphGridView& grid();
  /// The preview panel is shown under the work area whenever the project has glyphs.
  bool showPreview() const { return showPreview_; }

protected:
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  void makeMenus();
  void makeToolBar();
  QWidget* makeBody(ExportFlow& exportFlow);
  void fillRecentMenu();
  void refresh(const ProjectChanges& changes);
  void showTitle();
  void showWorkArea();
  void togglePreview();
  QList<PaneFocus::Pane> panes();
  void goToTab(int tab);
  void focusWorkArea();
  void leaveButton();
  void enableCommands();
  void showLicenses();
  void openHelp();

  ProjectManager& manager_;
  RecentProjectsManager& recentProjects_;
  std::vector<Command> commands_;
  std::vector<std::pair<QAction*, std::size_t>> actions_; // with places in commands_
  QMenu* recentMenu_ = nullptr;
  ElidedLabel* title_ = nullptr;
  Badge* savedBadge_ = nullptr;
  SegmentedControl* tabs_ = nullptr;
  IconButton* previewSwitch_ = nullptr;
  bool showPreview_ = true;
  QStackedWidget* pages_ = nullptr;
  QStackedWidget* workAreas_ = nullptr;
  GlyphSplitView* glyphs_ = nullptr;
  ResizableSplitView* split_ = nullptr;
  WatchBar* watchBar_ = nullptr;
  QWidget* notedBar_ = nullptr;
  QWidget* sidebar_ = nullptr;
  QWidget* toolBar_ = nullptr;
  EmptyStateView* empty_ = nullptr;
  KerningEditorView* kerning_ = nullptr;
  PaneFocus paneFocus_{[this] { return panes(); }};
  Connection recentConnection_;
  ProjectWatch watch_;
};

} // namespace quillery

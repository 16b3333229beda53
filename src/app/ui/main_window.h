#pragma once

#include "app/ui/commands_table.h"
#include "app/ui/pane_focus.h"
#include "project/project_watch.h"
#include "project/recent_projects_manager.h"

#include <QMainWindow>

class QMenu;
class QStackedWidget;

namespace quillery {

class EmptyStateView;
class GlyphGridView;
class GlyphSplitView;
class KerningEditorView;
class NoticeBar;
class ProjectToolBar;
class ResizableSplitView;
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
  void closeEvent(QCloseEvent* event) override;

private:
  enum Page { kEmptyPage, kWorkPage };
  enum Tab { kGlyphsTab, kKerningTab };

  void makeMenus();
  QWidget* makeBody(ExportFlow& exportFlow);
  void fillRecentMenu();
  void refresh(const ProjectChanges& changes);
  void showTitle();
  void showWorkArea();
  void tellRefused(const QString& name);
  CommandTargets commandTargets();
  bool isPartShown(ViewPart part) const;
  void togglePart(ViewPart part);
  static ViewState::Scheme shownScheme();
  static void showScheme(ViewState::Scheme scheme);
  void restoreView();
  void storeView();
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
  ProjectToolBar* toolBar_ = nullptr;
  bool showPreview_ = true;
  ViewState::Scheme scheme_ = ViewState::Scheme::system; // the user's choice
  QStackedWidget* pages_ = nullptr;
  QStackedWidget* workAreas_ = nullptr;
  GlyphSplitView* glyphs_ = nullptr;
  ResizableSplitView* split_ = nullptr;
  WatchBar* watchBar_ = nullptr;
  QWidget* notedBar_ = nullptr;
  NoticeBar* refused_ = nullptr; // a project that was dropped
  QWidget* sidebar_ = nullptr;
  QWidget* sidebarEdge_ = nullptr;
  EmptyStateView* empty_ = nullptr;
  KerningEditorView* kerning_ = nullptr;
  PaneFocus paneFocus_{[this] { return panes(); }};
  Connection recentConnection_;
  ProjectWatch watch_;
};

} // namespace quillery

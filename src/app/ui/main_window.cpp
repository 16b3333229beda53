#include "app/ui/main_window.h"

#include "app/ui/empty_state_view.h"
#include "app/ui/file_drops.h"
#include "app/ui/glyph_grid_view.h"
#include "app/ui/glyph_split_view.h"
#include "app/ui/licenses_view.h"
#include "app/ui/project_sidebar.h"
#include "app/ui/project_tool_bar.h"
#include "app/ui/resizable_split_view.h"
#include "desktop/notice_bar.h"
#include "desktop/outline_painting.h"
#include "desktop/widgets.h"
#include "drawing/ui/sheet_import_view.h"
#include "editor/ui/editor_area.h"
#include "export/ui/export_progress_view.h"
#include "kerning/ui/kerning_editor_view.h"
#include "preview/ui/preview_panel.h"
#include "svg/ui/import_progress_view.h"
#include "svg/ui/noted_drawings_bar.h"
#include "svg/ui/watch_bar.h"

#include <QBoxLayout>
#include <QEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>

namespace quillery {
namespace {

using What = ProjectChange::What;
namespace fs = std::filesystem;

constexpr QSize kLeastSize(900, 600);
constexpr int kLeastWorkArea = 300;
constexpr int kLeastPreview = 150;

} // namespace

MainWindow::MainWindow(ProjectManager& manager, RecentProjectsManager& recentProjects,
                       ExportFlow& exportFlow)
    : manager_(manager), recentProjects_(recentProjects),
      commands_(commandTable(manager, exportFlow, commandTargets())),
      recentConnection_(recentProjects.changed.connect([this] { fillRecentMenu(); })),
      // Values are here for the edit that is being typed or dragged, which can be undone.
      watch_(manager,
             {{What::file, What::savedBadge, What::selectedTab, What::glyphList, What::selection,
               What::history, What::fontInfo, What::glyphs, What::kerningPair, What::kerningList,
               What::imports}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  setObjectName(QStringLiteral("mainWindow"));
  setMinimumSize(kLeastSize);
  setContextMenuPolicy(Qt::NoContextMenu);

  // In reading order, which is the order of the Tab key.
  makeMenus();
  toolBar_ = new ProjectToolBar(manager, this);
  toolBar_->setSaved(manager.showSavedBadge());
  connect(toolBar_, &ProjectToolBar::previewToggled, this,
          [this] { togglePart(ViewPart::preview); });
  addToolBar(toolBar_);
  setCentralWidget(makeBody(exportFlow));
  new ExportProgressView(manager, exportFlow, this);
  new ImportProgressView(manager, this);
  connect(new FileDrops(manager, *this), &FileDrops::projectRefused, this,
          &MainWindow::tellRefused);
  restoreView();
  showTitle();
  showWorkArea();
  enableCommands();
}

GlyphGridView& MainWindow::grid() {
  return glyphs_->grid();
}

QWidget* MainWindow::makeBody(ExportFlow& exportFlow) {
  auto* body = new QWidget(this);
  auto* row = new QHBoxLayout(body);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  sidebar_ = new ProjectSidebar(manager_, exportFlow, body);
  row->addWidget(sidebar_);
  sidebarEdge_ = makeSeparator(Qt::Vertical, body);
  row->addWidget(sidebarEdge_);

  pages_ = new QStackedWidget(body);
  workAreas_ = new QStackedWidget(pages_);
  glyphs_ = new GlyphSplitView(manager_, workAreas_);
  workAreas_->addWidget(glyphs_);
  kerning_ = new KerningEditorView(manager_, workAreas_);
  workAreas_->addWidget(kerning_);
  split_ = new ResizableSplitView(workAreas_, kLeastWorkArea, kLeastPreview, pages_);
  glyphs_->editor().setPreviewText([this] {
    const auto* preview = qobject_cast<const PreviewPanel*>(split_->bottom());
    return preview ? preview->text() : QString();
  });
  empty_ = new EmptyStateView(manager_, pages_);
  pages_->addWidget(empty_);
  pages_->addWidget(split_);
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  watchBar_ = new WatchBar(manager_, body);
  connect(watchBar_, &WatchBar::switched, this, &MainWindow::enableCommands);
  column->addWidget(watchBar_);
  notedBar_ = new NotedDrawingsBar(manager_, body);
  column->addWidget(notedBar_);
  refused_ = new NoticeBar(body);
  refused_->setObjectName(QStringLiteral("projectRefused"));
  connect(refused_->addButton(QStringLiteral("saveFirst"), tr("Save")), &QPushButton::clicked, this,
          [this] { manager_.saveProject(); });
  connect(refused_, &NoticeBar::closed, refused_, &QWidget::hide);
  column->addWidget(refused_);
  column->addWidget(pages_, 1);
  row->addLayout(column, 1);
  return body;
}

void MainWindow::makeMenus() {
  QMenu* menus[] = {menuBar()->addMenu(tr("&File")), menuBar()->addMenu(tr("&Edit")),
                    menuBar()->addMenu(tr("&View")), menuBar()->addMenu(tr("&Help"))};
  for (QMenu* menu : menus) connect(menu, &QMenu::aboutToShow, this, [this] { watch_.catchUp(); });
  for (std::size_t i = 0; i < commands_.size(); ++i) {
    const Command& command = commands_[i];
    QMenu* menu = menus[static_cast<int>(command.menu)];
    if (command.title.isEmpty()) {
      menu->addSeparator();
      continue;
    }
    if (command.isOpenRecent) {
      recentMenu_ = menu->addMenu(command.title);
      recentMenu_->setObjectName(command.id);
      fillRecentMenu();
      continue;
    }
    QAction* action = menu->addAction(command.title);
    action->setObjectName(command.id);
    action->setShortcut(command.shortcut);
    action->setCheckable(command.isOn != nullptr);
    connect(action, &QAction::triggered, this, [this, i] {
      commands_[i].run();
      enableCommands(); // a switch is on when what it stands for is
    });
    actions_.emplace_back(action, i);
  }
}

void MainWindow::fillRecentMenu() {
  if (!recentMenu_) return;
  recentMenu_->clear();
  const auto& files = recentProjects_.recentProjects();
  if (files.empty()) {
    recentMenu_->addAction(tr("No Recent Projects"))->setEnabled(false);
    return;
  }
  for (const fs::path& file : files) {
    // An ampersand would underline the letter behind it.
    QString title =
        QString::fromStdString(file.stem().string()).replace(u'&', QStringLiteral("&&"));
    connect(recentMenu_->addAction(title), &QAction::triggered, this,
            [this, file] { manager_.openRecentProject(file); });
  }
  recentMenu_->addSeparator();
  connect(recentMenu_->addAction(tr("Clear Recent Projects")), &QAction::triggered, this,
          [this] { recentProjects_.clearRecentProjects(); });
}

void MainWindow::refresh(const ProjectChanges& changes) {
  if (changes.anotherProject()) forgetOutlinePictures();
  if (changes.has(What::file)) showTitle();
  setWindowModified(manager_.hasUnsavedChanges());
  if (!isWindowModified()) refused_->hide();
  if (changes.has(What::savedBadge)) toolBar_->setSaved(manager_.showSavedBadge());
  showWorkArea();
  enableCommands();
  // Space would press a button that the user went to before the import, or that the focus fell to.
  if (changes.has(What::imports) && manager_.imports().empty()) leaveButton();
}

void MainWindow::showTitle() {
  const QString name = manager_.currentProjectURL()
                           ? QString::fromStdString(manager_.projectDisplayName())
                           : QStringLiteral("SVG Letterloom");
  const QString title = QStringLiteral("Quillery - ") + name;
  toolBar_->setTitle(title);
  // Where the asterisk goes is marked so; a name may look like the mark.
  constexpr QLatin1StringView kMark("[*]");
  setWindowTitle(QString(title).replace(kMark, QStringLiteral("[*][*]")) + kMark);
}

void MainWindow::showWorkArea() {
  const bool hasGlyphs = !manager_.currentProject().glyphs.empty();
  bool turned = false;
  const auto turnTo = [&](QStackedWidget& pages, int page) {
    if (pages.currentIndex() == page) return;
    pages.setCurrentIndex(page);
    turned = true;
  };
  toolBar_->showTabs(hasGlyphs, manager_.selectedTab());
  turnTo(*workAreas_, manager_.selectedTab() == kKerningTab ? kKerningTab : kGlyphsTab);
  turnTo(*pages_, hasGlyphs ? kWorkPage : kEmptyPage);
  // What is typed and chosen in the preview lasts as long as it is there.
  const bool hasPreview = hasGlyphs && showPreview_;
  if (hasPreview != (split_->bottom() != nullptr))
    split_->setBottom(hasPreview ? new PreviewPanel(manager_, split_) : nullptr);
  if (turned) leaveButton();
}

void MainWindow::tellRefused(const QString& name) {
  refused_->setNotice(
      Symbol::exclamationTriangleFill, Role::warning,
      tr("%1 was not opened: this project has changes that no file holds").arg(name));
  refused_->show();
}

void MainWindow::enableCommands() {
  for (const auto& [action, i] : actions_) {
    const Command& command = commands_[i];
    action->setEnabled(command.isEnabled());
    if (command.isOn) action->setChecked(command.isOn());
  }
}

void MainWindow::showLicenses() {
  auto* licenses = new LicensesView(manager_.desktop().resourceFolder(), this);
  licenses->setAttribute(Qt::WA_DeleteOnClose);
  licenses->open();
}

void MainWindow::openHelp() {
  if (const auto resources = manager_.desktop().resourceFolder())
    manager_.desktop().openWebPage(fileUrl(*resources / "help" / "index.html"));
}

bool MainWindow::event(QEvent* event) {
  // A shortcut is about to be looked up among the commands that are enabled.
  if (event->type() == QEvent::ShortcutOverride) watch_.catchUp();
  return QMainWindow::event(event);
}

} // namespace quillery

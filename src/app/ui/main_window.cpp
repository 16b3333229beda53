#include "app/ui/main_window.h"

#include "app/ui/empty_state_view.h"
#include "app/ui/glyph_split_view.h"
#include "app/ui/licenses_view.h"
#include "app/ui/project_sidebar.h"
#include "app/ui/resizable_split_view.h"
#include "desktop/outline_painting.h"
#include "desktop/segmented_control.h"
#include "desktop/widgets.h"
#include "drawing/ui/sheet_import_view.h"
#include "editor/ui/editor_area.h"
#include "export/ui/export_progress_view.h"
#include "kerning/ui/kerning_editor_view.h"
#include "preview/ui/preview_panel.h"
#include "svg/ui/dropped_files.h"
#include "svg/ui/import_progress_view.h"
#include "svg/ui/noted_drawings_bar.h"
#include "svg/ui/watch_bar.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QToolBar>

namespace quillery {
namespace {

using What = ProjectChange::What;
namespace fs = std::filesystem;

constexpr QSize kLeastSize(900, 600);
constexpr QSize kFirstSize(1440, 960); // where the screen has room for it
constexpr double kMostOfScreen = 0.92;

constexpr int kTabsWidth = 200;
constexpr int kLeastWorkArea = 300;
constexpr int kLeastPreview = 150;

enum Page { kEmptyPage, kWorkPage };
enum Tab { kGlyphsTab, kKerningTab };

std::optional<fs::path> droppedProject(const QMimeData& data) {
  const auto files = droppedFiles(data);
  if (files.size() != 1 || files.front().extension() != std::string(".") + kProjectExtension)
    return std::nullopt;
  return files.front();
}

} // namespace

MainWindow::MainWindow(ProjectManager& manager, RecentProjectsManager& recentProjects,
                       ExportFlow& exportFlow)
    : manager_(manager), recentProjects_(recentProjects),
      commands_(commandTable(
          manager, exportFlow,
          {[this] { showLicenses(); }, [this] { openHelp(); }, [this] { close(); },
           [this] { importSheet(manager_, this); },
           [this] { watchBar_->isWatching() ? watchBar_->stop() : watchBar_->chooseFolder(); },
           [this] { return watchBar_->isWatching(); }})),
      recentConnection_(recentProjects.changed.connect([this] { fillRecentMenu(); })),
      // Values are here for the edit that is being typed or dragged, which can be undone.
      watch_(manager,
             {{What::file, What::savedBadge, What::selectedTab, What::glyphList, What::selection,
               What::history, What::fontInfo, What::glyphs, What::kerningPair, What::imports}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {
  setObjectName(QStringLiteral("mainWindow"));
  setMinimumSize(kLeastSize);
  resize(kFirstSize.boundedTo(screen()->availableSize() * kMostOfScreen));
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::NoContextMenu);

  // In reading order, which is the order of the Tab key.
  makeMenus();
  makeToolBar();
  setCentralWidget(makeBody(exportFlow));
  new ExportProgressView(manager, exportFlow, this);
  new ImportProgressView(manager, this);
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
  row->addWidget(new ProjectSidebar(manager_, exportFlow, body));
  row->addWidget(makeSeparator(Qt::Vertical, body));

  pages_ = new QStackedWidget(body);
  workAreas_ = new QStackedWidget(pages_);
  glyphs_ = new GlyphSplitView(manager_, workAreas_);
  workAreas_->addWidget(glyphs_);
  workAreas_->addWidget(new KerningEditorView(manager_, workAreas_));
  split_ = new ResizableSplitView(workAreas_, kLeastWorkArea, kLeastPreview, pages_);
  glyphs_->editor().setPreviewText([this] {
    const auto* preview = qobject_cast<const PreviewPanel*>(split_->bottom());
    return preview ? preview->text() : QString();
  });
  pages_->addWidget(new EmptyStateView(manager_, pages_));
  pages_->addWidget(split_);
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  watchBar_ = new WatchBar(manager_, body);
  connect(watchBar_, &WatchBar::switched, this, &MainWindow::enableCommands);
  column->addWidget(watchBar_);
  column->addWidget(new NotedDrawingsBar(manager_, body));
  column->addWidget(pages_, 1);
  row->addLayout(column, 1);
  return body;
}

void MainWindow::makeMenus() {
  QMenu* menus[] = {menuBar()->addMenu(tr("&File")), menuBar()->addMenu(tr("&Edit")),
                    menuBar()->addMenu(tr("&Help"))};
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

void MainWindow::makeToolBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(QStringLiteral("toolBar"));
  bar->setMovable(false);
  // A tool bar's layout knows no margins of its own.
  const auto addSpace = [bar](int width) {
    auto* space = new QWidget(bar);
    width > 0 ? space->setFixedWidth(width)
              : space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
  };
  addSpace(grid::half);
  title_ = new TextLabel({}, TextStyle::headline, Role::text, bar);
  title_->setObjectName(QStringLiteral("projectTitle"));
  bar->addWidget(title_);
  savedBadge_ = new Badge(Symbol::check, tr("Saved!"), bar);
  savedBadge_->setObjectName(QStringLiteral("savedBadge"));
  savedBadge_->setPresented(manager_.showSavedBadge());
  bar->addWidget(savedBadge_);
  addSpace(0);

  tabs_ = new SegmentedControl(tr("View"), {tr("Glyphs"), tr("Kerning")}, bar);
  tabs_->setObjectName(QStringLiteral("tabs"));
  tabs_->setFixedWidth(kTabsWidth);
  connect(tabs_, &SegmentedControl::currentChanged, this,
          [this](int tab) { manager_.setSelectedTab(tab); });
  tabsAction_ = bar->addWidget(tabs_);

  previewSwitch_ = new IconButton(Symbol::eye, tr("Toggle Preview"), bar);
  previewSwitch_->setObjectName(QStringLiteral("togglePreview"));
  previewSwitch_->setToolTip(tr("Toggle font preview panel"));
  previewSwitch_->setFocusPolicy(Qt::TabFocus);
  connect(previewSwitch_, &QToolButton::clicked, this, &MainWindow::togglePreview);
  bar->addWidget(previewSwitch_);
  addToolBar(bar);
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
  if (changes.has(What::savedBadge)) savedBadge_->setPresented(manager_.showSavedBadge());
  showWorkArea();
  enableCommands();
}

void MainWindow::showTitle() {
  const QString name = manager_.currentProjectURL()
                           ? QString::fromStdString(manager_.projectDisplayName())
                           : QStringLiteral("SVG Letterloom");
  title_->setText(QStringLiteral("Quillery - ") + name);
  setWindowTitle(title_->text());
}

void MainWindow::showWorkArea() {
  const bool hasGlyphs = !manager_.currentProject().glyphs.empty();
  const auto turnTo = [](QStackedWidget& pages, int page) {
    if (pages.currentIndex() != page) pages.setCurrentIndex(page);
  };
  tabs_->setCurrent(manager_.selectedTab());
  tabsAction_->setVisible(hasGlyphs);
  turnTo(*workAreas_, manager_.selectedTab() == kKerningTab ? kKerningTab : kGlyphsTab);
  turnTo(*pages_, hasGlyphs ? kWorkPage : kEmptyPage);
  // What is typed and chosen in the preview lasts as long as it is there.
  const bool hasPreview = hasGlyphs && showPreview_;
  if (hasPreview != (split_->bottom() != nullptr))
    split_->setBottom(hasPreview ? new PreviewPanel(manager_, split_) : nullptr);
}

void MainWindow::togglePreview() {
  showPreview_ = !showPreview_;
  previewSwitch_->setSymbol(showPreview_ ? Symbol::eye : Symbol::eyeOff);
  showWorkArea();
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

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (droppedProject(*event->mimeData())) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const auto file = droppedProject(*event->mimeData());
  if (!file) return;
  event->acceptProposedAction();
  manager_.openRecentProject(*file);
}

} // namespace quillery

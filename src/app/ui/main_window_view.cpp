#include "app/ui/empty_state_view.h"
#include "app/ui/glyph_grid_view.h"
#include "app/ui/glyph_split_view.h"
#include "app/ui/main_window.h"
#include "app/ui/project_sidebar.h"
#include "app/ui/project_tool_bar.h"
#include "app/ui/resizable_split_view.h"
#include "desktop/theme.h"
#include "drawing/ui/sheet_import_view.h"
#include "editor/ui/editor_area.h"
#include "editor/ui/glyph_form_panel.h"
#include "kerning/ui/kerning_adjustment_view.h"
#include "kerning/ui/kerning_editor_view.h"
#include "svg/ui/watch_bar.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QListView>
#include <QScreen>
#include <QStackedWidget>

// What the View menu does: which parts are shown, where the focus goes, and what of that comes back
// at the next start.

namespace quillery {
namespace {

constexpr const char* kStoredView = "com.quillery.view";
constexpr QSize kFirstSize(1440, 960); // where the screen has room for it
constexpr double kMostOfScreen = 0.92;

} // namespace

CommandTargets MainWindow::commandTargets() {
  return {.showLicenses = [this] { showLicenses(); },
          .openHelp = [this] { openHelp(); },
          .quit = [this] { close(); },
          .importSheet = [this] { quillery::importSheet(manager_, this); },
          .watchFolder =
              [this] { watchBar_->isWatching() ? watchBar_->stop() : watchBar_->chooseFolder(); },
          .isWatching = [this] { return watchBar_->isWatching(); },
          .goToTab = [this](int tab) { goToTab(tab); },
          .findGlyphs =
              [this] {
                goToTab(kGlyphsTab);
                grid().show();
                grid().startSearch();
              },
          .goToPane = [this](bool forward) { paneFocus_.goToPane(focusWidget(), forward); },
          .isShown = [this](ViewPart part) { return isPartShown(part); },
          .toggle = [this](ViewPart part) { togglePart(part); },
          .resizeCards =
              [this](int steps) { grid().setCardSize(grid().cardSize() + steps * kCardStep); },
          .scheme = [] { return shownScheme(); },
          .setScheme =
              [this](ViewState::Scheme scheme) {
                scheme_ = scheme;
                showScheme(scheme);
                storeView();
              }};
}

ViewState::Scheme MainWindow::shownScheme() {
  const auto scheme = Theme::current().overridden();
  return !scheme                         ? ViewState::Scheme::system
         : *scheme == ColorScheme::light ? ViewState::Scheme::light
                                         : ViewState::Scheme::dark;
}

void MainWindow::showScheme(ViewState::Scheme scheme) {
  Theme::current().setOverride(scheme == ViewState::Scheme::system ? std::nullopt
                               : scheme == ViewState::Scheme::light
                                   ? std::optional(ColorScheme::light)
                                   : ColorScheme::dark);
}

bool MainWindow::isPartShown(ViewPart part) const {
  switch (part) {
  case ViewPart::sidebar:
    return !sidebar_->isHidden();
  case ViewPart::grid:
    return !glyphs_->grid().isHidden();
  default:
    return showPreview_;
  }
}

void MainWindow::togglePart(ViewPart part) {
  if (part == ViewPart::preview) {
    showPreview_ = !showPreview_;
    toolBar_->showPreviewAs(showPreview_);
    showWorkArea();
    enableCommands();
    return storeView();
  }
  QWidget& widget = part == ViewPart::sidebar ? *sidebar_ : static_cast<QWidget&>(grid());
  widget.setVisible(widget.isHidden());
  sidebarEdge_->setVisible(isPartShown(ViewPart::sidebar));
}

void MainWindow::restoreView() {
  const auto list = manager_.desktop().storedList(kStoredView);
  const ViewState state = list ? ViewState::parse(*list) : ViewState();
  const QSize most = screen()->availableSize();
  resize(state.width > 0 ? QSize(state.width, state.height).boundedTo(most)
                         : kFirstSize.boundedTo(most * kMostOfScreen));
  if (state.maximized) setWindowState(windowState() | Qt::WindowMaximized);
  glyphs_->setGridWidth(state.gridWidth);
  grid().setSortOrder(state.sortOrder);
  grid().setCardSize(state.cardSize);
  showPreview_ = state.preview;
  toolBar_->showPreviewAs(showPreview_);
  // The environment may have chosen for this run.
  scheme_ = state.scheme;
  if (!Theme::current().overridden()) showScheme(scheme_);
}

void MainWindow::storeView() {
  ViewState state;
  const QSize normal = isMaximized() ? normalGeometry().size() : size();
  state.width = normal.width();
  state.height = normal.height();
  state.maximized = isMaximized();
  state.gridWidth = glyphs_->gridWidth();
  state.sortOrder = grid().sortOrder();
  state.cardSize = grid().cardSize();
  state.preview = showPreview_;
  state.scheme = scheme_;
  manager_.desktop().storeList(kStoredView, state.list());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  storeView();
  QMainWindow::closeEvent(event);
}

QList<PaneFocus::Pane> MainWindow::panes() {
  QList<PaneFocus::Pane> panes{{toolBar_, nullptr, true},
                               {sidebar_},
                               {watchBar_, nullptr, true},
                               {notedBar_, nullptr, true},
                               {refused_, nullptr, true}};
  if (pages_->currentIndex() == kEmptyPage) return panes << PaneFocus::Pane{empty_};
  if (workAreas_->currentIndex() == kGlyphsTab) {
    panes << PaneFocus::Pane{&grid(), grid().entry()} << PaneFocus::Pane{&glyphs_->editor()};
    for (GlyphFormPanel* panel : glyphs_->editor().findChildren<GlyphFormPanel*>())
      if (panel->isVisible()) panes << PaneFocus::Pane{panel};
  } else {
    panes << PaneFocus::Pane{kerning_, kerning_->findChild<QListView*>()}
          << PaneFocus::Pane{kerning_->findChild<KerningAdjustmentView*>()};
  }
  if (split_->bottom()) panes << PaneFocus::Pane{split_->bottom()};
  return panes;
}

bool MainWindow::focusNextPrevChild(bool next) {
  QWidget* const target = paneFocus_.nextControl(focusWidget(), next);
  if (target) target->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return target != nullptr;
}

void MainWindow::goToTab(int tab) {
  manager_.setSelectedTab(tab);
  watch_.catchUp();
  focusWorkArea();
}

void MainWindow::focusWorkArea() {
  paneFocus_.enter(pages_->currentIndex() == kEmptyPage       ? static_cast<QWidget*>(empty_)
                   : workAreas_->currentIndex() == kGlyphsTab ? &grid()
                                                              : static_cast<QWidget*>(kerning_));
}

// Unless it is a choice of what the window shows, which the arrow keys go on with.
void MainWindow::leaveButton() {
  const QWidget* const focused = focusWidget();
  if (!focused || !focused->isVisible() ||
      (qobject_cast<const QAbstractButton*>(focused) && !toolBar_->tabs()->isAncestorOf(focused)))
    focusWorkArea();
}

} // namespace quillery

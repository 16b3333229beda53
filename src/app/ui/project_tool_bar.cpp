#include "app/ui/project_tool_bar.h"

#include "desktop/segmented_control.h"
#include "desktop/widgets.h"
#include "project/project_manager.h"

#include <QBoxLayout>

namespace quillery {
namespace {

constexpr int kTabsWidth = 200;

} // namespace

ProjectToolBar::ProjectToolBar(ProjectManager& manager, QWidget* parent) : QToolBar(parent) {
  setObjectName(QStringLiteral("toolBar"));
  setMovable(false);
  // One row of our own: a tool bar's layout hides what it has no room for instead of letting the
  // title give way.
  auto* content = new QWidget(this);
  auto* row = new QHBoxLayout(content);
  row->setContentsMargins(grid::half, 0, 0, 0);
  row->setSpacing(grid::half);
  title_ = new ElidedLabel({}, TextStyle::headline, Qt::ElideMiddle, Role::text, content);
  title_->setObjectName(QStringLiteral("projectTitle"));
  row->addWidget(title_);
  savedBadge_ = new Badge(Symbol::check, tr("Saved!"), content);
  savedBadge_->setObjectName(QStringLiteral("savedBadge"));
  row->addWidget(savedBadge_);
  row->addStretch(1);

  tabs_ = new SegmentedControl(tr("View"), {tr("Glyphs"), tr("Kerning")}, content);
  tabs_->setObjectName(QStringLiteral("tabs"));
  tabs_->setFixedWidth(kTabsWidth);
  connect(tabs_, &SegmentedControl::currentChanged, this,
          [&manager](int tab) { manager.setSelectedTab(tab); });
  row->addWidget(tabs_);

  previewSwitch_ = new IconButton(Symbol::eye, tr("Toggle Preview"), content);
  previewSwitch_->setObjectName(QStringLiteral("togglePreview"));
  previewSwitch_->setToolTip(tr("Toggle font preview panel"));
  connect(previewSwitch_, &QToolButton::clicked, this, &ProjectToolBar::previewToggled);
  row->addWidget(previewSwitch_);
  addWidget(content);
}

void ProjectToolBar::setTitle(const QString& title) {
  title_->setText(title);
}

void ProjectToolBar::setSaved(bool saved) {
  savedBadge_->setPresented(saved);
}

void ProjectToolBar::showTabs(bool shown, int tab) {
  tabs_->setCurrent(tab);
  tabs_->setVisible(shown);
}

void ProjectToolBar::showPreviewAs(bool shown) {
  previewSwitch_->setSymbol(shown ? Symbol::eye : Symbol::eyeOff);
}

const QWidget* ProjectToolBar::tabs() const {
  return tabs_;
}

} // namespace quillery

#include "app/ui/project_sidebar.h"

#include "app/ui/missing_outlines_view.h"
#include "desktop/shown_text.h"
#include "desktop/style.h"
#include "desktop/widgets.h"
#include "editor/ui/undoable_line_edit.h"
#include "export/ui/export_warnings_view.h"
#include "project/action_names.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

namespace quillery {
namespace {

constexpr int kNumberWidth = 80;

template <typename T> FieldFormat<T> formatOf() {
  if constexpr (std::is_same_v<T, double>)
    return numberFormat();
  else if constexpr (std::is_same_v<T, std::int64_t>)
    return integerFormat();
  else
    return textFormat();
}

} // namespace

ProjectSidebar::ProjectSidebar(ProjectManager& manager, ExportFlow& exportFlow, QWidget* parent)
    : QWidget(parent), manager_(manager), glyphCount_(new QLabel(this)),
      exportButton_(
          new QPushButton(icon(Symbol::share, Role::accentText), tr("Export Font"), this)),
      watch_(manager, {{ProjectChange::What::fontInfo, ProjectChange::What::glyphList}},
             [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("sidebar"));
  setFixedWidth(kWidth);
  setBackgroundRole(QPalette::AlternateBase);
  setAutoFillBackground(true);

  auto* form = new QWidget(this);
  auto* sections = new QVBoxLayout(form);
  sections->setContentsMargins(grid::margin, grid::margin, grid::margin, grid::margin);
  sections->setSpacing(grid::section);
  QFormLayout* rows = nullptr;
  sections->addWidget(section(tr("Font Information"), rows));
  addField(*rows, tr("Font Name"), "fontName", &FontInfo::name, action::kChangeFontName);
  addField(*rows, tr("Designer"), "designer", &FontInfo::designer, action::kChangeDesigner);
  addField(*rows, tr("Version"), "version", &FontInfo::version, action::kChangeVersion);
  sections->addWidget(section(tr("Font Metrics"), rows));
  addField(*rows, tr("Units Per Em"), "unitsPerEm", &FontInfo::unitsPerEm,
           action::kChangeUnitsPerEm);
  addField(*rows, tr("Ascender"), "ascender", &FontInfo::ascender, action::kChangeAscender);
  addField(*rows, tr("Descender"), "descender", &FontInfo::descender, action::kChangeDescender);
  addField(*rows, tr("Cap Height"), "capHeight", &FontInfo::capHeight, action::kChangeCapHeight);
  addField(*rows, tr("x-Height"), "xHeight", &FontInfo::xHeight, action::kChangeXHeight);
  sections->addWidget(section(tr("Glyphs"), rows));
  glyphCount_->setObjectName(QStringLiteral("glyphCount"));
  rows->addRow(glyphCount_);
  rows->addRow(new MissingOutlinesView(manager, form));
  auto* warnings = new ExportWarningsView(manager, form);
  rows->addRow(warnings);
  sections->addStretch(1);

  auto* scroll = new QScrollArea(this);
  scroll->setWidget(form);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  form->setBackgroundRole(QPalette::AlternateBase);

  exportButton_->setObjectName(QStringLiteral("exportFont"));
  setButtonKind(*exportButton_, ButtonKind::prominent);
  exportButton_->setMinimumHeight(grid::largeControlHeight);
  connect(exportButton_, &QPushButton::clicked, this, [&exportFlow] { exportFlow.exportFont(); });
  auto* foot = new QVBoxLayout;
  foot->setContentsMargins(grid::margin, grid::gap, grid::margin, grid::margin);
  foot->addWidget(exportButton_);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(scroll, 1);
  column->addWidget(makeSeparator(Qt::Horizontal, this));
  column->addLayout(foot);
  refresh();
}

QWidget* ProjectSidebar::section(const QString& title, QFormLayout*& rows) {
  auto* widget = new QWidget(this);
  auto* column = new QVBoxLayout(widget);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(grid::unit);
  column->addWidget(new SectionHeader(title, widget));
  rows = new QFormLayout;
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(grid::unit);
  rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  column->addLayout(rows);
  return widget;
}

template <typename T>
void ProjectSidebar::addField(QFormLayout& rows, const QString& label, const char* objectName,
                              T FontInfo::*member, const char* actionName) {
  auto* field = new UndoableLineEdit<T>(
      UndoableField<T>(manager_, fontInfoBinding(manager_, member), formatOf<T>(), actionName),
      this);
  field->setObjectName(QString::fromLatin1(objectName));
  field->setAccessibleName(label);
  if constexpr (std::is_arithmetic_v<T>) {
    field->setFixedWidth(kNumberWidth);
    field->setAlignment(Qt::AlignRight);
  }
  rows.addRow(label, field);
  if constexpr (std::is_arithmetic_v<T>) rows.setAlignment(field, Qt::AlignRight);
  refreshers_.emplace_back([field] { field->refresh(); });
}

void ProjectSidebar::refresh() {
  for (const auto& refresh : refreshers_) refresh();
  const std::size_t count = manager_.currentProject().glyphs.size();
  glyphCount_->setText(shownCount(count) + tr(" glyphs"));
  exportButton_->setEnabled(count > 0);
}

} // namespace quillery

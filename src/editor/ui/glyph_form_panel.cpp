#include "editor/ui/glyph_form_panel.h"

#include <QBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

namespace quillery {

GlyphFormPanel::GlyphFormPanel(QWidget* parent) : QWidget(parent) {
  setFixedWidth(kWidth);
  setBackgroundRole(QPalette::AlternateBase);
  setAutoFillBackground(true);
  auto* const form = new QWidget(this);
  form->setBackgroundRole(QPalette::AlternateBase);
  sections_ = new QVBoxLayout(form);
  sections_->setContentsMargins(grid::margin, grid::margin, grid::margin, grid::margin);
  sections_->setSpacing(grid::section);
  sections_->addStretch(1);

  auto* const scroll = new QScrollArea(this);
  scroll->setWidget(form);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(scroll);
}

void GlyphFormPanel::addSection(const QString& title) {
  rows_ = new QVBoxLayout;
  rows_->setSpacing(grid::gap);
  rows_->addWidget(new SectionHeader(title, this));
  sections_->insertLayout(sections_->count() - 1, rows_); // before the stretch
}

void GlyphFormPanel::addRow(const QString& label, QWidget* value, int stretch) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(grid::gap);
  row->addWidget(new TextLabel(label, TextStyle::body, Role::text, this));
  if (stretch == 0) row->addStretch(1);
  row->addWidget(value, stretch);
  rows_->addLayout(row);
}

void GlyphFormPanel::addRow(QWidget* row) {
  rows_->addWidget(row);
}

} // namespace quillery

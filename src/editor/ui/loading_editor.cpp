#include "editor/ui/loading_editor.h"

#include "desktop/widgets.h"
#include "project/project_manager.h"

#include <QBoxLayout>

namespace quillery {
namespace {

constexpr int kSpinnerSize = 32;

QWidget* makeLoadingView(QWidget* parent) {
  auto* const view = new QWidget(parent);
  view->setObjectName(QStringLiteral("loadingEditor"));
  auto* const column = new QVBoxLayout(view);
  column->setSpacing(grid::gap);
  column->addStretch(1);
  column->addWidget(new Spinner(kSpinnerSize, view), 0, Qt::AlignCenter);
  column->addWidget(new TextLabel(LoadingEditor::tr("Loading editor..."), TextStyle::body,
                                  Role::textSecondary, view),
                    0, Qt::AlignCenter);
  column->addStretch(1);
  return view;
}

} // namespace

LoadingEditor::LoadingEditor(ProjectManager& manager, QWidget* parent) : QStackedWidget(parent) {
  addWidget(makeLoadingView(this));
  manager.desktop().postToMain(lifetime_.guard([this] { load(); }));
}

void LoadingEditor::load() {
  auto* const editor = new QWidget(this);
  const auto [canvas, panel] = build(editor);
  auto* const row = new QHBoxLayout(editor);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(canvas, 1);
  row->addWidget(makeSeparator(Qt::Vertical, editor));
  row->addWidget(panel);
  addWidget(editor);
  setCurrentWidget(editor);
  fullyLoaded_ = true;
  showChosen();
  if (std::exchange(focusWhenLoaded_, false)) takeFocus();
}

void LoadingEditor::focusEditor() {
  if (fullyLoaded_)
    takeFocus();
  else
    focusWhenLoaded_ = true;
}

} // namespace quillery

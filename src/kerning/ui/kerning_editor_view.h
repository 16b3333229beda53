#pragma once

#include "project/project_watch.h"

#include <QWidget>

class QListView;
class QPushButton;
class QStackedWidget;

namespace quillery {

class IconButton;
class KerningAdjustmentView;
class KerningListModel;
class SearchField;

/// The kerning tab: the list of pairs, and beside it the selected pair's adjustment.
class KerningEditorView : public QWidget {
  Q_OBJECT
public:
  explicit KerningEditorView(ProjectManager& manager, QWidget* parent = nullptr);

  /// Opens the sheet in which the glyphs of a new pair are chosen.
  void showAddPairSheet();

private:
  QWidget* makeColumn();
  QWidget* makeButtons();
  QWidget* makeList();
  QWidget* makeDetail();
  void refresh(const ProjectChanges& changes);
  void showFilter(const QString& text);
  void enterList();
  void showPairs();
  void showGlyphCount();
  void showSelection();
  void selectShown();
  void deleteSelected();

  ProjectManager& manager_;
  KerningListModel* model_;
  IconButton* add_;
  QPushButton* generate_;
  QPushButton* delete_;
  SearchField* search_;
  QListView* list_;
  QStackedWidget* listPages_;
  QStackedWidget* detailPages_;
  KerningAdjustmentView* adjustment_;
  bool following_ = false; // the list takes over what the project says
  ProjectWatch watch_;
};

} // namespace quillery

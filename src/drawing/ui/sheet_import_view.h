#pragma once

#include "project/drawing_flattener.h"
#include "project/project_manager.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStackedWidget;

namespace quillery {

class SheetModel;
class TextLabel;

/// Shows the letters of a sheet and takes the names of those that have none, then imports them.
class SheetImportView : public QDialog {
  Q_OBJECT
public:
  /// Reads the sheet in the background.
  SheetImportView(ProjectManager& manager, std::filesystem::path sheet, QWidget* parent);

private:
  QWidget* makeReadingPage();
  QWidget* makeLettersPage();
  QLayout* makeButtons();
  void read();
  void show(Result<DrawingSheet, std::string> sheet);
  void countNames();
  void import();

  ProjectManager& manager_;
  std::filesystem::path file_;
  QStackedWidget* pages_;
  QLineEdit* characters_ = nullptr;
  QListView* list_ = nullptr;
  SheetModel* model_ = nullptr; // as soon as the sheet is read
  TextLabel* status_ = nullptr;
  QPushButton* import_ = nullptr;
  Lifetime lifetime_;
};

/// Asks for the drawing of a sheet and shows its letters.
void importSheet(ProjectManager& manager, QWidget* window);

} // namespace quillery

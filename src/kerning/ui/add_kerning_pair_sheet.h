#pragma once

#include "project/project_manager.h"

#include <QDialog>
#include <functional>

class QPushButton;

namespace quillery {

class SearchableGlyphPicker;

/// Asks for the two glyphs of a new kerning pair and adds it with value 0.
class AddKerningPairSheet : public QDialog {
  Q_OBJECT
public:
  AddKerningPairSheet(ProjectManager& manager, std::function<void(const Uuid&)> onPairAdded,
                      QWidget* parent);

private:
  QWidget* makePickers();
  QLayout* makeButtons();
  void namesChanged();
  void addPair();

  ProjectManager& manager_;
  std::function<void(const Uuid&)> onPairAdded_;
  SearchableGlyphPicker* left_ = nullptr;
  SearchableGlyphPicker* right_ = nullptr;
  QWidget* preview_;
  QPushButton* add_;
};

} // namespace quillery

#pragma once

#include "project/project_manager.h"

#include <QDialog>
#include <functional>

class QPushButton;

namespace quillery {

class SearchableGlyphPicker;
class TextLabel;

/// Asks for the two glyphs of a new kerning pair and adds it with value 0. Where that pair is there
/// already, the sheet says so and offers it instead.
class AddKerningPairSheet : public QDialog {
  Q_OBJECT
public:
  /// `onPairChosen` gets the pair that was added, or that was there.
  AddKerningPairSheet(ProjectManager& manager, std::function<void(const Uuid&)> onPairChosen,
                      QWidget* parent);

private:
  QWidget* makePickers();
  QLayout* makeButtons();
  QWidget* makeNote();
  void namesChanged();
  void addPair();
  void showExisting();
  const KerningPair* existing() const;

  ProjectManager& manager_;
  std::function<void(const Uuid&)> onPairChosen_;
  SearchableGlyphPicker* left_ = nullptr;
  SearchableGlyphPicker* right_ = nullptr;
  QWidget* preview_;
  QPushButton* add_;
  TextLabel* noteText_ = nullptr;
  QWidget* note_ = nullptr;
};

} // namespace quillery

#pragma once

#include "project/project_watch.h"

#include <QWidget>
#include <string>

class QLabel;
class QToolButton;

namespace quillery {

class AvailableCharactersView;
class MacTextEditor;
class ValueSlider;
class VectorPreviewView;

/// A sample text to type or pick, set from the glyphs of the open project, and the characters that
/// the project has, which give way where it is low.
class PreviewPanel : public QWidget {
  Q_OBJECT
public:
  PreviewPanel(ProjectManager& manager, QWidget* parent);

  QSize minimumSizeHint() const override;
  /// The text to set.
  QString text() const;

protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  QWidget* makeHeader();
  QWidget* makeCharacters();
  void choosePreset(std::size_t preset);
  void namePreset(std::size_t preset);
  void showPresetOf(const std::string& text);
  void setSize(double points);
  void followTab();
  void selectGlyphNamed(const std::string& name);
  void selectPair(const std::string& leftGlyph, const std::string& rightGlyph);
  void divideHeight();

  ProjectManager& manager_;
  QToolButton* presets_;
  ValueSlider* size_;
  QLabel* sizeLabel_;
  QWidget* header_;
  MacTextEditor* editor_;
  VectorPreviewView* preview_;
  AvailableCharactersView* characters_;
  QWidget* charactersSection_;
  ProjectWatch watch_;
};

} // namespace quillery

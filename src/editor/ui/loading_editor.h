#pragma once

#include "base/signal.h"

#include <QStackedWidget>
#include <utility>

namespace quillery {

class ProjectManager;

/// An editor of a canvas beside a panel. Both are built one turn of the main queue after the editor
/// is, so that a selection shows at once; until then a turning mark and "Loading editor..." stand
/// in their place.
class LoadingEditor : public QStackedWidget {
  Q_OBJECT
public:
  bool isFullyLoaded() const { return fullyLoaded_; }
  /// Gives the editor the keyboard's focus, as soon as it is there.
  void focusEditor();

protected:
  LoadingEditor(ProjectManager& manager, QWidget* parent);

  /// Makes the canvas and the panel, in this order, as children of `parent`.
  virtual std::pair<QWidget*, QWidget*> build(QWidget* parent) = 0;
  /// Shows what was chosen before they were there.
  virtual void showChosen() = 0;
  virtual void takeFocus() = 0;

private:
  void load();

  bool fullyLoaded_ = false;
  bool focusWhenLoaded_ = false;
  Lifetime lifetime_;
};

} // namespace quillery

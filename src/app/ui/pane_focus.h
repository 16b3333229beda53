#pragma once

#include <QList>
#include <QPointer>
#include <functional>
#include <unordered_map>

class QWidget;

namespace quillery {

/// Where the keyboard goes in the window: from control to control in the order of the panes, and
/// from pane to pane. Panes are built when they are needed, so the order in which their controls
/// were made says nothing.
class PaneFocus {
public:
  struct Pane {
    QWidget* pane;
    /// Takes the focus when the pane is gone to for the first time; null for its first control.
    QWidget* entry = nullptr;
    /// Tab goes there, but no walk from pane to pane.
    bool onlyByTab = false;
  };
  /// The panes on the screen, in reading order. One may lie in another and comes after it then.
  using Panes = std::function<QList<Pane>()>;

  explicit PaneFocus(Panes panes) : panes_(std::move(panes)) {}

  /// The control after, or before, that which has the focus; null when there is none.
  QWidget* nextControl(const QWidget* focused, bool forward) const;
  /// Goes to the next pane, to the control that had the focus there last.
  void goToPane(QWidget* focused, bool forward);
  /// Goes to a pane's entry, or else to its first control.
  void enter(const QWidget* pane);

private:
  QList<QWidget*> controls(const Pane& pane, const QList<Pane>& all) const;

  Panes panes_;
  std::unordered_map<const QWidget*, QPointer<QWidget>> last_; // by pane
};

} // namespace quillery

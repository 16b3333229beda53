#include "app/ui/pane_focus.h"

#include <QWidget>
#include <algorithm>

namespace quillery {
namespace {

bool takesTab(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) && widget.isVisible() && widget.isEnabled() &&
         !widget.focusProxy();
}

// The innermost pane: one in another comes after it.
const PaneFocus::Pane* paneOf(const QWidget* widget, const QList<PaneFocus::Pane>& panes) {
  const auto holds = [widget](const PaneFocus::Pane& pane) {
    return pane.pane == widget || pane.pane->isAncestorOf(widget);
  };
  const auto found = std::find_if(panes.rbegin(), panes.rend(), holds);
  return widget && found != panes.rend() ? &*found : nullptr;
}

} // namespace

QList<QWidget*> PaneFocus::controls(const Pane& pane, const QList<Pane>& all) const {
  QList<QWidget*> found;
  QWidget* const start = pane.pane->window();
  for (QWidget* widget = start->nextInFocusChain(); widget != start;
       widget = widget->nextInFocusChain()) {
    const Pane* home = paneOf(widget, all);
    if (home && home->pane == pane.pane && takesTab(*widget)) found.push_back(widget);
  }
  return found;
}

QWidget* PaneFocus::nextControl(const QWidget* focused, bool forward) const {
  const QList<Pane> all = panes_();
  QList<QWidget*> order;
  for (const Pane& pane : all) order += controls(pane, all);
  if (order.empty()) return nullptr;
  const auto at = order.indexOf(focused);
  if (at < 0) return forward ? order.front() : order.back();
  return order.at((at + (forward ? 1 : order.size() - 1)) % order.size());
}

void PaneFocus::goToPane(QWidget* focused, bool forward) {
  const QList<Pane> all = panes_();
  const Pane* const from = paneOf(focused, all);
  if (from) last_[from->pane] = focused;
  const qsizetype count = all.size();
  qsizetype at = from ? from - all.data() : (forward ? -1 : 0);
  for (qsizetype tried = 0; tried < count; ++tried) {
    at = (at + (forward ? 1 : count - 1)) % count;
    const Pane& pane = all.at(at);
    if (pane.onlyByTab) continue;
    const QList<QWidget*> there = controls(pane, all);
    if (there.empty()) continue;
    QWidget* const last = last_[pane.pane];
    if (!there.contains(last)) return enter(pane.pane);
    return last->setFocus(Qt::ShortcutFocusReason);
  }
}

void PaneFocus::enter(const QWidget* pane) {
  const QList<Pane> all = panes_();
  for (const Pane& candidate : all) {
    if (candidate.pane != pane) continue;
    const QList<QWidget*> there = controls(candidate, all);
    if (there.empty()) return;
    QWidget* const target = there.contains(candidate.entry) ? candidate.entry : there.front();
    return target->setFocus(Qt::ShortcutFocusReason);
  }
}

} // namespace quillery

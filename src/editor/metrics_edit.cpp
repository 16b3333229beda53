#include "editor/metrics_edit.h"

#include <cassert>
#include <utility>

namespace quillery {

void MetricsEdit::open() {
  auto step = std::make_unique<MetricsStep>(start_, now_, now_);
  step_ = step.get();
  edit_ = manager_.beginEdit(actionName_, std::move(step));
}

void MetricsEdit::begin(const std::vector<Uuid>& glyphs, std::vector<GlyphMetric> metrics,
                        std::string actionName) {
  manager_.endEdit();
  // The next press of the same key goes on from the same start: its step needs no glyphs then.
  const bool goesOn = start_ && manager_.revision() == revision_ && metrics_ == metrics &&
                      start_->glyphs() == glyphs;
  if (!goesOn) {
    start_ = std::make_shared<const MetricsStart>(manager_, glyphs);
    now_.clear();
  }
  metrics_ = std::move(metrics);
  atBeginning_ = now_;
  actionName_ = std::move(actionName);
  historyAtBeginning_ = manager_.undoManager().mark();
  open();
}

void MetricsEdit::set(const std::vector<double>& values) {
  assert(values.size() == metrics_.size());
  if (!isOpen()) return;
  now_.clear();
  for (std::size_t i = 0; i < values.size(); ++i) now_.push_back({metrics_[i], values[i]});
  step_->setNow(now_);
  start_->apply(manager_, now_);
  revision_ = manager_.revision();
}

void MetricsEdit::endMovement() {
  if (!isOpen()) return;
  edit_.end();
  open();
}

void MetricsEdit::cancel() {
  if (!isOpen()) return;
  edit_.cancel();
  manager_.undoManager().forgetSince(historyAtBeginning_);
  start_->apply(manager_, atBeginning_);
}

} // namespace quillery

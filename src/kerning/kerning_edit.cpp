#include "kerning/kerning_edit.h"

#include "kerning/kerning_pairs.h"

#include <algorithm>
#include <utility>

namespace quillery {

double clampedKerning(double value) {
  return std::max(std::min(value, kGreatestKerning), kLeastKerning);
}

void enterKerningValue(ProjectManager& manager, const Uuid& pair, double value) {
  manager.endEdit();
  changeKerningValue(manager, pair, clampedKerning(value));
}

struct KerningEdit::State : OpenEdit {
  explicit State(ProjectManager& owner) : manager(owner) {}

  const KerningPair* current() const {
    return id ? kerningPairWithId(manager.currentProject(), *id) : nullptr;
  }

  bool hasChanged() const override {
    const KerningPair* pair = current();
    return pair && pair->value != startValue;
  }

  void end() override {
    // Closed first: whoever hears of the step may look here.
    if (const auto pair = std::exchange(id, {})) registerKerningChange(manager, *pair, startValue);
  }

  ProjectManager& manager;
  std::optional<Uuid> id;
  double startValue = 0;
};

KerningEdit::KerningEdit(ProjectManager& manager) : state_(std::make_shared<State>(manager)) {}

KerningEdit::~KerningEdit() {
  end();
}

void KerningEdit::begin(const Uuid& pair) {
  end();
  const KerningPair* found = kerningPairWithId(state_->manager.currentProject(), pair);
  if (!found) return;
  const Uuid id = found->id;
  state_->manager.beginEdit(state_); // may change the value: another edit ends
  found = kerningPairWithId(state_->manager.currentProject(), id);
  if (!found) return;
  state_->id = id;
  state_->startValue = found->value;
}

void KerningEdit::set(double value) {
  const KerningPair* current = pair();
  const double wanted = clampedKerning(value);
  if (current && current->value != wanted)
    state_->manager.setKerningValue(Uuid(current->id), wanted);
}

void KerningEdit::end() {
  state_->end();
}

void KerningEdit::cancel() {
  const auto id = std::exchange(state_->id, {});
  if (!id) return;
  const KerningPair* pair = kerningPairWithId(state_->manager.currentProject(), *id);
  if (pair && pair->value != state_->startValue)
    state_->manager.setKerningValue(*id, state_->startValue);
}

const KerningPair* KerningEdit::pair() const {
  return state_->current();
}

double KerningEdit::startValue() const {
  return state_->startValue;
}

} // namespace quillery

#include "kerning/kerning_edit.h"

#include "kerning/kerning_pairs.h"
#include "project/action_names.h"

#include <algorithm>

namespace quillery {

Finite clampedKerning(double value) {
  // What is no number is no movement either.
  return Finite::of(std::max(std::min(value, kGreatestKerning), kLeastKerning)).value_or(Finite());
}

void enterKerningValue(ProjectManager& manager, const Uuid& pair, double value) {
  manager.endEdit();
  changeKerningValue(manager, pair, clampedKerning(value));
}

void KerningEdit::begin(const Uuid& pair) {
  end();
  const KerningPair* const found = manager_.kerningPairWithId(pair);
  if (!found) return;
  pair_ = found->id;
  startValue_ = found->value;
  edit_ = manager_.beginEdit(action::changeKerning(found->leftGlyph, found->rightGlyph),
                             kerningValueStep(manager_, pair_, startValue_));
}

void KerningEdit::set(double value) {
  if (pair()) manager_.setKerningValue(pair_, clampedKerning(value));
}

const KerningPair* KerningEdit::pair() const {
  return edit_.isOpen() ? manager_.kerningPairWithId(pair_) : nullptr;
}

} // namespace quillery

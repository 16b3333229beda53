#include "editor/selection_metric_edit.h"

#include "project/action_names.h"

#include <algorithm>
#include <utility>

namespace quillery {
namespace {

constexpr std::size_t kBetweenCopies = 16; // movements

// The movements of a gesture, and from what they started.
class Movements {
public:
  explicit Movements(GlyphMetric metric) : set_(infoOf(metric).set) {}

  std::size_t count() const { return values_.size(); }
  bool wantsCopies() const { return values_.size() % kBetweenCopies == 0; }
  void addCopies(std::vector<Glyph> glyphs) { copies_.push_back(std::move(glyphs)); }
  void add(double value) { values_.push_back(value); }

  // The glyphs as they were after that many movements.
  std::vector<Glyph> after(std::size_t count) const {
    const std::size_t nearest = std::min(count / kBetweenCopies, copies_.size() - 1);
    std::vector<Glyph> glyphs = copies_[nearest];
    for (Glyph& glyph : glyphs)
      for (std::size_t i = nearest * kBetweenCopies; i < count; ++i) (glyph.*set_)(values_[i]);
    return glyphs;
  }

private:
  void (Glyph::*set_)(double);
  std::vector<double> values_;
  std::vector<std::vector<Glyph>> copies_; // before every sixteenth movement
};

// The step from the one state to the other, which performing goes back.
void registerMovement(ProjectManager& manager, const std::shared_ptr<const Movements>& movements,
                      std::size_t from, std::size_t to, const std::string& actionName) {
  manager.undoManager().registerUndo([&manager, movements, from, to, actionName] {
    std::vector<Glyph> replaced = replaceGlyphs(manager, movements->after(from));
    if (replaced == movements->after(to))
      registerMovement(manager, movements, to, from, actionName);
    else // something that is no step has changed them since
      registerReplacement(manager, std::move(replaced), actionName);
  });
  manager.undoManager().setActionName(actionName);
}

} // namespace

struct SelectionMetricEdit::State : OpenEdit {
  State(ProjectManager& owner, GlyphMetric edited) : manager(owner), metric(edited) {}

  // Every movement is a step already.
  bool hasChanged() const override { return false; }

  void end() override {
    movements.reset();
    glyphs.clear();
    selection.clear();
  }

  void move(double value) {
    if (movements->wantsCopies()) {
      std::vector<Glyph> copies;
      copies.reserve(glyphs.size());
      for (const Uuid& id : glyphs)
        if (const Glyph* const glyph = manager.glyphWithId(id)) copies.push_back(*glyph);
      movements->addCopies(std::move(copies));
    }
    const std::size_t before = movements->count();
    movements->add(value);
    registerMovement(manager, movements, before, before + 1,
                     action::applyMetrics(selection.size()));
    const auto set = infoOf(metric).set;
    const std::vector<Uuid> edited = glyphs; // listeners may end the gesture
    manager.editGlyphs(edited, [&](Glyph& glyph) { (glyph.*set)(value); });
  }

  ProjectManager& manager;
  GlyphMetric metric;
  std::shared_ptr<Movements> movements; // while the gesture is open
  std::vector<Uuid> glyphs;
  std::unordered_set<Uuid> selection;
  std::size_t stepsBefore = 0;
};

SelectionMetricEdit::SelectionMetricEdit(ProjectManager& manager, GlyphMetric metric)
    : state_(std::make_shared<State>(manager, metric)) {}

bool SelectionMetricEdit::isOpen() const {
  return state_->movements != nullptr;
}

void SelectionMetricEdit::begin() {
  State& state = *state_;
  if (isOpen()) return;
  state.manager.beginEdit(state_);
  state.movements = std::make_shared<Movements>(state.metric);
  state.selection = state.manager.selectedGlyphIds();
  state.glyphs = selectedGlyphs(state.manager);
  state.stepsBefore = state.manager.undoManager().undoCount();
}

void SelectionMetricEdit::apply(double value) {
  State& state = *state_;
  if (!isOpen()) return;
  if (state.selection != state.manager.selectedGlyphIds()) return state.end();
  if (!state.glyphs.empty()) state.move(value);
}

void SelectionMetricEdit::end() {
  state_->end();
}

void SelectionMetricEdit::cancel() {
  State& state = *state_;
  if (!isOpen()) return;
  const auto movements = state.movements;
  const std::size_t stepsBefore = state.stepsBefore;
  state.end();
  if (movements->count() == 0) return;
  state.manager.undoManager().forgetSince(stepsBefore);
  replaceGlyphs(state.manager, movements->after(0));
}

} // namespace quillery

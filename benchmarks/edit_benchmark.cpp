// One edit, one undo and the look-ups in projects of 20 and of 20,000 glyphs.

#include "editor/metrics_edit.h"
#include "made_projects.h"
#include "project/headless_desktop.h"
#include "project/project_manager.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace quillery::bench {
namespace {

class OpenProject {
public:
  explicit OpenProject(benchmark::State& state) {
    FontProject made = madeProject(static_cast<std::size_t>(state.range(0)), 0);
    manager.editGlyphList([&](std::vector<Glyph>& glyphs) { glyphs = std::move(made.glyphs); });
    const Glyph& middle =
        manager.currentProject().glyphs[manager.currentProject().glyphs.size() / 2];
    id = middle.id();
    name = middle.name();
    character = *middle.unicode();
    manager.glyphIndex();
  }

  void setBearing(double value) {
    edit.begin({id}, {GlyphMetric::leftSideBearing}, "Change Left Sidebearing");
    edit.set({value});
    edit.end();
  }

  HeadlessDesktop desktop{{}, [](const Alert&) {}};
  RecentProjectsManager recent{desktop};
  ProjectManager manager{desktop, recent};
  MetricsEdit edit{manager};
  Uuid id;
  std::string name;
  std::string character;
};

void editAndUndo(benchmark::State& state) {
  OpenProject open(state);
  double value = 0;
  for (auto _ : state) {
    open.setBearing(value += 1);
    open.manager.undo();
  }
}
BENCHMARK(editAndUndo)->Arg(20)->Arg(20000);

void changeCharacterAndLookUp(benchmark::State& state) {
  OpenProject open(state);
  bool other = false;
  for (auto _ : state) {
    other = !other;
    open.manager.editGlyph(open.id,
                           [&](Glyph& glyph) { glyph.setUnicode(other ? Utf8("!") : Utf8("?")); });
    benchmark::DoNotOptimize(open.manager.glyphForCharacter("!"));
  }
}
BENCHMARK(changeCharacterAndLookUp)->Arg(20)->Arg(20000);

void lookUp(benchmark::State& state) {
  const OpenProject open(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(open.manager.glyphWithId(open.id));
    benchmark::DoNotOptimize(open.manager.firstGlyphNamed(open.name));
    benchmark::DoNotOptimize(open.manager.glyphForCharacter(open.character));
  }
}
BENCHMARK(lookUp)->Arg(20)->Arg(20000);

} // namespace
} // namespace quillery::bench

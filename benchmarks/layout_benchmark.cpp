// Setting 10,000 characters with 10,000 kerning pairs, beside a copy of the text and of the layout.

#include "made_projects.h"
#include "preview/text_layout.h"

#include <benchmark/benchmark.h>

namespace quillery::bench {
namespace {

constexpr std::size_t kCharacters = 10000;

struct Setting {
  FontProject project = madeProject(20000, 10000);
  GlyphIndex glyphs{project.glyphs};
  KerningIndex kerning{project.kerningPairs};
  std::string text = [this] {
    std::string made;
    for (std::size_t i = 0; i < kCharacters; ++i)
      made += i % 60 == 59 ? "\n" : project.glyphs[i * 13 % project.glyphs.size()].character();
    return made;
  }();
};

const Setting& setting() {
  static const Setting made;
  return made;
}

void layout(benchmark::State& state) {
  const Setting& s = setting();
  for (auto _ : state)
    benchmark::DoNotOptimize(layoutText(s.text, s.project, s.glyphs, s.kerning, 48));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCharacters));
}
BENCHMARK(layout)->Unit(benchmark::kMicrosecond);

void copyOfLayout(benchmark::State& state) {
  const Setting& s = setting();
  const TextLayout made = layoutText(s.text, s.project, s.glyphs, s.kerning, 48);
  for (auto _ : state) {
    std::string text = s.text;
    TextLayout copy = made;
    benchmark::DoNotOptimize(text.data());
    benchmark::DoNotOptimize(copy.characters.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCharacters));
}
BENCHMARK(copyOfLayout)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace quillery::bench

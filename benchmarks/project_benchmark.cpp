// Opening and saving a project of about 100 MB, beside a bare parse of the same bytes.

#include "made_projects.h"
#include "model/project_file.h"

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <filesystem>

namespace quillery::bench {
namespace {

class LargeFile {
public:
  LargeFile() : path_(std::filesystem::current_path() / "large-benchmark.fontproj") {
    if (!writeProjectFile(path_, madeProject(20000, 10000))) std::abort();
  }
  ~LargeFile() { std::filesystem::remove(path_); }
  const std::filesystem::path& path() const { return path_; }
  auto size() const { return static_cast<std::int64_t>(std::filesystem::file_size(path_)); }

private:
  std::filesystem::path path_;
};

const LargeFile& largeFile() {
  static const LargeFile file;
  return file;
}

void bareParse(benchmark::State& state) {
  for (auto _ : state) {
    FileBytes bytes;
    if (!readFile(largeFile().path(), bytes)) std::abort();
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    if (parser.parse(bytes.data(), bytes.size(), false).get(root) != simdjson::SUCCESS)
      std::abort();
    benchmark::DoNotOptimize(root);
  }
  state.SetBytesProcessed(state.iterations() * largeFile().size());
}
BENCHMARK(bareParse)->Unit(benchmark::kMillisecond)->MinTime(3)->UseRealTime();

void openProject(benchmark::State& state) {
  for (auto _ : state) {
    auto project = readProjectFile(largeFile().path());
    benchmark::DoNotOptimize(project.value().glyphs.size());
    state.PauseTiming();
    project = Failure{Problem{}};
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * largeFile().size());
}
BENCHMARK(openProject)->Unit(benchmark::kMillisecond)->MinTime(3)->UseRealTime();

void saveProject(benchmark::State& state) {
  const auto project = readProjectFile(largeFile().path());
  for (auto _ : state) {
    if (!writeProjectFile(largeFile().path(), project.value())) std::abort();
  }
  state.SetBytesProcessed(state.iterations() * largeFile().size());
}
BENCHMARK(saveProject)->Unit(benchmark::kMillisecond)->MinTime(3)->UseRealTime();

void encodeOnly(benchmark::State& state) {
  const auto project = readProjectFile(largeFile().path());
  for (auto _ : state) {
    std::size_t size = 0;
    const auto done = encodeProject(project.value(), [&](std::string_view piece) {
      size += piece.size();
      return true;
    });
    benchmark::DoNotOptimize(size);
    benchmark::DoNotOptimize(done.ok());
  }
  state.SetBytesProcessed(state.iterations() * largeFile().size());
}
BENCHMARK(encodeOnly)->Unit(benchmark::kMillisecond)->MinTime(3)->UseRealTime();

} // namespace
} // namespace quillery::bench

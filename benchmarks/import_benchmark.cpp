// Importing a folder of drawings and writing the project, beside reading the same files and looking
// at each byte once. Waiting for the disk at the end of a save is left out: it measures the disk.

#include "base/descriptor.h"
#include "made_projects.h"
#include "model/project_file.h"
#include "project/headless_desktop.h"
#include "svg/drawing_files.h"
#include "svg/svg_import.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace quillery::bench {
namespace {

const DrawingFolder& folderOf(std::int64_t drawings) {
  static std::unique_ptr<DrawingFolder> folder;
  static std::int64_t size = 0;
  if (size != drawings) {
    folder.reset();
    folder = std::make_unique<DrawingFolder>(static_cast<std::size_t>(drawings));
    size = drawings;
  }
  return *folder;
}

void readAndScan(benchmark::State& state) {
  const DrawingFolder& folder = folderOf(state.range(0));
  for (auto _ : state) {
    FileBytes bytes;
    const auto files = drawingsInFolder(folder.path());
    std::ptrdiff_t quotes = 0;
    for (const auto& file : files.value()) {
      if (!readFile(file, bytes)) std::abort();
      quotes += std::count(bytes.view().begin(), bytes.view().end(), '"');
    }
    benchmark::DoNotOptimize(quotes);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void importAndWrite(benchmark::State& state) {
  const DrawingFolder& folder = folderOf(state.range(0));
  const auto project = folder.path() / "out.fontproj";
  for (auto _ : state) {
    HeadlessDesktop desktop({}, [](const Alert&) {});
    RecentProjectsManager recent(desktop);
    ProjectManager manager(desktop, recent);
    importSVGFiles(manager, drawingsInFolder(folder.path()).value());
    const Descriptor file(open(project.c_str(), O_WRONLY | O_CREAT, 0600));
    off_t written = 0;
    const auto encoded = encodeProject(manager.currentProject(), [&](std::string_view piece) {
      written += pwrite(file.get(), piece.data(), piece.size(), written);
      return true;
    });
    if (!encoded) std::abort();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void importWith(benchmark::State& state, const ImportOptions& options) {
  const DrawingFolder& folder = folderOf(state.range(0));
  for (auto _ : state) {
    HeadlessDesktop desktop({}, [](const Alert&) {});
    RecentProjectsManager recent(desktop);
    ProjectManager manager(desktop, recent);
    importSVGFiles(manager, drawingsInFolder(folder.path()).value(), options);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void importOnly(benchmark::State& state) {
  importWith(state, {});
}

void importLookingThrough(benchmark::State& state) {
  importWith(state, {.lookThrough = true});
}

// Floor and import of one size next to each other, so that both see the same machine.
const bool registered = [] {
  for (const std::int64_t drawings : {100, 1000, 5000, 20000}) {
    for (const auto& [name, run] :
         {std::pair{"readAndScan", &readAndScan}, std::pair{"importOnly", &importOnly},
          std::pair{"importLookingThrough", &importLookingThrough},
          std::pair{"importAndWrite", &importAndWrite}})
      benchmark::RegisterBenchmark(name, run)
          ->Arg(drawings)
          ->Unit(benchmark::kMillisecond)
          ->UseRealTime();
  }
  return true;
}();

} // namespace
} // namespace quillery::bench

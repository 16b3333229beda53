#include "app/command_line.h"
#include "drawing/converter.h"

#ifdef QUILLERY_HAS_WINDOW
#include "app/ui/letterloom_app.h"
#include "preview/ui/preview_picture.h"
#endif

#include <csignal>
#include <system_error>

namespace {

namespace fs = std::filesystem;

quillery::ProgramPlaces programPlaces() {
  quillery::ProgramPlaces places;
  std::error_code error;
  places.executable = fs::read_symlink("/proc/self/exe", error);
  const fs::path installed = places.executable.parent_path().parent_path() / "share" / "quillery";
  if (fs::is_directory(installed, error)) places.resourceFolder = installed;
#ifdef QUILLERY_DEVELOPMENT_RESOURCES
  const fs::path sources = QUILLERY_DEVELOPMENT_RESOURCES;
  places.developmentExecutable = places.executable.parent_path() / "generate_font";
  places.developmentScript = sources / "generate_font.py";
  if (!places.resourceFolder) places.resourceFolder = sources;
#endif
  return places;
}

quillery::MakeFlattener flattenerMaker(const fs::path& executable) {
  const auto converter = quillery::findConverter(executable);
  if (!converter) return nullptr;
  return [converter] { return std::make_shared<quillery::DrawingConverter>(*converter); };
}

} // namespace

int main(int argc, char** argv) {
  // A reader that goes away, or a file at its size limit, is an error to report and not a reason to
  // die with a half-written file beside the project.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  const auto places = programPlaces();
  const auto makeFlattener = flattenerMaker(places.executable);
  quillery::WindowToolkit toolkit;
#ifdef QUILLERY_HAS_WINDOW
  toolkit.openWindow = [&](const auto& ofProgram, const auto& project) {
    return quillery::runWindow(argc, argv, ofProgram, project, makeFlattener);
  };
  toolkit.paintPreview = quillery::previewPng;
#endif
  return static_cast<int>(quillery::runCommandLine(argc, argv, places, toolkit, makeFlattener));
}

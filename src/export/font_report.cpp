#include "export/font_report.h"

#include "export/generator_input.h"
#include "export/process.h"

#include <system_error>

namespace quillery {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> findScript(const GeneratorPlaces& places) {
  constexpr const char* kName = "font_report.py";
  std::error_code error;
  if (places.resourceFolder && fs::exists(*places.resourceFolder / kName, error))
    return *places.resourceFolder / kName;
  const fs::path besideScript = places.developmentScript.parent_path() / kName;
  if (!places.developmentScript.empty() && fs::exists(besideScript, error)) return besideScript;
  return std::nullopt;
}

} // namespace

Result<void, GenerationError> makeFontReport(const FontProject& project, const fs::path& font,
                                             const fs::path& page, const GeneratorPlaces& places) {
  const auto python = places.findPython();
  const auto script = findScript(places);
  if (!python || !script)
    return Failure{GenerationError("The script that makes the font report was not found")};
  const auto input = writeGeneratorInput(project);
  if (!input) return Failure{GenerationError(input.error().description())};

  // Absolute, so that no path is taken for an option.
  std::error_code error;
  const auto run =
      runProcess(*python, {"-u", script->string(), input.value().string(),
                           fs::absolute(font, error).string(), fs::absolute(page, error).string()});
  fs::remove(input.value(), error);
  if (!run) return Failure{GenerationError(run.error().description())};
  if (run.value().succeeded()) return {};
  return Failure{GenerationError("Making the font report failed: " + run.value().errorOutput)};
}

} // namespace quillery

#include "export/font_generator.h"

#include "base/console.h"
#include "base/memory.h"
#include "base/unicode.h"
#include "export/generator_input.h"
#include "export/process.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace quillery {

namespace fs = std::filesystem;

namespace {

bool isFile(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error) && !fs::is_directory(path, error);
}

bool isExecutableFile(const fs::path& path) {
  return isFile(path) && access(path.c_str(), X_OK) == 0;
}

void printOutput(const ProcessOutcome& outcome, const std::string& program) {
  const auto print = [&](const std::string& text, const std::string& stream) {
    if (text.empty() || !isValidUtf8(text)) return;
    printLine("=== " + program + " " + stream + " ===");
    printLine(text);
  };
  print(outcome.output, "stdout");
  print(outcome.errorOutput, "stderr");
}

Result<void, GenerationError> resultOf(const ProcessOutcome& outcome) {
  if (outcome.status == 0) return {};
  return Failure{FontGeneratorError::generationFailed(isValidUtf8(outcome.errorOutput)
                                                          ? outcome.errorOutput
                                                          : "Process exited with code " +
                                                                std::to_string(outcome.status))};
}

} // namespace

std::string FontGeneratorError::description() const {
  switch (kind) {
  case Kind::generationFailed:
    return "Font generation failed: " + message;
  case Kind::generatorNotFound:
    return "Font generator not found. The app may be corrupted.";
  case Kind::scriptNotFound:
    break;
  }
  return "Font generation script not found.";
}

std::string FontGeneratorError::printed() const {
  switch (kind) {
  case Kind::generationFailed:
    return "generationFailed(\"" + message + "\")";
  case Kind::generatorNotFound:
    return "generatorNotFound";
  case Kind::scriptNotFound:
    break;
  }
  return "scriptNotFound";
}

// A generator that needs no Python, with what is said about it.
struct FontGenerator::Packaged {
  fs::path path;
  std::string found;
  std::string available;
};

FontGenerator::FontGenerator(Desktop& desktop, GeneratorPlaces places)
    : desktop_(&desktop), places_(std::move(places)) {}

std::optional<FontGenerator::Packaged> FontGenerator::findPackaged() const {
  if (places_.only == GeneratorKind::python) return std::nullopt;
  std::vector<Packaged> candidates;
  if (places_.resourceFolder) {
    candidates.push_back(
        {*places_.resourceFolder / "generate_font.app/Contents/MacOS/generate_font",
         "Using py2app bundle: ", "Using py2app font generator"});
    candidates.push_back({*places_.resourceFolder / "generate_font/generate_font",
                          "Using PyInstaller executable: ", "Using PyInstaller font generator"});
  }
  candidates.push_back({places_.developmentExecutable,
                        "Using development executable: ", "Using development executable"});
  for (Packaged& candidate : candidates)
    if (isExecutableFile(candidate.path)) return std::move(candidate);
  return std::nullopt;
}

std::optional<fs::path> GeneratorPlaces::findPython() const {
  const auto found = std::find_if(pythonCandidates.begin(), pythonCandidates.end(), isFile);
  if (found == pythonCandidates.end()) return std::nullopt;
  return *found;
}

Result<GeneratorLocation, FontGeneratorError> FontGenerator::findGenerator() const {
  if (const auto packaged = findPackaged()) {
    printLine(packaged->found + packaged->path.string());
    return GeneratorLocation{packaged->path, std::nullopt, false};
  }
  const auto python = places_.only == GeneratorKind::native ? std::nullopt : places_.findPython();
  if (!python) {
    printLine("❌ No font generator found (no bundled executable and no Python)");
    return Failure{FontGeneratorError::generatorNotFound()};
  }
  if (places_.resourceFolder) {
    if (const fs::path script = *places_.resourceFolder / "generate_font.py"; isFile(script)) {
      printLine("Using bundled Python script: " + script.string());
      return GeneratorLocation{*python, script, true};
    }
  }
  if (isFile(places_.developmentScript)) {
    printLine("Using development Python script: " + places_.developmentScript.string());
    return GeneratorLocation{*python, places_.developmentScript, true};
  }
  printLine("❌ No font generator found!");
  return Failure{FontGeneratorError::generatorNotFound()};
}

GeneratorAvailability FontGenerator::checkGeneratorAvailability() const {
  if (const auto packaged = findPackaged()) return {true, packaged->available};
  if (places_.only == GeneratorKind::native)
    return {false, FontGeneratorError::generatorNotFound().description()};
  if (!places_.findPython())
    return {false, "Python 3 not found. Please install Python 3 or use the bundled app version."};
  if (!isFontToolsInstalled())
    return {false, "fontTools not installed. Run: pip3 install fonttools"};
  return {true, "Using Python + fontTools"};
}

bool FontGenerator::isFontToolsInstalled() const {
  const auto outcome =
      runProcess(places_.findPython().value_or("/usr/bin/python3"), {"-c", "import fontTools"});
  return outcome && outcome.value().succeeded();
}

Result<void, GenerationError> FontGenerator::runPackagedGenerator(const fs::path& executable,
                                                                  const fs::path& input,
                                                                  const fs::path& output) const {
  printLine("\n=== Running Bundled Executable ===");
  printLine("Executable: " + executable.string());
  printLine("Input: " + input.string());
  printLine("Output: " + output.string());
  const auto run = runProcess(executable, {input.string(), output.string()});
  if (!run) return Failure{run.error().description()};
  const ProcessOutcome& outcome = run.value();
  const bool killed = outcome.ending == ProcessOutcome::Ending::killed;
  printLine("=== Process Info ===");
  printLine("Termination status: " + std::to_string(outcome.status));
  printLine(std::string("Termination reason: ") + (killed ? "2 (uncaught signal)" : "1 (exit)"));
  printLine("Output data size: " + std::to_string(outcome.output.size()) + " bytes");
  printLine("Error data size: " + std::to_string(outcome.errorOutput.size()) + " bytes");
  printOutput(outcome, "Executable");
  if (killed)
    return Failure{FontGeneratorError::generationFailed("Process crashed with signal " +
                                                        std::to_string(outcome.status))};
  return resultOf(outcome);
}

Result<void, GenerationError> FontGenerator::runPythonScript(const fs::path& python,
                                                             const fs::path& script,
                                                             const fs::path& input,
                                                             const fs::path& output) const {
  printLine("\n=== Running Python Script ===");
  printLine("Python: " + python.string());
  printLine("Script: " + script.string());
  printLine("Input: " + input.string());
  printLine("Output: " + output.string());
  // Unbuffered, so that what it printed before a crash is not lost.
  const auto run = runProcess(python, {"-u", script.string(), input.string(), output.string()});
  if (!run) return Failure{run.error().description()};
  printOutput(run.value(), "Python");
  return resultOf(run.value());
}

// Fonts of one project on their way.
struct FontGenerator::Batch {
  struct Output {
    fs::path given;
    fs::path absolute; // a path that begins with a dash would be an option to the generator
  };

  FontProject project;
  std::vector<Output> outputs; // the one that takes longest first
  CompletionOfOne completion;
  fs::path input;
  std::atomic<std::size_t> next = 0;
  std::atomic<std::size_t> finished = 0;
  std::atomic<bool> hasFailed = false;
};

void FontGenerator::generateFont(FontProject project, const fs::path& outputURL,
                                 Completion completion) const {
  generateFonts(std::move(project), {outputURL},
                [completion = std::move(completion)](const fs::path&, const auto& result) {
                  completion(result);
                });
}

void FontGenerator::generateFonts(FontProject project, const std::vector<fs::path>& outputURLs,
                                  CompletionOfOne completion) const {
  const auto batch = std::make_shared<Batch>();
  for (const fs::path& outputURL : outputURLs) {
    printLine("\n🚀 FontGenerator.generateFont() called");
    printLine("   Project: " + project.name);
    printLine("   Glyphs: " + std::to_string(project.glyphs.size()));
    printLine("   Kerning pairs: " + std::to_string(project.kerningPairs.size()));
    std::error_code error;
    const fs::path absolute = fs::absolute(outputURL, error);
    batch->outputs.push_back({outputURL, error ? outputURL : absolute});
    printLine("   Output: " + batch->outputs.back().absolute.string());
  }
  std::stable_partition(batch->outputs.begin(), batch->outputs.end(),
                        [](const Batch::Output& output) {
                          return lowercased(output.given.extension().string()) == ".woff2";
                        });
  batch->project = std::move(project);
  batch->completion = std::move(completion);
  // This may be gone before the work is done, so the work has its own copy.
  desktop_->runInBackground([generator = *this, batch] {
    printLine("   ✓ Background thread started in FontGenerator");
    const auto input = writeGeneratorInput(batch->project);
    if (!input) {
      const GenerationError error(input.error().description());
      for (const Batch::Output& output : batch->outputs)
        generator.desktop_->postToMain(
            [batch, output, error] { batch->completion(output.given, Failure{error}); });
      return;
    }
    batch->input = input.value();
    batch->project = {}; // a generator is about to need the memory
    releaseFreedMemory();
    const std::size_t lanes = std::min<std::size_t>(
        batch->outputs.size(), std::max(std::thread::hardware_concurrency(), 1U));
    for (std::size_t lane = 1; lane < lanes; ++lane)
      generator.desktop_->runInBackground([generator, batch] { generator.generate(batch); });
    generator.generate(batch);
  });
}

void FontGenerator::generate(const std::shared_ptr<Batch>& batch) const {
  for (std::size_t i = batch->next++; i < batch->outputs.size(); i = batch->next++) {
    const Batch::Output& output = batch->outputs[i];
    auto result = runGenerator(batch->input, output.absolute);
    if (!result) batch->hasFailed = true;
    std::error_code ignored;
    if (++batch->finished == batch->outputs.size() && !batch->hasFailed)
      fs::remove(batch->input, ignored);
    desktop_->postToMain(
        [batch, output, result = std::move(result)] { batch->completion(output.given, result); });
  }
}

Result<void, GenerationError> FontGenerator::runGenerator(const fs::path& input,
                                                          const fs::path& output) const {
  const auto location = findGenerator();
  if (!location) return Failure{location.error()};
  const auto& [program, script, usesPython] = location.value();
  return usesPython ? runPythonScript(program, *script, input, output)
                    : runPackagedGenerator(program, input, output);
}

} // namespace quillery

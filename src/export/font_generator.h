#pragma once

#include "base/result.h"
#include "model/font_project.h"
#include "project/desktop.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillery {

struct FontGeneratorError {
  enum class Kind { generationFailed, generatorNotFound, scriptNotFound };

  Kind kind;
  /// The generator's own words, for generationFailed.
  std::string message;

  static FontGeneratorError generationFailed(std::string message) {
    return {Kind::generationFailed, std::move(message)};
  }
  static FontGeneratorError generatorNotFound() { return {Kind::generatorNotFound, {}}; }

  /// For the user.
  std::string description() const;
  /// For diagnostics.
  std::string printed() const;
};

/// Why there is no font: the generator's error, or one of a file or of starting a program.
struct GenerationError {
  /// For diagnostics.
  std::string printed;
  /// For the user.
  std::string description;

  GenerationError(const FontGeneratorError& error)
      : printed(error.printed()), description(error.description()) {}
  /// An error that is told in the same words to everyone.
  explicit GenerationError(const std::string& text) : printed(text), description(text) {}
};

/// A program of its own, or a script that Python runs, which is slower and can be changed.
enum class GeneratorKind { native, python };

/// The program to start.
struct GeneratorLocation {
  /// The packaged generator, or the Python interpreter.
  std::filesystem::path executablePath;
  /// What the interpreter is to run; nothing for a packaged generator.
  std::optional<std::filesystem::path> scriptPath;
  bool usesPython = false;
};

struct GeneratorAvailability {
  bool available = false;
  std::string message;
};

/// Where a generator is looked for.
struct GeneratorPlaces {
  /// The folder of the files that ship with the program, if there is one.
  std::optional<std::filesystem::path> resourceFolder;
  /// A generator in the build tree and one in the source tree, for a program that was not
  /// installed; empty for none.
  std::filesystem::path developmentExecutable;
  std::filesystem::path developmentScript;
  /// Interpreters, the best first.
  std::vector<std::filesystem::path> pythonCandidates = {
      "/opt/homebrew/bin/python3", "/usr/local/bin/python3", "/usr/bin/python3"};
  /// The one kind that is looked for; nothing for the native one and, where it is absent, Python's.
  std::optional<GeneratorKind> only = std::nullopt;

  /// The first interpreter that is there.
  std::optional<std::filesystem::path> findPython() const;
};

/// Makes font files by running the font generator, a program of its own. Everything is looked up
/// afresh each time, so what is installed meanwhile is found. Prints what it does. All operations
/// but generateFont may be called on any thread.
class FontGenerator {
public:
  /// The desktop outlives this.
  FontGenerator(Desktop& desktop, GeneratorPlaces places);

  using Completion = std::function<void(const Result<void, GenerationError>&)>;

  /// Writes a font in the format that the extension of `outputURL` names, in the background, and
  /// calls `completion` once, on the main thread, never before this returns. Calls may overlap.
  /// The generator's input file stays in the temporary folder when something fails.
  void generateFont(FontProject project, const std::filesystem::path& outputURL,
                    Completion completion) const;

  using CompletionOfOne = std::function<void(const std::filesystem::path& outputURL,
                                             const Result<void, GenerationError>&)>;

  /// The same for several fonts of one project, which is described once for all: as many generators
  /// run at a time as there are processors. `completion` hears of each as soon as it is there.
  void generateFonts(FontProject project, const std::vector<std::filesystem::path>& outputURLs,
                     CompletionOfOne completion) const;

  /// Whether generateFont can work at all, and if not, what the user can do about it; the script
  /// is not looked for. May wait for a short run of Python.
  GeneratorAvailability checkGeneratorAvailability() const;

  Result<GeneratorLocation, FontGeneratorError> findGenerator() const;
  bool isFontToolsInstalled() const;

  /// Both wait for the generator, however long it takes. Success is its exit status alone.
  Result<void, GenerationError> runPackagedGenerator(const std::filesystem::path& executable,
                                                     const std::filesystem::path& input,
                                                     const std::filesystem::path& output) const;
  Result<void, GenerationError> runPythonScript(const std::filesystem::path& python,
                                                const std::filesystem::path& script,
                                                const std::filesystem::path& input,
                                                const std::filesystem::path& output) const;

private:
  struct Packaged;
  std::optional<Packaged> findPackaged() const;
  struct Batch;
  void generate(const std::shared_ptr<Batch>& batch) const;
  Result<void, GenerationError> runGenerator(const std::filesystem::path& input,
                                             const std::filesystem::path& output) const;

  Desktop* desktop_;
  GeneratorPlaces places_;
};

} // namespace quillery

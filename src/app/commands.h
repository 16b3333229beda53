#pragma once

#include "app/command_line.h"
#include "app/table.h"
#include "base/finite.h"
#include "base/utf8.h"
#include "drawing/flat_file.h"
#include "export/font_generator.h"
#include "model/glyph.h"
#include "svg/import_options.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillery {

// The commands of the command line: all but `flatten` open a project, run operations of the core on
// it and save it. What the arguments were read to is in the command's own record.

/// How drawings are read.
struct ReadingChoice {
  bool convert = false;
  DrawingPlacement placement = DrawingPlacement::edges;
  MakeFlattener makeFlattener;

  /// Only a converted drawing has an artboard.
  bool converts() const { return convert || placement == DrawingPlacement::artboard; }
};

struct ImportCommand {
  std::filesystem::path project;
  /// Files and folders.
  std::vector<std::filesystem::path> drawings;
  /// For a project that does not exist yet.
  std::optional<Utf8> name;
  /// Positive.
  std::optional<std::int64_t> unitsPerEm;
  ReadingChoice reading;
  /// A drawing of many letters.
  std::optional<std::filesystem::path> sheet;
  /// For those of its letters that are called nothing, in the order of the page.
  Utf8 characters;
};

struct FlattenCommand {
  /// Files and folders.
  std::vector<std::filesystem::path> drawings;
  /// A file, or a folder for several.
  std::filesystem::path output;
  FlatFit fit = FlatFit::edges;
  MakeFlattener makeFlattener;
};

struct WatchCommand {
  std::filesystem::path folder;
  std::filesystem::path project;
  std::vector<std::filesystem::path> fonts;
  ReadingChoice reading;
  /// Fonts are copied to the user's fonts.
  bool install = false;
};

struct ExportCommand {
  std::filesystem::path project;
  std::vector<std::filesystem::path> fonts;
  /// The one that is found, when none is chosen.
  std::optional<GeneratorKind> generator;
  /// A page about the first of the fonts.
  std::optional<std::filesystem::path> report;
};

struct CheckCommand {
  std::filesystem::path project;
  bool fix = false;
  TableForm form = TableForm::lines;
};

struct ConvertCommand {
  std::filesystem::path project;
  std::filesystem::path output;
};

struct MetricsCommand {
  std::filesystem::path project;
  std::vector<Utf8> glyphs;
  bool all = false;
  /// Finite, and positive for the scale; in the order in which they are applied. None: the metrics
  /// are printed.
  std::vector<MetricValue> changes;
  TableForm form = TableForm::lines;
};

struct KernCommand {
  struct Change {
    enum class Kind { common, set, remove } kind;
    Utf8 leftGlyph;
    Utf8 rightGlyph;
    Finite value;
  };

  std::filesystem::path project;
  Utf8 filter;
  /// In the order in which they are applied. None: the pairs are printed.
  std::vector<Change> changes;
  TableForm form = TableForm::lines;
};

struct PreviewCommand {
  std::filesystem::path project;
  Utf8 text;
  /// Points to the em; positive.
  double size = 48;
  std::filesystem::path output;
  /// For an output of pixels.
  PaintPreview paint;
};

ExitStatus run(const ImportCommand& command, const ProgramPlaces& places);
ExitStatus run(const FlattenCommand& command, const ProgramPlaces& places);
/// Ends when the user interrupts it or the system asks it to.
ExitStatus run(const WatchCommand& command, const ProgramPlaces& places);
ExitStatus run(const ExportCommand& command, const ProgramPlaces& places);
ExitStatus run(const CheckCommand& command, const ProgramPlaces& places);
ExitStatus run(const ConvertCommand& command, const ProgramPlaces& places);
ExitStatus run(const MetricsCommand& command, const ProgramPlaces& places);
ExitStatus run(const KernCommand& command, const ProgramPlaces& places);
ExitStatus run(const PreviewCommand& command, const ProgramPlaces& places);

/// Writes "quillery: MESSAGE" to standard error.
void printError(const std::string& message);

// -- What commands on drawings and fonts share

/// The options that a command imports with; nothing, and says so, when this build can't convert.
std::optional<ImportOptions> importOptions(const ReadingChoice& reading);
/// Prints what an import noted.
void printNotes(const ImportOutcome& outcome, const ReadingChoice& reading);
/// False, and says so, when one of them has the name of no font.
bool areFontFiles(const std::string& command, const std::vector<std::filesystem::path>& fonts);
GeneratorPlaces generatorPlaces(const ProgramPlaces& places);

} // namespace quillery

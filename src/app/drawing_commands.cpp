#include "app/commands.h"
#include "app/progress_line.h"
#include "app/session.h"
#include "base/file.h"
#include "base/listed.h"
#include "base/parallel.h"
#include "drawing/sheet_placement.h"
#include "svg/drawing_files.h"
#include "svg/sheet_import.h"
#include "svg/sheet_names.h"
#include "svg/svg_import.h"

#include <map>
#include <system_error>

namespace quillery {

namespace fs = std::filesystem;

namespace {

struct Operands {
  std::vector<fs::path> files;
  bool complete = true;
};

// Files, and what lies in folders; folders that can't be read are told.
Operands drawingsOf(const std::vector<fs::path>& operands, bool (*isWanted)(const fs::path&)) {
  Operands found;
  std::error_code error;
  for (const fs::path& operand : operands) {
    if (!fs::is_directory(operand, error)) {
      found.files.push_back(operand);
      continue;
    }
    const auto inside = drawingsInFolder(operand, isWanted);
    if (!inside) {
      printError(inside.error().description());
      found.complete = false;
      continue;
    }
    found.files.insert(found.files.end(), inside.value().begin(), inside.value().end());
  }
  return found;
}

// Null, and says so, when this build can't convert drawings.
std::shared_ptr<DrawingFlattener> makeOrTell(const MakeFlattener& make) {
  auto made = make ? make() : nullptr;
  if (!made) printError("This build can't convert drawings: it has no converter");
  return made;
}

} // namespace

std::optional<ImportOptions> importOptions(const ReadingChoice& reading) {
  ImportOptions options{.placement = reading.placement, .leaveOutEmpty = true, .lookThrough = true};
  if (!reading.converts()) return options;
  options.flattener = makeOrTell(reading.makeFlattener);
  if (!options.flattener) return std::nullopt;
  return options;
}

void printNotes(const ImportOutcome& outcome, const ReadingChoice& reading) {
  if (outcome.noted.empty()) return;
  const bool canConvert =
      !reading.converts() && reading.makeFlattener && reading.makeFlattener() != nullptr;
  for (const NotedDrawing& noted : outcome.noted) {
    const bool isLeftOut = noted.glyph == Uuid();
    std::string text = noted.file.string() + ": ";
    if (reading.converts())
      text += isLeftOut ? "could not be converted: " : "converted; ";
    else if (isLeftOut)
      text += "left out: ";
    printError(text + noted.reasons + (canConvert ? "; --convert reads them" : ""));
  }
}

namespace {

// Imports the letters of a sheet; nothing, and says so, when it can't be read.
std::optional<ImportOutcome> importSheet(ProjectManager& manager, const ImportCommand& command) {
  const auto flattener = makeOrTell(command.reading.makeFlattener);
  if (!flattener) return std::nullopt;
  FileBytes bytes;
  if (const auto read = readFile(*command.sheet, bytes); !read) {
    printError(read.error().description());
    return std::nullopt;
  }
  auto flat = flattener->flattenSheet(bytes.view());
  if (!flat) {
    printError(command.sheet->string() + ": could not be converted: " + flat.error());
    return std::nullopt;
  }
  DrawingSheet& sheet = flat.value();
  SheetNames names(sheet);
  names.setCharacters(command.characters);
  for (std::size_t i = 0; i < names.size(); ++i) sheet.letters[i].name = names.fileName(i);
  placeSheet(sheet, manager.currentProject());
  auto outcome = importLetters(manager, std::move(sheet));
  if (const std::size_t unnamed = names.size() - names.namedCount(); unnamed > 0) {
    printError(command.sheet->string() + ": " + std::to_string(unnamed) +
               (unnamed == 1 ? " letter is" : " letters are") +
               " called nothing and left out; --characters names them");
    outcome.skipped += unnamed;
  }
  return outcome;
}

} // namespace

ExitStatus run(const ImportCommand& command, const ProgramPlaces& places) {
  const auto options = importOptions(command.reading);
  if (!options) return ExitStatus::failed;
  Session session(places);
  std::error_code error;
  if (fs::exists(fs::symlink_status(command.project, error))) {
    if (command.name || command.unitsPerEm) {
      printError("--name and --units-per-em are for a new project, and " +
                 command.project.string() + " exists");
      return ExitStatus::wrongUsage;
    }
    if (!session.open(command.project)) return ExitStatus::failed;
  } else {
    session.manager().editFontInfo([&](FontInfo& font) {
      font.name = command.name.value_or(font.name);
      font.unitsPerEm = command.unitsPerEm.value_or(font.unitsPerEm);
    });
  }

  const auto [files, complete] =
      drawingsOf(command.drawings, command.reading.converts() ? isConvertible : isDrawing);
  ImportOutcome outcome;
  {
    ProgressLine line;
    const auto show = [&, count = files.size()](std::size_t done) {
      line.update("Importing " + std::to_string(done) + " of " + std::to_string(count) +
                  " drawings");
    };
    outcome = line.isShown() ? importSVGFiles(session.manager(), files, *options, show)
                             : importSVGFiles(session.manager(), files, *options);
  }
  printNotes(outcome, command.reading);
  bool done = complete && outcome.skipped == 0;
  if (command.sheet) {
    const auto letters = importSheet(session.manager(), command);
    if (!letters && command.drawings.empty()) return ExitStatus::failed;
    for (const NotedDrawing& letter : letters ? letters->noted : std::vector<NotedDrawing>{})
      printError(command.sheet->string() + ": " + letter.file.string() + ": " + letter.reasons);
    done = done && letters && letters->skipped == 0;
  }
  return session.save(command.project, done ? ExitStatus::done : ExitStatus::incomplete);
}

namespace {

struct Writing {
  std::string error; // empty when it is written
  std::string notes;
};

Writing flattenTo(const fs::path& output, const fs::path& drawing, FlatFit fit,
                  DrawingFlattener& flattener) {
  std::error_code unknown;
  // The flat drawing lacks what its program knows (text, layers), so it never replaces its source.
  if (fs::equivalent(drawing, output, unknown)) return {"would be written over itself", {}};
  FileBytes content;
  if (const auto read = readFile(drawing, content); !read) return {read.error().reason, {}};
  const auto flat = flattener.flatten(content.view());
  if (!flat) return {"could not be converted: " + flat.error(), {}};
  if (const auto written = replaceFile(output, flatFile(flat.value(), fit)); !written)
    return {"could not be written: " + written.error().description(), {}};
  return {{}, listed(flat.value().notes)};
}

} // namespace

ExitStatus run(const FlattenCommand& command, const ProgramPlaces&) {
  const auto converter = makeOrTell(command.makeFlattener);
  if (!converter) return ExitStatus::failed;
  std::error_code error;
  const bool toFolder = command.drawings.size() > 1 || fs::is_directory(command.output, error) ||
                        fs::is_directory(command.drawings.front(), error);
  if (toFolder && fs::exists(command.output, error) && !fs::is_directory(command.output, error)) {
    printError("flatten: " + command.output.string() +
               " is no folder, which several drawings need");
    return ExitStatus::wrongUsage;
  }
  auto [files, complete] = drawingsOf(command.drawings, isConvertible);
  if (toFolder) fs::create_directories(command.output, error); // what can't be is told by each file

  struct Job {
    fs::path drawing, output;
  };
  std::vector<Job> jobs;
  std::map<fs::path, fs::path> taken;
  for (const fs::path& drawing : files) {
    const fs::path output =
        toFolder ? command.output / drawing.filename().replace_extension(kDrawingExtension)
                 : command.output;
    const auto [other, isFree] = taken.emplace(output, drawing);
    if (!isFree) {
      printError(drawing.string() + ": " + output.string() + " is already written of " +
                 other->second.string());
      complete = false;
      continue;
    }
    jobs.push_back({drawing, output});
  }
  std::size_t written = 0;
  ProgressLine line;
  produceInOrder(
      jobs.size(),
      [&](std::size_t i) {
        return flattenTo(jobs[i].output, jobs[i].drawing, command.fit, *converter);
      },
      [&](std::size_t i, const Writing& writing) {
        line.update("Converting " + std::to_string(i) + " of " + std::to_string(jobs.size()) +
                    " drawings");
        const std::string name = jobs[i].drawing.string() + ": ";
        if (!writing.error.empty()) {
          printError(name + writing.error);
          complete = false;
          return true;
        }
        ++written;
        if (!writing.notes.empty()) printError(name + "converted; " + writing.notes);
        return true;
      });
  if (complete && written > 0) return ExitStatus::done;
  return written > 0 ? ExitStatus::incomplete : ExitStatus::failed;
}

} // namespace quillery

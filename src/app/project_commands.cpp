#include "app/commands.h"
#include "app/progress_line.h"
#include "app/session.h"
#include "base/console.h"
#include "base/numbers.h"
#include "base/unicode.h"
#include "export/export_fixes.h"
#include "export/export_validation.h"
#include "kerning/kerning_pairs.h"
#include "preview/preview_document.h"
#include "svg/drawing_files.h"
#include "svg/svg_import.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <system_error>
#include <unordered_set>

namespace quillery {

namespace fs = std::filesystem;

void printError(const std::string& message) {
  const std::size_t end = message.find_last_not_of('\n'); // what a generator wrote ends a line
  std::fputs(("quillery: " + message.substr(0, end + 1) + "\n").c_str(), stderr);
}

ExitStatus run(const ImportCommand& command, const ProgramPlaces& places) {
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

  auto status = ExitStatus::done;
  std::vector<fs::path> files;
  for (const fs::path& drawing : command.drawings) {
    if (!fs::is_directory(drawing, error)) {
      files.push_back(drawing);
      continue;
    }
    const auto found = drawingsInFolder(drawing);
    if (!found) {
      printError(found.error().description());
      status = ExitStatus::incomplete;
      continue;
    }
    files.insert(files.end(), found.value().begin(), found.value().end());
  }
  ImportOutcome outcome;
  {
    ProgressLine line;
    const auto show = [&](std::size_t done) {
      line.update("Importing " + std::to_string(done) + " of " + std::to_string(files.size()) +
                  " drawings");
    };
    outcome = line.isShown() ? importSVGFiles(session.manager(), files, show)
                             : importSVGFiles(session.manager(), files);
  }
  if (outcome.skipped > 0) status = ExitStatus::incomplete;
  return session.save(command.project, status);
}

ExitStatus run(const CheckCommand& command, const ProgramPlaces& places) {
  Session session(places);
  if (!session.open(command.project)) return ExitStatus::failed;
  auto warnings = validateForExport(session.project());
  if (command.fix) {
    const auto asksFor = [&](FixAction action) {
      return std::any_of(warnings.begin(), warnings.end(),
                         [&](const ExportWarning& warning) { return warning.fixAction == action; });
    };
    const bool addSpace = asksFor(FixAction::addSpace);
    const bool addNotdef = asksFor(FixAction::addNotdef);
    if (addSpace) addSpaceGlyph(session.manager());
    if (addNotdef) addNotdefGlyph(session.manager());
    if ((addSpace || addNotdef) && session.save(command.project) != ExitStatus::done)
      return ExitStatus::failed;
    warnings = validateForExport(session.project());
  }
  for (const ExportWarning& warning : warnings)
    printLine(std::string(severityMark(warning.severity)) + " " + warning.title + ": " +
              warning.message);
  return warnings.empty() ? ExitStatus::done : ExitStatus::incomplete;
}

ExitStatus run(const ConvertCommand& command, const ProgramPlaces& places) {
  Session session(places);
  if (!session.open(command.project)) return ExitStatus::failed;
  fs::path output = command.output;
  const std::string extension = std::string(".") + kProjectExtension;
  if (lowercased(output.extension().string()) != extension) output += extension;
  return session.save(output);
}

namespace {

void apply(const MetricsCommand::Change& change, Glyph& glyph) {
  using Metric = MetricsCommand::Metric;
  switch (change.metric) {
  case Metric::leftSideBearing:
    return glyph.setLeftSideBearing(change.value);
  case Metric::rightSideBearing:
    return glyph.setRightSideBearing(change.value);
  case Metric::advanceWidth:
    return glyph.setAdvanceWidth(change.value);
  case Metric::verticalOffset:
    return glyph.setVerticalOffset(change.value);
  case Metric::scale:
    return glyph.setScale(change.value);
  }
}

// Columns padded to their widest cell.
void printTable(const std::vector<std::vector<std::string>>& rows) {
  const LineBatch batch;
  std::vector<std::size_t> widths(rows.front().size());
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], characters(row[i]).size());
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - characters(row[i]).size() + 2, ' ');
    }
    printLine(line);
  }
}

void printMetrics(const std::vector<const Glyph*>& glyphs) {
  std::vector<std::vector<std::string>> rows = {{"glyph", "character", "advanceWidth",
                                                 "leftSideBearing", "rightSideBearing",
                                                 "verticalOffset", "scale"}};
  for (const Glyph* glyph : glyphs)
    rows.push_back({glyph->name(), glyph->unicode().value_or("-"),
                    formatShortest(glyph->advanceWidth()), formatShortest(glyph->leftSideBearing()),
                    formatShortest(glyph->rightSideBearing()),
                    formatShortest(glyph->verticalOffset()), formatShortest(glyph->scale())});
  printTable(rows);
}

} // namespace

ExitStatus run(const MetricsCommand& command, const ProgramPlaces& places) {
  if (!command.changes.empty() && command.glyphs.empty() && !command.all) {
    printError("metrics: name the glyphs to change, or give --all");
    return ExitStatus::wrongUsage;
  }
  Session session(places);
  if (!session.open(command.project)) return ExitStatus::failed;

  auto status = ExitStatus::done;
  std::unordered_set<std::string> names;
  for (const std::string& name : command.glyphs) {
    if (session.manager().firstGlyphNamed(name)) {
      names.insert(name);
    } else {
      printError("metrics: no glyph is named " + name);
      status = ExitStatus::incomplete;
    }
  }
  const bool everyGlyph = command.all || command.glyphs.empty();
  std::vector<const Glyph*> glyphs;
  for (const Glyph& glyph : session.project().glyphs)
    if (everyGlyph || names.contains(glyph.name())) glyphs.push_back(&glyph);
  if (command.changes.empty()) {
    printMetrics(glyphs);
    return status;
  }
  for (const Glyph* glyph : glyphs)
    session.manager().editGlyph(glyph->id(), [&](Glyph& edited) {
      for (const MetricsCommand::Change& change : command.changes) apply(change, edited);
    });
  return session.save(command.project, status);
}

ExitStatus run(const KernCommand& command, const ProgramPlaces& places) {
  Session session(places);
  if (!session.open(command.project)) return ExitStatus::failed;
  if (command.changes.empty()) {
    const LineBatch batch;
    for (const KerningPair* pair : filteredKerningPairs(session.project(), command.filter))
      printLine(pair->leftGlyph + " " + pair->rightGlyph + " " + formatShortest(pair->value));
    return ExitStatus::done;
  }

  auto status = ExitStatus::done;
  ProjectManager& manager = session.manager();
  for (const KernCommand::Change& change : command.changes) {
    if (change.kind == KernCommand::Change::Kind::common) {
      generateCommonKerningPairs(manager);
      continue;
    }
    const KerningPair* pair =
        firstKerningPair(session.project(), change.leftGlyph, change.rightGlyph);
    if (change.kind == KernCommand::Change::Kind::set) {
      const Uuid id =
          pair ? pair->id : addKerningPair(manager, change.leftGlyph, change.rightGlyph);
      manager.setKerningValue(id, change.value);
    } else if (pair) {
      deleteKerningPair(manager, pair->id);
    } else {
      printError("kern: there is no pair " + change.leftGlyph + " " + change.rightGlyph);
      status = ExitStatus::incomplete;
    }
  }
  return session.save(command.project, status);
}

namespace {

using MakeDocument = std::function<Result<std::string, std::string>(const TextLayout& layout,
                                                                    const FontProject& project)>;

// Documents that have a page, which needs a size.
MakeDocument onPage(MakeDocument make) {
  return [make = std::move(make)](const TextLayout& layout,
                                  const FontProject& project) -> Result<std::string, std::string> {
    const Size size = layout.contentSize;
    if (std::isfinite(size.width) && std::isfinite(size.height) && size.width > 0 &&
        size.height > 0)
      return make(layout, project);
    return Failure{std::string("the text has no size that a page can have")};
  };
}

} // namespace

ExitStatus run(const PreviewCommand& command, const ProgramPlaces& places) {
  const PaintPreview png = command.paint ? onPage(command.paint) : nullptr;
  const std::map<std::string, MakeDocument> formats = {
      {".json", previewJson}, {".svg", previewSvg}, {".pdf", onPage(previewPdf)}, {".png", png}};
  const std::string extension = lowercased(command.output.extension().string());
  const auto format = formats.find(extension);
  if (format == formats.end()) {
    printError("preview: the output ends in .png, .svg, .pdf or .json, not in \"" + extension +
               "\"");
    return ExitStatus::wrongUsage;
  }
  if (!format->second) {
    printError("preview: this build can't write " + extension + " pictures");
    return ExitStatus::failed;
  }
  Session session(places);
  if (!session.open(command.project)) return ExitStatus::failed;
  const FontProject& project = session.project();
  const TextLayout layout = layoutText(command.text, project, session.manager().glyphIndex(),
                                       KerningTable(project.kerningPairs), command.size);
  const auto document = format->second(layout, project);
  if (!document) {
    printError("Could not make the preview: " + document.error());
    return ExitStatus::failed;
  }
  if (const auto written = replaceFile(command.output, document.value()); !written) {
    printError("Could not write the preview: " + written.error().description());
    return ExitStatus::failed;
  }
  return ExitStatus::done;
}

} // namespace quillery

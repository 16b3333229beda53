#include "app/commands.h"
#include "app/session.h"
#include "base/console.h"
#include "base/numbers.h"
#include "base/unicode.h"
#include "export/export_fixes.h"
#include "export/export_validation.h"
#include "kerning/kerning_pairs.h"
#include "preview/preview_document.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <unordered_set>

namespace quillery {

namespace fs = std::filesystem;

void printError(const std::string& message) {
  const std::size_t end = message.find_last_not_of('\n'); // what a generator wrote ends a line
  std::fputs(("quillery: " + message.substr(0, end + 1) + "\n").c_str(), stderr);
}

namespace {

void print(const Table& table, TableForm form) {
  const LineBatch batch;
  if (form == TableForm::lines)
    for (const std::string& line : table.lines()) printLine(line);
  else
    printData(form == TableForm::json ? table.json() : table.tsv());
}

std::string name(Severity severity) {
  switch (severity) {
  case Severity::critical:
    return "critical";
  case Severity::warning:
    return "warning";
  case Severity::info:
    break;
  }
  return "info";
}

} // namespace

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
  if (command.form == TableForm::lines) {
    for (const ExportWarning& warning : warnings)
      printLine(std::string(severityMark(warning.severity)) + " " + warning.title + ": " +
                warning.message);
  } else {
    Table table({"severity", "title", "message"});
    for (const ExportWarning& warning : warnings)
      table.add({name(warning.severity), warning.title, warning.message});
    print(table, command.form);
  }
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

Table metricsTable(const std::vector<const Glyph*>& glyphs) {
  Table table({"glyph", "character", "advanceWidth", "leftSideBearing", "rightSideBearing",
               "verticalOffset", "scale"});
  for (const Glyph* glyph : glyphs)
    table.add({glyph->name().str(),
               glyph->unicode() ? Table::Cell(glyph->unicode()->str()) : Table::Cell(),
               glyph->advanceWidth(), glyph->leftSideBearing(), glyph->rightSideBearing(),
               glyph->verticalOffset(), glyph->scale()});
  return table;
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
  for (const Utf8& name : command.glyphs) {
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
    print(metricsTable(glyphs), command.form);
    return status;
  }
  for (const Glyph* glyph : glyphs)
    session.manager().editGlyph(glyph->id(), [&](Glyph& edited) {
      for (const MetricValue& change : command.changes)
        edited.setMetric(change.metric, change.value);
    });
  return session.save(command.project, status);
}

ExitStatus run(const KernCommand& command, const ProgramPlaces& places) {
  Session session(places);
  if (!session.open(command.project)) return ExitStatus::failed;
  if (command.changes.empty()) {
    const auto pairs = filteredKerningPairs(session.project(), command.filter);
    if (command.form == TableForm::lines) {
      const LineBatch batch;
      for (const KerningPair* pair : pairs)
        printLine(pair->leftGlyph + " " + pair->rightGlyph + " " + formatShortest(pair->value));
      return ExitStatus::done;
    }
    Table table({"left", "right", "value"});
    for (const KerningPair* pair : pairs)
      table.add({pair->leftGlyph.str(), pair->rightGlyph.str(), double(pair->value)});
    print(table, command.form);
    return ExitStatus::done;
  }

  auto status = ExitStatus::done;
  ProjectManager& manager = session.manager();
  for (const KernCommand::Change& change : command.changes) {
    if (change.kind == KernCommand::Change::Kind::common) {
      generateCommonKerningPairs(manager);
      continue;
    }
    const KerningPair* pair = manager.firstKerningPair(change.leftGlyph, change.rightGlyph);
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

// A page needs a size, which a text in an em of no units has not.
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
  const std::map<std::string, MakeDocument> formats = {{".json", onPage(previewJson)},
                                                       {".svg", onPage(previewSvg)},
                                                       {".pdf", onPage(previewPdf)},
                                                       {".png", png}};
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
                                       session.manager().kerningIndex(), command.size);
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
